#pragma once

// Rate and time left of a long run, on a terminal; silent elsewhere.

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace kestrum::cli {

class Progress {
public:
    explicit Progress(std::string_view what);  // "members"
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    // `taken` of `whole` bytes or files; nobody knows how many when that is 0.
    void Show(std::size_t count, std::uintmax_t taken, std::uintmax_t whole);

    // Makes room for something else to be told.
    void Wipe();

private:
    using Clock = std::chrono::steady_clock;

    std::string_view what_;
    bool terminal_;
    bool shown_ = false;
    Clock::time_point start_ = Clock::now(), next_ = start_ + std::chrono::milliseconds(500);
};

}  // namespace kestrum::cli
