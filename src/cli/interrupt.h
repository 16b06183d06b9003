#pragma once

// Ctrl-C and its like (SIGINT, SIGTERM, SIGHUP) in a long run: the first asks it to come to an end,
// the second ends the program as if nobody listened.

#include <string_view>

namespace kestrum::cli {

class Interrupt {
public:
    // One at a time. Threads that are to be left alone by the signals are started afterwards.
    Interrupt();
    ~Interrupt();
    Interrupt(const Interrupt&) = delete;
    Interrupt& operator=(const Interrupt&) = delete;

    bool raised() const;

    // Waits until the descriptor has something to read. False when the user asked for the end.
    bool WaitFor(int descriptor) const;

    // Ends the program by the signal that was raised, as whoever started it expects.
    [[noreturn]] void End() const;
};

}  // namespace kestrum::cli
