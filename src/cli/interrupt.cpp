#include "cli/interrupt.h"

#include <csignal>
#include <cstdlib>

#ifndef _WIN32
#include <cerrno>
#include <fcntl.h>
#include <poll.h>
#include <unistd.h>
#endif

namespace kestrum::cli {

namespace {

volatile std::sig_atomic_t raised_signal = 0;

}  // namespace

#ifdef _WIN32

namespace {

void Note(int signal)
{
    raised_signal = signal;
    std::signal(signal, SIG_DFL);
}

}  // namespace

Interrupt::Interrupt()
{
    raised_signal = 0;
    std::signal(SIGINT, Note);
}

Interrupt::~Interrupt()
{
    std::signal(SIGINT, SIG_DFL);
}

bool Interrupt::WaitFor(int) const
{
    return !raised();
}

void Interrupt::End() const
{
    std::_Exit(128 + static_cast<int>(raised_signal));
}

#else

namespace {

constexpr int kSignals[] = {SIGINT, SIGTERM, SIGHUP};

// A signal between a look at it and the wait for input would be missed; a byte in a pipe is not.
int wake[2] = {-1, -1};
struct sigaction before[std::size(kSignals)];

extern "C" void NoteSignal(int signal)
{
    const int kept = errno;
    raised_signal = signal;
    const char byte = 0;
    [[maybe_unused]] const ssize_t written = write(wake[1], &byte, 1);
    errno = kept;
}

}  // namespace

Interrupt::Interrupt()
{
    raised_signal = 0;
    if (pipe2(wake, O_CLOEXEC | O_NONBLOCK) != 0) {
        return;  // the signals then end the program, as they do without this
    }
    struct sigaction action {};
    action.sa_handler = NoteSignal;
    action.sa_flags = static_cast<int>(SA_RESETHAND) | SA_RESTART;
    for (std::size_t i = 0; i < std::size(kSignals); ++i) {
        sigaction(kSignals[i], nullptr, &before[i]);
        if (before[i].sa_handler != SIG_IGN) {  // nohup stays in force
            sigaction(kSignals[i], &action, nullptr);
        }
    }
}

Interrupt::~Interrupt()
{
    if (wake[0] < 0) {
        return;
    }
    for (std::size_t i = 0; i < std::size(kSignals); ++i) {
        sigaction(kSignals[i], &before[i], nullptr);
    }
    for (int& end : wake) {
        close(end);
        end = -1;
    }
}

bool Interrupt::WaitFor(int descriptor) const
{
    pollfd ends[] = {{descriptor, POLLIN, 0}, {wake[0], POLLIN, 0}};
    while (!raised() && poll(ends, std::size(ends), -1) < 0 && errno == EINTR) {
    }
    return !raised();
}

void Interrupt::End() const
{
    const int signal = static_cast<int>(raised_signal);
    std::signal(signal, SIG_DFL);
    raise(signal);
    std::_Exit(128 + signal);
}

#endif

bool Interrupt::raised() const
{
    return raised_signal != 0;
}

}  // namespace kestrum::cli
