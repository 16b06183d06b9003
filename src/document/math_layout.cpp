#include "document/math_layout.h"

#include "document/expression_writer.h"
#include "document/notation.h"

#include <algorithm>

namespace kestrum {

namespace {

constexpr double kAbove = 0.74, kBelow = 0.22;  // of letters, in parts of their size
constexpr double kSmall = 0.72;                 // raised and lowered signs,
constexpr double kLeast = 2.3;                  // which are legible in print: 6.5 pt
constexpr double kAxis = 0.27;                  // fraction bars above the base line
constexpr double kRule = 0.05;                  // thickness of bars

double SmallOf(double size)
{
    return std::min(size, std::max(kSmall * size, kLeast));
}

// Moves everything of `part` behind `box`, raised by `up`.
void Append(MathBox& box, const MathBox& part, double up = 0)
{
    Drawing moved;
    PlaceBox(moved, part, {box.width, -up});
    box.marks.insert(box.marks.end(), moved.marks.begin(), moved.marks.end());
    for (const double at : part.breaks) {
        box.breaks.push_back(box.width + at);
    }
    box.width += part.width;
    box.above = std::max(box.above, part.above + up);
    box.below = std::max(box.below, part.below - up);
}

MathBox TextBox(const std::string& text, double size, bool italic = false, bool bold = false,
                Ink ink = Ink::text)
{
    MathBox box{TextWidth(text, size, bold), kAbove * size, kBelow * size};
    TextMark mark;
    mark.text = text;
    mark.size = size;
    mark.bold = bold;
    mark.italic = italic;
    mark.ink = ink;
    box.marks.emplace_back(std::move(mark));
    return box;
}

void AddRule(MathBox& box, Point from, Point to, double size)
{
    box.marks.emplace_back(LineMark{from, to, Ink::text, kRule * size, false});
}

MathBox BarredBox(MathBox box, double size)
{
    constexpr double kLift = 0.82;
    AddRule(box, {0, -kLift * size}, {box.width, -kLift * size}, size);
    box.above = std::max(box.above, (kLift + kRule) * size);
    return box;
}

MathBox SymbolBox(const Symbol& symbol, double size)
{
    MathBox box = TextBox(symbol.letter, size, true);
    if (symbol.bar) {
        box = BarredBox(std::move(box), size);
    }
    if (!symbol.subscript.empty()) {
        Append(box, TextBox(symbol.subscript, SmallOf(size)), -0.2 * size);
    }
    return box;
}

MathBox NumberBox(std::string_view number, double size, char decimal, bool bold = false,
                  Ink ink = Ink::text)
{
    const std::string text = NumberInLine(number, decimal);
    const std::size_t power = text.find('^');
    MathBox box = TextBox(text.substr(0, power), size, false, bold, ink);
    if (power != std::string::npos) {
        Append(box, TextBox(text.substr(power + 1), SmallOf(size), false, bold, ink), 0.35 * size);
    }
    return box;
}

// In letters of a size.
struct Setter {
    using Piece = MathBox;
    static constexpr int bars = kBarsInBars;
    static constexpr bool set = true;
    bool numbers;
    int digits;
    char decimal;
    double size;

    Setter Of(const Term& term, std::size_t part, int bars_around) const
    {
        constexpr double kNested = 0.92;  // of fractions
        Setter own = *this;
        if (term.op == Op::divide && bars_around > 0) {
            own.size *= kNested;
        } else if (term.op == Op::power && part == 1) {
            own.size = SmallOf(size);
        }
        return own;
    }
    MathBox Number(std::string_view number) const { return NumberBox(number, size, decimal); }
    MathBox Name(const Symbol& symbol) const { return SymbolBox(symbol, size); }
    MathBox Text(std::string_view text) const { return TextBox(std::string(text), size); }
    MathBox PowerOfTen(int exponent) const
    {
        MathBox box = Text("10");
        Append(box, TextBox(std::to_string(exponent), SmallOf(size)), 0.35 * size);
        return box;
    }
    MathBox Joined(MathBox a, JoinSign sign, const MathBox& b) const
    {
        constexpr std::string_view kSigns[] = {" + ", " − ", "·", "/"};
        if (sign != JoinSign::over) {
            a.breaks.push_back(a.width);
        }
        Append(a, Text(kSigns[static_cast<std::size_t>(sign)]));
        Append(a, b);
        return a;
    }
    MathBox Fraction(const MathBox& top, const MathBox& bottom) const
    {
        const double gap = 0.12 * size, side = 0.12 * size;
        const double width = std::max(top.width, bottom.width) + 2 * side;
        const double axis = kAxis * size;
        Drawing d;
        PlaceBox(d, top, {(width - top.width) / 2, -axis - gap - top.below});
        PlaceBox(d, bottom, {(width - bottom.width) / 2, -axis + gap + bottom.above});
        MathBox box{.width = width + 0.08 * size,
                    .above = axis + gap + top.below + top.above,
                    .below = bottom.above + bottom.below + gap - axis,
                    .marks = std::move(d.marks)};
        AddRule(box, {0, -axis}, {width, -axis}, size);
        return box;
    }
    MathBox Raised(MathBox base, const MathBox& exponent) const
    {
        Append(base, exponent, std::max(0.38 * size, base.above - 0.45 * size));
        return base;
    }
    MathBox Bracketed(const MathBox& inner) const { return Between(inner, "(", ")"); }
    MathBox Size(const MathBox& inner) const { return Between(inner, "|", "|"); }
    MathBox Root(const MathBox& inner) const
    {
        const double sign = 0.55 * size, gap = 0.14 * size;
        const double top = inner.above + gap, low = inner.below;
        MathBox box;
        box.width = sign;
        Append(box, inner);
        box.breaks.clear();
        box.width += 0.08 * size;
        box.above = top + kRule * size;
        AddRule(box, {0.02 * size, -0.3 * size}, {0.14 * size, -0.36 * size}, size);
        AddRule(box, {0.14 * size, -0.36 * size}, {0.3 * size, low}, size);
        AddRule(box, {0.3 * size, low}, {sign - 0.04 * size, -top}, size);
        AddRule(box, {sign - 0.04 * size, -top}, {box.width, -top}, size);
        return box;
    }
    MathBox Function(std::string_view name, const MathBox& of, bool) const
    {
        MathBox box = Text(name);
        Append(box, Bracketed(of));
        return box;
    }
    MathBox List(std::vector<MathBox> parts) const
    {
        MathBox box = std::move(parts.front());
        for (std::size_t i = 1; i < parts.size(); ++i) {
            Append(box, Text("; "));
            box.breaks.push_back(box.width);
            Append(box, parts[i]);
        }
        return box;
    }

private:
    // Round brackets and bars of the height of what they hold.
    MathBox Between(const MathBox& inner, std::string_view open, std::string_view close) const
    {
        const double high = std::max(1.0, (inner.above + inner.below) / (1.1 * size));
        const double middle = (inner.above - inner.below) / 2;
        const double big = high * size;
        const double up = middle - (kAbove - kBelow) / 2 * big;
        MathBox box;
        Append(box, TextBox(std::string(open), big), up);
        Append(box, inner);
        Append(box, TextBox(std::string(close), big), up);
        box.above = std::max(inner.above, kAbove * size);
        box.below = std::max(inner.below, kBelow * size);
        return box;
    }
};

}  // namespace

std::vector<MathBox> EquationBoxes(const Equation& equation, double size, char decimal)
{
    MathBox first = SymbolBox(equation.symbol, size);
    const MathBox equals = TextBox(" = ", size);
    MathBox value = equals;
    Append(value, NumberBox(equation.value, size, decimal));
    if (!equation.unit.empty()) {
        Append(value, TextBox(" " + UnitText(equation.unit), size));
    }
    if (equation.formula == nullptr) {
        Append(first, value);
        return {first};
    }
    const Setter symbols{false, 0, decimal, size}, numbers{true, equation.digits, decimal, size};
    std::vector<MathBox> boxes;
    Append(first, equals);
    Append(first, WriteExpression(symbols, equation.formula));
    boxes.push_back(std::move(first));
    if (HasCalculation(equation.formula)) {
        MathBox second = equals;
        Append(second, WriteExpression(numbers, equation.formula));
        boxes.push_back(std::move(second));
    }
    boxes.push_back(std::move(value));
    return boxes;
}

MathBox TakeRest(MathBox& box, double width)
{
    const auto behind = std::upper_bound(box.breaks.begin(), box.breaks.end(), width);
    if (behind == box.breaks.begin()) {
        return {};
    }
    const double at = *(behind - 1);
    const auto stays = [&](const Mark& mark) {
        const Bounds bounds = BoundsOf(mark);
        return (bounds.left + bounds.right) / 2 < at;
    };
    MathBox rest{.width = box.width - at, .above = box.above, .below = box.below};
    for (auto next = behind; next != box.breaks.end(); ++next) {
        rest.breaks.push_back(*next - at);
    }
    const auto first = std::stable_partition(box.marks.begin(), box.marks.end(), stays);
    Drawing moved;
    moved.marks.assign(first, box.marks.end());
    Drawing placed;
    Place(placed, moved, {-at, 0});
    rest.marks = std::move(placed.marks);
    box.marks.erase(first, box.marks.end());
    box.breaks.clear();
    box.width = at;
    return rest;
}

MathBox LineBox(const Line& line, double size, char decimal, Ink ink, bool bold)
{
    MathBox box;
    using Style = Span::Style;
    for (const Span& span : line.spans) {
        const bool judged = span.style == Style::good || span.style == Style::bad;
        const bool strong = bold || judged || span.style == Style::strong;
        const Ink colour = span.style == Style::good  ? Ink::good
                           : span.style == Style::bad ? Ink::bad
                                                      : ink;
        if (span.number) {
            Append(box, NumberBox(span.text, size, decimal, strong, colour));
        } else if (span.style == Style::subscript) {
            Append(box, TextBox(span.text, SmallOf(size), false, strong, colour), -0.2 * size);
        } else {
            MathBox text = TextBox(span.text, size, false, strong, colour);
            Append(box, span.style == Style::bar ? BarredBox(std::move(text), size) : text);
        }
    }
    return box;
}

void PlaceBox(Drawing& drawing, const MathBox& box, Point at, double scale)
{
    Drawing part;
    part.marks = box.marks;
    Place(drawing, part, at, scale);
}

}  // namespace kestrum
