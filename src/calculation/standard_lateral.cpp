#include "calculation/standard_lateral.h"

#include "calculation/quantities.h"
#include "calculation/units.h"

#include <array>
#include <cmath>

namespace kestrum {

namespace {

using clauses::MomentShape;
using standard::StandardSection;

// The factor by the energies of its shape: what the member stores over what its loads give.
void AddFactor(double factor, const standard::NumericalStudy* study, const char* clause,
               Document& d)
{
    struct Energy {
        const char* symbol;
        double value;
    };
    const auto sum = [](const std::array<Energy, 3>& energies) {
        double all = 0;
        for (const Energy& energy : energies) {
            all += std::abs(energy.value);
        }
        Expr formula;
        for (const Energy& energy : energies) {
            if (std::abs(energy.value) > 1e-9 * all) {
                const Expr part = Sym(energy.symbol, energy.value / 1e3);  // Nm
                formula = formula == nullptr ? part : formula + part;
            }
        }
        return formula;
    };
    Expr formula;
    Line remark("numerical solution");
    if (study != nullptr) {
        const BucklingShape& shape = study->shape;
        formula = sum({{{"U_v", shape.bending}, {"U_w", shape.warping}, {"U_T", shape.torsion}}}) /
                  sum({{{"A_M", shape.moments}, {"A_j", shape.asymmetry}, {"A_g", shape.levels}}});
        remark += Line("; energies of its shape in Nm, largest twist 1 rad: stored by bending "
                       "sideways, warping, torsion over given by moments, asymmetry, load level");
    }
    d.Add("α_cr", formula, factor, "", clause, std::move(remark));
}

// Table 6.6.
void AddTabulatedKc(const standard::TabulatedShape& row, Document& d)
{
    const auto name = [&]() -> const char* {
        switch (row.shape) {
        case MomentShape::straight:
            return "straight moment line, ψ = smaller over larger end moment";
        case MomentShape::uniform_pinned:
            return "row: parabola, no end moments";
        case MomentShape::uniform_fixed:
            return "row: parabola, both ends fixed";
        case MomentShape::uniform_one_end_fixed:
            return "row: parabola, one end fixed";
        case MomentShape::point_pinned:
            return "row: point load, no end moments";
        case MomentShape::point_fixed:
            return "row: point load, both ends fixed";
        case MomentShape::point_one_end_fixed:
            return "row: point load, one end fixed";
        }
        return "";
    };
    const bool straight = row.shape == MomentShape::straight;
    const Expr formula = straight ? 1 / (1.33 - 0.33 * Sym("ψ", row.psi)) : Num(row.Kc());
    d.Add("k_c", formula, row.Kc(), "", "6.3.2.3 (2), Table 6.6", name());
}

}  // namespace

void AddC1(const standard::PieceTerms& piece, const StandardSection& q, Document& d)
{
    if (piece.length > 0) {
        const Expr l = Sym("L_1", piece.length / 1e3), e = Sym("E", q.e);
        const Expr inertia = Sym(q.Angle() ? "I_v" : "I_z", q.Angle() ? q.angle.iv : q.iz);
        Expr torsion = e / Num(2.6) * Sym("I_T", q.it);
        if (q.Warps()) {
            torsion = torsion + Square(Pi() / l) * e * Sym("I_w", q.iw) * Ten(-6);
        }
        d.Add("M_cr,0,1", Pi() / l * Root(e * inertia * torsion) * Ten(-9), piece.uniform, "kNm",
              "", "uniform moment on the piece alone that holds the largest moment");
        d.Add("C_1",
              Sym("α_cr,1", piece.factor) * Sym("M_1", piece.moment) /
                  Sym("M_cr,0,1", piece.uniform),
              piece.c1, "", "",
              Line(Symbol("α_cr,1")) +
                  Line(": numerical solution of this piece, loads in the shear centre, on its "
                       "largest moment ") +
                  Line(Symbol("M_1")));
    } else {
        d.Add("C_1", piece.c1, "", "", "as entered");
    }
}

namespace {

void AddKcOfPiece(const standard::LateralResult& r, const StandardSection& q, Document& d)
{
    const standard::PieceTerms& piece = r.piece;
    AddC1(piece, q, d);
    d.Add("k_c", Least({Num(1), 1 / Root(Sym("C_1", piece.c1))}), r.kc, "", "6.3.2.3 (2)");
}

// 6.3.2.2 and 6.3.2.3: chi from its slenderness.
void AddLateralReduction(const standard::LateralResult& r, const StandardSection& q, Document& d)
{
    const std::string clause(r.clause);
    const Expr lam = Sym("~λ_LT", r.lam);
    if (r.lam <= r.plateau) {
        d.Add("χ_LT", r.chi, "", "6.3.2.2 (4)",
              Line("slenderness of ") + NumberLine(r.plateau) + Line(" or less"));
        return;
    }
    const Expr bent = r.rolled ? Sym("β", r.beta) * Square(lam) : Square(lam);
    const Expr from = r.rolled ? Sym("~λ_LT,0", r.plateau) : Num(0.2);
    const Expr phi = Step(d, "Φ_LT", 0.5 * (1 + Sym("α_LT", r.alpha) * (lam - from) + bent), "",
                          r.rolled ? "6.3.2.3 (1), Table 6.5" : "6.3.2.2 (1), Table 6.4");
    const Expr curve = 1 / (phi + Root(Square(phi) - bent));
    if (!r.rolled) {
        d.Add("χ_LT", Least({Num(1), curve}), r.chi, "", "6.3.2.2 (1), Eq (6.56)");
        return;
    }
    const Expr cap = 1 / Square(lam);
    const Expr chi = Step(d, "χ_LT,0", Least({Num(1), cap, curve}), "", "6.3.2.3 (1), Eq (6.57)");
    const Expr kc = Sym("k_c", r.kc);
    if (r.tabulated) {
        AddTabulatedKc(*r.tabulated, d);
    } else {
        AddKcOfPiece(r, q, d);
    }
    const Expr f =
        Step(d, "f", Least({Num(1), 1 - 0.5 * (1 - kc) * (1 - 2 * Square(lam - Num(0.8)))}), "",
             "6.3.2.3 (2)");
    d.Add("χ_LT", Least({Num(1), cap, chi / f}), r.chi, "", "6.3.2.3 (2), Eq (6.58)");
}

// By the route that the calculation took.
void AddCritical(const ProjectState& in, const standard::LateralResult& r,
                 const standard::NumericalStudy* study, const StandardSection& q, Document& d)
{
    using Route = standard::CriticalRoute;
    constexpr const char* kClause = "6.3.2.2 (2)";
    const standard::CriticalTerms& t = r.critical;
    const auto add = [&](const Expr& formula, Line remark) {
        d.Add("M_cr", formula, r.mcr, "kNm", kClause, std::move(remark));
    };
    const Expr length = Sym("L_LT", t.length), e = Sym("E", q.e);
    const Expr inertia = Sym(q.Angle() ? "I_v" : "I_z", q.Angle() ? q.angle.iv : q.iz);
    const Expr euler = Square(Pi() / length) * e * inertia;
    const Expr twist = e / Num(2.6) * Sym("I_T", q.it) / euler;
    switch (t.route) {
    case Route::numerical:
        AddFactor(t.factor, study, kClause, d);
        add(Sym("α_cr", t.factor) * Sym(q.Angle() ? "M_u,max" : "M_y,max", std::abs(r.moment)),
            q.Angle() ? "moments about u" : "");
        return;
    case Route::closed: {
        const Expr lever = Step(
            d, "e_g", Sym("C_2", in.c2) * Sym("z_g", t.zg) - Sym("C_3", in.c3) * Sym("z_j", t.zj),
            "mm", "");
        const Expr under = Sym("I_w", q.Warps() ? q.iw : 0) / inertia + twist + Square(lever);
        add(Sym("C_1", in.c1) * euler * (Root(under) - lever) * Ten(kToKnm),
            "closed formula with the C factors entered");
        return;
    }
    case Route::angle: {
        const Expr zj = Sym("z_j", t.zj);
        add(euler * (Root(twist + Square(zj)) + zj) * Ten(kToKnm), "uniform moment about u");
        return;
    }
    case Route::tripping:
        d.Add("σ_cr", t.stress, "MPa", "",
              Line("tripping of the stiffener, ") + Line(Symbol("M_cr")) +
                  Line(" over the modulus by the rules of the program; D196"));
        add(Sym("σ_cr", t.stress) * Sym("W_y", r.modulus) * Ten(kToKnm), {});
        return;
    default:
        add(nullptr, {});
    }
}

}  // namespace

void AddStandardLateral(const ProjectState& input, const standard::LateralResult& r,
                        const standard::NumericalStudy* study, const StandardSection& q,
                        Document& d)
{
    if (!(r.mcr > 0) || !(r.chi > 0)) {
        return;
    }
    const double gammam1 = q.gammam1;
    const double characteristic = r.modulus * q.fy / kNmm;
    AddCritical(input, r, study, q, d);
    d.Add("M_Rk", Sym(q.Angle() ? "W_u,c" : "W_y,c", r.modulus) * Sym("f_y", q.fy) * Ten(kToKnm),
          characteristic, "kNm", "6.3.2.2 (1)", "of the compressed side");
    d.Add("~λ_LT", Root(Sym("M_Rk", characteristic) / Sym("M_cr", r.mcr)), r.lam, "",
          "6.3.2.2 (1)");
    AddLateralReduction(r, q, d);
    d.Add("M_b,Rd", Sym("χ_LT", r.chi) * Sym("M_Rk", characteristic) / Sym("γ_M1", gammam1),
          r.resistance, "kNm", "6.3.2.1 (3), Eq (6.55)");
}

}  // namespace kestrum
