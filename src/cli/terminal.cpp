#include "cli/terminal.h"

#include <cstdlib>

#ifdef _WIN32
#include <io.h>
#else
#include <unistd.h>
#endif

namespace kestrum::cli {

namespace {

bool IsTerminal(int descriptor)
{
#ifdef _WIN32
    return _isatty(descriptor) != 0;
#else
    return isatty(descriptor) != 0;
#endif
}

std::string_view Environment(const char* name)
{
    const char* const value = std::getenv(name);
    return value == nullptr ? std::string_view{} : std::string_view(value);
}

std::string_view Code(Ink ink)
{
    switch (ink) {
    case Ink::good:
        return "\x1B[32m";
    case Ink::bad:
        return "\x1B[1;31m";
    default:
        return "\x1B[1m";
    }
}

}  // namespace

bool OutputIsTerminal()
{
    return IsTerminal(1);
}

bool ErrorsAreTerminal()
{
    return IsTerminal(2);
}

bool Coloured(Color wanted)
{
    if (wanted != Color::automatic) {
        return wanted == Color::always;
    }
    return OutputIsTerminal() && Environment("NO_COLOR").empty() && Environment("TERM") != "dumb";
}

std::string Painted(std::string_view text, Ink ink, bool coloured)
{
    if (!coloured) {
        return std::string(text);
    }
    return std::string(Code(ink)).append(text).append("\x1B[0m");
}

}  // namespace kestrum::cli
