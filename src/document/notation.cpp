#include "document/notation.h"

#include <algorithm>
#include <cmath>

namespace kestrum {

namespace {

constexpr std::string_view kBarAbove = "\xCC\x85";  // combining overline

int RankOf(const Term& term)
{
    switch (term.op) {
    case Op::add:
    case Op::subtract:
        return 1;
    case Op::multiply:
    case Op::divide:
        return 2;
    case Op::power:
        return 3;
    default:
        return 4;
    }
}

struct InLine {
    bool numbers;
    int digits;
    char decimal;
    bool rich = false;

    std::string Number(std::string_view number) const
    {
        return rich ? RichNumber(number, decimal) : NumberInLine(number, decimal);
    }
    std::string Raised(const std::string& text) const
    {
        return rich ? "<sup>" + text + "</sup>" : "^" + text;
    }

    std::string operator()(const Expr& expr) const;
    std::string Operand(const Term& outer, const Expr& inner, bool left) const
    {
        const std::string text = (*this)(inner);
        // A negative number behind an operator.
        const bool negative = numbers && text.starts_with('-') && !(left && RankOf(outer) < 3);
        // A number with a power of ten is a product.
        const bool product = inner->op == Op::symbol && text.find("·10") != std::string::npos &&
                             (outer.op == Op::power || (outer.op == Op::divide && !left));
        return negative || product || NeedsBrackets(outer, *inner, left) ? "(" + text + ")" : text;
    }
    std::string List(const Term& term) const
    {
        std::string text;
        for (const Expr& part : term.parts) {
            text += (text.empty() ? "" : "; ") + (*this)(part);
        }
        return text;
    }
};

std::string InLine::operator()(const Expr& expr) const
{
    const Term& term = *expr;
    if (!numbers) {
        if (const Expr* const rest = WithoutScale(term)) {
            return (*this)(*rest);
        }
    }
    const auto binary = [&](std::string_view sign) {
        return Operand(term, term.parts[0], true) + std::string(sign) +
               Operand(term, term.parts[1], false);
    };
    switch (term.op) {
    case Op::symbol:
        return numbers ? Number(NumberText(term.value, digits))
               : rich  ? RichSymbol(term.symbol)
                       : SymbolInLine(term.symbol);
    case Op::constant:
        return term.text.empty() ? Number(NumberText(term.value, 15)) : term.text;
    case Op::scale:
        return "10" + Raised(std::to_string(static_cast<int>(term.value)));
    case Op::add:
        return binary(" + ");
    case Op::subtract:
        return binary(" - ");
    case Op::multiply:
        return binary("·");
    case Op::divide:
        return binary("/");
    case Op::power:
        return Operand(term, term.parts[0], true) + Raised(Operand(term, term.parts[1], false));
    case Op::root:
        return "√(" + List(term) + ")";
    case Op::size:
        return "|" + List(term) + "|";
    case Op::least:
        return "min(" + List(term) + ")";
    case Op::largest:
        return "max(" + List(term) + ")";
    case Op::cosine:
        return "cos(" + List(term) + "°)";
    case Op::sine:
        return "sin(" + List(term) + "°)";
    case Op::logarithm:
        return "ln(" + List(term) + ")";
    }
    return {};
}

}  // namespace

bool NeedsBrackets(const Term& outer, const Term& inner, bool left)
{
    const int rank = RankOf(inner), around = RankOf(outer);
    if (around == 4 || rank > around) {
        return false;
    }
    if (rank < around) {
        return true;
    }
    // a - (b + c), a/(b c), (a^b)^c
    return outer.op == Op::power ||
           (!left && (outer.op == Op::subtract || outer.op == Op::divide ||
                      (outer.op == Op::multiply && inner.op == Op::divide)));
}

const Expr* WithoutScale(const Term& term)
{
    if (term.op != Op::multiply && term.op != Op::divide) {
        return nullptr;
    }
    if (term.parts[1]->op == Op::scale) {
        return &term.parts[0];
    }
    return term.op == Op::multiply && term.parts[0]->op == Op::scale ? &term.parts[1] : nullptr;
}

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
    return InLine{false, 0, decimal}(expr);
}

std::string CalculationInLine(const Expr& expr, int digits, char decimal)
{
    return InLine{true, digits, decimal}(expr);
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
    return InLine{false, 0, decimal, true}(expr);
}

std::string RichCalculation(const Expr& expr, int digits, char decimal)
{
    return InLine{true, digits, decimal, true}(expr);
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
