#pragma once

// Values of the record that many formulas share, with their symbols.

#include "core/project_state.h"
#include "document/document.h"

namespace kestrum {

struct Quantities {
    explicit Quantities(const ProjectState& s)
        : fy(Sym("f_y", s.fyk)), e(Sym("E", s.e)), gm0(Sym("γ_M0", s.gammam0)),
          gm1(Sym("γ_M1", s.gammam1)), eps(Sym("ε", s.eps)), eta(Sym("η", s.neta)),
          a(Sym("A", s.a)), h(Sym("h", s.h)), b(Sym("b", s.b)), tw(Sym("t_w", s.tw)),
          tf(Sym("t_f", s.tf)), hw(Sym("h_w", s.hw)), length(Sym("L", s.l)), ned(Sym("N_Ed", s.ned))
    {
    }

    Expr fy, e, gm0, gm1, eps, eta;
    Expr a, h, b, tw, tf, hw;
    Expr length, ned;
};

// kN of an area in mm2 or kNm of a modulus in mm3 with the strength, over the partial factor.
inline Expr Resistance(const Expr& area, const Expr& strength, const Expr& factor, int exponent)
{
    return area * strength / factor * Ten(exponent);
}

// A step on the way to a value of the record: adds the equation and gives its result a name.
inline Expr Step(Document& d, std::string_view symbol, const Expr& formula, std::string unit,
                 std::string clause, Line remark = {})
{
    const double value = Evaluate(formula);
    d.Add(symbol, formula, value, std::move(unit), std::move(clause), std::move(remark));
    return Sym(symbol, value);
}

}  // namespace kestrum
