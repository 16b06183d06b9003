#include "document/starmath.h"

#include "document/expression_writer.h"
#include "document/notation.h"

#include <algorithm>

namespace kestrum {

namespace {

// Always one group, so that nothing around it takes a part of it away.
std::string Group(const std::string& content)
{
    return "{" + content + "}";
}

std::string Quoted(const std::string& text)
{
    return "\"" + text + "\"";
}

std::string NumberOf(std::string_view number, char decimal)
{
    std::string text(number);
    std::replace(text.begin(), text.end(), '.', decimal);
    const std::size_t e = text.find('e');
    // A number with a comma is a text, which would stand at the left of a fraction.
    const std::string plain = text.substr(0, e);
    const std::string digits = decimal == '.' ? Group(plain) : Group("alignc " + Quoted(plain));
    return e == std::string::npos ? digits
                                  : Group(digits + " cdot 10^" + Group(text.substr(e + 1)));
}

std::string NameOf(const Symbol& symbol)
{
    const std::string letter = "ital " + Quoted(symbol.letter);
    const std::string base = Group(symbol.bar ? "overline " + Group(letter) : letter);
    return symbol.subscript.empty() ? base : Group(base + "_" + Group(Quoted(symbol.subscript)));
}

struct InStarMath {
    using Piece = std::string;
    static constexpr int bars = kBarsInBars;
    static constexpr bool set = true;
    bool numbers;
    int digits;
    char decimal;

    const InStarMath& Of(const Term&, std::size_t, int) const { return *this; }
    std::string Number(std::string_view number) const { return NumberOf(number, decimal); }
    static std::string Name(const Symbol& symbol) { return NameOf(symbol); }
    static std::string Text(std::string_view text) { return Quoted(std::string(text)); }
    static std::string PowerOfTen(int exponent)
    {
        return Group("10^" + Group(std::to_string(exponent)));
    }
    static std::string Joined(const std::string& a, JoinSign sign, const std::string& b)
    {
        constexpr std::string_view kSigns[] = {" + ", " - ", " cdot ", " / "};
        return Group(a + std::string(kSigns[static_cast<std::size_t>(sign)]) + b);
    }
    static std::string Fraction(const std::string& a, const std::string& b)
    {
        return Group(Group(a) + " over " + Group(b));
    }
    static std::string Raised(const std::string& base, const std::string& exponent)
    {
        return Group(Group(base) + "^" + Group(exponent));
    }
    static std::string Bracketed(const std::string& a) { return Group("left ( " + a + " right )"); }
    static std::string Root(const std::string& a) { return Group("sqrt " + Group(a)); }
    static std::string Size(const std::string& a)
    {
        return Group("left lline " + a + " right rline");
    }
    static std::string Function(std::string_view name, const std::string& a, bool)
    {
        return Group("func " + std::string(name) + " " + Bracketed(a));
    }
    static std::string List(const std::vector<std::string>& parts)
    {
        std::string content;
        for (const std::string& part : parts) {
            content += (content.empty() ? "" : " \"; \" ") + part;
        }
        return content;
    }
};

}  // namespace

std::vector<std::string> StarMathParts(const Equation& equation, char decimal)
{
    const std::string symbol = NameOf(equation.symbol) + " = ";
    const std::string equals = "{} = ";  // nothing stands before it
    std::string value = NumberOf(equation.value, decimal);
    if (!equation.unit.empty()) {
        value += " " + Quoted(" " + UnitText(equation.unit));
    }
    if (equation.formula == nullptr) {
        return {symbol + value};
    }
    const InStarMath symbols{false, 0, decimal}, numbers{true, equation.digits, decimal};
    std::vector<std::string> parts{symbol + WriteExpression(symbols, equation.formula)};
    if (HasCalculation(equation.formula)) {
        parts.push_back(equals + WriteExpression(numbers, equation.formula));
    }
    parts.push_back(equals + value);
    return parts;
}

}  // namespace kestrum
