#include "document/document.h"

#include "core/decimal_points.h"
#include "document/typeset.h"

#include <algorithm>
#include <cmath>

namespace kestrum {

namespace {

constexpr int kMostDigits = 15;

bool Retraces(const Expr& formula, int digits, std::string_view value)
{
    // Less than the whole last digit, so that a reader who rounds on the way still gets there.
    constexpr double kShare = 0.99;
    const double found = Evaluate(formula, digits);
    return std::abs(found - NumberOf(value)) <= kShare * LastDigitOf(value);
}

bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

// The numbers that have these points are spans of their own.
Line Parted(std::string_view text, const std::vector<std::size_t>& points, Span::Style style)
{
    Line line;
    std::size_t done = 0;
    for (const std::size_t point : points) {
        std::size_t from = point, to = point + 1;
        while (from > done && IsDigit(text[from - 1])) {
            --from;
        }
        while (to < text.size() && IsDigit(text[to])) {
            ++to;
        }
        if (from == point) {
            continue;  // 1.2.3
        }
        if (from > done) {
            line.Add(std::string(text.substr(done, from - done)), style);
        }
        line.Add(std::string(text.substr(from, to - from)), style, true);
        done = to;
    }
    if (done < text.size()) {
        line.Add(std::string(text.substr(done)), style);
    }
    return line;
}

}  // namespace

Line::Line(const Symbol& symbol)
{
    Add(symbol.letter, symbol.bar ? Span::Style::bar : Span::Style::plain);
    if (!symbol.subscript.empty()) {
        Add(symbol.subscript, Span::Style::subscript);
    }
}

Line& Line::Add(std::string text, Span::Style style, bool number)
{
    spans.push_back({std::move(text), style, number});
    return *this;
}

Line& Line::operator+=(const Line& other)
{
    spans.insert(spans.end(), other.spans.begin(), other.spans.end());
    return *this;
}

Line operator+(Line a, const Line& b)
{
    a += b;
    return a;
}

Line Strong(std::string text)
{
    return Line().Add(std::move(text), Span::Style::strong);
}

Line NumberLine(double value, int digits)
{
    return Line().Add(NumberText(value, digits), Span::Style::plain, true);
}

Line WithNumbers(std::string_view text, Span::Style style)
{
    std::vector<std::size_t> points;
    for (std::size_t point = text.find('.'); point != std::string_view::npos;
         point = text.find('.', point + 1)) {
        const bool within = point > 0 && point + 1 < text.size();
        if (within && IsDigit(text[point - 1]) && IsDigit(text[point + 1])) {
            points.push_back(point);
        }
    }
    return Parted(text, points, style);
}

Line Sentence(std::string_view text, Span::Style style)
{
    return Parted(text, DecimalPoints(text), style);
}

Equation EquationOf(const Symbol& symbol, const Expr& formula, double value, std::string unit,
                    std::string clause, Line remark)
{
    const bool infinite = std::isinf(value) && value > 0;
    Equation equation{.symbol = symbol,
                      .value = infinite ? "∞" : ResultText(value, kResultDigits),
                      .unit = std::move(unit),
                      .clause = std::move(clause),
                      .remark = std::move(remark)};
    if (formula == nullptr || !std::isfinite(value)) {
        return equation;
    }
    for (int digits = kResultDigits; digits <= kMostDigits; ++digits) {
        if (Retraces(formula, digits, equation.value)) {
            equation.formula = formula;
            equation.digits = digits;
            break;
        }
    }
    return equation;
}

void Document::Cover(std::string title)
{
    blocks.emplace_back(std::in_place_type<Heading>, Heading{0, std::move(title)});
}

void Document::Member(std::string title)
{
    blocks.emplace_back(std::in_place_type<Heading>, Heading{1, std::move(title)});
}

void Document::Chapter(std::string title)
{
    blocks.emplace_back(std::in_place_type<Heading>, Heading{2, std::move(title)});
}

void Document::Part(std::string title)
{
    blocks.emplace_back(std::in_place_type<Heading>, Heading{3, std::move(title)});
}

void Document::Say(Line text, Paragraph::Kind kind)
{
    blocks.emplace_back(std::in_place_type<Paragraph>, Paragraph{Typeset(text), kind});
}

void Document::Show(std::vector<Figure> figures)
{
    for (Figure& figure : figures) {
        figure.caption = Typeset(figure.caption);
    }
    blocks.emplace_back(std::in_place_type<FigureRow>, FigureRow{std::move(figures)});
}

void Document::Add(TextTable table)
{
    table.caption = Typeset(table.caption);
    for (TextTable::Column& column : table.columns) {
        column.title = Typeset(column.title);
    }
    if (!table.contents) {  // which has the users' own texts
        for (std::vector<Line>& row : table.rows) {
            std::transform(row.begin(), row.end(), row.begin(), Typeset);
        }
    }
    blocks.emplace_back(std::in_place_type<TextTable>, std::move(table));
}

void Document::NewPage()
{
    blocks.emplace_back(std::in_place_type<PageBreak>);
}

bool Document::Add(const Symbol& symbol, const Expr& formula, double value, std::string unit,
                   std::string clause, Line remark)
{
    blocks.emplace_back(
        std::in_place_type<Equation>,
        EquationOf(symbol, formula, value, std::move(unit), std::move(clause), Typeset(remark)));
    return std::get<Equation>(blocks.back()).formula != nullptr;
}

void Document::Add(const Symbol& symbol, double value, std::string unit, std::string clause,
                   Line remark)
{
    Add(symbol, nullptr, value, std::move(unit), std::move(clause), std::move(remark));
}

bool Document::LeadsOn(std::size_t block) const
{
    const auto* const text = std::get_if<Paragraph>(&blocks[block]);
    if (text == nullptr || block + 1 >= blocks.size()) {
        return false;
    }
    const Block& next = blocks[block + 1];
    return std::holds_alternative<Equation>(next) || std::holds_alternative<TextTable>(next) ||
           (text->kind == Paragraph::Kind::remark && !std::holds_alternative<Heading>(next));
}

}  // namespace kestrum
