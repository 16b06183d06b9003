#include "document/expression.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <numbers>
#include <numeric>
#include <utility>

namespace kestrum {

namespace {

constexpr double kDegree = std::numbers::pi / 180;

Expr Make(Op op, std::vector<Expr> parts)
{
    return std::make_shared<const Term>(Term{.op = op, .parts = std::move(parts)});
}

// Digits and exponent of a number in scientific notation: "7305", -1 for 0.7305.
struct Scientific {
    bool negative;
    std::string digits;
    int exponent;
};

Scientific ScientificOf(double value, int digits)
{
    std::array<char, 40> buffer;
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), std::abs(value),
                                   std::chars_format::scientific, digits - 1);
    const std::string_view text(buffer.data(), static_cast<std::size_t>(end.ptr - buffer.data()));
    const std::size_t e = text.find('e');
    Scientific number{value < 0, std::string(text.substr(0, e)), 0};
    std::erase(number.digits, '.');
    const std::size_t sign = text[e + 1] == '+' ? e + 2 : e + 1;
    std::from_chars(text.data() + sign, text.data() + text.size(), number.exponent);
    return number;
}

// Places the point behind `before` digits; zeros fill what lacks.
std::string Pointed(std::string digits, int before)
{
    if (before <= 0) {
        return "0." + std::string(static_cast<std::size_t>(-before), '0') + digits;
    }
    const auto at = static_cast<std::size_t>(before);
    if (digits.size() <= at) {
        return digits + std::string(at - digits.size(), '0');
    }
    return digits.insert(at, ".");
}

void StripZeros(std::string& text)
{
    if (text.find('.') != std::string::npos) {
        text.erase(text.find_last_not_of('0') + 1);
        if (text.back() == '.') {
            text.pop_back();
        }
    }
}

std::string Written(double value, int digits, bool strip)
{
    if (!std::isfinite(value)) {
        return {};
    }
    if (value == 0) {
        return "0";
    }
    constexpr int kLargest = 6, kSmallest = -3;
    Scientific number = ScientificOf(value, digits);
    int exponent = number.exponent;
    const bool plain = exponent >= kSmallest && exponent < kLargest;
    constexpr int kAll = 17, kLot = 3;
    int whole = plain ? exponent + 1 : kLot;  // before the point
    if (whole > digits) {
        whole = plain ? ScientificOf(value, kAll).exponent + 1 : kLot;
        number = ScientificOf(value, std::max(digits, whole));
        exponent = number.exponent;
    }
    const int lot =
        plain ? 0 : static_cast<int>(std::floor(static_cast<double>(exponent) / 3.0)) * 3;
    std::string text = Pointed(number.digits, exponent - lot + 1);
    if (strip) {
        StripZeros(text);
    }
    return (number.negative ? "-" : "") + text + (lot == 0 ? "" : "e" + std::to_string(lot));
}

double Folded(const Term& term, int digits, double (*fold)(double, double))
{
    double value = Evaluate(term.parts.front(), digits);
    for (std::size_t i = 1; i < term.parts.size(); ++i) {
        value = fold(value, Evaluate(term.parts[i], digits));
    }
    return value;
}

}  // namespace

Symbol::Symbol(std::string_view text)
{
    if (text.starts_with('~')) {
        bar = true;
        text.remove_prefix(1);
    }
    const std::size_t split = text.find('_');
    letter = text.substr(0, split);
    if (split != std::string_view::npos) {
        subscript = text.substr(split + 1);
    }
}

Expr Sym(std::string_view symbol, double value)
{
    return std::make_shared<const Term>(
        Term{.op = Op::symbol, .symbol = Symbol(symbol), .value = value});
}

Expr Num(double constant)
{
    return std::make_shared<const Term>(Term{.op = Op::constant, .value = constant});
}

Expr Pi()
{
    return std::make_shared<const Term>(
        Term{.op = Op::constant, .value = std::numbers::pi, .text = "π"});
}

Expr Ten(int exponent)
{
    return std::make_shared<const Term>(
        Term{.op = Op::scale, .value = static_cast<double>(exponent)});
}

Expr Root(Expr of)
{
    return Make(Op::root, {std::move(of)});
}

Expr Power(Expr base, Expr exponent)
{
    return Make(Op::power, {std::move(base), std::move(exponent)});
}

Expr Square(Expr base)
{
    return Power(std::move(base), Num(2));
}

Expr Size(Expr of)
{
    return Make(Op::size, {std::move(of)});
}

Expr Least(std::vector<Expr> of)
{
    return Make(Op::least, std::move(of));
}

Expr Largest(std::vector<Expr> of)
{
    return Make(Op::largest, std::move(of));
}

Expr Cosine(Expr degrees)
{
    return Make(Op::cosine, {std::move(degrees)});
}

Expr Sine(Expr degrees)
{
    return Make(Op::sine, {std::move(degrees)});
}

Expr Logarithm(Expr of)
{
    return Make(Op::logarithm, {std::move(of)});
}

Expr Binary(Op op, Expr a, Expr b)
{
    return Make(op, {std::move(a), std::move(b)});
}

std::string NumberText(double value, int digits)
{
    return Written(value, digits, true);
}

std::string ResultText(double value, int digits)
{
    return Written(value, digits, false);
}

double NumberOf(std::string_view text)
{
    double value = std::numeric_limits<double>::quiet_NaN();
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value;
}

double LastDigitOf(std::string_view text)
{
    const std::size_t e = std::min(text.find('e'), text.size());
    const std::size_t point = std::min(text.find('.'), e);
    const double decimals = point == e ? 0 : static_cast<double>(e - point - 1);
    double exponent = 0;
    if (e < text.size()) {
        exponent = NumberOf(text.substr(e + 1));
    }
    return std::pow(10.0, exponent - decimals);
}

double Evaluate(const Expr& expr, int digits)
{
    const Term& term = *expr;
    const auto part = [&](std::size_t i) { return Evaluate(term.parts[i], digits); };
    switch (term.op) {
    case Op::symbol:
        return digits == 0 ? term.value : NumberOf(NumberText(term.value, digits));
    case Op::constant:
        return term.value;
    case Op::scale:
        return std::pow(10.0, term.value);
    case Op::add:
        return part(0) + part(1);
    case Op::subtract:
        return part(0) - part(1);
    case Op::multiply:
        return part(0) * part(1);
    case Op::divide:
        return part(0) / part(1);
    case Op::power:
        return std::pow(part(0), part(1));
    case Op::root:
        return std::sqrt(part(0));
    case Op::size:
        return std::abs(part(0));
    case Op::least:
        return Folded(term, digits, [](double a, double b) { return std::min(a, b); });
    case Op::largest:
        return Folded(term, digits, [](double a, double b) { return std::max(a, b); });
    case Op::cosine:
        return std::cos(part(0) * kDegree);
    case Op::sine:
        return std::sin(part(0) * kDegree);
    case Op::logarithm:
        return std::log(part(0));
    }
    return 0;
}

bool HasSymbols(const Expr& expr)
{
    return expr->op == Op::symbol ||
           std::any_of(expr->parts.begin(), expr->parts.end(), HasSymbols);
}

bool HasCalculation(const Expr& expr)
{
    return expr->op != Op::symbol && HasSymbols(expr);
}

}  // namespace kestrum
