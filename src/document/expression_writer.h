#pragma once

// The one walk over an expression that all notations share. What differs between them is a dialect:
//   Piece                          what a part of a formula is written as
//   bars                           how deep fractions with bars stand in one another; what is
//                                  deeper has a slash, as all have in a line of text
//   set                            exponents are raised, so that nothing in one needs brackets
//   numbers, digits                symbols are written as their numbers, with so many digits
//   Number(text), Name(symbol), Text(text), PowerOfTen(exponent)
//   Joined(a, sign, b), Raised(base, exponent); Fraction(a, b) where there are bars
//   Bracketed(a), Root(a), Size(a), Function(name, a, degrees), List(parts)
//   Of(term, i, bars)              the dialect of a part: one of another size
//
// A fraction in a fraction is read at a glance, one more in it is not: the numbers would stand in
// six rows. The slash has its brackets as ISO 80000-1, 7.3.3 asks for them: "(a/b)·c", "a/(b·c)".

#include "document/expression.h"

#include <string_view>
#include <utility>
#include <vector>

namespace kestrum {

enum class JoinSign : std::uint8_t { plus, minus, times, over };

// Of notations that are set in two dimensions.
constexpr int kBarsInBars = 2;

// How a term is read.
struct Reading {
    bool numbers;
    int digits;
    bool set;
    int bars;  // that may stand in one another from here
};

// Bars that may stand in one another in a part of `outer`: `left` where it comes first.
int BarsIn(const Term& outer, bool left, int bars);

// Whether a part of `outer` needs brackets: `left` where it comes first.
bool NeedsBrackets(const Term& outer, const Term& inner, bool left, const Reading& reading);

// A product or quotient by a scale is its other operand alone in a formula; null for any other.
const Expr* WithoutScale(const Term& term);

template <class Dialect>
typename Dialect::Piece WriteExpression(const Dialect& d, const Expr& expr,
                                        int bars = Dialect::bars)
{
    const Term& term = *expr;
    if (!d.numbers) {
        if (const Expr* const rest = WithoutScale(term)) {
            return WriteExpression(d, *rest, bars);
        }
    }
    const auto part = [&](std::size_t i) {
        const Dialect own = d.Of(term, i, bars);
        auto piece = WriteExpression(own, term.parts[i], BarsIn(term, i == 0, bars));
        const Reading reading{d.numbers, d.digits, Dialect::set, bars};
        return NeedsBrackets(term, *term.parts[i], i == 0, reading)
                   ? own.Bracketed(std::move(piece))
                   : piece;
    };
    const auto list = [&] {
        std::vector<typename Dialect::Piece> pieces;
        for (const Expr& one : term.parts) {
            pieces.push_back(WriteExpression(d, one, bars));
        }
        return d.List(std::move(pieces));
    };
    switch (term.op) {
    case Op::symbol:
        return d.numbers ? d.Number(NumberText(term.value, d.digits)) : d.Name(term.symbol);
    case Op::constant:
        return term.text.empty() ? d.Number(NumberText(term.value, 15)) : d.Text(term.text);
    case Op::scale:
        return d.PowerOfTen(static_cast<int>(term.value));
    case Op::add:
        return d.Joined(part(0), JoinSign::plus, part(1));
    case Op::subtract:
        return d.Joined(part(0), JoinSign::minus, part(1));
    case Op::multiply:
        return d.Joined(part(0), JoinSign::times, part(1));
    case Op::divide:
        if constexpr (Dialect::bars > 0) {
            if (bars > 0) {
                return d.Fraction(part(0), part(1));
            }
        }
        return d.Joined(part(0), JoinSign::over, part(1));
    case Op::power:
        return d.Raised(part(0), part(1));
    case Op::root:
        return d.Root(list());
    case Op::size:
        return d.Size(list());
    case Op::least:
        return d.Function("min", list(), false);
    case Op::largest:
        return d.Function("max", list(), false);
    case Op::cosine:
        return d.Function("cos", list(), true);
    case Op::sine:
        return d.Function("sin", list(), true);
    case Op::logarithm:
        return d.Function("ln", list(), false);
    }
    return {};
}

}  // namespace kestrum
