#include "calculation/standard_equations.h"

#include "calculation/check_names.h"
#include "calculation/quantities.h"
#include "calculation/standard_member.h"
#include "calculation/standard_shear.h"
#include "calculation/units.h"
#include "core/member_choices.h"
#include "sections/families.h"
#include "standard/check_study.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <string>

namespace kestrum {

namespace {

using standard::CheckStudy;
using standard::SectionTerms;
using standard::StandardSection;

// "D201 +0.0409": what the departures of the program change in this ratio.
std::string CostsOf(const standard::StandardResult& result, standard::CheckId id)
{
    constexpr double kShown = 5e-5;  // less is no cost to name
    const double ir = result.checks[id].ir;
    std::string text;
    for (const standard::DeviationCost& cost : result.deviations) {
        const double with = cost.ratios[static_cast<std::size_t>(id)];
        if (std::abs(with - ir) < kShown) {
            continue;
        }
        text += text.empty() ? "" : ", ";
        text += std::string(NameOf(cost.deviation)) + " ";
        if (with == 0) {
            text += "(no such check with it)";
        } else if (!std::isfinite(with) || !std::isfinite(ir)) {
            text += std::isfinite(with) ? "(finite with it)" : "(infinite with it)";
        } else {
            text += (ir > with ? "+" : "-") + CostText(std::abs(ir - with));
        }
    }
    return text.empty() ? text : "cost of departures: " + text;
}

class AtSection {
public:
    AtSection(const ProjectState& input, const LoadFactors& factors, const CheckStudy& study,
              standard::CheckId id, Document& d)
        : input_(input), factors_(factors), t_(*study.at_section), q_(study.section),
          effective_(study.effective), id_(id), d_(d)
    {
    }
    // The formula of the ratio, after what leads to it; null where it is told by its value alone.
    Expr Ratio();

private:
    Expr Force(const char* symbol, double value, double unit) const
    {
        return Sym(symbol, std::abs(value) / unit);
    }
    std::string ModulusOf(bool y, int cls) const;
    Expr Strength() const { return Sym("f_y", q_.fy) / Sym("γ_M0", q_.gammam0); }
    Expr Axial();
    Expr Shear(bool z);
    Expr Bending(bool y);
    Expr Combined();
    Expr Linear();
    Expr Plastic();
    Expr Web();
    void AddFlangeLoad();
    void AddShearArea();
    Expr ShareOfPlates(bool y) const;
    Expr LostInShear(const bool* y, bool plastic) const;
    void AddSheared(const std::string& symbol, std::string_view whole, double left, bool moment);
    void Rho(bool z);
    Expr AboutLeg(const std::string& symbol, double moment, double n, const char* distance,
                  double e);
    Expr Corner(const standard::CornerTerms& corner);
    Expr Whole(const char* symbol, const char* modulus, double value, bool moment,
               const char* clause);

    const ProjectState& input_;
    const LoadFactors& factors_;
    const SectionTerms& t_;
    const StandardSection& q_;
    const standard::EffectiveValues& effective_;
    standard::CheckId id_;
    Document& d_;
};

// The name of the modulus in use. Webs of class 3 that count as class 2, 6.2.2.4, leave a plastic
// one.
std::string AtSection::ModulusOf(bool y, int cls) const
{
    const double third = t_.my >= 0 ? effective_.wy3_sagging : effective_.wy3_hogging;
    const bool upgraded = y && q_.upgrade && third > q_.LeastWely();
    return cls <= 2 && !q_.elastic ? "pl" : cls > 3 ? "eff" : upgraded ? "pl,eff" : "el";
}

// What the walls that carry the shear lose of the modulus about an axis, of the area where `y` is
// not given: webs by rho_z, flanges by rho_y. Null where the plates are counted one by one.
Expr AtSection::LostInShear(const bool* y, bool plastic) const
{
    if (q_.OfStrips() || q_.kind == Kind::i_single) {
        return nullptr;
    }
    const bool hollow = q_.kind == Kind::hollow, corners = hollow && plastic;
    const Expr h = Sym("h", q_.h), b = Sym("b", q_.b), tw = Sym("t_w", q_.tw);
    const Expr tf = Sym("t_f", q_.top.t), clear = Sym("h_w", q_.hw);
    const Expr high = corners ? h : clear;
    const Expr wide = !hollow || plastic ? b : b - 2 * tw;
    const Expr web = q_.webs > 1 ? Num(q_.webs) * tw : tw;
    const Expr rho_z = Sym("ρ_z", t_.rho.z), rho_y = Sym("ρ_y", t_.rho.y);
    Expr lost;
    const auto add = [&](double rho, const Expr& part) {
        if (rho > 0) {
            lost = lost == nullptr ? part : lost + part;
        }
    };
    if (y == nullptr) {
        add(t_.rho.z, rho_z * web * clear);
        add(t_.rho.y, rho_y * 2 * b * tf);
    } else if (*y) {
        const Expr arm = (h - tf) / Num(2), flanges = 2 * wide * tf;
        add(t_.rho.z, plastic ? rho_z * web * Square(high) / Num(4)
                              : rho_z * web * Power(high, Num(3)) / (6 * h));
        add(t_.rho.y, plastic ? rho_y * flanges * arm : rho_y * flanges * Square(arm) * 2 / h);
    } else {
        const Expr arm = (b - tw) / Num(2);
        if (q_.Closed()) {
            add(t_.rho.z,
                plastic ? rho_z * web * high * arm : rho_z * web * high * Square(arm) * 2 / b);
        }
        const Expr squares = 2 * tf * Square(wide);
        add(t_.rho.y, plastic  ? rho_y * squares / Num(4)
                      : hollow ? rho_y * squares * wide / (6 * b)
                               : rho_y * squares / Num(6));
    }
    return lost;
}

// Area or modulus in which the parts that carry shear have the strength (1 - ρ) fy: of I sections
// about y by Eq (6.30), of bars and tubes the whole.
void AtSection::AddSheared(const std::string& symbol, std::string_view whole, double left,
                           bool moment)
{
    const bool y = whole.ends_with(",y"), plastic = whole.starts_with("W_pl");
    Expr formula;
    if (q_.kind == Kind::flat || q_.kind == Kind::tube || q_.kind == Kind::general) {
        const bool by_z = t_.rho.z >= t_.rho.y;
        const double rho = by_z ? t_.rho.z : t_.rho.y;
        if (rho < 1) {
            formula = Sym(whole, left / (1 - rho)) * (1 - Sym(by_z ? "ρ_z" : "ρ_y", rho));
        }
    } else if (const Expr lost = LostInShear(moment ? &y : nullptr, plastic)) {
        const bool effective = whole.find("eff") != std::string_view::npos, sagging = t_.my >= 0;
        const standard::EffectiveValues& e = effective_;
        const double all = !moment     ? (effective ? e.a : q_.a)
                           : plastic   ? (y ? q_.wply : q_.wplz)
                           : effective ? (y ? (sagging ? e.wy_sagging : e.wy_hogging) : e.wz)
                           : y         ? (sagging ? e.wy3_sagging : e.wy3_hogging)
                                       : q_.LeastWelz();
        formula = Largest({Num(0), Sym(whole, all) - lost});
    }
    d_.Add(symbol, formula, left, moment ? "mm3" : "mm2", "6.2.8 (3), (5)",
           formula != nullptr ? "parts that carry shear with (1 - ρ) of their strength"
                              : "plate by plate, those that carry shear with (1 - ρ) of their "
                                "strength");
}

// A resistance that shear may have reduced.
Expr AtSection::Whole(const char* symbol, const char* modulus, double value, bool moment,
                      const char* clause)
{
    const double unit = moment ? kNmm : kNewton;
    if (t_.rho.z > 0 || t_.rho.y > 0) {
        const std::string reduced = std::string(modulus) + ",V";
        AddSheared(reduced, modulus, value * q_.gammam0 / q_.fy, moment);
        d_.Add(symbol,
               Sym(reduced, value * q_.gammam0 / q_.fy) * Strength() * Ten(moment ? kToKnm : kToKn),
               value / unit, moment ? "kNm" : "kN", "6.2.8, 6.2.10");
        return Sym(symbol, value / unit);
    }
    d_.Add(symbol,
           Sym(modulus, value * q_.gammam0 / q_.fy) * Strength() * Ten(moment ? kToKnm : kToKn),
           value / unit, moment ? "kNm" : "kN", clause, "class " + std::to_string(t_.classes.all));
    return Sym(symbol, value / unit);
}

// A moment about y or z, with the axial force next to the centroid of the effective section.
Expr AtSection::AboutLeg(const std::string& symbol, double moment, double n, const char* distance,
                         double e)
{
    const Expr acting = Sym(symbol + ",Ed", moment / kNmm);
    return n > 0 && e != 0
               ? Step(d_, symbol, acting + Force("N_Ed", n, kNewton) * Sym(distance, e) * Ten(-3),
                      "kNm", "6.2.9.3 (2)", "shift of the centroid, in the unfavourable sense")
               : acting;
}

// Elastic stress of the worst corner about the principal axes, 6.2.1 (5).
Expr AtSection::Corner(const standard::CornerTerms& c)
{
    if (!(c.a > 0)) {
        return nullptr;
    }
    d_.Say("The worst corner is w from the u axis and s along it; moments have the signs that they "
           "have at this place.",
           Paragraph::Kind::remark);
    // Roundings of a corner on an axis and of a moment that does not act.
    const auto clean = [](double x) { return std::abs(x) < 1e-9 ? 0 : x; };
    const Expr my = AboutLeg("M_y", c.my, c.n, "e_z", c.ez);
    const Expr mz = AboutLeg("M_z", c.mz, c.n, "e_y", c.ey);
    constexpr double kDegrees = 180 / std::numbers::pi;
    const Expr alpha = Sym("α", c.alfa * kDegrees);
    const double mu = clean(c.mu / kNmm), mv = clean(c.mv / kNmm);
    const char* const turned = "turned to the principal axes";
    d_.Add("M_u,Ed", my * Cosine(alpha) + mz * Sine(alpha), mu, "kNm", "6.2.1 (5)", turned);
    d_.Add("M_v,Ed", mz * Cosine(alpha) - my * Sine(alpha), mv, "kNm", "6.2.1 (5)", turned);
    const bool whole = c.a == q_.a;
    Expr stress =
        Sym("M_u,Ed", mu) * Ten(6) * Sym("w", clean(c.w)) / Sym(whole ? "I_u" : "I_u,eff", c.iu) -
        Sym("M_v,Ed", mv) * Ten(6) * Sym("s", clean(c.s)) / Sym(whole ? "I_v" : "I_v,eff", c.iv);
    if (c.n != 0) {
        stress = Sym("N_Ed", c.n / kNewton) * Ten(3) / Sym(whole ? "A" : "A_eff", c.a) + stress;
    }
    const Expr sigma = Step(d_, "σ", Size(stress), "MPa", "6.2.1 (5)");
    Expr strength = Sym("f_y", q_.fy);
    if (c.rho > 0) {
        d_.Add("ρ", c.rho, "", "6.2.8 (3)");
        strength = strength * (1 - Sym("ρ", c.rho));
    }
    return sigma * Sym("γ_M0", q_.gammam0) / strength;
}

Expr AtSection::Axial()
{
    const bool whole = t_.n < 0 || t_.area == q_.a;
    const Expr area = whole ? Sym("A", q_.a) : Sym("A_eff", t_.area);
    const Expr resistance = Step(d_, "N_Rd", area * Strength() * Ten(kToKn), "kN",
                                 t_.n < 0 ? "6.2.3 (2)" : "6.2.4 (2)");
    return Force("N_Ed", t_.n, kNewton) / resistance;
}

// The shear area of plates, 6.2.6 (3); those of rolled sections are the same by both sets of rules.
void AtSection::AddShearArea()
{
    const Expr tw = Sym("t_w", q_.tw), hw = Sym("h_w", q_.hw), h = Sym("h", q_.h);
    const Expr webs = Sym("η", q_.eta) * (q_.webs > 1 ? Num(q_.webs) * hw * tw : hw * tw);
    const Expr stem = tw * (h - Sym("t_f", q_.top.t) / Num(2));
    for (const Expr& area : {webs, stem}) {
        if (std::abs(Evaluate(area) - q_.avz) <= 1e-9 * q_.avz) {
            d_.Add("A_v,z", area, q_.avz, "mm2", "6.2.6 (3)");
            return;
        }
    }
}

Expr AtSection::Shear(bool z)
{
    const standard::ShearResistance& r = z ? t_.along_z : t_.along_y;
    const std::string axis = z ? "z" : "y";
    Expr v = z ? Force("V_z,Ed", t_.vz, kNewton) : Force("V_y,Ed", t_.vy, kNewton);
    if (q_.kind == Kind::tube && t_.vy != 0) {
        v = Step(
            d_, "V_Ed",
            Root(Square(Force("V_z,Ed", t_.vz, kNewton)) + Square(Force("V_y,Ed", t_.vy, kNewton))),
            "kN", "6.2.6");
    }
    const std::string symbol = "V_" + axis + ",Rd";
    if (z) {
        AddShearArea();
    }
    if (r.slender) {
        const double total = r.total / kNewton;
        if (z && t_.shear) {
            BucklingEquations(t_, q_, d_).AddWeb(symbol, total);
        } else {
            BucklingEquations(t_, q_, d_).AddFlanges(symbol, total);
        }
    } else {
        d_.Add(symbol, PlasticShear(q_, z), r.total / kNewton, "kN", "6.2.6 (2), Eq (6.18)");
    }
    return v / Sym(symbol, r.total / kNewton);
}

// 6.2.8 (3).
void AtSection::Rho(bool z)
{
    const double rho = z ? t_.rho.z : t_.rho.y;
    if (rho == 0) {
        return;
    }
    const double v = z ? t_.vz : t_.vy, r = z ? t_.along_z.total : t_.along_y.web;
    d_.Add(z ? "ρ_z" : "ρ_y",
           Least({Num(1), Square(2 * Force(z ? "V_z,Ed" : "V_y,Ed", v, kNewton) /
                                     Sym(z ? "V_z,Rd" : "V_y,Rd", r / kNewton) -
                                 Num(1))}),
           rho, "", "6.2.8 (3)");
}

Expr AtSection::Bending(bool y)
{
    const bool tube = q_.kind == Kind::tube && t_.mz != 0;
    Expr m = y ? Force("M_y,Ed", t_.my, kNmm) : Force("M_z,Ed", t_.mz, kNmm);
    if (tube) {
        m = Step(d_, "M_Ed",
                 Root(Square(Force("M_y,Ed", t_.my, kNmm)) + Square(Force("M_z,Ed", t_.mz, kNmm))),
                 "kNm", "6.2.5");
    }
    if (q_.Angle()) {
        return Corner(y ? t_.my_corner : t_.mz_corner);
    }
    Rho(true);
    Rho(false);
    const int cls = y ? t_.classes.my.At(t_.my >= 0) : t_.classes.mz;
    const double resistance = y ? t_.moment_y : t_.moment_z;
    const bool reduced = t_.rho.z > 0 || t_.rho.y > 0;
    const std::string kind = ModulusOf(y, cls);
    const std::string axis = y ? "y" : "z", symbol = (reduced ? "M_V," : "M_") + axis + ",Rd";
    if (reduced) {
        const std::string whole = "W_" + kind + "," + axis;
        const double left = resistance * q_.gammam0 / q_.fy;
        AddSheared(whole + ",V", whole, left, true);
        d_.Add(symbol, Sym(whole + ",V", left) * Strength() * Ten(kToKnm), resistance / kNmm, "kNm",
               "6.2.8");
    } else {
        d_.Add(symbol,
               Sym("W_" + kind + "," + axis, resistance * q_.gammam0 / q_.fy) * Strength() *
                   Ten(kToKnm),
               resistance / kNmm, "kNm", "6.2.5 (2)", "class " + std::to_string(cls));
    }
    return m / Sym(symbol, resistance / kNmm);
}

Expr AtSection::Linear()
{
    const standard::ReducedResistance& r = t_.beside_shear;
    Expr sum;
    const auto add = [&](const Expr& part) { sum = sum == nullptr ? part : sum + part; };
    const Expr n = Force("N_Ed", t_.n, kNewton);
    if (t_.n != 0) {
        add(n / Whole("N_Rd", t_.n > 0 && t_.classes.all == 4 ? "A_eff" : "A", r.n, false,
                      "6.2.1 (7)"));
    }
    const auto shifted = [&](Expr moment, double shift, const char* symbol) {
        if (shift == 0) {
            return moment;
        }
        d_.Add(symbol, shift, "mm", "6.2.9.3 (2)", "shift of the centroid, effective section");
        return moment + n * Sym(symbol, shift) * Ten(-3);
    };
    const std::string about_y = "W_" + ModulusOf(true, t_.classes.all) + ",y";
    const std::string about_z = "W_" + ModulusOf(false, t_.classes.all) + ",z";
    const Expr my = shifted(Force("M_y,Ed", t_.my, kNmm), t_.shift_y, "e_N,y");
    const Expr mz = shifted(Force("M_z,Ed", t_.mz, kNmm), t_.shift_z, "e_N,z");
    if (q_.kind == Kind::tube) {
        add(Root(Square(my) + Square(mz)) /
            Whole("M_Rd", about_y.c_str(), r.my, true, "6.2.1 (7)"));
        return sum;
    }
    if (t_.my != 0 || t_.shift_y != 0) {
        add(my / Whole("M_y,Rd", about_y.c_str(), r.my, true, "6.2.1 (7)"));
    }
    if (t_.mz != 0 || t_.shift_z != 0) {
        add(mz / Whole("M_z,Rd", about_z.c_str(), r.mz, true, "6.2.1 (7)"));
    }
    return sum;
}

// a of 6.2.9.1 (5): what is no flange (about z: no web) of the whole area.
Expr AtSection::ShareOfPlates(bool y) const
{
    const Expr area = Sym("A", q_.a);
    Expr out = y || t_.rule != SectionTerms::Rule::closed
                   ? 2 * Sym("b", q_.b) * Sym("t_f", q_.top.t)
                   : 2 * Sym("h", q_.h) * Sym("t_w", q_.tw);
    return Least({Num(0.5), (area - out) / area});
}

Expr AtSection::Plastic()
{
    using Rule = SectionTerms::Rule;
    const standard::ReducedResistance& r = t_.beside_shear;
    Expr n;
    if (t_.n != 0) {
        const Expr resistance = Whole("N_Rd", "A", r.n, false, "6.2.9.1 (5)");
        n = Step(d_, "n", Force("N_Ed", t_.n, kNewton) / resistance, "", "6.2.9.1 (5)");
    }
    const auto moment = [&](bool y) {
        const double plastic = y ? r.my : r.mz, left = y ? t_.mny : t_.mnz;
        const char* const whole = y ? "M_y,Rd" : "M_z,Rd";
        const Expr m = Whole(whole, y ? "W_pl,y" : "W_pl,z", plastic, true, "6.2.9.1");
        const char* const symbol = y ? "M_N,y,Rd" : "M_N,z,Rd";
        Expr formula = m;
        const bool reduced = n != nullptr && std::abs(left - plastic) > 1e-9 * plastic;
        if (reduced && t_.rule == Rule::tube) {
            formula = m * (1 - Power(n, Num(1.7)));
        } else if (reduced && t_.rule == Rule::flat) {
            formula = m * (1 - Square(n));
        } else if (reduced) {
            const double share = std::min(y ? t_.web_y : t_.web_z, 0.5);
            const Expr a = Sym(y ? "a" : "a_z", share);
            d_.Add(y ? "a" : "a_z", ShareOfPlates(y), share, "", "6.2.9.1 (5)");
            formula = y || t_.rule == Rule::closed ? Least({m, m * (1 - n) / (1 - 0.5 * a)})
                                                   : m * (1 - Square((n - a) / (1 - a)));
        }
        d_.Add(symbol, formula, left / kNmm, "kNm", "6.2.9.1");
        return (y ? Force("M_y,Ed", t_.my, kNmm) : Force("M_z,Ed", t_.mz, kNmm)) /
               Sym(symbol, left / kNmm);
    };
    if (t_.rule == Rule::tube) {
        moment(true);
        return Root(Square(Force("M_y,Ed", t_.my, kNmm)) + Square(Force("M_z,Ed", t_.mz, kNmm))) /
               Sym("M_N,y,Rd", t_.mny / kNmm);
    }
    if (t_.alpha > 0) {
        const Expr y = moment(true), z = moment(false);
        const bool closed = t_.rule == Rule::closed;
        const Expr share = n == nullptr ? Sym("n", 0) : n;
        const Expr hollow = Least({Num(6), 1.66 / (1 - 1.13 * Square(share))});
        d_.Add("α", closed ? hollow : nullptr, t_.alpha, "", "6.2.9.1 (6)",
               closed ? "" : "I and H sections");
        d_.Add("β", closed ? hollow : Largest({Num(1), 5 * share}), t_.beta, "", "6.2.9.1 (6)");
        return Power(y, Sym("α", t_.alpha)) + Power(z, Sym("β", t_.beta));
    }
    if (t_.my != 0 && t_.mz != 0) {
        const Expr y = moment(true);
        return y + moment(false);
    }
    return moment(t_.my != 0);
}

Expr AtSection::Combined()
{
    using Rule = SectionTerms::Rule;
    if (q_.Angle()) {
        return Corner(t_.corner);
    }
    if (t_.rule == Rule::none) {
        return nullptr;
    }
    Rho(true);
    Rho(false);
    if (t_.across > 0) {
        const Expr along = Step(d_, "η_1", Linear(), "", "6.2.1 (7)", "along the member");
        AddFlangeLoad();
        d_.Add("η_2",
               4 * Sym("q", t_.flange_load) * Num(60) /
                   (Strength() * Square(Sym("t_bot", q_.bottom.t))),
               t_.across, "", "6.2.1 (5)",
               "plate of the loaded flange across the member, q N/mm at 60 mm from the web; D185");
        const Expr across = Sym("η_2", t_.across);
        return Root(Square(along) + Square(across) + along * across);
    }
    return t_.rule == Rule::linear ? Linear() : Plastic();
}

// The uniform loads of the combination that rest on one side of the lower flange.
void AtSection::AddFlangeLoad()
{
    constexpr std::array kFactors = {"F_G", "F_Q1", "F_Q2"};
    const standard::MemberLoads loads = standard::LoadsOf(input_, Basis::Standard());
    Expr sum;
    for (std::size_t i = 0; i < loads.count; ++i) {
        const standard::Load& load = loads.load[i];
        const bool whole = !load.point && load.line.x1 == 0 && load.line.x2 == input_.l;
        const double factor = standard::FactorOn(factors_, load.category);
        if (load.about_y && whole && load.line.q1 == load.line.q2 && factor != 0) {
            const Expr part = Sym(kFactors[static_cast<std::size_t>(load.category)], factor) *
                              Sym("q_" + std::to_string(i + 1), load.line.q1);
            sum = sum == nullptr ? part : sum + part;
        }
    }
    const bool both = Traits(input_).shape.lower == LowerFlange::both_sides;
    if (sum != nullptr && both) {
        sum = Sym("p", input_.flangeload) / Num(100) * sum;
    }
    d_.Add("q", sum, t_.flange_load, "kN/m", "",
           both ? "uniform loads, factored; p percent of them on the loaded side"
                : "uniform loads, factored");
}

// EN 1993-1-5, 7.1 (1).
Expr AtSection::Web()
{
    BucklingEquations buckling(t_, q_, d_);
    const Expr web = t_.shear ? buckling.Web() : Sym("V_bw,Rd", t_.along_z.web / kNewton);
    const Expr eta =
        Step(d_, "~η_3", Force("V_z,Ed", t_.vz, kNewton) / web, "", "EN 1993-1-5, 7.1 (1)");
    const Expr mf = buckling.FlangeMoment(t_.flanges);
    const Expr mpl = buckling.WholeMoment();
    return Force("M_y,Ed", t_.my, kNmm) / mpl +
           Largest({Num(0), 1 - mf / mpl}) * Square(2 * eta - Num(1));
}

Expr AtSection::Ratio()
{
    switch (id_) {
    case standard::CheckId::section_n:
        return Axial();
    case standard::CheckId::section_vz:
        return Shear(true);
    case standard::CheckId::section_vy:
        return Shear(false);
    case standard::CheckId::section_my:
        return Bending(true);
    case standard::CheckId::section_mz:
        return Bending(false);
    case standard::CheckId::section_nm:
        return Combined();
    default:
        return Web();
    }
}

// L/n.
Expr DeflectionRatio(const ProjectState& input, const CheckStudy& study, bool z, Document& d)
{
    const double n = z ? input.deflimitz : input.deflimity;
    const std::string symbol = z ? "δ_z" : "δ_y";
    const Expr limit =
        Step(d, symbol + ",max", Sym("L", input.l) / Sym("n", n) * Ten(3), "mm", "EN 1990, A1.4");
    return Sym(symbol, std::abs(study.deflection->largest)) / limit;
}

}  // namespace

std::string CostText(double size)
{
    constexpr double kOfOne = 1e4;  // four decimals, as ratios have them
    const double steps = std::round(size * kOfOne);
    return steps == 0   ? "0"
           : steps < 10 ? "0.000" + NumberText(steps, 1)
                        : NumberText(steps / kOfOne, 5);
}

void AddStandardCheck(const Library& library, const ProjectState& input,
                      const standard::StandardResult& result, standard::CheckId id, Document& d)
{
    const standard::Check& check = result.checks[id];
    d.Say("By EN 1993-1-1 as written:", Paragraph::Kind::remark);
    const auto study = standard::CheckStudyOf(library, input, id, check);
    Expr ratio;
    if (study && study->at_section) {
        ratio = AtSection(input, check.load_case.factors, *study, id, d).Ratio();
    } else if (study && study->of_member) {
        ratio = StandardMemberRatio(input, *study, id, d);
    } else if (study && study->deflection) {
        ratio = DeflectionRatio(input, *study, id == standard::CheckId::deflection_z, d);
    }
    Line where = LineOf(check.load_case);
    if (!std::isnan(check.place)) {
        where += Line(", x/L = ") + NumberLine(check.place, 4);
    }
    if (std::isinf(check.ir)) {
        where += Line(", nothing is left of the resistance");
    }
    const bool above = check.ir > input.irlimit;
    where += Line(", ").Add(above ? "ABOVE LIMIT" : "within limit",
                            above ? Span::Style::bad : Span::Style::good);
    if (const std::string costs = CostsOf(result, id); !costs.empty()) {
        where += WithNumbers("; " + costs);
    }
    d.Add("IR_standard", ratio, check.ir, "", ClauseOf(check), std::move(where));
}

}  // namespace kestrum
