#include "report/page_writer.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace kestrum {

namespace {

constexpr double kRuleWidth = 0.25;
constexpr std::string_view kCut = "...", kEquals = "=";
constexpr double kWordGap = 1.2, kColumnGap = 2.5;

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

// A column of a table of values and the widths of its parts.
struct PageWriter::Column {
    std::span<const Quantity> quantities;
    double symbols = 0, values = 0, units = 0;

    explicit Column(std::span<const Quantity> part) : quantities(part)
    {
        for (const Quantity& quantity : part) {
            symbols = std::max(symbols, TextWidth(quantity.symbol, kPageText));
            values = std::max(values, TextWidth(quantity.value, kPageText));
            units = std::max(units, TextWidth(quantity.unit, kPageText));
        }
    }

    double width() const
    {
        return symbols + TextWidth(kEquals, kPageText) + values + units + 3 * kWordGap;
    }
};

std::vector<PageWriter::Column> PageWriter::ColumnsOf(std::span<const Quantity> quantities,
                                                      std::size_t columns)
{
    const std::size_t rows = (quantities.size() + columns - 1) / columns;
    std::vector<Column> column;
    for (std::size_t first = 0; first < quantities.size(); first += rows) {
        column.emplace_back(quantities.subspan(first, std::min(rows, quantities.size() - first)));
    }
    return column;
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
                                      .ink = style.ink,
                                      .verbatim = style.verbatim});
    return style.align == Align::left ? x + width : x;
}

void PageWriter::Foot(std::string_view text)
{
    constexpr double kFootText = 2.2, kWidth = kPageRight - kPageLeft;
    const TextStyle style{.ink = Ink::faint, .size = kFootText, .verbatim = true};
    if (!text.empty()) {
        const bool fits = TextWidth(text, kFootText) <= kWidth;
        page_.marks.emplace_back(
            TextMark{.at = {kPageLeft, kPageFoot},
                     .text = fits ? std::string(text) : Cut(text, style, kWidth),
                     .size = style.size,
                     .ink = style.ink,
                     .verbatim = style.verbatim});
    }
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
    std::vector<Column> column = ColumnsOf(quantities, columns);
    const double needed =
        std::accumulate(column.begin(), column.end(), 0.0,
                        [](double sum, const Column& one) { return sum + one.width(); });
    const double gap = columns > 1 ? (right - left - needed) / static_cast<double>(columns - 1) : 0;
    if (columns > 1 && gap < kColumnGap) {
        Quantities(quantities, columns - 1, left, right);
        return;
    }
    const double pitch = (right - left + kColumnGap) / static_cast<double>(columns);
    const bool equal = std::all_of(column.begin(), column.end(), [pitch](const Column& one) {
        return one.width() <= pitch - kColumnGap;
    });
    const double top = y_;
    double x = left, bottom = top;
    for (const Column& one : column) {
        y_ = top;
        WriteColumn(one, x, right);
        bottom = std::max(bottom, y_);
        x += equal ? pitch : one.width() + gap;
    }
    y_ = bottom;
}

void PageWriter::WriteColumn(const Column& column, double x, double right)
{
    const double sign = x + column.symbols + kWordGap;
    const double value = sign + TextWidth(kEquals, kPageText) + kWordGap + column.values;
    for (const Quantity& quantity : column.quantities) {
        Write(x, quantity.symbol, {}, right);
        Write(sign, kEquals, {}, right);
        Write(value, quantity.value, {.align = Align::right});
        Write(value + kWordGap, quantity.unit, {}, right);
        Row();
    }
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
