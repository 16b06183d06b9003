#pragma once

// Cells of a CSV that is written.

#include <cstdint>
#include <string>
#include <string_view>

namespace kestrum {

// A spreadsheet takes a cell that begins with = + - or @ for a formula and runs it. `safe` puts an
// apostrophe in front of such a text; a number keeps its sign.
enum class CsvTexts : std::uint8_t { plain, safe };

// A text as a cell of a CSV with commas, in quotes where it needs them. A record is one line and
// may be shown on a terminal: a line end becomes a blank, another control character a question
// mark.
void AppendCell(std::string& out, std::string_view text, CsvTexts texts = CsvTexts::plain);

// A text read from such a cell, without the apostrophe of `safe`.
std::string_view WithoutMark(std::string_view text);

}  // namespace kestrum
