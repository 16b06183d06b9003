#include "calculation/chapters.h"
#include "calculation/quantities.h"

#include "sections/families.h"

namespace kestrum {

namespace {

constexpr int kToKn = -3, kToKnm = -6;

// The modulus in use with the name of the one that it is.
Expr Modulus(std::string_view axis, double used, double plastic, double elastic, double effective)
{
    const std::string name = used == plastic     ? "pl"
                             : used == elastic   ? "el"
                             : used == effective ? "eff"
                                                 : "";
    return Sym("W_" + name + (name.empty() ? "" : ",") + std::string(axis), used);
}

void AddAxial(const ProjectState& s, const Quantities& q, Document& d)
{
    d.Part("Axial force");
    d.Add("N_t,Rd", Resistance(q.a, q.fy, q.gm0, kToKn), s.nplrd, "kN", "6.2.3 (2), Eq (6.6)");
    const bool effective = s.classn == 4;
    d.Add("N_c,Rd", Resistance(effective ? Sym("A_eff", s.aeff) : q.a, q.fy, q.gm0, kToKn), s.ncrd,
          "kN", effective ? "6.2.4 (2), Eq (6.11)" : "6.2.4 (2), Eq (6.10)");
}

std::string ClauseOfClass(int cls)
{
    return cls <= 2   ? "6.2.5 (2), Eq (6.13)"
           : cls == 3 ? "6.2.5 (2), Eq (6.14)"
                      : "6.2.5 (2), Eq (6.15)";
}

void AddBending(const ProjectState& s, const Quantities& q, bool z, Document& d)
{
    d.Part("Bending");
    d.Add("M_y,Rd",
          Resistance(Modulus("y", s.wyused, s.wply, s.wely, s.weffy), q.fy, q.gm0, kToKnm), s.myrd,
          "kNm", ClauseOfClass(s.classmy));
    if (z) {
        d.Add("M_z,Rd",
              Resistance(Modulus("z", s.wzused, s.wplz, s.welz, s.weffz), q.fy, q.gm0, kToKnm),
              s.mzrd, "kNm", ClauseOfClass(s.classmz));
    }
}

// Each sign of the moment has its modulus.
void AddSides(const ProjectState& s, const Quantities& q, Document& d)
{
    d.Part("Bending");
    d.Say("The top flange is compressed by sagging moments, the bottom flange by hogging ones.",
          Paragraph::Kind::remark);
    d.Add("M_y,Rd,top", Resistance(Sym("W_y,top", s.wytop), q.fy, q.gm1, kToKnm), s.mytoprd, "kNm",
          ClauseOfClass(s.classmytop), "sagging, with γM1");
    d.Add("M_y,Rd,bot", Resistance(Sym("W_y,bot", s.wybot), q.fy, q.gm1, kToKnm), s.mybotrd, "kNm",
          ClauseOfClass(s.classmybot), "hogging, with γM1");
}

// 6.2.6 (3).
Expr ShearArea(const ProjectState& s, const Quantities& q)
{
    const Expr r = Sym("r", s.r), least = q.eta * q.hw * q.tw;
    switch (Traits(s).design.shear_area) {
    case ShearArea::rolled_i:
        return Largest({q.a - 2 * q.b * q.tf + (q.tw + 2 * r) * q.tf, least});
    case ShearArea::channel:
        return q.a - 2 * q.b * q.tf + (q.tw + r) * q.tf;
    case ShearArea::web:
        return least;
    case ShearArea::hollow:
        return q.a * q.h / (q.b + q.h);
    default:
        return nullptr;
    }
}

void AddShear(const ProjectState& s, const Quantities& q, Document& d)
{
    d.Part("Shear");
    const bool slender = s.hw > 0 && s.tw > 0 && !(s.hw / s.tw < 72 * s.eps / s.neta);
    const Expr area = Sym("A_v,z", s.avz);
    d.Add("A_v,z", slender ? q.hw * q.tw : ShearArea(s, q), s.avz, "mm2", "6.2.6 (3)");
    d.Add("V_pl,z,Rd", area * q.fy / (Root(Num(3)) * q.gm0) * Ten(kToKn), s.vplzrd, "kN",
          "6.2.6 (2), Eq (6.18)");
    if (s.vbrd != s.vplzrd) {
        d.Add("V_z,Rd", s.vbrd, "kN", slender ? "EN 1993-1-5, 5.2" : "6.2.6");
    }
    if (s.avy != 0) {
        d.Add("A_v,y", 2 * q.b * q.tf, s.avy, "mm2", "6.2.6 (3)");
        d.Add("V_pl,y,Rd", Sym("A_v,y", s.avy) * q.fy / (Root(Num(3)) * q.gm0) * Ten(kToKn), s.vyrd,
              "kN", "6.2.6 (2), Eq (6.18)", "for the test of half the resistance");
        d.Add("V_y,Rd", Sym("V_pl,y,Rd", s.vyrd) / Num(1.5), s.vcyrd, "kN", "6.2.6",
              "of the ratio; D152");
    }
}

}  // namespace

void AddResistances(const CalculatedMember& m, Document& d)
{
    const ProjectState& s = m.s;
    const Quantities q(s);
    const FamilyTraits& family = Traits(s);
    d.Chapter("Resistances of the section");
    if (family.carries.offered.n) {
        AddAxial(s, q, d);
    }
    if (family.carries.offered.n) {
        AddBending(s, q, s.mzrd != 0, d);
    }
    if (family.lists.sides) {
        AddSides(s, q, d);
    }
    AddShear(s, q, d);
}

}  // namespace kestrum
