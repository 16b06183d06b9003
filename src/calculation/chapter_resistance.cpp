#include "calculation/chapters.h"

#include "calculation/check_formula.h"
#include "calculation/parts.h"
#include "calculation/quantities.h"
#include "calculation/units.h"
#include "core/check_text.h"
#include "core/member_choices.h"
#include "design/welded_side.h"
#include "sections/families.h"

#include <cmath>

namespace kestrum {

namespace {

// The modulus in use with the name of the one that it is.
Expr Modulus(std::string_view axis, double used, double plastic, double elastic, double effective)
{
    const std::string name = used == plastic && used != elastic ? "pl"
                             : used == elastic                  ? "el"
                             : used == effective                ? "eff"
                                                                : "";
    return Sym("W_" + name + (name.empty() ? "" : ",") + std::string(axis), used);
}

std::string ClauseOfClass(int cls)
{
    constexpr int kUpgraded = 23;  // a web of class 3 that counts as class 2
    return cls <= 2 || cls == kUpgraded ? "6.2.5 (2), Eq (6.13)"
           : cls == 3                   ? "6.2.5 (2), Eq (6.14)"
                                        : "6.2.5 (2), Eq (6.15)";
}

// Hat beams: what the loads on the bottom flange bend across it leaves for the moment; null where
// it leaves all.
Expr FlangeFactor(const ProjectState& s, const Quantities& q, Document& d)
{
    constexpr i16 kConsidered = 0;
    if (!Is(s, Kind::hat) || s.hsqopt != kConsidered || s.qsum == 0) {
        return nullptr;
    }
    const Expr lever = Num(60);  // mm
    Expr load = Sym("q_sum", std::abs(s.qsum));
    if (Traits(s).shape.lower == LowerFlange::both_sides) {
        load = Sym("p", s.flangeload) / Num(100) * load;
    }
    const Expr acting = Step(d, "m_q", load * lever, "Nmm/mm", "", "load on the flange, 60 mm out");
    const Expr resisting =
        Step(d, "m_f", 1.75 * q.fy / q.gm0 * Square(Sym("t_bot", s.tbot)) / Num(6), "Nmm/mm", "",
             "of the bottom flange");
    if (s.flangefactor == 1) {
        d.Say(Line(Symbol("m_q")) + WithNumbers(" is not more than 0.2 ") + Line(Symbol("m_f")) +
              Line(": the moment resistance is not reduced."));
        return nullptr;
    }
    d.Add("k_f", Least({Num(1), (Root(1 - acting / resisting) + Num(1.1)) * 0.5}), s.flangefactor,
          "", "", "bottom flange that its loads bend across");
    return Sym("k_f", s.flangefactor);
}

// Each sign of the moment has its modulus.
void AddSides(const ProjectState& s, const Quantities& q, Document& d)
{
    d.Say("The top flange is compressed by sagging moments, the bottom flange by hogging ones.",
          Paragraph::Kind::remark);
    const Expr factor = FlangeFactor(s, q, d);
    const auto moment = [&](const char* name, double w) {
        const Expr whole = Resistance(Sym(name, w), q.fy, q.gm1, kToKnm);
        return factor == nullptr ? whole : factor * whole;
    };
    d.Add("M_y,Rd,top", moment("W_y,top", s.wytop), s.mytoprd, "kNm", ClauseOfClass(s.classmytop),
          Line("sagging, with ") + Line(Symbol("γ_M1")));
    d.Add("M_y,Rd,bot", moment("W_y,bot", s.wybot), s.mybotrd, "kNm", ClauseOfClass(s.classmybot),
          Line("hogging, with ") + Line(Symbol("γ_M1")));
}

// 6.2.6 (3).
Expr ShearAreaZ(const ProjectState& s, const Quantities& q)
{
    const Expr r = Sym("r", s.r), least = q.eta * q.hw * q.tw;
    switch (Traits(s).kind) {
    case Kind::box:
    case Kind::hat:
    case Kind::box_unequal: {
        const Expr webs = 2 * q.hw * q.tw;
        return s.avz > 2.0 * s.hw * s.tw * (1 + 1e-6) ? q.eta * webs : webs;
    }
    case Kind::angle:
        return (q.h - q.tw) * q.tw;
    case Kind::flat:
        return q.h * q.tw;
    case Kind::tube:
        return 2 * q.a / Pi();
    case Kind::general:
        return Sym("A_w", s.aweb) * q.eta;
    default:
        break;
    }
    switch (Traits(s).design.shear_area) {
    case ShearArea::rolled_i:
        return Largest({q.a - 2 * q.b * q.tf + (q.tw + 2 * r) * q.tf, least});
    case ShearArea::channel:
        return q.a - 2 * q.b * q.tf + (q.tw + r) * q.tf;
    case ShearArea::hollow:
        return q.a * q.h / (q.b + q.h);
    default:
        return least;
    }
}

Expr ShearAreaY(const ProjectState& s, const Quantities& q)
{
    switch (Traits(s).kind) {
    case Kind::box:
        return 2 * Sym("b_w", s.bw) * q.tf;
    case Kind::hollow:
        return q.a * q.b / (q.b + q.h);
    case Kind::angle:
        return (q.b - q.tw) * q.tw;
    case Kind::flat:
        return q.h * q.tw;
    case Kind::tube:
        return 2 * q.a / Pi();
    case Kind::i_single:
    case Kind::hat:
    case Kind::box_unequal:
    case Kind::plate:
        return s.bbot > 0 ? Sym("b_top", s.btop) * Sym("t_top", s.ttop) +
                                Sym("b_bot", s.bbot) * Sym("t_bot", s.tbot)
                          : Sym("b_top", s.btop) * Sym("t_top", s.ttop);
    case Kind::tee:
        return q.b * q.tf;
    case Kind::general:
        return Sym("A_f", s.aflange);
    default:
        return 2 * q.b * q.tf;
    }
}

bool SlenderInShear(const ProjectState& s)
{
    return s.hw > 0 && s.tw > 0 && !(s.hw / s.tw < 72 * s.eps / s.neta);
}

// The flange that the tension field takes: of unequal ones that with the smaller b t².
struct FieldFlange {
    double b, t;
};

FieldFlange FieldFlangeOf(const ProjectState& s)
{
    if (!Traits(s).lists.sides || Is(s, Kind::i_single)) {
        return {s.b, s.tf};
    }
    const bool top = 1.0 * s.btop * s.ttop * s.ttop < 1.0 * s.bbot * s.tbot * s.tbot;
    return top ? FieldFlange{s.btop, s.ttop} : FieldFlange{s.bbot, s.tbot};
}

// Mf,Rd at the check section of this number, counted from 1.
Expr FlangeMoment(const ProjectState& s, const Quantities& q, int number, Document& d)
{
    const Expr strength = q.fy / q.gm0 * Ten(kToKnm);
    const bool elastic = Is(s, Kind::i_single, Kind::hat, Kind::plate);
    const Expr tw = Webs(s) == 2 ? 2 * q.tw : q.tw;
    const Expr arm = q.h - (Sym("t_top", s.ttop) + Sym("t_bot", s.tbot)) / Num(2);
    Expr moment = elastic ? (Sym("W_el,y", s.wely) - tw * Square(q.hw) / Num(6)) * strength
                  : Is(s, Kind::box_unequal)
                      ? Least({Sym("b_top", s.btop) * Sym("t_top", s.ttop),
                               Sym("b_bot", s.bbot) * Sym("t_bot", s.tbot)}) *
                            arm * strength
                      : (q.h - q.tf) * q.tf * q.b * strength;
    Line remark(elastic ? "D31" : "");
    if (s.ned != 0 && !Traits(s).lists.sides) {  // once for each section so far, in kN
        const Expr share = 1 - Size(q.ned) / (2 * q.b * q.tf * q.fy / q.gm0);
        moment = moment * Power(share, Num(number));
        remark = "the power counts the check sections; D154";
    }
    return Step(d, "M_f,Rd", moment, "kNm", "EN 1993-1-5, 5.4 (2)", std::move(remark));
}

// EN 1993-1-5, 5.4 (1).
void AddFlangeShear(const ProjectState& s, const Quantities& q, const Check& check, double value,
                    Document& d)
{
    const FieldFlange flange = FieldFlangeOf(s);
    const Expr bf = Sym("b_f", flange.b), tf = Square(Sym("t_f", flange.t));
    const Expr tw = Webs(s) == 2 ? 2 * q.tw : q.tw;
    const Expr c = Step(
        d, "c", Sym("a", s.webstiffa) * (0.25 + 1.6 * bf * tf * q.fy / (tw * Square(q.hw) * q.fy)),
        "mm", "EN 1993-1-5, 5.4 (1)");
    Expr formula = bf * tf * q.fy / (c * q.gm1) * Ten(kToKn);
    for (std::size_t k = 0; k <= static_cast<std::size_t>(s.npts); ++k) {
        const double moment = std::abs(s.mysec[k]);
        if (static_cast<double>(s.xi[k]) == check.place.x && moment > 0) {
            const Expr mf = FlangeMoment(s, q, static_cast<int>(k) + 1, d);
            formula = formula * (1 - Square(Sym("M_y,Ed", moment) / mf));
        }
    }
    d.Add("V_bf,Rd", formula, value, "kN", "EN 1993-1-5, 5.4 (1), Eq (5.8)", PlaceOf(check.place));
}

// chi_w of a plate of height h and thickness t, EN 1993-1-5, 5.3.
Expr ShearFactor(const ProjectState& s, const Quantities& q, const Expr& h, const Expr& t,
                 const std::string& index, Document& d)
{
    Expr lam = h / (86.4 * t * q.eps);
    if (s.webstiff != 0) {
        const Expr ratio = Square(h / Sym("a", s.webstiffa));
        const Expr k =
            Step(d, "k_τ", s.webstiffa >= Evaluate(h) ? 5.34 + 4 * ratio : 4 + 5.34 * ratio, "",
                 "EN 1993-1-5, A.3 (1)");
        lam = Step(d, "~λ_" + index, h / (37.4 * t * q.eps * Root(k)), "",
                   "EN 1993-1-5, 5.3 (3), Eq (5.6)");
    } else {
        lam = Step(d, "~λ_" + index, lam, "", "EN 1993-1-5, 5.3 (3), Eq (5.5)");
    }
    const double slenderness = Evaluate(lam);
    const bool rigid = s.endstiff != 0 && slenderness >= 1.08;
    return Step(d, "χ_" + index,
                rigid                         ? 1.37 / (0.7 + lam)
                : slenderness < 0.83 / s.neta ? q.eta
                                              : 0.83 / lam,
                "", "EN 1993-1-5, Table 5.1", rigid ? "rigid end post" : "");
}

bool Boxed(const ProjectState& s)
{
    return Is(s, Kind::hollow, Kind::box);
}

// Two webs, or two flanges, of hollow sections and box columns; nothing of the other walls, D174.
void AddWallShear(const ProjectState& s, const Quantities& q, bool z, Document& d)
{
    const double value = z ? s.vbrd : s.vcyrd;
    if (s.checkwebbuck == kTrue) {
        d.Add(z ? "V_z,Rd" : "V_y,Rd", z ? Sym("V_pl,z,Rd", s.vplzrd) : Sym("V_pl,y,Rd", s.vplyrd),
              value, "kN", "6.2.6", "buckling left out");
        return;
    }
    const Expr h = z ? q.hw : Sym("b_w", s.bw), t = z ? q.tw : q.tf;
    const Expr chi = ShearFactor(s, q, h, t, z ? "w" : "f", d);
    const Expr area = z ? Sym("A_v,z", s.avz) : Sym("A_v,y", s.avy);
    const Expr strength = q.fy / Root(Num(3)) * Ten(kToKn);
    d.Add(z ? "V_z,Rd" : "V_y,Rd",
          Least({chi * area * strength / (z ? q.gm1 : q.gm0),
                 2 * q.eta * h * q.tw * strength / q.gm1}),
          value, "kN", "EN 1993-1-5, 5.2 (1)", z ? "" : "D172");
}

// EN 1993-1-5, 5.2 to 5.4, at the section of the check.
void AddShearBuckling(const ProjectState& s, const Quantities& q, Document& d)
{
    const Expr chi = ShearFactor(s, q, q.hw, q.tw, "w", d);
    const Expr webs = Webs(s) == 2 ? 2 * q.hw * q.tw : q.hw * q.tw;
    const Expr strength = webs * q.fy / (Root(Num(3)) * q.gm1) * Ten(kToKn);
    const Expr web = Step(d, "V_bw,Rd", chi * strength, "kN", "EN 1993-1-5, 5.2 (1), Eq (5.2)");
    const Check& check = s.checklist[CheckId::vz];
    if (!IsJudged(check)) {
        return;
    }
    constexpr double kRounding = 1e-6;
    const double total = check.terms[1], flanges = total - Evaluate(web);
    const Line place = PlaceOf(check.place);
    if (s.checkwebbuck == kTrue) {
        d.Add("V_z,Rd", Sym("V_pl,z,Rd", s.vplzrd), total, "kN", "6.2.6", "web buckling left out");
    } else if (std::abs(total - Evaluate(q.eta * strength)) <= kRounding * total) {
        d.Add("V_z,Rd", q.eta * strength, total, "kN", "EN 1993-1-5, 5.2 (1), Eq (5.1)",
              "upper limit");
    } else if (flanges > kRounding * total) {
        AddFlangeShear(s, q, check, flanges, d);
        d.Add("V_z,Rd", web + Sym("V_bf,Rd", flanges), total, "kN",
              "EN 1993-1-5, 5.2 (1), Eq (5.1)", place);
    }
}

}  // namespace

void AddAxialResistance(const ProjectState& s, Document& d)
{
    const Quantities q(s);
    d.Add("N_pl,Rd", Resistance(q.a, q.fy, q.gm0, kToKn), s.nplrd, "kN", "6.2.3 (2), Eq (6.6)");
    if (!(s.ned < 0)) {
        const bool tee = Is(s, Kind::tee) && s.aeff != s.a;  // in every class
        const bool effective = s.classn == 4 || tee;
        d.Add("N_c,Rd", Resistance(effective ? Sym("A_eff", s.aeff) : q.a, q.fy, q.gm0, kToKn),
              s.ncrd, "kN", effective ? "6.2.4 (2), Eq (6.11)" : "6.2.4 (2), Eq (6.10)",
              tee && s.classn < 4 ? "D193" : "");
    }
}

void AddMomentResistanceY(const ProjectState& s, Document& d)
{
    const Quantities q(s);
    if (Traits(s).carries.offered.n) {
        d.Add("M_y,Rd",
              Resistance(Modulus("y", s.wyused, s.wply, s.wely, s.weffy), q.fy, q.gm0, kToKnm),
              s.myrd, "kNm", ClauseOfClass(s.classmy));
    }
    if (Traits(s).lists.sides) {
        AddSides(s, q, d);
    }
}

void AddMomentResistanceZ(const ProjectState& s, Document& d)
{
    if (s.mzrd == 0 || !Traits(s).carries.offered.n) {
        return;
    }
    const Quantities q(s);
    d.Add("M_z,Rd",
          Resistance(Modulus("z", s.wzused, s.wplz, s.welz, s.weffz), q.fy, q.gm0, kToKnm), s.mzrd,
          "kNm", ClauseOfClass(s.classmz));
}

void AddShearResistanceZ(const ProjectState& s, Document& d)
{
    const Quantities q(s);
    const bool web = s.hw > 0 && s.tw > 0 && !Is(s, Kind::flat) && !Is(s, Kind::tube) &&
                     !Is(s, Kind::angle) && !Is(s, Kind::general);
    const bool slender = web && SlenderInShear(s);
    const Expr area = Sym("A_v,z", s.avz);
    d.Add("A_v,z",
          !slender || Boxed(s) ? ShearAreaZ(s, q)
          : Webs(s) == 2       ? 2 * q.hw * q.tw
                               : q.hw * q.tw,
          s.avz, "mm2", "6.2.6 (3)");
    const Expr plastic = Step(d, "V_pl,z,Rd", area * q.fy / (Root(Num(3)) * q.gm0) * Ten(kToKn),
                              "kN", "6.2.6 (2), Eq (6.18)");
    if (Is(s, Kind::angle) || Is(s, Kind::flat)) {
        d.Add("V_z,Rd", plastic / Num(1.5), s.vzrd, "kN", "6.2.6 (4)",
              "parabola of the shear stress");
    } else if (slender && Boxed(s)) {
        AddWallShear(s, q, true, d);
    } else if (slender) {
        AddShearBuckling(s, q, d);
    } else if (s.vbrd != s.vplzrd) {
        d.Add("V_z,Rd", s.vbrd, "kN", "6.2.6");
    } else {
        d.Add("V_z,Rd", plastic, s.vplzrd, "kN", "6.2.6 (2)");
    }
}

void AddShearResistanceY(const ProjectState& s, Document& d)
{
    if (s.avy == 0) {
        return;
    }
    const Quantities q(s);
    d.Add("A_v,y", ShearAreaY(s, q), s.avy, "mm2", "6.2.6 (3)");
    const Expr plastic =
        Step(d, "V_pl,y,Rd", Sym("A_v,y", s.avy) * q.fy / (Root(Num(3)) * q.gm0) * Ten(kToKn), "kN",
             "6.2.6 (2), Eq (6.18)");
    const double value = Evaluate(plastic);
    const double used = Is(s, Kind::angle) ? s.vyrd : s.vcyrd;
    const bool parabola = std::abs(used * 1.5 - value) <= 1e-6 * value;
    if (parabola) {
        const bool elastic = Is(s, Kind::angle) || Is(s, Kind::flat);
        d.Add("V_y,Rd", plastic / Num(1.5), used, "kN", elastic ? "6.2.6 (4)" : "6.2.6",
              elastic ? Line("parabola of the shear stress")
                      : Line("of the ratio; the test of half the resistance takes ") +
                            Line(Symbol("V_pl,y,Rd")) + Line("; D152"));
    } else if (used != 0 && std::abs(used - value) > 1e-6 * value) {
        AddWallShear(s, q, false, d);
    } else {
        d.Add("V_y,Rd", plastic, value, "kN", "6.2.6 (2)");
    }
}

void AddResistances(const CalculatedMember& m, Document& d)
{
    const ProjectState& s = m.s;
    const FamilyTraits& family = Traits(s);
    d.Chapter("Resistances of the section");
    if (family.carries.offered.n) {
        d.Part("Axial force");
        AddAxialResistance(s, d);
    }
    d.Part("Bending");
    AddMomentResistanceY(s, d);
    AddMomentResistanceZ(s, d);
    d.Part("Shear");
    AddShearResistanceZ(s, d);
    AddShearResistanceY(s, d);
}

}  // namespace kestrum
