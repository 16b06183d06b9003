#include "core/decimal_points.h"

#include <algorithm>
#include <iterator>

namespace kestrum {

namespace {

bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

bool IsSmall(char c)
{
    return c >= 'a' && c <= 'z';
}

bool IsLetter(char c)
{
    return IsSmall(c) || (c >= 'A' && c <= 'Z');
}

// Whether a number behind this text belongs to a reference of its own: "Ch 6.1", "Eq (6.61)".
bool NamesAReference(std::string_view before)
{
    constexpr std::string_view kWords[] = {"Ch ",    "Eq ",     "Eq (",   ") and (",
                                           "Table ", "Figure ", "Annex ", "clause "};
    return std::any_of(std::begin(kWords), std::end(kWords),
                       [&](std::string_view word) { return before.ends_with(word); });
}

// "gives" in "Table 4.1 gives 0.3": what stands behind it is no clause any more.
bool HasAVerb(std::string_view text)
{
    constexpr std::string_view kLinks[] = {"and", "or", "to", "ch", "clause"};
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t from = at;
        while (at < text.size() && IsLetter(text[at])) {
            ++at;
        }
        const std::string_view word = text.substr(from, at - from);
        if (word.size() > 1 && IsSmall(word.front()) &&
            std::find(std::begin(kLinks), std::end(kLinks), word) == std::end(kLinks)) {
            return true;
        }
        at += at == from ? 1 : 0;
    }
    return false;
}

// Whether the text before is inside the citation of a standard, "(EN 1993-1-5, 5.3 and".
bool InCitation(std::string_view before)
{
    const std::size_t standard = before.rfind("EN 1");
    return standard != std::string_view::npos &&
           before.find_first_of(");:\n<", standard) == std::string_view::npos &&
           before.find(". ", standard) == std::string_view::npos &&
           !HasAVerb(before.substr(standard));
}

// The letter that is part of a name, "A1.2", "BB.1.2"; an x stands between numbers, "150x12.5".
bool BelongsToAName(std::string_view before)
{
    const char last = before.empty() ? ' ' : before.back();
    return last == '.' || (IsLetter(last) && last != 'x');
}

bool IsReference(std::string_view before)
{
    return NamesAReference(before) || InCitation(before) || BelongsToAName(before);
}

}  // namespace

std::vector<std::size_t> DecimalPoints(std::string_view text)
{
    std::vector<std::size_t> points;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (!IsDigit(text[at])) {
            continue;
        }
        const std::size_t end = std::min(text.find_first_not_of("0123456789.", at), text.size());
        std::string_view number = text.substr(at, end - at);
        while (!number.empty() && number.back() == '.') {
            number.remove_suffix(1);  // the end of a sentence
        }
        const std::size_t point = number.find('.');
        if (point != std::string_view::npos && point == number.rfind('.') &&
            !IsReference(text.substr(0, at))) {
            points.push_back(at + point);
        }
        at = end - 1;
    }
    return points;
}

}  // namespace kestrum
