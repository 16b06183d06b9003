#pragma once

// Formulas as trees, from which everything that is printed comes: the formula with its symbols, the
// same with numbers, and the value that these numbers give.
//
// Symbols are written "N_b,y,Rd": letter and subscript; "~λ_y" has a bar.

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace kestrum {

struct Symbol {
    std::string letter, subscript{};
    bool bar = false;

    Symbol() = default;
    Symbol(std::string_view text);
    Symbol(const char* text) : Symbol(std::string_view(text)) {}
    Symbol(const std::string& text) : Symbol(std::string_view(text)) {}
};

enum class Op : std::uint8_t {
    symbol,    // letter in the formula, number in the calculation
    constant,  // the same in both
    scale,     // power of ten that changes the unit; in the calculation only
    add,
    subtract,
    multiply,
    divide,
    power,
    root,
    size,  // |x|
    least,
    largest,
    cosine,  // of degrees
    sine,
    logarithm  // natural
};

struct Term;
using Expr = std::shared_ptr<const Term>;

struct Term {
    Op op = Op::constant;
    Symbol symbol{};
    double value = 0;    // of a symbol or constant; exponent of a scale
    std::string text{};  // of a constant that is not written as its number: "π"
    std::vector<Expr> parts{};
};

Expr Sym(std::string_view symbol, double value);
Expr Num(double constant);
Expr Pi();
Expr Ten(int exponent);  // factor that changes the unit
Expr Root(Expr of);
Expr Power(Expr base, Expr exponent);
Expr Square(Expr base);
Expr Size(Expr of);
Expr Least(std::vector<Expr> of);
Expr Largest(std::vector<Expr> of);
Expr Cosine(Expr degrees);
Expr Sine(Expr degrees);
Expr Logarithm(Expr of);
Expr Binary(Op op, Expr a, Expr b);

inline Expr operator+(Expr a, Expr b)
{
    return Binary(Op::add, std::move(a), std::move(b));
}
inline Expr operator-(Expr a, Expr b)
{
    return Binary(Op::subtract, std::move(a), std::move(b));
}
inline Expr operator*(Expr a, Expr b)
{
    return Binary(Op::multiply, std::move(a), std::move(b));
}
inline Expr operator/(Expr a, Expr b)
{
    return Binary(Op::divide, std::move(a), std::move(b));
}
inline Expr operator+(double a, Expr b)
{
    return Num(a) + std::move(b);
}
inline Expr operator-(double a, Expr b)
{
    return Num(a) - std::move(b);
}
inline Expr operator*(double a, Expr b)
{
    return Num(a) * std::move(b);
}
inline Expr operator/(double a, Expr b)
{
    return Num(a) / std::move(b);
}
inline Expr operator+(Expr a, double b)
{
    return std::move(a) + Num(b);
}
inline Expr operator-(Expr a, double b)
{
    return std::move(a) - Num(b);
}
inline Expr operator*(Expr a, double b)
{
    return std::move(a) * Num(b);
}
inline Expr operator/(Expr a, double b)
{
    return std::move(a) / Num(b);
}

// The number with so many significant digits, without zeros behind the last one: "0.7305",
// "36.92e6" from a million on and below a thousandth. A whole number keeps all digits before the
// point. Empty for what is no finite number.
std::string NumberText(double value, int digits);
// The same with all of its digits: "0.500", for results.
std::string ResultText(double value, int digits);

// The value behind a number as printed, and one unit of its last digit.
double NumberOf(std::string_view text);
double LastDigitOf(std::string_view text);

// Symbols with `digits` significant digits; 0: with all that they have.
double Evaluate(const Expr& expr, int digits = 0);

// Two expressions in one: an expression that shows no symbol has no formula to print.
bool HasSymbols(const Expr& expr);

// Numbers stand between formula and result: those of one symbol alone would be the result.
bool HasCalculation(const Expr& expr);

}  // namespace kestrum
