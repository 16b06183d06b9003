#pragma once

// What the commands know of the terminal: whether there is one, and colours on it.

#include <cstdint>
#include <string>
#include <string_view>

namespace kestrum::cli {

enum class Color : std::uint8_t { automatic, always, never };

bool OutputIsTerminal();  // standard output
bool ErrorsAreTerminal();

// Whether the answer on standard output is coloured. `automatic` colours a terminal unless NO_COLOR
// is set to something or TERM is "dumb".
bool Coloured(Color wanted);

enum class Ink : std::uint8_t { good, bad, heading };

// The text in a colour, or as it is.
std::string Painted(std::string_view text, Ink ink, bool coloured);

}  // namespace kestrum::cli
