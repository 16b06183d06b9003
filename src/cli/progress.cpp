#include "cli/progress.h"

#include <algorithm>
#include <cmath>
#include <iostream>
#include <string>

#ifndef _WIN32
#include <unistd.h>
#endif

namespace kestrum::cli {

namespace {

constexpr std::size_t kBars = 20, kWidth = 79;  // no line of a terminal is filled up

bool OnTerminal()
{
#ifdef _WIN32
    return false;
#else
    return isatty(STDERR_FILENO) != 0;
#endif
}

}  // namespace

Progress::Progress(std::string_view what) : what_(what), terminal_(OnTerminal()) {}

Progress::~Progress()
{
    Wipe();
}

void Progress::Show(std::size_t count, std::uintmax_t taken, std::uintmax_t whole)
{
    const Clock::time_point now = Clock::now();
    if (!terminal_ || now < next_) {
        return;
    }
    next_ = now + std::chrono::milliseconds(200);
    const double seconds = std::chrono::duration<double>(now - start_).count();
    const auto rate = static_cast<double>(count) / std::max(seconds, 0.001);
    std::string line = "\r";
    if (whole > 0 && taken > 0) {
        const double part = std::min(1.0, static_cast<double>(taken) / static_cast<double>(whole));
        const auto bars = static_cast<std::size_t>(std::lround(part * kBars));
        line += "[" + std::string(bars, '#') + std::string(kBars - bars, '.') + "] ";
        line += std::to_string(std::lround(100 * part)) + " %, " +
                std::to_string(std::lround(seconds / part - seconds)) + " s left, ";
    }
    line += std::to_string(count) + " " + std::string(what_) + ", " +
            std::to_string(std::lround(rate)) + "/s";
    line.resize(1 + kWidth, ' ');
    std::cerr << line << std::flush;
    shown_ = true;
}

void Progress::Wipe()
{
    if (shown_) {
        std::cerr << "\r" + std::string(kWidth, ' ') + "\r" << std::flush;
        shown_ = false;
    }
}

}  // namespace kestrum::cli
