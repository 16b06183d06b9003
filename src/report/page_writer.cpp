#include "report/page_writer.h"

#include <algorithm>
#include <utility>

namespace kestrum {

namespace {

constexpr double kRuleWidth = 0.25;
constexpr std::string_view kCut = "...";

bool Continues(char c)
{
    return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U;
}

// Drops characters at the end until text and dots are no wider than asked.
std::string Cut(std::string_view text, const TextStyle& style, double width)
{
    std::size_t characters = CharacterCount(text);
    std::string cut;
    do {
        --characters;
        cut = FirstCharacters(text, characters) + std::string(kCut);
    } while (characters > 0 && TextWidth(cut, style.size, style.bold) > width);
    return cut;
}

}  // namespace

std::string FirstCharacters(std::string_view text, std::size_t count)
{
    std::size_t at = 0;
    for (std::size_t taken = 0; at < text.size() && taken < count; ++taken) {
        ++at;
        while (at < text.size() && Continues(text[at])) {
            ++at;
        }
    }
    return std::string(text.substr(0, at));
}

std::size_t CharacterCount(std::string_view text)
{
    const auto inner = std::count_if(text.begin(), text.end(), Continues);
    return text.size() - static_cast<std::size_t>(inner);
}

PageWriter::PageWriter(std::string title)
{
    page_.width = kPageWidth;
    page_.height = kPageHeight;
    page_.title = std::move(title);
}

double PageWriter::Write(double x, std::string_view text, TextStyle style, double right)
{
    if (text.empty()) {
        return x;
    }
    if (y_ > kPageBottom) {
        Miss(std::string(text));
        return x;
    }
    std::string shown(text);
    const double room = style.align == Align::left ? right - x : x - kPageLeft;
    if (TextWidth(shown, style.size, style.bold) > room) {
        Miss(shown);
        shown = Cut(text, style, room);
    }
    const double width = TextWidth(shown, style.size, style.bold);
    page_.marks.emplace_back(TextMark{.at = {x, y_},
                                      .text = std::move(shown),
                                      .size = style.size,
                                      .align = style.align,
                                      .bold = style.bold,
                                      .underline = style.underline,
                                      .ink = style.ink});
    return style.align == Align::left ? x + width : x;
}

double PageWriter::WriteBold(double x, std::string_view text, double right)
{
    return Write(x, text, {.bold = true}, right);
}

void PageWriter::Heading(double x, std::string_view text)
{
    Write(x, text, {.bold = true, .size = kPageHeading});
    Row();
}

void PageWriter::Rule()
{
    const double y = y_ + kPageRow / 2;
    if (y <= kPageBottom) {
        page_.marks.emplace_back(LineMark{{kPageLeft, y}, {kPageRight, y}, Ink::faint, kRuleWidth});
    }
}

void PageWriter::Quantities(std::span<const Quantity> quantities, std::size_t columns, double left,
                            double right)
{
    if (quantities.empty()) {
        return;
    }
    constexpr double kGap = 1.2;
    const std::size_t rows = (quantities.size() + columns - 1) / columns;
    const double pitch = (right - left) / static_cast<double>(columns);
    const double top = y_;
    for (std::size_t first = 0; first < quantities.size(); first += rows) {
        const auto column = quantities.subspan(first, std::min(rows, quantities.size() - first));
        double symbols = 0, values = 0;
        for (const Quantity& quantity : column) {
            symbols = std::max(symbols, TextWidth(quantity.symbol, kPageText));
            values = std::max(values, TextWidth(quantity.value, kPageText));
        }
        const std::size_t at = first / rows;  // of the columns
        const double x = left + pitch * static_cast<double>(at);
        const double edge = x + pitch - kGap;
        const double sign = x + symbols + kGap;
        const double value = sign + TextWidth("=", kPageText) + kGap + values;
        y_ = top;
        for (const Quantity& quantity : column) {
            Write(x, quantity.symbol, {}, edge);
            Write(sign, "=", {}, edge);
            Write(value, quantity.value, {.align = Align::right});
            Write(value + kGap, quantity.unit, {}, edge);
            Row();
        }
    }
    y_ = top + static_cast<double>(rows) * kPageRow;
}

void PageWriter::Picture(const Drawing& picture, Point corner, double scale)
{
    Place(page_, picture, corner, scale);
}

PrintedReport PageWriter::Take()
{
    return {{std::exchange(page_, {})}, std::exchange(missing_, {})};
}

}  // namespace kestrum
