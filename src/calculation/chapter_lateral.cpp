#include "calculation/chapters.h"
#include "calculation/check_names.h"
#include "calculation/parts.h"
#include "calculation/quantities.h"
#include "calculation/shape_figure.h"
#include "calculation/standard_lateral.h"

#include "core/arithmetic_trap.h"
#include "core/member_choices.h"
#include "sections/families.h"
#include "stability/constants.h"
#include "stability/lateral_torsional.h"
#include "stability/lt_factors.h"
#include "standard/lateral_study.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace kestrum {

namespace {

bool Single(const ProjectState& s)
{
    return Is(s, Kind::i_single);
}

// C2 zg - C3 zj, mm.
struct Lever {
    Expr formula;
    double value;
};

Lever LeverOf(const ProjectState& s, bool top)
{
    const double zj = !Single(s) ? 0.0 : top ? s.zjtop : s.zjbot;
    const Expr load = Sym("C_2", s.ltc2) * Sym("z_g", s.zg);
    const Expr asymmetry = Sym("C_3", s.ltc3) * Sym("z_j", zj);
    const double value = s.ltc2 * s.zg - s.ltc3 * zj;
    if (!Single(s)) {
        return {load, value};
    }
    return {load - asymmetry, value};
}

// End moments of the segment that governs, their ratio.
struct SegmentMoments {
    double large, small, psi;
};

// The point of the diagram at which the moment of a restraint is read.
std::size_t PointOf(const ProjectState& s, int restraint)
{
    const auto at = static_cast<std::size_t>(ToI16(50.0 * restraint / (s.restraints + 1)));
    return std::min<std::size_t>(at, s.mydiag.size() - 1);
}

SegmentMoments MomentsOfSegment(const ProjectState& s)
{
    const auto moment = [&](int number) {
        return static_cast<double>(s.mydiag[PointOf(s, number)]);
    };
    const double first = moment(s.beampart - 1), second = moment(s.beampart);
    const bool from_first = std::abs(first) >= std::abs(second);
    const double large = from_first ? first : second, small = from_first ? second : first;
    return {large, small, large == 0 ? 0 : small / large};
}

// C3 of a piece between lateral restraints: a table of psi and of the share psi_f of the flanges.
void AddC3OfSegment(const ProjectState& s, bool top, Document& d)
{
    const double psi = MomentsOfSegment(s).psi, share = top ? s.psiftop : s.psifbot;
    const Expr whole = Sym("C_3,a", SegmentC3(psi, 1, share));
    const Expr half = Sym("C_3,b", SegmentC3(psi, 0.5, share));
    d.Add("C_3", half + (Sym("k", s.ltbk) - Num(0.5)) / Num(0.5) * (whole - half), s.ltc3, "", "",
          Line("table of straight moment lines and of ") + Line(Symbol("ψ_f")) + Line(" = ") +
              NumberLine(share, 4) + WithNumbers(" of the flanges, k = 1 (a) and 0.5 (b)"));
}

void AddLoadLevel(const ProjectState& s, Document& d)
{
    Expr level;
    if (s.loadlevel == 1 || s.loadlevel == 3) {
        const bool up = s.loadlevel == 1;
        const Expr h = Sym("h", s.h), centroid = Sym("z_cog", s.zcog);
        level = !Single(s) ? (up ? h / Num(2) : Num(0) - h / Num(2))
                           : (up ? h - centroid : Num(0) - centroid) - Sym("z_s", s.zshear);
    }
    d.Add("z_g", level, s.zg, "mm", "", "level of the loads, upwards from the shear centre");
}

// C1 of a piece between lateral restraints, between two ratios of the table.
void AddC1OfSegment(const ProjectState& s, Document& d)
{
    const auto [large, small, psi] = MomentsOfSegment(s);
    constexpr double kStep = 0.25;
    const double upper = 1 - kStep * std::floor((1 - psi) / kStep);
    const double lower = std::max(upper - kStep, -1.0);
    d.Add("ψ", Sym("M_2", small) / Sym("M_1", large), psi, "", "",
          "smaller over larger moment at the ends of the segment");
    const Expr a = Sym("C_a", SegmentC1(upper, s.ltbk)), b = Sym("C_b", SegmentC1(lower, s.ltbk));
    d.Add("C_1", a + (b - a) * (Num(upper) - Sym("ψ", psi)) / Num(kStep), s.ltc1, "", "",
          Line("table of straight moment lines, ψ = ") + NumberLine(upper) + Line(" and ") +
              NumberLine(lower));
}

// C1 of any moment line by its largest moment and those at the quarters of the length.
void AddC1OfAnyLine(const ProjectState& s, Document& d)
{
    constexpr std::array<std::size_t, 5> kPlaces{0, 12, 25, 38, 50};
    std::array<Expr, 5> moments;
    for (std::size_t i = 0; i < moments.size(); ++i) {
        moments[i] = Sym("M_" + std::to_string(i), s.mydiag[kPlaces[i]]);
    }
    const bool sagging = std::abs(s.mymax) > std::abs(s.mymin);
    const Expr most = Sym("M_max", sagging ? s.mymax : s.mymin), k = Sym("k", s.ltbk);
    const auto& [m0, m1, m2, m3, m4] = moments;
    const Expr squares = Square(most) + (1 - k) * (Square(m0) + Square(m4)) +
                         5 * k * (Square(m1) + Square(m3)) + Num(10) / k * Square(m2);
    const Expr a1 = Step(d, "A_1", squares / ((3 - 2 * k + 10 * k + Num(10) / k) * Square(most)),
                         "", "", "My at x = 0, L/4, L/2, 3L/4, L and the largest one");
    const Expr a2 = Step(d, "A_2", Size((m0 + 2 * m1 + 3 * m2 + 2 * m3 + m4) / (9 * most)), "", "");
    const Expr root = Root(k), part = (1 - root) / Num(2) * a2;
    d.Add("C_1", (Root(root * a1 + Square(part)) + part) / a1, s.ltc1, "", "",
          "closed form for any moment line");
}

// C factors of a loaded member without restraints: its table has k = 1 and k = 0.5 (of a cantilever
// 2 and 1).
void AddCFactors(const ProjectState& s, Document& d)
{
    const double full = s.supportcase == SupportCase::cantilever ? 2 : 1;
    ProjectState at = s;
    at.ltbk = static_cast<float>(full);
    const CFactors one = LtCFactors(at, s);
    at.ltbk = static_cast<float>(full / 2);
    const CFactors half = LtCFactors(at, s);
    const auto add = [&](const char* symbol, double a, double b, double value) {
        if (value == 0) {
            return;
        }
        const std::string name(symbol);
        const Expr whole = Sym(name + ",a", a);
        Expr formula = whole;
        if (std::abs(s.ltbk - full) > 1e-6) {
            formula = whole - (Num(full) - Sym("k", s.ltbk)) / Num(full / 2) *
                                  (whole - Sym(name + ",b", b));
        }
        d.Add(symbol, formula, value, "", "",
              Line("table of supports and loads, k = ") + NumberLine(full) + Line(" (a) and ") +
                  NumberLine(full / 2) +
                  Line(s.mycurved == kTrue ? " (b), curved moment line"
                                           : " (b), moment line of straight parts"));
    };
    if (s.c1alt != kFalse && s.mymaxabs != 0) {
        AddC1OfAnyLine(s, d);
    } else {
        add("C_1", one.c1, half.c1, s.ltc1);
    }
    add("C_2", one.c2, half.c2, s.ltc2);
    if (Single(s)) {
        add("C_3", one.c3, half.c3, s.ltc3);
    }
}

// Tripping of the stiffener about its root.
void AddPlateMoment(const ProjectState& s, const Quantities& q, Document& d)
{
    const double mcr = s.mcr / 1e6;
    const Expr g = Step(d, "G", q.e / Num(kShearRatio), "MPa", "3.2.6 (1)");
    const Expr length = Sym("L_LT", s.lt), w = Sym("W_y,bot", s.wybot);
    const char* const what = "tripping of the stiffener about its root; D196";
    if (Traits(s).shape.stiffener == Stiffener::flat_bar) {
        d.Add("M_cr",
              w * Square(q.tw / q.h) * (2 * Square(q.hw / length * Ten(-3)) + Num(1)) * g * Ten(-6),
              mcr, "kNm", "", what);
        return;
    }
    const Expr flange = Step(d, "A_f", Sym("t_bot", s.tbot) * Sym("b_bot", s.bbot), "mm2", "");
    const Expr web = Step(d, "A_w", q.hw * q.tw, "mm2", "");
    const Expr torsion = Step(d, "σ_T",
                              (Square(Sym("t_bot", s.tbot) / q.tw) * flange + web) * g *
                                  Square(q.tw / (q.h - Sym("t_top", s.ttop))) / (3 * flange + web),
                              "MPa", "", "twist");
    const Expr bending = Step(d, "σ_B",
                              Square(Pi()) * q.e * Sym("I_z", s.iz) / (web / Num(3) + flange) /
                                  Square(length) * Ten(-6),
                              "MPa", "", "bending sideways");
    d.Add("M_cr", w * (torsion + bending) * Ten(-6), mcr, "kNm", "", what);
}

// D57: by the share of the compressed flange in the flanges' moments of inertia about z.
void AddAsymmetry(const ProjectState& s, bool top, Document& d)
{
    const auto inertia = [&](const char* t, double thickness, const char* b, double width) {
        return Sym(t, thickness) * Power(Sym(b, width), Num(3)) / Num(12);
    };
    const Expr of_top = Step(d, "I_top", inertia("t_top", s.ttop, "b_top", s.btop), "mm4", "");
    const Expr of_bottom = Step(d, "I_bot", inertia("t_bot", s.tbot, "b_bot", s.bbot), "mm4", "");
    const Expr beta = Step(d, "β_f", (top ? of_top : of_bottom) / (of_top + of_bottom), "", "",
                           "of the compressed flange");
    const Expr between = Sym("h", s.h) - (Sym("t_top", s.ttop) + Sym("t_bot", s.tbot)) / Num(2);
    d.Add("z_j", Num(beta->value > 0.5 ? 0.4 : 0.5) * (2 * beta - Num(1)) * between,
          top ? s.zjtop : s.zjbot, "mm", "", "asymmetry of the section; D57");
}

void AddCriticalMoment(const ProjectState& s, const Quantities& q, bool top, Document& d)
{
    const double parts = s.restraints + 1;
    d.Add("L_LT", Sym("k", s.ltbk) * q.length / Sym("n", parts), s.lt, "m", "",
          parts > 1 ? "n segments between lateral restraints" : "n = 1, no restraint inside");
    const double mcr = s.mcr / 1e6;  // Nmm to kNm
    if (Is(s, Kind::plate)) {
        AddPlateMoment(s, q, d);
        return;
    }
    const bool segments = s.loadmode != 1 || s.restraints > 0;
    if (segments) {
        AddC1OfSegment(s, d);
    } else if (s.cmanual != kFalse) {
        d.Add("C_1", s.ltc1, "", "", "as entered");
    } else {
        AddCFactors(s, d);
    }
    const Lever lever = LeverOf(s, top);
    const bool eccentric = lever.value != 0;
    if (s.ltc2 != 0) {
        if (s.cmanual != kFalse) {
            d.Add("C_2", s.ltc2, "", "", "as entered");
        }
        AddLoadLevel(s, d);
    }
    if (Single(s)) {
        if (segments) {
            AddC3OfSegment(s, top, d);
        } else if (s.cmanual != kFalse) {
            d.Add("C_3", s.ltc3, "", "", "as entered");
        }
        AddAsymmetry(s, top, d);
    }
    if (eccentric) {
        d.Add("e_g", lever.formula, lever.value, "mm", "");
    }
    const double g = s.e / kShearRatio;
    d.Add("G", q.e / Num(kShearRatio), g, "MPa", "3.2.6 (1)", WithNumbers("ν = 0.3"));
    const Expr iz = Sym("I_z", s.iz), lt2 = Square(Sym("L_LT", s.lt));
    const Expr euler = Square(Pi()) * q.e * iz;
    const Expr torsion = lt2 * Sym("G", g) * Sym("I_T", s.it) * Ten(6) / euler;
    const Expr under = torsion + Sym("I_w", s.iw) / iz;
    const Expr eg = Sym("e_g", lever.value);
    const Expr arm = eccentric ? Root(under + Square(eg)) - eg : Root(under);
    d.Add("M_cr", Sym("C_1", s.ltc1) * euler / lt2 * arm * Ten(-12), mcr, "kNm", "6.3.2.2 (2)");
}

// mm3, of the compressed side.
double ModulusOf(const ProjectState& s, bool top)
{
    if (Single(s)) {
        return top ? s.wytop : s.wybot;
    }
    return Is(s, Kind::plate) ? s.wybot : s.wyused;
}

void AddReduction(const ProjectState& s, const Quantities& q, bool top, Document& d)
{
    const bool plate = Is(s, Kind::plate), single = Single(s);
    const double w = ModulusOf(s, top);
    const double mcr = s.mcr / 1e6;
    const Expr lam = Sym("~λ_LT", s.lamlt);
    d.Add("~λ_LT", Root(Sym(plate ? "W_y,bot" : "W_y", w) * q.fy / (Sym("M_cr", mcr) * Ten(6))),
          s.lamlt, "", "6.3.2.2 (1)");
    const bool rolled = !plate && s.ltbcurve == LtbCurve::rolled;
    if (rolled && !Traits(s).design.rolled_case) {
        d.Add("χ_LT", s.xlt, "", "6.3.2.3", "no reduction for this section");
        return;
    }
    const double alpha = LtImperfection(s, s, top);
    const double plateau = !rolled ? 0.2 : single ? s.lamdalt0w : s.lamdalt0;
    const double beta = !rolled ? 1.0 : single ? s.betaw : s.beta;
    const double phi = 0.5 * (1 + alpha * (s.lamlt - plateau) + beta * s.lamlt * s.lamlt);
    const Expr bent = rolled ? Sym("β", beta) * Square(lam) : Square(lam);
    const Expr from = rolled ? Sym("~λ_LT,0", plateau) : Num(0.2);
    d.Add("Φ_LT", 0.5 * (1 + Sym("α_LT", alpha) * (lam - from) + bent), phi, "",
          rolled ? "6.3.2.3 (1), Table 6.5" : "6.3.2.2 (1), Table 6.4");
    const Expr f = Sym("Φ_LT", phi);
    std::vector<Expr> least{Num(1), 1 / (f + Root(Square(f) - bent))};
    if (rolled && !single) {
        least.push_back(1 / Square(lam));
    }
    d.Add("χ_LT", Least(least), s.xlt0, "",
          rolled ? "6.3.2.3 (1), Eq (6.57)" : "6.3.2.2 (1), Eq (6.56)");
    if (!rolled) {
        return;
    }
    d.Add("k_c", 1 / Root(Sym("C_1", s.ltc1)), s.kc, "", "6.3.2.3 (2)");
    d.Add("f", Least({Num(1), 1 - 0.5 * (1 - Sym("k_c", s.kc)) * (1 - 2 * Square(lam - Num(0.8)))}),
          s.ffactor, "", "6.3.2.3 (2)");
    d.Add("χ_LT,mod", Least({Sym("χ_LT", s.xlt0) / Sym("f", s.ffactor), 1 / Square(lam), Num(1)}),
          s.xlt, "", "6.3.2.3 (2), Eq (6.58)");
}

std::string_view NameOfEnd(LateralEnd end)
{
    return end == LateralEnd::fork      ? "fork (sideways and twist held)"
           : end == LateralEnd::clamped ? "clamped (sideways, twist, rotation and warping held)"
                                        : "free";
}

// Method, what it was given, and the closed formula that bounds it.
void AddNumerical(const standard::LateralResult& r, const standard::NumericalStudy& n, Document& d)
{
    d.Say("Numerical solution for the elastic critical moment of the whole member: a chain of beam "
          "elements with the lateral deflection v of the shear centre and the twist φ. The member "
          "buckles at the smallest factor α on its moments M and loads q, P for which the energy "
          "½∫(EIz v''² + EIw φ''² + GIT φ'²) + α[∫(M v'' φ + M zj φ'²) − ½Σ q zg φ²] is no longer "
          "positive.",
          Paragraph::Kind::remark);
    std::string ends = "Ends: " + std::string(NameOfEnd(n.start)) + ", " +
                       std::string(NameOfEnd(n.end)) +
                       "; lateral restraints inside: " + std::to_string(n.restraints) + ".";
    d.Say(ends);
    if (n.stretch != 1) {
        d.Say(Line("The moment line is stretched over ") + NumberLine(n.stretch) + Line(" L."));
    }
    TextTable given{.columns = {{"EIz, Nmm²", true},
                                {"EIw, Nmm⁴", true},
                                {"GIT, Nmm²", true},
                                {"zj, mm", true},
                                {"zg, mm", true}},
                    .caption = "Given to the solution"};
    given.rows.push_back({NumberLine(n.section.eiz), NumberLine(n.section.eiw),
                          NumberLine(n.section.git), NumberLine(n.section.zj),
                          NumberLine(n.level)});
    d.Add(std::move(given));
    TextTable moments{.columns = {{"x/L"}}, .caption = "Moment line My, kNm"};
    std::vector<Line> row{"My"};
    for (std::size_t i = 0; i < n.moments.size(); ++i) {
        moments.columns.push_back(
            {NumberLine(static_cast<double>(i) / static_cast<double>(n.moments.size() - 1)), true});
        const bool rounding = std::abs(n.moments[i]) < 1e-6 * std::abs(r.moment);
        row.push_back(NumberLine(rounding ? 0 : n.moments[i], 4));
    }
    moments.rows.push_back(std::move(row));
    d.Add(std::move(moments));
}

// Closed form of the same ends under uniform moment, loads in the shear centre.
void AddUniform(const standard::LateralResult& r, const standard::NumericalStudy& n,
                const standard::StandardSection& q, Document& d)
{
    const Expr l = Sym(n.restraints > 0 ? "L_piece" : "L", n.piece), e = Sym("E", q.e);
    Expr torsion = e / Num(kShearRatio) * Sym("I_T", q.it);
    if (n.section.eiw > 0) {
        torsion = torsion + Square(Pi() / l) * e * Sym("I_w", n.section.eiw / q.e) * Ten(-6);
    }
    d.Add("M_cr,0", Pi() / l * Root(e * Sym("I_z", q.iz) * torsion) * Ten(-9), n.uniform, "kNm", "",
          n.restraints > 0 ? "check: closed form for uniform moment on a piece between forks"
          : n.start == LateralEnd::free || n.end == LateralEnd::free
              ? "for comparison: closed form for uniform moment on a beam of this length on two "
                "forks"
              : "check: closed form for uniform moment between forks over L");
    // Timoshenko: 4.013 and 12.85/2 of a cantilever without warping, over pi.
    const bool cantilever = n.start == LateralEnd::free || n.end == LateralEnd::free;
    d.Add("C", Sym("M_cr", r.mcr) / Sym("M_cr,0", n.uniform), r.mcr / n.uniform, "", "",
          WithNumbers(cantilever
                          ? "numerical over closed form of a beam; of a cantilever without warping "
                            "0.5 under uniform moment, about 1.28 under a load at the tip and 2.05 "
                            "under a uniform load in the shear centre"
                          : "numerical over closed form; 1 under uniform moment, about 1.13 under "
                            "a uniform load and 1.36 under a load at mid-span in the shear centre "
                            "of a beam on two forks"));
}

// The whole member under its real moment line, in the combination that governs.
void AddByStandard(const CalculatedMember& m, const standard::Check& check,
                   const standard::LateralStudy& study, Document& d)
{
    const standard::LateralResult& r = study.result;
    d.Part("By EN 1993-1-1 as written");
    const bool entered = m.s.cmanual != kFalse;
    d.Say(Line("Combination ") + LineOf(check.load_case) +
          Line(entered ? "; the critical moment is that of the C factors entered." : "."));
    d.Add("M_y,Ed", r.checked, "kNm", "", Line("at x/L = ") + NumberLine(r.place, 4));
    if (study.numerical && r.critical.route == standard::CriticalRoute::numerical) {
        AddNumerical(r, *study.numerical, d);
    }
    AddStandardLateral(m.input, r, study.numerical ? &*study.numerical : nullptr, study.section, d);
    d.Add("IR", Sym("M_y,Ed", r.checked) / Sym("M_b,Rd", r.resistance), check.ir, "",
          "6.3.2.1 (1), Eq (6.54)");
    if (study.numerical) {
        AddUniform(r, *study.numerical, study.section, d);
        d.Show(
            {{DrawBucklingShape(m.s, study.numerical->shape),
              "Buckling shape at the critical moment, each curve to its own largest value", 100}});
    }
}

}  // namespace

void AddLateralBuckling(const ProjectState& s, Document& d)
{
    const Quantities q(s);
    const bool top = s.mydesignf > 0;
    if (s.restraints > 0) {
        constexpr double kSteps = 50;  // of the diagram
        const auto place = [&](int restraint) {
            return NumberLine(static_cast<double>(PointOf(s, restraint)) / kSteps, 3);
        };
        d.Say(Line("The segment that governs is number " + std::to_string(s.beampart) + " of " +
                   std::to_string(s.restraints + 1) +
                   "; all values are of it. Its end moments are read at x/L = ") +
              place(s.beampart - 1) + Line(" and ") + place(s.beampart) +
              Line(", the points of the diagram next to the restraints."));
    }
    AddCriticalMoment(s, q, top, d);
    AddReduction(s, q, top, d);
    const bool plate = Is(s, Kind::plate);  // has one modulus for its slenderness, two resistances
    const Expr w = plate ? Sym(top ? "W_y,top" : "W_y,bot", top ? s.wytop : s.wybot)
                         : Sym("W_y", ModulusOf(s, top));
    d.Add("M_b,Rd", Sym(LateralSymbol(s), s.xlt) * w * q.fy / q.gm1 * Ten(-6), s.xlt * s.mltrd,
          "kNm", "6.3.2.1 (3), Eq (6.55)");
}

std::string_view LateralSymbol(const ProjectState& s)
{
    const bool modified = StagesOf(s).lateral && !Is(s, Kind::plate) &&
                          s.ltbcurve == LtbCurve::rolled && Traits(s).design.rolled_case;
    return modified ? "χ_LT,mod" : "χ_LT";
}

void AddLateralBuckling(const CalculatedMember& m, Document& d)
{
    const ProjectState& s = m.s;
    const bool program = m.stages.lateral && m.outcome.designed() && s.mydesignf != 0;
    const standard::Check& check = m.standard.checks[standard::CheckId::ltb];
    std::optional<standard::LateralStudy> study;
    if (check.present) {
        study = standard::LateralStudyOf(m.library, m.input, check.load_case);
    }
    if (!program && !study) {
        return;
    }
    d.Chapter("Lateral torsional buckling");
    if (program) {
        d.Part("By the rules of the program");
        AddLateralBuckling(s, d);
    }
    if (study) {
        AddByStandard(m, check, *study, d);
    }
}

}  // namespace kestrum
