#include "document/document.h"

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

}  // namespace

Line::Line(const Symbol& symbol)
{
    Add(symbol.letter, symbol.bar ? Span::Style::bar : Span::Style::plain);
    if (!symbol.subscript.empty()) {
        Add(symbol.subscript, Span::Style::subscript);
    }
}

Line& Line::Add(std::string text, Span::Style style)
{
    spans.push_back({std::move(text), style});
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
    return Line().Add(NumberText(value, digits), Span::Style::number);
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
    blocks.emplace_back(std::in_place_type<Paragraph>, Paragraph{std::move(text), kind});
}

void Document::Show(std::vector<Figure> figures)
{
    blocks.emplace_back(std::in_place_type<FigureRow>, FigureRow{std::move(figures)});
}

void Document::Add(TextTable table)
{
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
        EquationOf(symbol, formula, value, std::move(unit), std::move(clause), std::move(remark)));
    return std::get<Equation>(blocks.back()).formula != nullptr;
}

void Document::Add(const Symbol& symbol, double value, std::string unit, std::string clause,
                   Line remark)
{
    Add(symbol, nullptr, value, std::move(unit), std::move(clause), std::move(remark));
}

}  // namespace kestrum
