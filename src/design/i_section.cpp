#include "design/i_section.h"

#include "core/arithmetic_trap.h"
#include "design/class_i.h"
#include "design/local_buckling.h"
#include "design/resistance.h"
#include "design/section_control.h"
#include "design/shear.h"
#include "sections/families.h"

#include <algorithm>
#include <cmath>

namespace kestrum {

namespace {

bool Plastic(const Inputs& in, i16 cls)
{
    return cls <= 2 && in.checkelastic != kTrue;
}

// Shear area of a web that does not buckle, EN 1993-1-1, 6.2.6 (3), mm2.
double PlasticShearArea(const Inputs& in, const SectionRecord& section)
{
    const double a = section.a, b = section.b, tf = section.tf, tw = section.tw, r = section.r;
    const double least = 1.0 * in.neta * section.hw * tw;
    switch (Traits(in).design.shear_area) {
    case ShearArea::channel:
        return a - 2 * b * tf + (tw + r) * tf;
    case ShearArea::web:
        return least;
    default:
        return std::max(a - 2 * b * tf + (tw + 2 * r) * tf, least);
    }
}

// Share of the area that is web, held at one half, EN 1993-1-1, 6.2.9.1 (5).
double WebShare(const SectionRecord& section)
{
    return std::min((section.a - 2.0 * section.b * section.tf) / section.a, 0.5);
}

// Weff about z: both flange tips on the compressed side lose g, mm.
//
// Deviation D160: the modulus is that of the tension edge, the nearer one; the standard takes the
// compressed edge, further off as the centroid moves away from it.
double EffectiveModulusZ(const Inputs& in, const SectionRecord& section)
{
    const double a = section.a, b = section.b, tf = section.tf;
    const double g = (1 - OutstandRho(in, section, kOutstandBending)) * section.cflange;
    const double strip = 2 * tf * g;
    const double y = b - g / 2;  // of the strips, from the tension edge
    const double rest = a - strip;
    const double z = (b * a / 2 - strip * y) / rest;
    const double i =
        b * b * a / 4 + section.iz - 2 * tf * g * g * g / 12 - strip * y * y - rest * z * z;
    return i / z;
}

}  // namespace

double OutstandRho(const Inputs& in, const SectionRecord& section, double k)
{
    return in.checkflangebuck == kTrue
               ? 1.0
               : RhoOutstand(PlateSlenderness(section.cflange, section.tf, section.eps, k));
}

double WebRho(const Inputs& in, const SectionRecord& section)
{
    return in.checkwebbuck == kTrue
               ? 1.0
               : RhoInternal(PlateSlenderness(section.d, section.tw, section.eps, kInternal));
}

// EN 1993-1-5, 4.4 and Table 4.1. Distances from the compressed edge, mm; the flange is lost first,
// and the stress ratio of the web is that of the section without it.
double EffectiveModulusY(const Inputs& in, const SectionRecord& section, double lost)
{
    const double a = section.a, h = section.h, tw = section.tw, tf = section.tf, d = section.d;
    const double a2 = a - lost;
    const double zc = (h * a / 2 - lost * tf / 2) / a2;
    const double bc = zc - tf - section.r;  // compressed part of the web

    double rho = 1;
    if (in.checkwebbuck != kTrue && d > 0) {
        const double psi = StressRatio(-(d - bc) / bc);
        rho = RhoInternal(PlateSlenderness(d, tw, section.eps, KSigmaInternal(psi)), psi);
    }
    const double w = (1 - rho) * bc;
    const double aw = w * tw;
    const double zw = zc - 0.6 * rho * bc - w / 2;
    const double a3 = a2 - aw;
    const double z = (h * a / 2 - aw * zw - lost * tf / 2) / a3;
    const double edge = h * h * a / 4 + section.iy - tw * w * w * w / 12 - aw * zw * zw -
                        lost * tf * tf / 12 - lost * (tf / 2) * (tf / 2);  // about the edge, mm4
    return (edge - a3 * z * z) / z;
}

void CalcEffectiveI(const Inputs& in, SectionRecord& section)
{
    const double lost = 2 * (1 - OutstandRho(in, section, kOutstand)) * section.cflange *
                        section.tf;  // one flange, mm2
    section.aeff = F32(section.a - 2 * lost - (1 - WebRho(in, section)) * section.d * section.tw);
    section.weffy = F32(EffectiveModulusY(in, section, lost));
    section.weffz = F32(EffectiveModulusZ(in, section));
}

double ModulusByClass(const Inputs& in, i16 cls, double wpl, double wel, double weff)
{
    if (Plastic(in, cls)) {
        return wpl;
    }
    return cls == 4 ? weff : wel;
}

// EN 1993-1-1, 6.2.6 (2) and (3); EN 1993-1-5, 5.2 and 5.3 where the web buckles.
//   in   hw, tw [mm]; fyk [MPa]; area [mm2]
//   out  avz [mm2]; vzrd, vplzrd [kN]
//
// Deviation D158: vzrd, on which the half-resistance test rests, never counts the stiffeners; the
// standard has one shear resistance.
void CalcVzrd(const Inputs& in, const SectionRecord& section, Resistances& resistances, double area)
{
    if (StockyInShear(in, section, section.hw, section.tw)) {
        resistances.avz = area;
        resistances.vzrd = ShearResistance(in, resistances.avz);
    } else {
        resistances.avz = 1.0 * section.tw * section.hw;
        const double chi = ChiWeb(in, WebSlenderness(section, section.hw, section.tw));
        resistances.vzrd = resistances.avz * chi * ShearStrength(in) / in.gammam1 / 1000;
    }
    resistances.vplzrd = ShearResistance(in, resistances.avz);
}

// EN 1993-1-1, 6.2.3 to 6.2.6.
//   in   section record; fyk [MPa]; gammam0, gammam1 [-]
//   out  classes; nplrd, ncrd, vzrd, vyrd [kN]; mplyrd .. mzrd, mfrd, mfzrd [kNm]
void CalcResistanceI(const Inputs& in, SectionRecord& section, Resistances& resistances,
                     SectionChecks& checks)
{
    const double h = section.h, b = section.b, tf = section.tf;
    resistances.mfrd = (h - tf) * tf * b * in.fyk / in.gammam0 / 1e6;
    resistances.mfzrd = (b * b / 4 + b * b / 4) * tf * in.fyk / in.gammam0 / 1e6;
    SetMomentResistances(in, section, resistances);

    section.classn = CalcClassY(in, section, checks, 10, 0);
    section.classmy = CalcClassY(in, section, checks, 0, 10);
    section.classmz = CalcClassZ(in, section, checks, 0, 10);

    resistances.nplrd = 1.0 * section.a * in.fyk / in.gammam0 / 1000;
    resistances.ncrd =
        (section.classn == 4 ? 1.0 * section.aeff : 1.0 * section.a) * in.fyk / in.gammam0 / 1000;
    resistances.wyused =
        ModulusByClass(in, section.classmy, section.wply, section.wely, section.weffy);
    resistances.wzused =
        ModulusByClass(in, section.classmz, section.wplz, section.welz, section.weffz);
    resistances.myrd = MomentResistance(in, resistances.wyused);
    resistances.mzrd = MomentResistance(in, resistances.wzused);
    resistances.nrdm1 = resistances.ncrd * in.gammam0 / in.gammam1;
    resistances.myrdm1 = resistances.myrd * in.gammam0 / in.gammam1;
    resistances.mzrdm1 = resistances.mzrd * in.gammam0 / in.gammam1;

    CalcVzrd(in, section, resistances, PlasticShearArea(in, section));
    resistances.avy = 2 * b * tf;
    resistances.vyrd = ShearResistance(in, resistances.avy);
}

// EN 1993-1-5, 5.2 to 5.4.
// Deviation D47: vbrd of a web that may buckle is not held to the plastic resistance, which 6.2.6
// (6) asks for as well.
//   in   hw, tw, b, tf, webstiffa [mm]; ned [kN]; myed, mfrd [kNm]; vzrd [kN]
//   out  vbrd [kN]; avz [mm2]; shearnote
//
// Deviation D154: each call reduces the moment of the flanges, mfrd, for the axial force in place,
// with ned in kN against a resistance in N, so that it hardly falls; EN 1993-1-5, 5.4 (2) compares
// like with like, once.
void CalcVbrd(const Inputs& in, const SectionRecord& section, Resistances& resistances,
              const Forces& forces, SectionChecks& checks)
{
    resistances.vbrd = resistances.vzrd;
    checks.shearnote = ")";
    if (!StockyInShear(in, section, section.hw, section.tw)) {
        checks.shearnote = " Support stiffener recommended)";
        const double hw = section.hw, tw = section.tw, b = section.b, tf = section.tf;
        resistances.avz = tw * hw;
        const double chi = ChiWebEndPost(in, WebSlendernessStiffened(in, section, hw, tw));
        const double web = chi * resistances.avz * ShearStrength(in) / in.gammam1 / 1000;
        resistances.mfrd *= 1 - std::abs(forces.ned) / (2 * b * tf * in.fyk / in.gammam0);
        const double most = in.neta * hw * tw * ShearStrength(in) / in.gammam1 / 1000;
        resistances.vbrd =
            std::min(web + FlangeShear(in, resistances, checks, hw, tw, b, tf), most);
    }
    if (in.checkwebbuck == kTrue) {
        resistances.vbrd = resistances.vplzrd;
    }
}

// EN 1993-1-1, 6.2.6; about y the two flanges.
//   out  vbrd, vcyrd [kN]; avz, avy [mm2]; shearnote
//
// Deviation D152: the ratio of Vy divides by vcyrd = vyrd/1.5, the parabola of the shear stress in
// a flange, while the half-resistance test takes vyrd; the standard has the plastic value for both.
void CalcShearZ(const Inputs& in, const SectionRecord& section, Resistances& resistances,
                const Forces& forces, SectionChecks& checks)
{
    CalcVbrd(in, section, resistances, forces, checks);
    resistances.avy = 2.0 * section.b * section.tf;
    resistances.vcyrd = 1 / 1.5 * resistances.avy * ShearStrength(in) / in.gammam0 / 1000;
}

// EN 1993-1-1, 6.2.8 (5), Eq (6.30): the web loses rho of its part of the modulus.
//   in   classmyuse; vzed, vzrd [kN]; mplyrd, melyrd, meffyrd, myrd [kNm]
//   out  myrdv [kNm]
//
// Deviation D40: webs that may buckle in shear follow 6.2.8 too, with the web's resistance to shear
// buckling; EN 1993-1-5, 7.1 has an interaction of its own for them.
// Deviation D41: the strip is hw^2 tw rho/6 in class 3 and 4, which counts to the edge of the web;
// to the edge of the section it is hw^3 tw rho/(6 h). Closed sections: Vz leaves Mz whole and Vy
// leaves My, and the strips have the clear width; 6.2.8 (3) reduces the strength of the shear area,
// which of rolled hollow sections is all of two walls.
void ReduceMy(const Inputs& in, const SectionRecord& section, const Resistances& resistances,
              const Forces&, SectionChecks& checks)
{
    const double strip = 1.0 * section.hw * section.hw * section.tw *
                         ShearReduction(checks.vzed, resistances.vzrd);  // mm3
    if (Plastic(in, checks.classmyuse)) {
        checks.myrdv = resistances.mplyrd - MomentResistance(in, strip / 4);
    } else {
        checks.myrdv = (checks.classmyuse == 4 ? resistances.meffyrd : resistances.melyrd) -
                       MomentResistance(in, strip / 6);
    }
    checks.myrdv = std::min(checks.myrdv, resistances.myrd);
}

// The same about z, where the flanges take the shear.
//   in   classmyuse; vyed, vyrd [kN]; mplzrd, melzrd, meffzrd, mzrd [kNm]
//   out  mzrdv [kNm]
//
// Deviation D161: the strip is that of one flange, b^2 tf rho/4; by 6.2.8 (3) both flanges, which
// make up the shear area, have the reduced yield strength: b^2 tf rho/2.
void ReduceMz(const Inputs& in, const SectionRecord& section, const Resistances& resistances,
              const Forces&, SectionChecks& checks)
{
    const double strip = 1.0 * section.b * section.b * section.tf *
                         ShearReduction(checks.vyed, resistances.vyrd);  // mm3
    if (Plastic(in, checks.classmyuse)) {
        checks.mzrdv = resistances.mplzrd - MomentResistance(in, strip / 4);
    } else {
        checks.mzrdv = (checks.classmyuse == 4 ? resistances.meffzrd : resistances.melzrd) -
                       MomentResistance(in, strip / 6);
    }
    checks.mzrdv = std::min(checks.mzrdv, resistances.mzrd);
}

// EN 1993-1-1, 6.2.9.1 (4), Eq (6.33), (6.34); (5), Eq (6.36).
// Deviation D44: beyond nplrd the moment resistance is below 0 and the ratio too, which no row
// takes; the axial force alone is above its limit there.
//   in   ned, nplrd [kN]; myrdv [kNm]
//   out  mnyrd [kNm]; below 0 for ned beyond nplrd
void CalcMNy(const Inputs& in, const SectionRecord& section, const Resistances& resistances,
             const Forces& forces, SectionChecks& checks)
{
    const double n = std::abs(forces.ned / resistances.nplrd);
    checks.mnyrd = std::min(checks.myrdv, checks.myrdv * (1 - n) / (1 - 0.5 * WebShare(section)));
    const double web = 0.5 * section.hw * section.tw * in.fyk / in.gammam0 / 1000;  // kN
    if (std::abs(forces.ned) <= web && std::abs(forces.ned) <= 0.25 * resistances.nplrd) {
        checks.mnyrd = checks.myrdv;
    }
}

// EN 1993-1-1, 6.2.9.1 (4), Eq (6.35); (5), Eq (6.37), (6.38).
//   in   ned, nplrd [kN]; mzrdv [kNm]
//   out  mnzrd [kNm]
void CalcMNz(const Inputs& in, const SectionRecord& section, const Resistances& resistances,
             const Forces& forces, SectionChecks& checks)
{
    const double n = std::abs(forces.ned / resistances.nplrd);
    const double aw = WebShare(section);
    checks.mnzrd = checks.mzrdv;
    const double web = 1.0 * section.hw * section.tw * in.fyk / in.gammam0 / 1000;  // kN
    if (n > aw && std::abs(forces.ned) > web) {
        const double beyond = (n - aw) / (1 - aw);
        checks.mnzrd = checks.mzrdv * (1 - beyond * beyond);
    }
}

// Deviation D151: the exponents go with moment resistances reduced for shear by 6.2.8; the standard
// reduces the yield strength of the shear area before axial force and biaxial bending, 6.2.10 (3).
void ExponentsI(const Resistances& resistances, const Forces& forces, SectionChecks& checks)
{
    checks.alfaexp = 2;
    checks.betaexp = std::max(1.0, 5 * std::abs(forces.ned / resistances.nplrd));
}

// EN 1993-1-1, 6.2.
//
// Deviation D153: moments alone, both moments together and the checks of the member keep the
// classes of the single forces; the class under N and one moment enters the combinations with N
// only, each moment with its own, and no resistance exceeds that of the moment alone. The standard
// classifies the section under all its forces, 5.5.2.
void ControlRolledI(const Inputs& in, SectionRecord& section, Resistances& resistances,
                    const Forces& forces, SectionChecks& checks, PassOutcome&)
{
    constexpr SectionRoutines kRoutines{
        .class_y = CalcClassY,
        .class_z = CalcClassZ,
        .reduce_my = ReduceMy,
        .reduce_mz = ReduceMz,
        .reduce_mny = CalcMNy,
        .reduce_mnz = CalcMNz,
        .shear = CalcShearZ,
        .exponents = ExponentsI,
        .enter = nullptr,
        .placed_axial = false,
        .shear_labels = true,
        .y_only = false,
        .tube_exponents = false,
    };
    ControlSection(in, section, resistances, forces, checks, kRoutines);
}

}  // namespace kestrum
