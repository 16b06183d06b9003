#include "document/mathml.h"

#include "core/xml_text.h"
#include "document/expression_writer.h"
#include "document/notation.h"

#include <algorithm>

namespace kestrum {

namespace {

std::string Element(std::string_view name, std::string_view content)
{
    std::string out("<");
    out.append(name).append(">").append(content).append("</").append(name).append(">");
    return out;
}

std::string Row(const std::string& content)
{
    return Element("mrow", content);
}

std::string Sign(std::string_view sign)
{
    return Element("mo", sign);
}

struct InMathMl {
    using Piece = std::string;
    static constexpr int bars = kBarsInBars;
    static constexpr bool set = true;
    bool numbers;
    int digits;
    char decimal;

    const InMathMl& Of(const Term&, std::size_t, int) const { return *this; }
    std::string Number(std::string_view number) const { return MathMlNumber(number, decimal); }
    static std::string Name(const Symbol& symbol) { return MathMlSymbol(symbol); }
    static std::string Text(std::string_view text) { return Element("mi", text); }
    static std::string PowerOfTen(int exponent)
    {
        return "<msup><mn>10</mn><mn>" + std::to_string(exponent) + "</mn></msup>";
    }
    static std::string Joined(const std::string& a, JoinSign sign, const std::string& b)
    {
        constexpr std::string_view kSigns[] = {"<mo>+</mo>", "<mo>−</mo>", "<mo>·</mo>",
                                               "<mo lspace=\"0.05em\" rspace=\"0.05em\">/</mo>"};
        return Row(a + std::string(kSigns[static_cast<std::size_t>(sign)]) + b);
    }
    static std::string Fraction(const std::string& a, const std::string& b)
    {
        return "<mfrac>" + Row(a) + Row(b) + "</mfrac>";
    }
    static std::string Raised(const std::string& base, const std::string& exponent)
    {
        return "<msup>" + Row(base) + Row(exponent) + "</msup>";
    }
    static std::string Bracketed(const std::string& a) { return Row(Sign("(") + a + Sign(")")); }
    static std::string Root(const std::string& a) { return Element("msqrt", a); }
    static std::string Size(const std::string& a) { return Row(Sign("|") + a + Sign("|")); }
    static std::string Function(std::string_view name, const std::string& a, bool)
    {
        return Row(Element("mi", name) + Bracketed(a));
    }
    static std::string List(const std::vector<std::string>& parts)
    {
        std::string content;
        for (const std::string& part : parts) {
            content += (content.empty() ? "" : Sign(";")) + part;
        }
        return content;
    }
};

}  // namespace

std::string MathMlNumber(std::string_view number, char decimal)
{
    std::string text(number);
    std::replace(text.begin(), text.end(), '.', decimal);
    const bool negative = text.starts_with('-');
    if (negative) {
        text.erase(0, 1);
    }
    const std::size_t e = text.find('e');
    std::string out = Element("mn", text.substr(0, e));
    if (e != std::string::npos) {
        out = Row(out + Sign("·") + "<msup><mn>10</mn><mn>" + text.substr(e + 1) + "</mn></msup>");
    }
    return negative ? Row(Sign("−") + out) : out;
}

std::string MathMlSymbol(const Symbol& symbol)
{
    // More than a letter is a word, upright.
    const std::string letter = Element("mi", XmlText(symbol.letter));
    const std::string base =
        symbol.bar ? "<mover accent=\"true\">" + letter + "<mo stretchy=\"false\">¯</mo></mover>"
                   : letter;
    return symbol.subscript.empty()
               ? base
               : "<msub>" + base + Element("mtext", XmlText(symbol.subscript)) + "</msub>";
}

std::string MathMlFormula(const Expr& expr, char decimal)
{
    return WriteExpression(InMathMl{false, 0, decimal}, expr);
}

std::string MathMlCalculation(const Expr& expr, int digits, char decimal)
{
    return WriteExpression(InMathMl{true, digits, decimal}, expr);
}

std::vector<std::string> MathMlParts(const Equation& equation, char decimal)
{
    const std::string symbol = MathMlSymbol(equation.symbol);
    std::string value = Sign("=") + MathMlNumber(equation.value, decimal);
    if (!equation.unit.empty()) {
        value += "<mspace width=\"0.25em\"/>" + Element("mtext", XmlText(UnitText(equation.unit)));
    }
    if (equation.formula == nullptr) {
        return {symbol + value};
    }
    std::vector<std::string> parts;
    if (HasCalculation(equation.formula)) {
        parts.push_back(symbol + Sign("=") + MathMlFormula(equation.formula, decimal));
        parts.push_back(Sign("=") + MathMlCalculation(equation.formula, equation.digits, decimal));
    } else {
        parts.push_back(symbol + Sign("=") + MathMlFormula(equation.formula, decimal));
    }
    parts.push_back(value);
    return parts;
}

}  // namespace kestrum
