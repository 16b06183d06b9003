#include "core/csv_cell.h"

#include "core/utf8_text.h"

#include <algorithm>

namespace kestrum {

namespace {

// Behind its sign.
bool IsNumber(std::string_view text)
{
    constexpr std::string_view kOfNumbers = "0123456789.";
    const std::string_view digits = text.substr(1);
    return (text[0] == '+' || text[0] == '-') && !digits.empty() &&
           digits.find_first_not_of(kOfNumbers) == std::string_view::npos;
}

// Behind blanks too, which a spreadsheet may strip.
bool Runs(std::string_view text)
{
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) {
        return false;
    }
    const std::string_view rest = text.substr(first);
    constexpr std::string_view kStarts = "=+-@";
    return kStarts.find(rest[0]) != std::string_view::npos && !IsNumber(rest);
}

bool Plain(char c)
{
    const auto byte = static_cast<unsigned char>(c);
    return byte >= 0x20 && byte < 0x7F;
}

// A text of printable characters.
void AppendQuoted(std::string& out, std::string_view text, CsvTexts texts)
{
    const bool quoted = text.find_first_of(",;\"") != std::string_view::npos;
    out.append(quoted ? 1 : 0, '"');
    out.append(texts == CsvTexts::safe && Runs(text) ? 1 : 0, '\'');
    for (const char c : text) {
        out.append(c == '"' ? 2 : 1, c);
    }
    out.append(quoted ? 1 : 0, '"');
}

}  // namespace

void AppendCell(std::string& out, std::string_view text, CsvTexts texts)
{
    if (std::all_of(text.begin(), text.end(), Plain)) {
        AppendQuoted(out, text, texts);
        return;
    }
    std::string line(text);
    std::replace_if(
        line.begin(), line.end(), [](char c) { return c == '\n' || c == '\r' || c == '\t'; }, ' ');
    AppendQuoted(out, Printable(line), texts);
}

std::string CsvNames(std::string_view names, const CsvForm& form)
{
    std::string line(names);
    std::replace(line.begin(), line.end(), ',', form.delimiter);
    return line;
}

void SetPoint(std::string& out, std::size_t first, const CsvForm& form)
{
    const std::size_t at = form.point != '.' ? out.find('.', first) : std::string::npos;
    if (at != std::string::npos) {
        out[at] = form.point;
    }
}

std::string_view WithoutMark(std::string_view text)
{
    return text.starts_with('\'') && Runs(text.substr(1)) ? text.substr(1) : text;
}

}  // namespace kestrum
