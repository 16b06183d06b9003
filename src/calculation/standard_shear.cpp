#include "calculation/standard_shear.h"

#include "calculation/quantities.h"
#include "calculation/units.h"
#include "clauses/shear.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace kestrum {

Expr PlasticShear(const standard::StandardSection& q, bool z)
{
    return Sym(z ? "A_v,z" : "A_v,y", z ? q.avz : q.avy) * Sym("f_y", q.fy) /
           (Root(Num(3)) * Sym("γ_M0", q.gammam0)) * Ten(kToKn);
}

// Vbw,Rd with slenderness and reduction.
Expr BucklingEquations::Web()
{
    const standard::ShearTerms& s = *t_.shear;
    const Expr hw = Sym("h_w", q_.hw), tw = Sym("t_w", q_.tw), eps = Sym("ε", q_.eps);
    const Expr eta = Sym("η", q_.eta);
    if (s.k == clauses::kUnstiffenedFactor) {
        d_.Add("~λ_w", hw / (86.4 * tw * eps), s.lam, "", "EN 1993-1-5, 5.3 (3), Eq (5.5)");
    } else {
        const Expr ratio = Square(hw / Sym("a", s.spacing));
        d_.Add("k_τ", s.spacing >= q_.hw ? 5.34 + 4 * ratio : 4 + 5.34 * ratio, s.k, "",
               "EN 1993-1-5, A.3 (1)");
        d_.Add("~λ_w", hw / (37.4 * tw * eps * Root(Sym("k_τ", s.k))), s.lam, "",
               "EN 1993-1-5, 5.3 (3), Eq (5.6)");
    }
    const Expr lam = Sym("~λ_w", s.lam);
    const bool rigid = s.factor > std::min(q_.eta, 0.83 / s.lam) * (1 + 1e-9);
    d_.Add("χ_w",
           s.lam < 0.83 / q_.eta ? eta
           : rigid               ? 1.37 / (0.7 + lam)
                                 : 0.83 / lam,
           s.factor, "", "EN 1993-1-5, Table 5.1", rigid ? "rigid end post" : "");
    const Expr webs = q_.webs > 1 ? Num(q_.webs) * hw * tw : hw * tw;
    d_.Add("V_bw,Rd",
           Sym("χ_w", s.factor) * webs * Sym("f_y", q_.fy) /
               (Root(Num(3)) * Sym("γ_M1", q_.gammam1)) * Ten(kToKn),
           s.web / kNewton, "kN", "EN 1993-1-5, 5.2 (1), Eq (5.2)");
    return Sym("V_bw,Rd", s.web / kNewton);
}

// EN 1993-1-5, 5.2 to 5.4: web and flanges, not above the limit and the plastic resistance.
void BucklingEquations::AddWeb(const std::string& symbol, double total)
{
    const standard::ShearTerms& s = *t_.shear;
    const Expr web = Web();
    const Expr fy = Sym("f_y", q_.fy), gamma = Sym("γ_M1", q_.gammam1);
    const Expr hw = Sym("h_w", q_.hw), tw = Sym("t_w", q_.tw);
    std::vector<Expr> least{web};
    if (s.flanges > 0) {
        const Expr tf = Square(Sym("t_f", s.flange.t)), bf = Sym("b_f", s.flange.b);
        const Expr webs = q_.webs > 1 ? Num(q_.webs) * tw : tw;
        const Expr c = Step(
            d_, "c", Sym("a", s.spacing) * (0.25 + 1.6 * bf * tf * fy / (webs * Square(hw) * fy)),
            "mm", "EN 1993-1-5, 5.4 (1)");
        Expr part = bf * tf * fy / (c * gamma);
        constexpr double kNoMoment = 1;  // Nmm: a rounding of none
        if (std::abs(t_.my) > kNoMoment) {
            const Expr used = Force("M_y,Ed", t_.my, kNmm) / FlangeMoment(s.mf);
            part = part * (1 - Square(used));
        }
        d_.Add("V_bf,Rd", part * Ten(kToKn), s.flanges / kNewton, "kN",
               "EN 1993-1-5, 5.4 (1), Eq (5.8)", "flange up to 15 ε tf on each side of the web");
        least = {web + Sym("V_bf,Rd", s.flanges / kNewton)};
    }
    const Expr webs = q_.webs > 1 ? Num(q_.webs) * hw * tw : hw * tw;
    least.push_back(Sym("η", q_.eta) * webs * fy / (Root(Num(3)) * gamma) * Ten(kToKn));
    const double plastic = q_.avz * q_.fy / std::sqrt(3.0) / q_.gammam0;
    if (plastic < s.limit) {
        least.push_back(PlasticShear(q_, true));
    }
    d_.Add(symbol, Least(least), total, "kN", "EN 1993-1-5, 5.2 (1), Eq (5.1)");
}

// Horizontal plates of closed sections, each by itself.
void BucklingEquations::AddFlanges(const std::string& symbol, double total)
{
    Expr sum;
    double added = 0;
    int number = 0;
    for (std::size_t i = 0; i < q_.wall_count; ++i) {
        const standard::Wall& wall = q_.walls[i];
        if (wall.Upright() || wall.outstand || added >= total * (1 - 1e-9)) {
            continue;
        }
        const std::string n = std::to_string(++number);
        const Expr h = Sym("h_" + n, wall.Width()), t = Sym("t_" + n, wall.t);
        const Expr lam = Step(d_, "~λ_w," + n, h / (86.4 * t * Sym("ε", q_.eps)), "",
                              "EN 1993-1-5, 5.3 (3), Eq (5.5)");
        const bool stocky = wall.Width() / wall.t <= clauses::StockyWebLimit(q_.eps, q_.eta);
        const double slenderness = Evaluate(lam);
        const bool rigid = t_.rigid_end_post && slenderness >= 1.08;
        const Expr chi = Step(d_, "χ_w," + n,
                              stocky ? Sym("γ_M1", q_.gammam1) / Sym("γ_M0", q_.gammam0)
                              : slenderness < 0.83 / q_.eta ? Sym("η", q_.eta)
                              : rigid                       ? 1.37 / (0.7 + lam)
                                                            : 0.83 / lam,
                              "", "EN 1993-1-5, Table 5.1", stocky ? "does not buckle" : "");
        const Expr one = Step(d_, "V_b," + n + ",Rd",
                              chi * h * t * Sym("f_y", q_.fy) /
                                  (Root(Num(3)) * Sym("γ_M1", q_.gammam1)) * Ten(kToKn),
                              "kN", "EN 1993-1-5, 5.2 (1), Eq (5.2)");
        added += Evaluate(one);
        sum = sum == nullptr ? one : sum + one;
    }
    d_.Add(symbol, sum == nullptr ? nullptr : Least({sum, PlasticShear(q_, false)}), total, "kN",
           "EN 1993-1-5, 5.2 (1), Eq (5.1)");
}

// Areas of the flanges; a compressed one counts with its effective width.
std::pair<Expr, Expr> BucklingEquations::Flanges()
{
    const auto one = [&](const char* symbol, const char* width, const char* thickness,
                         const standard::Flange& flange, double area) {
        const bool whole = std::abs(area - flange.b * flange.t) <= 1e-9 * area;
        d_.Add(symbol, Sym(width, area / flange.t) * Sym(thickness, flange.t), area, "mm2",
               "EN 1993-1-5, 5.4 (2)", whole ? "" : "compressed, with its effective width");
        return Sym(symbol, area);
    };
    const Expr top = one("A_f,top", "b_top", "t_top", q_.top, t_.flange_areas.top);
    return {top, one("A_f,bot", "b_bot", "t_bot", q_.bottom, t_.flange_areas.bottom)};
}

// EN 1993-1-5, 5.4 (2): the smaller flange at the distance of both, beside N.
Expr BucklingEquations::FlangeMoment(double value)
{
    const auto [top, bottom] = Flanges();
    const Expr arm = Sym("h_f", q_.h - (q_.top.t + q_.bottom.t) / 2);
    Expr formula = Least({top, bottom}) * arm * Strength() * Ten(kToKnm);
    if (t_.n != 0) {
        formula =
            formula * (1 - Force("N_Ed", t_.n, kNewton) * Ten(3) / ((top + bottom) * Strength()));
    }
    d_.Add("M_f,Rd", value == 0 ? nullptr : formula, value / kNmm, "kNm", "EN 1993-1-5, 5.4 (2)",
           value == 0 ? "the whole web is compressed" : "");
    return Sym("M_f,Rd", value / kNmm);
}

// Plastic moment of the flanges that count and the whole web, beside N.
Expr BucklingEquations::WholeMoment()
{
    const auto [top, bottom] = Flanges();
    const Expr hw = Sym("h_w", q_.hw), t1 = Sym("t_top", q_.top.t), t2 = Sym("t_bot", q_.bottom.t);
    const Expr web = q_.webs > 1 ? Num(q_.webs) * Sym("t_w", q_.tw) : Sym("t_w", q_.tw);
    const Expr a = Step(d_, "A_pl", top + bottom + web * hw, "mm2", "EN 1993-1-5, 7.1 (1)");
    const Expr z = Step(d_, "z_pl", Least({hw, Largest({Num(0), (a / Num(2) - bottom) / web})}),
                        "mm", "EN 1993-1-5, 7.1 (1)", "plastic axis above the lower flange");
    const Expr up = Step(d_, "z_up", hw - z, "mm", "EN 1993-1-5, 7.1 (1)");
    const Expr w = Step(d_, "W_pl",
                        top * (up + t1 / Num(2)) + bottom * (z + t2 / Num(2)) +
                            web * (Square(up) + Square(z)) / Num(2),
                        "mm3", "EN 1993-1-5, 7.1 (1)");
    Expr formula = w * Strength() * Ten(kToKnm);
    if (t_.n != 0) {
        const Expr n = Step(d_, "n", Force("N_Ed", t_.n, kNewton) * Ten(3) / (a * Strength()), "",
                            "6.2.9.1 (5)");
        const Expr share = Step(d_, "a", Least({Num(0.5), web * hw / a}), "", "6.2.9.1 (5)");
        formula = Least({formula, formula * (1 - n) / (1 - 0.5 * share)});
    }
    d_.Add("M_pl,Rd", formula, t_.whole / kNmm, "kNm", "EN 1993-1-5, 7.1 (1)");
    return Sym("M_pl,Rd", t_.whole / kNmm);
}

}  // namespace kestrum
