#include "document/text_flow.h"

#include "document/math_layout.h"
#include "document/notation.h"

#include <algorithm>

namespace kestrum {

namespace {

// Parts of a line between which it may be broken; a blank ends its part.
std::vector<Line> WordsOf(const Line& line)
{
    std::vector<Line> words(1);
    for (const Span& span : line.spans) {
        if (span.number || span.style == Span::Style::subscript) {
            words.back().spans.push_back(span);
            continue;
        }
        std::size_t from = 0;
        while (from < span.text.size()) {
            std::size_t blank = span.text.find(' ', from);
            while (blank != std::string::npos && KeptTogether(span.text, blank)) {
                blank = span.text.find(' ', blank + 1);
            }
            const std::size_t to = blank == std::string::npos ? span.text.size() : blank + 1;
            words.back().Add(span.text.substr(from, to - from), span.style);
            if (blank != std::string::npos) {
                words.emplace_back();
            }
            from = to;
        }
    }
    if (words.back().Empty()) {
        words.pop_back();
    }
    return words;
}

std::size_t NextCharacter(const std::string& text, std::size_t at)
{
    do {
        ++at;
    } while (at < text.size() && (static_cast<unsigned char>(text[at]) & 0xC0U) == 0x80U);
    return at;
}

// Letters that fit, at least one.
std::size_t FittingLetters(const std::string& text, double size, bool bold, double width)
{
    std::size_t end = NextCharacter(text, 0);
    while (end < text.size()) {
        const std::size_t next = NextCharacter(text, end);
        if (TextWidth(std::string_view(text).substr(0, next), size, bold) > width) {
            break;
        }
        end = next;
    }
    return end;
}

std::string WithoutBlanksBehind(std::string text)
{
    text.erase(text.find_last_not_of(' ') + 1);
    return text;
}

double WidthOf(const Line& line, double size, char decimal)
{
    Line seen = line;
    if (!seen.Empty()) {
        seen.spans.back().text = WithoutBlanksBehind(seen.spans.back().text);
    }
    return LineBox(seen, size, decimal, Ink::text).width;
}

}  // namespace

std::vector<Line> WrapLine(const Line& line, double size, double width, char decimal)
{
    std::vector<Line> lines;
    Line current;
    for (Line& word : WordsOf(line)) {
        Line longer = current + word;
        if (WidthOf(longer, size, decimal) <= width) {
            current = std::move(longer);
            continue;
        }
        if (!current.Empty()) {
            lines.push_back(std::move(current));
            current = {};
        }
        // A word of one span that no line holds.
        while (word.spans.size() == 1 && WidthOf(word, size, decimal) > width) {
            Span& span = word.spans.front();
            const bool bold = span.style != Span::Style::plain;
            const std::size_t end = FittingLetters(span.text, size, bold, width);
            if (end >= span.text.size()) {
                break;
            }
            lines.push_back(Line().Add(span.text.substr(0, end), span.style));
            span.text.erase(0, end);
        }
        current = std::move(word);
    }
    if (!current.Empty()) {
        lines.push_back(std::move(current));
    }
    return lines;
}

double WidestWord(const Line& line, double size, char decimal)
{
    double widest = 0;
    for (const Line& word : WordsOf(line)) {
        widest = std::max(widest, WidthOf(word, size, decimal));
    }
    return widest;
}

std::string FitText(const std::string& text, double size, bool bold, double width)
{
    if (text.empty() || TextWidth(text, size, bold) <= width) {
        return text;
    }
    constexpr std::string_view kMissing = "...";
    const double rest = width - TextWidth(kMissing, size, bold);
    return text.substr(0, FittingLetters(text, size, bold, rest)) + std::string(kMissing);
}

}  // namespace kestrum
