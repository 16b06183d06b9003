#include "document/mathml.h"

#include "core/xml_text.h"
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

std::string Bracketed(const std::string& content, std::string_view open = "(",
                      std::string_view close = ")")
{
    return Row(Sign(open) + content + Sign(close));
}

struct InMathMl {
    bool numbers;
    int digits;
    char decimal;

    std::string operator()(const Expr& expr) const;
    std::string Operand(const Term& outer, const Expr& inner, bool left) const
    {
        const std::string content = (*this)(inner);
        const bool first = left && outer.op != Op::power;
        const bool negative = numbers && inner->op == Op::symbol && inner->value < 0 && !first;
        // A number with a power of ten is a product.
        const bool product =
            numbers && outer.op == Op::power && left && content.find("<msup>") != std::string::npos;
        // A fraction is a unit by its bar.
        const bool fraction = inner->op == Op::divide && outer.op != Op::power;
        const bool brackets = !fraction && NeedsBrackets(outer, *inner, left);
        return negative || product || brackets ? Bracketed(content) : content;
    }
    std::string List(const Term& term) const
    {
        std::string content;
        for (const Expr& part : term.parts) {
            content += (content.empty() ? "" : Sign(";")) + (*this)(part);
        }
        return content;
    }
    std::string Function(std::string_view name, const Term& term) const
    {
        return Row(Element("mi", name) + Bracketed(List(term)));
    }
};

std::string InMathMl::operator()(const Expr& expr) const
{
    const Term& term = *expr;
    if (!numbers) {
        if (const Expr* const rest = WithoutScale(term)) {
            return (*this)(*rest);
        }
    }
    const auto binary = [&](std::string_view sign) {
        return Row(Operand(term, term.parts[0], true) + Sign(sign) +
                   Operand(term, term.parts[1], false));
    };
    switch (term.op) {
    case Op::symbol:
        return numbers ? MathMlNumber(NumberText(term.value, digits), decimal)
                       : MathMlSymbol(term.symbol);
    case Op::constant:
        return term.text.empty() ? MathMlNumber(NumberText(term.value, 15), decimal)
                                 : Element("mi", term.text);
    case Op::scale:
        return "<msup><mn>10</mn><mn>" + std::to_string(static_cast<int>(term.value)) +
               "</mn></msup>";
    case Op::add:
        return binary("+");
    case Op::subtract:
        return binary("−");
    case Op::multiply:
        return binary("·");
    case Op::divide:
        return "<mfrac>" + Row((*this)(term.parts[0])) + Row((*this)(term.parts[1])) + "</mfrac>";
    case Op::power:
        return "<msup>" + Row(Operand(term, term.parts[0], true)) + Row((*this)(term.parts[1])) +
               "</msup>";
    case Op::root:
        return Element("msqrt", List(term));
    case Op::size:
        return Bracketed(List(term), "|", "|");
    case Op::least:
        return Function("min", term);
    case Op::largest:
        return Function("max", term);
    case Op::cosine:
        return Function("cos", term);
    case Op::sine:
        return Function("sin", term);
    case Op::logarithm:
        return Function("ln", term);
    }
    return {};
}

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
    return InMathMl{false, 0, decimal}(expr);
}

std::string MathMlCalculation(const Expr& expr, int digits, char decimal)
{
    return InMathMl{true, digits, decimal}(expr);
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
    if (HasSymbols(equation.formula)) {
        parts.push_back(symbol + Sign("=") + MathMlFormula(equation.formula, decimal));
        parts.push_back(Sign("=") + MathMlCalculation(equation.formula, equation.digits, decimal));
    } else {
        parts.push_back(symbol + Sign("=") + MathMlFormula(equation.formula, decimal));
    }
    parts.push_back(value);
    return parts;
}

}  // namespace kestrum
