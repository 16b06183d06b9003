#include "document/starmath.h"

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

std::string Bracketed(const std::string& content)
{
    return Group("left ( " + content + " right )");
}

std::string Number(std::string_view number, char decimal)
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

std::string Name(const Symbol& symbol)
{
    const std::string letter = "ital " + Quoted(symbol.letter);
    const std::string base = Group(symbol.bar ? "overline " + Group(letter) : letter);
    return symbol.subscript.empty() ? base : Group(base + "_" + Group(Quoted(symbol.subscript)));
}

struct InStarMath {
    bool numbers;
    int digits;
    char decimal;

    std::string operator()(const Expr& expr) const;
    std::string Operand(const Term& outer, const Expr& inner, bool left) const
    {
        const std::string content = (*this)(inner);
        const bool first = left && outer.op != Op::power;
        const bool negative = numbers && inner->op == Op::symbol && inner->value < 0 && !first;
        const bool product =
            numbers && outer.op == Op::power && left && content.find("cdot") != std::string::npos;
        const bool fraction = inner->op == Op::divide && outer.op != Op::power;
        return negative || product || (!fraction && NeedsBrackets(outer, *inner, left))
                   ? Bracketed(content)
                   : content;
    }
    std::string List(const Term& term) const
    {
        std::string content;
        for (const Expr& part : term.parts) {
            content += (content.empty() ? "" : " \"; \" ") + (*this)(part);
        }
        return content;
    }
};

std::string InStarMath::operator()(const Expr& expr) const
{
    const Term& term = *expr;
    if (!numbers) {
        if (const Expr* const rest = WithoutScale(term)) {
            return (*this)(*rest);
        }
    }
    const auto binary = [&](std::string_view sign) {
        return Group(Operand(term, term.parts[0], true) + " " + std::string(sign) + " " +
                     Operand(term, term.parts[1], false));
    };
    const auto function = [&](std::string_view name) {
        return Group("func " + std::string(name) + " " + Bracketed(List(term)));
    };
    switch (term.op) {
    case Op::symbol:
        return numbers ? Number(NumberText(term.value, digits), decimal) : Name(term.symbol);
    case Op::constant:
        return term.text.empty() ? Number(NumberText(term.value, 15), decimal) : Quoted(term.text);
    case Op::scale:
        return Group("10^" + Group(std::to_string(static_cast<int>(term.value))));
    case Op::add:
        return binary("+");
    case Op::subtract:
        return binary("-");
    case Op::multiply:
        return binary("cdot");
    case Op::divide:
        return Group(Group((*this)(term.parts[0])) + " over " + Group((*this)(term.parts[1])));
    case Op::power:
        return Group(Group(Operand(term, term.parts[0], true)) + "^" +
                     Group((*this)(term.parts[1])));
    case Op::root:
        return Group("sqrt " + Group(List(term)));
    case Op::size:
        return Group("left lline " + List(term) + " right rline");
    case Op::least:
        return function("min");
    case Op::largest:
        return function("max");
    case Op::cosine:
        return function("cos");
    case Op::sine:
        return function("sin");
    case Op::logarithm:
        return function("ln");
    }
    return {};
}

}  // namespace

std::vector<std::string> StarMathParts(const Equation& equation, char decimal)
{
    const std::string symbol = Name(equation.symbol) + " = ";
    const std::string equals = "{} = ";  // nothing stands before it
    std::string value = Number(equation.value, decimal);
    if (!equation.unit.empty()) {
        value += " " + Quoted(" " + UnitText(equation.unit));
    }
    if (equation.formula == nullptr) {
        return {symbol + value};
    }
    const InStarMath symbols{false, 0, decimal}, numbers{true, equation.digits, decimal};
    std::vector<std::string> parts{symbol + symbols(equation.formula)};
    if (HasSymbols(equation.formula)) {
        parts.push_back(equals + numbers(equation.formula));
    }
    parts.push_back(equals + value);
    return parts;
}

}  // namespace kestrum
