#pragma once

// Texts in UTF-8: what other encodings become, and what of a text may be shown.

#include <string>
#include <string_view>

namespace kestrum {

// Whether the bytes are UTF-8 (RFC 3629); what is not is taken as Windows-1252.
bool IsUtf8(std::string_view text);
std::string AsUtf8(std::string_view text);

// Appends one character, up to U+10FFFF.
void AppendUtf8(std::string& out, unsigned code);

// A text that others chose (name of a file, identifier, what a message quotes) on its way to a
// terminal, which obeys control characters: they would let a name hide or forge what is shown. One
// line in UTF-8, with a question mark for each control character (C0, delete, C1) and line end.
std::string Printable(std::string_view text);

// The same for a text of several lines: line ends and tabs stay.
std::string PrintableLines(std::string_view text);

}  // namespace kestrum
