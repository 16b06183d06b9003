#include "calculation/standard_member.h"

#include "calculation/member_equations.h"
#include "calculation/standard_lateral.h"
#include "clauses/flexural.h"

#include <cmath>
#include <string>
#include <utility>
#include <vector>

namespace kestrum {

namespace {

// "curve c, Table 6.2".
std::string CurveOf(double imperfection)
{
    using clauses::BucklingCurve;
    constexpr std::pair<BucklingCurve, const char*> kCurves[] = {{BucklingCurve::a0, "a0"},
                                                                 {BucklingCurve::a, "a"},
                                                                 {BucklingCurve::b, "b"},
                                                                 {BucklingCurve::c, "c"},
                                                                 {BucklingCurve::d, "d"}};
    for (const auto& [curve, name] : kCurves) {
        if (clauses::Imperfection(curve) == imperfection) {
            return "curve " + std::string(name) + ", Table 6.2";
        }
    }
    return {};
}

}  // namespace

Expr MemberEquations::Resistance(const std::string& symbol, const Expr& chi,
                                 const standard::Reductions& r)
{
    return Step(d_, symbol, chi * Squash(r) / Sym("γ_M1", q_.gammam1), "kN", "6.3.1.1 (3)");
}

void MemberEquations::AddSquash(const standard::Reductions& r)
{
    d_.Add("N_Rk",
           Sym("f_y", q_.fy) * Sym(r.squash == q_.a * q_.fy ? "A" : "A_eff", r.squash / q_.fy) *
               Ten(kToKn),
           r.squash / kNewton, "kN", "6.3.1.1 (3)");
}

// chi of 6.3.1 with what leads to it; angles buckle about v in place of z.
Expr MemberEquations::Reduction(bool y, const standard::Reductions& r)
{
    const bool angle = q_.Angle();
    const std::string n = y ? "y" : angle ? "v" : "z";
    const double ncr = y ? t_.ncr.y : t_.ncr.z, lam = y ? r.lamy : r.lamz;
    const double chi = y ? r.chiy : r.chiz;
    const double factor = y ? in_.ly : in_.lz;
    const double inertia = y ? q_.iy : angle ? q_.angle.iv : q_.iz;
    AddSquash(r);
    if (std::isfinite(ncr)) {
        const Expr length =
            Step(d_, "L_cr," + n, Sym("k_cr," + n, factor) * Sym("L", in_.l), "m", "6.3.1.3");
        d_.Add("N_cr," + n,
               Square(Pi()) * Sym("E", q_.e) * Sym("I_" + n, inertia) / Square(length) * Ten(-9),
               ncr / kNewton, "kN", "6.3.1.2 (1)");
        const Expr slenderness = Root(Squash(r) / Sym("N_cr," + n, ncr / kNewton));
        if (!angle || !q_.angle.two_bolts) {
            d_.Add("~λ_" + n, slenderness, lam, "", "6.3.1.2 (1)");
        } else if (y) {
            d_.Add("~λ_y", 0.5 + 0.7 * slenderness, lam, "", "BB.1.2 (2)");
        } else {
            const Expr about_z = slenderness * Root(Sym("I_v", inertia) / Sym("I_z", q_.iz));
            d_.Add("~λ_v", Largest({0.5 + 0.7 * about_z, 0.35 + 0.7 * slenderness}), lam, "",
                   "BB.1.2 (2)");
        }
    }
    const std::string symbol = "χ_" + n;
    if (lam > 0.2) {
        const Expr slenderness = Sym("~λ_" + n, lam),
                   alpha = Sym("α", y ? t_.curves.y : t_.curves.z);
        const Expr phi =
            Step(d_, "Φ_" + n, 0.5 * (1 + alpha * (slenderness - Num(0.2)) + Square(slenderness)),
                 "", "6.3.1.2 (1)", CurveOf(y ? t_.curves.y : t_.curves.z));
        d_.Add(symbol, Least({Num(1), 1 / (phi + Root(Square(phi) - Square(slenderness)))}), chi,
               "", "6.3.1.2 (1), Eq (6.49)");
    } else {
        d_.Add(symbol, chi, "", "6.3.1.2 (4)",
               WithNumbers(std::isfinite(ncr) ? "slenderness of 0.2 or less"
                                              : "does not buckle about this axis"));
    }
    return Sym(symbol, chi);
}

Expr MemberEquations::Column(bool y)
{
    return N() / Resistance(y ? "N_b,y,Rd" : About("N_b,z,Rd"), Reduction(y, t_.column), t_.column);
}

// Ncr,T, and Ncr,TF where the shear centre is not the centroid.
void MemberEquations::AddTorsionalForces()
{
    const standard::TorsionTerms& at = t_.torsion;
    const bool angle = q_.Angle();
    const Expr ip2 = (Sym("I_y", q_.iy) + Sym("I_z", q_.iz)) / Sym("A", q_.a);
    const Expr y0 = Sym(angle ? "u_0" : "y_0", std::abs(at.y));
    const Expr z0 = Sym(angle ? "v_0" : "z_0", std::abs(at.z));
    Expr polar = ip2;
    if (at.y != 0) {
        polar = polar + Square(y0);
    }
    if (at.z != 0) {
        polar = polar + Square(z0);
    }
    const Expr i0 = Step(d_, "i_0", Root(polar), "mm", "EN 1993-1-3, 6.2.3 (5)",
                         at.y != 0 || at.z != 0 ? "with the distance of the shear centre" : "");
    Expr stiffness = Sym("E", q_.e) / Num(2.6) * Sym("I_T", q_.it);
    if (at.iw > 0) {
        stiffness = stiffness + Square(Pi()) * Sym("E", q_.e) * Sym("I_w", at.iw) /
                                    Square(Sym("L_T", at.length));
    }
    d_.Add("N_cr,T", stiffness / Square(i0) * Ten(kToKn), t_.ncr.t / kNewton, "kN",
           "6.3.1.4; EN 1993-1-3, 6.2.3 (5)");
    if (!std::isfinite(t_.ncr.tf) || (at.y == 0 && at.z == 0)) {
        return;
    }
    const Expr torsion = Sym("N_cr,T", t_.ncr.t / kNewton);
    const Expr about_y = Sym(angle ? "N_cr,u" : "N_cr,y", at.about_y / kNewton);
    const Expr about_z = Sym(angle ? "N_cr,v" : "N_cr,z", t_.ncr.z / kNewton);
    const Expr result = Sym("N_cr,TF", t_.ncr.tf / kNewton);
    Expr formula, remark_of;
    if (at.y == 0 || at.z == 0) {  // the axis of symmetry couples
        const Expr flexural = at.y == 0 ? about_z : about_y;
        const Expr beta =
            Step(d_, "β", 1 - Square((at.y == 0 ? z0 : y0) / i0), "", "EN 1993-1-3, 6.2.3 (7)");
        const Expr sum = flexural + torsion;
        formula =
            2 * flexural * torsion / (sum + Root(Square(sum) - 4 * beta * flexural * torsion));
    } else {
        const auto part = [&](const Expr& distance, const Expr& flexural, double ncr) {
            return std::isfinite(ncr) ? Square(distance) / (flexural - result) : nullptr;
        };
        const Expr of_y = part(y0, about_y, at.about_y), of_z = part(z0, about_z, t_.ncr.z);
        const Expr coupled = of_y == nullptr ? of_z : of_z == nullptr ? of_y : of_y + of_z;
        formula = coupled == nullptr ? nullptr : torsion - Square(result / i0) * coupled;
    }
    d_.Add("N_cr,TF", formula, t_.ncr.tf / kNewton, "kN", "6.3.1.4; EN 1993-1-3, 6.2.3 (7)",
           at.y == 0 || at.z == 0 ? "" : "smallest root of this equation");
}

// chi of torsional buckling with what leads to it.
Expr MemberEquations::TorsionalReduction(const standard::Reductions& r)
{
    AddTorsionalForces();
    const double least = t_.ncr.Torsional();
    d_.Add("~λ_T", Root(Squash(r) / Sym("N_cr", least / kNewton)), r.lamt, "",
           "6.3.1.4 (2), Eq (6.52)");
    const Expr lam = Sym("~λ_T", r.lamt), alpha = Sym("α_z", t_.curves.z);
    if (r.lamt > 0.2) {
        const Expr phi = Step(d_, "Φ_T", 0.5 * (1 + alpha * (lam - Num(0.2)) + Square(lam)), "",
                              "6.3.1.2 (1)", CurveOf(t_.curves.z));
        d_.Add("χ_T", Least({Num(1), 1 / (phi + Root(Square(phi) - Square(lam)))}), r.chit, "",
               "6.3.1.2 (1), Eq (6.49)");
    } else {
        d_.Add("χ_T", r.chit, "", "6.3.1.2 (4)", WithNumbers("slenderness of 0.2 or less"));
    }
    return Sym("χ_T", r.chit);
}

Expr MemberEquations::Torsional()
{
    AddSquash(t_.column);
    return N() / Resistance("N_b,T,Rd", TorsionalReduction(t_.column), t_.column);
}

// The lowest resistance of 6.3.1 under the class of the combination.
Expr MemberEquations::LeastResistance()
{
    const standard::Reductions& r = t_.interaction;
    std::vector<Expr> of{Reduction(true, r), Reduction(false, r)};
    if (t_.twists) {
        of.push_back(TorsionalReduction(r));
    }
    return Resistance("N_b,Rd", Step(d_, "χ", Least(of), "", "6.3.1.1 (3)"), r);
}

Expr MemberEquations::Lateral()
{
    AddStandardLateral(in_, t_.lateral, t_.numerical ? &*t_.numerical : nullptr, q_, d_);
    return Sym(About("M_y,Ed"), t_.lateral.checked) / Sym("M_b,Rd", t_.lateral.resistance);
}

// What leads to chi_LT, and chi_LT; 1 where the member cannot twist or has no moment about y.
Expr MemberEquations::LateralReduction()
{
    if (t_.lateral.mcr > 0) {
        AddStandardLateral(in_, t_.lateral, t_.numerical ? &*t_.numerical : nullptr, q_, d_);
    } else {
        d_.Add("χ_LT", t_.lateral.chi, "", "6.3.2.1 (2)", "no lateral torsional buckling");
    }
    return Sym("χ_LT", t_.lateral.chi);
}

Expr MemberEquations::Above()
{
    return N() / LeastResistance();
}

Expr StandardMemberRatio(const ProjectState& input, const standard::CheckStudy& study,
                         standard::CheckId id, Document& d)
{
    MemberEquations member(input, study, d);
    switch (id) {
    case standard::CheckId::flexural_y:
        return member.Column(true);
    case standard::CheckId::flexural_z:
        return member.Column(false);
    case standard::CheckId::torsional:
        return member.Torsional();
    case standard::CheckId::ltb:
        return member.Lateral();
    case standard::CheckId::eq661:
        return member.Interaction(true);
    case standard::CheckId::eq662:
        return member.Interaction(false);
    case standard::CheckId::interaction_outside:
        return member.Outside();
    case standard::CheckId::n_above_ncr:
        return member.Above();
    default:
        return nullptr;
    }
}

}  // namespace kestrum
