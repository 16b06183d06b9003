#include "document/notation.h"

#include "document/expression_writer.h"

#include <algorithm>
#include <cmath>

namespace kestrum {

namespace {

constexpr std::string_view kBarAbove = "\xCC\x85";  // combining overline

struct InLine {
    using Piece = std::string;
    static constexpr int bars = 0;
    static constexpr bool set = false;
    bool numbers;
    int digits;
    char decimal;
    bool rich = false;

    const InLine& Of(const Term&, std::size_t, int) const { return *this; }
    std::string Number(std::string_view number) const
    {
        return rich ? RichNumber(number, decimal) : NumberInLine(number, decimal);
    }
    std::string Name(const Symbol& symbol) const
    {
        return rich ? RichSymbol(symbol) : SymbolInLine(symbol);
    }
    static std::string Text(std::string_view text) { return std::string(text); }
    std::string PowerOfTen(int exponent) const { return Raised("10", std::to_string(exponent)); }
    static std::string Joined(const std::string& a, JoinSign sign, const std::string& b)
    {
        constexpr std::string_view kSigns[] = {" + ", " - ", "·", "/"};
        return a + std::string(kSigns[static_cast<std::size_t>(sign)]) + b;
    }
    std::string Raised(const std::string& base, const std::string& exponent) const
    {
        return base + (rich ? "<sup>" + exponent + "</sup>" : "^" + exponent);
    }
    static std::string Bracketed(const std::string& a) { return "(" + a + ")"; }
    static std::string Root(const std::string& a) { return "√(" + a + ")"; }
    static std::string Size(const std::string& a) { return "|" + a + "|"; }
    static std::string Function(std::string_view name, const std::string& a, bool degrees)
    {
        return std::string(name) + "(" + a + (degrees ? "°)" : ")");
    }
    static std::string List(const std::vector<std::string>& parts)
    {
        std::string text;
        for (const std::string& part : parts) {
            text += (text.empty() ? "" : "; ") + part;
        }
        return text;
    }
};

}  // namespace

std::string NumberInLine(std::string_view number, char decimal)
{
    std::string text(number);
    std::replace(text.begin(), text.end(), '.', decimal);
    const std::size_t e = text.find('e');
    return e == std::string::npos ? text : text.substr(0, e) + "·10^" + text.substr(e + 1);
}

std::string SymbolInLine(const Symbol& symbol)
{
    return symbol.letter + (symbol.bar ? std::string(kBarAbove) : "") +
           (symbol.subscript.empty() ? "" : "_" + symbol.subscript);
}

std::string FormulaInLine(const Expr& expr, char decimal)
{
    return WriteExpression(InLine{false, 0, decimal}, expr);
}

std::string CalculationInLine(const Expr& expr, int digits, char decimal)
{
    return WriteExpression(InLine{true, digits, decimal}, expr);
}

std::string RichNumber(std::string_view number, char decimal)
{
    const std::string text = NumberInLine(number, decimal);
    const std::size_t power = text.find('^');
    return power == std::string::npos
               ? text
               : text.substr(0, power) + "<sup>" + text.substr(power + 1) + "</sup>";
}

std::string RichSymbol(const Symbol& symbol)
{
    return symbol.letter + (symbol.bar ? std::string(kBarAbove) : "") +
           (symbol.subscript.empty() ? "" : "<sub>" + symbol.subscript + "</sub>");
}

std::string RichFormula(const Expr& expr, char decimal)
{
    return WriteExpression(InLine{false, 0, decimal, true}, expr);
}

std::string RichCalculation(const Expr& expr, int digits, char decimal)
{
    return WriteExpression(InLine{true, digits, decimal, true}, expr);
}

std::string UnitText(std::string_view unit)
{
    // mm2, mm3, mm4, mm6: the digit behind a letter is raised.
    std::string text;
    for (const char c : unit) {
        const bool raised = !text.empty() && (c == '2' || c == '3' || c == '4' || c == '6');
        text += !raised    ? std::string(1, c)
                : c == '2' ? "²"
                : c == '3' ? "³"
                : c == '4' ? "⁴"
                           : "⁶";
    }
    return text;
}

std::string PlainText(const Line& line, char decimal)
{
    std::string text;
    for (const Span& span : line.spans) {
        text += span.style == Span::Style::subscript ? "_" : "";
        text += span.number ? NumberInLine(span.text, decimal) : span.text;
        text += span.style == Span::Style::bar ? kBarAbove : "";
    }
    return text;
}

bool KeptTogether(std::string_view text, std::size_t blank)
{
    return (blank + 1 < text.size() && text[blank + 1] == '=') ||
           (blank > 0 && text[blank - 1] == '=');
}

std::string WithFixedBlanks(std::string_view text)
{
    std::string out;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == ' ' && KeptTogether(text, i)) {
            out += "\xC2\xA0";
        } else {
            out += text[i];
        }
    }
    return out;
}

}  // namespace kestrum
