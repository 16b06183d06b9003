#pragma once

// What differs from platform to platform, without a toolkit. Everything but the two calls to the
// system is pure, so that each platform's answers are tested on every other one; the calls stand in
// platform_unix.cpp (Linux and macOS) and platform_windows.cpp. Texts are UTF-8.

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace kestrum {

enum class Platform { linux_desktop, macos, windows };

#if defined(_WIN32)
constexpr Platform kPlatform = Platform::windows;
#elif defined(__APPLE__)
constexpr Platform kPlatform = Platform::macos;
#else
constexpr Platform kPlatform = Platform::linux_desktop;
#endif

// The arguments of this process, the program's name first. On Windows they are taken from the
// system, because `argv` has them in the code page of the machine.
std::vector<std::string> Arguments(int argc, char** argv);

// The raw command line behind the program's name, as it was typed, without blanks around it. Where
// a shell has taken the quotes away, the first argument is put back into them. Empty without
// arguments. A file opened from the Finder of macOS arrives as an event of the application instead.
std::string RawCommandLine(int argc, char** argv);

// The part of a command line of Windows behind the program's name, without blanks around it. A name
// in quotes ends at the second quote, any other one at the first blank or tab.
std::string_view BehindProgramName(std::string_view commandline);

// A variable of the environment; empty when it is not set.
std::string Variable(const char* name);

// Folder for what the program keeps between two starts and the user never sees, by the variables:
// $XDG_STATE_HOME or ~/.local/state, on macOS the application support of the user, on Windows the
// local application data. Empty when no variable tells.
std::string StateFolder(const std::function<std::string(const char* name)>& variable = Variable,
                        Platform platform = kPlatform);

// Folder of the manuals for a program that lies in `folder`, with a separator at its end: on
// Windows "Help" beside the program; in a bundle of macOS "Resources/Help" beside "MacOS"; else
// "share/doc/kestrum-ec3" beside "bin", in a build tree as in the system.
std::string ManualFolder(std::string_view folder, Platform platform = kPlatform);

}  // namespace kestrum
