#include "core/file_notation.h"

#include "core/parse_num.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <optional>
#include <utility>

namespace kestrum {

namespace {

constexpr std::string_view kBlanks = " \t";
constexpr std::size_t kShownToken = 40;  // characters of a wrong value that a message repeats

// The whole text as a number: sign, digits, point, exponent; nothing else, no "inf" and no "nan".
std::optional<double> WholeText(std::string_view text)
{
    const std::size_t sign = text.starts_with('-') || text.starts_with('+') ? 1 : 0;
    if (text.size() == sign || (text[sign] != '.' && (text[sign] < '0' || text[sign] > '9'))) {
        return std::nullopt;
    }
    std::string digits(text.substr(text.starts_with('+') ? 1 : 0));
    std::replace_if(
        digits.begin(), digits.end(), [](char c) { return c == 'D' || c == 'd'; }, 'E');
    double value = 0;
    const char* const end = digits.data() + digits.size();
    const auto [stop, fault] = std::from_chars(digits.data(), end, value);
    return fault == std::errc{} && stop == end ? std::optional(value) : std::nullopt;
}

// A wrong value as a message may show it: its beginning, in UTF-8, without control characters.
std::string Shown(std::string_view text)
{
    std::size_t end = std::min(text.size(), kShownToken);
    while (end < text.size() && end > 0 &&
           (static_cast<unsigned char>(text[end]) & 0xC0U) == 0x80U) {
        --end;  // not inside a character
    }
    const std::string shown = Printable(text.substr(0, end));
    return end < text.size() ? shown + "..." : shown;
}

// What is no number is written as 0; no input holds such a value.
template <class Number> std::string Notation(Number value, Number exponent_from)
{
    constexpr Number kExponentBelow = static_cast<Number>(1e-4);
    if (value == 0 || !std::isfinite(value)) {
        return "0";
    }
    const Number size = std::abs(value);
    std::array<char, 64> text;
    char* const first = text.data();
    char* const last = text.data() + text.size();
    if (size >= exponent_from || size < kExponentBelow) {
        const auto end = std::to_chars(first, last, value, std::chars_format::scientific);
        std::string out(first, end.ptr);
        std::replace(out.begin(), out.end(), 'e', 'E');
        return out;
    }
    const auto end = std::to_chars(first, last, value, std::chars_format::fixed);
    std::string out(first, end.ptr);
    const std::size_t zero = out[0] == '-' ? 1 : 0;
    if (out.substr(zero).starts_with("0.")) {
        out.erase(zero, 1);
    }
    return out;
}

// Whether the quote in front of this was one inside the text, as in "5" pipe, thick": letters
// follow it at once and another quote ends the line.
bool QuoteInside(std::string_view rest)
{
    const std::string_view line = rest.substr(0, rest.find('\n'));
    const std::string_view next = line.substr(0, line.find(','));
    return next.find_first_not_of(" \t\r") != std::string_view::npos &&
           line.find('"') != std::string_view::npos;
}

}  // namespace

std::string FaultText(const std::string& file, const FileFault& fault)
{
    return file + ":" + std::to_string(fault.line) + ": " + fault.what;
}

void ValueReader::Fail(std::string_view name, std::string_view expected, const Token& token)
{
    fault_.line = token.line;
    fault_.what = "field " + std::string(name) + ": expected " + std::string(expected) +
                  ", found \"" + Shown(token.text) + "\"";
}

std::string_view ValueReader::NextLine()
{
    const std::size_t end = std::min(rest_.find('\n'), rest_.size());
    std::string_view line = rest_.substr(0, end);
    rest_.remove_prefix(std::min(end + 1, rest_.size()));
    ++line_;
    if (line.ends_with('\r')) {
        line.remove_suffix(1);
    }
    return line;
}

// The text up to the next comma or line end, blanks around it removed; a quoted one up to its
// quote, whatever follows it dropped.
bool ValueReader::NextToken(std::string_view name, std::string_view expected, Token& token)
{
    if (!ok()) {
        return false;
    }
    rest_.remove_prefix(std::min(rest_.find_first_not_of(kBlanks), rest_.size()));
    if (rest_.empty()) {
        fault_.line = line_;
        fault_.what = "field " + std::string(name) + ": expected " + std::string(expected) +
                      ", found the end of the file";
        return false;
    }
    token.line = line_;
    bool quoted = rest_.front() == '"';
    if (quoted) {
        const std::size_t close = rest_.find_first_of("\"\n", 1);
        quoted = close != std::string_view::npos && rest_[close] == '"';
        if (quoted) {
            token.text = rest_.substr(0, close + 1);
            rest_.remove_prefix(close + 1);
        }
    }
    const std::size_t end = quoted && QuoteInside(rest_)
                                ? std::min(rest_.find('\n'), rest_.size())
                                : std::min(rest_.find_first_of(",\n"), rest_.size());
    if (!quoted) {
        token.text = rest_.substr(0, end);
        if (token.text.ends_with('\r')) {
            token.text.remove_suffix(1);
        }
        token.text = token.text.substr(0, token.text.find_last_not_of(kBlanks) + 1);
    }
    line_ += end < rest_.size() && rest_[end] == '\n' ? 1 : 0;
    rest_.remove_prefix(std::min(end + 1, rest_.size()));
    return true;
}

bool ValueReader::TakeNumber(std::string_view name, double& value)
{
    Token token;
    if (!NextToken(name, "a number", token)) {
        return false;
    }
    const std::optional<double> number = WholeText(token.text);
    if (!number) {
        Fail(name, "a number", token);
        return false;
    }
    value = *number;
    return true;
}

void ValueReader::Take(std::string_view name, i16& value)
{
    const int line = line_;
    double number = 0;
    if (!TakeNumber(name, number)) {
        return;
    }
    if (const std::optional<i16> whole = WholeNum(number)) {
        value = *whole;
        return;
    }
    Fail(name, "a whole number of 16 bits", {FileNumber(number), line});
}

void ValueReader::Take(std::string_view name, float& value)
{
    const int line = line_;
    double number = 0;
    if (!TakeNumber(name, number)) {
        return;
    }
    const float single = static_cast<float>(number);
    if (!std::isfinite(single)) {
        Fail(name, "a number of single precision", {FileNumber(number), line});
        return;
    }
    value = single;
}

void ValueReader::Take(std::string_view name, double& value)
{
    double number = 0;
    if (TakeNumber(name, number)) {
        value = number;
    }
}

void ValueReader::TakeTruth(std::string_view name, i16& value)
{
    constexpr std::string_view kExpected = "#TRUE# or #FALSE#";
    Token token;
    if (!NextToken(name, kExpected, token)) {
        return;
    }
    std::string text(token.text);
    std::transform(text.begin(), text.end(), text.begin(),
                   [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c; });
    if (text == "#TRUE#" || text == "-1" || text == "1") {
        value = kTrue;
    } else if (text == "#FALSE#" || text == "0") {
        value = kFalse;
    } else {
        Fail(name, kExpected, token);
    }
}

void ValueReader::TakeText(std::string_view name, std::string& value)
{
    Token token;
    if (!NextToken(name, "a text", token)) {
        return;
    }
    if (token.text.size() >= 2 && token.text.front() == '"' && token.text.back() == '"') {
        token.text = token.text.substr(1, token.text.size() - 2);
    }
    value = AsUtf8(token.text);
}

void ValueReader::TakeLine(std::string_view name, std::string& value)
{
    if (!ok()) {
        return;
    }
    if (rest_.empty()) {
        fault_ = {line_,
                  "field " + std::string(name) + ": expected a line, found the end of the file"};
        return;
    }
    value = AsUtf8(NextLine());
}

void ValueWriter::Put(i16 value)
{
    bytes_.append(std::to_string(value));
    EndLine();
}

void ValueWriter::Put(float value)
{
    bytes_.append(FileNumber(value));
    EndLine();
}

void ValueWriter::Put(double value)
{
    bytes_.append(FileNumber(value));
    EndLine();
}

void ValueWriter::PutTruth(i16 value)
{
    bytes_.append(value != 0 ? "#TRUE#" : "#FALSE#");
    EndLine();
}

void ValueWriter::PutText(std::string_view value)
{
    bytes_.append("\"");
    PutLine(value);
    bytes_.insert(bytes_.size() - 2, 1, '"');  // in front of the line end
}

// A line end inside a text would shift every field behind it.
void ValueWriter::PutLine(std::string_view value)
{
    const std::size_t first = bytes_.size();
    bytes_.append(value);
    std::replace_if(
        bytes_.begin() + static_cast<std::ptrdiff_t>(first), bytes_.end(),
        [](char c) { return c == '\r' || c == '\n'; }, ' ');
    EndLine();
}

std::string FileNumber(float value)
{
    return Notation(value, 1e7F);
}

std::string FileNumber(double value)
{
    return Notation(value, 1e15);
}

}  // namespace kestrum
