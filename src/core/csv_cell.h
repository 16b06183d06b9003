#pragma once

// Cells of a CSV that is written.

#include <cstdint>
#include <string>
#include <string_view>

namespace kestrum {

// A spreadsheet takes a cell that begins with = + - or @ for a formula and runs it. `safe` puts an
// apostrophe in front of such a text; a number keeps its sign.
enum class CsvTexts : std::uint8_t { plain, safe };

// How a CSV is written. Where the decimal sign is a comma, the delimiter is none.
struct CsvForm {
    constexpr CsvForm(CsvTexts how = CsvTexts::plain) : texts(how) {}

    CsvTexts texts;
    char delimiter = ',';  // or a semicolon, or a tab
    char point = '.';      // or a comma
};

// A text as a cell of a CSV with any delimiter, in quotes where it needs them. A record is one line
// and may be shown on a terminal: a line end becomes a blank, another control character a question
// mark.
void AppendCell(std::string& out, std::string_view text, CsvTexts texts = CsvTexts::plain);

// The names of columns, given with commas between them.
std::string CsvNames(std::string_view names, const CsvForm& form);

// Gives the number that was appended from `first` on the decimal sign of the form.
void SetPoint(std::string& out, std::size_t first, const CsvForm& form);

// A text read from such a cell, without the apostrophe of `safe`.
std::string_view WithoutMark(std::string_view text);

}  // namespace kestrum
