#include "app/locale_text.h"

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace kestrum {

namespace {

bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

bool IsLetter(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

// Whether a number behind this text belongs to a reference of its own: "Ch 6.1", "Eq 6.10".
bool NamesAReference(std::string_view before)
{
    constexpr std::string_view kWords[] = {"Ch ", "Eq ", "Table ", "Figure ", "Annex ", "clause "};
    return std::any_of(std::begin(kWords), std::end(kWords),
                       [&](std::string_view word) { return before.ends_with(word); });
}

// Whether the text before is inside the citation of a standard, "(EN 1993-1-5, 5.3 and".
bool InCitation(std::string_view before)
{
    const std::size_t standard = before.rfind("EN 1");
    return standard != std::string_view::npos &&
           before.find_first_of(");:\n<", standard) == std::string_view::npos &&
           before.find(". ", standard) == std::string_view::npos;
}

// The letter that is part of a name, "A1.2"; an x stands between numbers, "150x12.5".
bool BelongsToAName(std::string_view before)
{
    return !before.empty() && IsLetter(before.back()) && before.back() != 'x';
}

bool IsReference(std::string_view before)
{
    return NamesAReference(before) || InCitation(before) || BelongsToAName(before);
}

void Localise(std::vector<TextRun>& runs)
{
    for (TextRun& run : runs) {
        run.text = ForLocale(std::move(run.text), true);
    }
}

}  // namespace

std::string ForLocale(std::string text, bool decimalcomma)
{
    for (std::size_t at = 0; decimalcomma && at < text.size(); ++at) {
        if (!IsDigit(text[at])) {
            continue;
        }
        const std::size_t end = std::min(text.find_first_not_of("0123456789.", at), text.size());
        std::string_view number(text.data() + at, end - at);
        while (!number.empty() && number.back() == '.') {
            number.remove_suffix(1);  // the end of a sentence
        }
        const std::size_t point = number.find('.');
        if (point != std::string_view::npos && point == number.rfind('.') &&
            !IsReference(std::string_view(text).substr(0, at))) {
            text[at + point] = ',';
        }
        at = end - 1;
    }
    return text;
}

Drawing ForLocale(Drawing drawing, bool decimalcomma)
{
    for (Mark& mark : drawing.marks) {
        auto* const label = std::get_if<TextMark>(&mark);
        if (decimalcomma && label != nullptr && !label->verbatim) {
            label->text = ForLocale(std::move(label->text), true);
        }
    }
    return drawing;
}

std::vector<PanelBlock> ForLocale(std::vector<PanelBlock> blocks, bool decimalcomma)
{
    for (PanelBlock& block : blocks) {
        for (PanelLine& line : block) {
            if (decimalcomma) {
                Localise(line.left);
                Localise(line.result);
            }
        }
    }
    return blocks;
}

}  // namespace kestrum
