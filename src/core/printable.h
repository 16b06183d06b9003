#pragma once

// Texts that others chose, on the way to a terminal: names of files, identifiers, what a message
// quotes. A terminal obeys control characters, which would let a name hide or forge what is shown.

#include <string>
#include <string_view>

namespace kestrum {

// One line: a question mark for each control character (C0, delete, C1 of Unicode), for each line
// end and for each byte that is no UTF-8.
std::string Printable(std::string_view text);

// The same for a text of several lines: line ends and tabs stay.
std::string PrintableLines(std::string_view text);

}  // namespace kestrum
