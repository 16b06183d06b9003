#include "design/p01bas_rolled_i.h"

#include "core/arithmetic_trap.h"
#include "design/class_i.h"
#include "design/local_buckling.h"
#include "design/section_control.h"
#include "design/shear.h"
#include "sections/families.h"

#include <algorithm>
#include <cmath>

namespace kestrum {

namespace {

// Shear yield stress, MPa.
double ShearYield(const ProjectState& s)
{
    return s.fyk / std::sqrt(3.0);
}

// Moment resistance in kNm of a modulus in mm3.
double Moment(const ProjectState& s, double w)
{
    return w * s.fyk / s.gammam0 / 1e6;
}

bool Plastic(const ProjectState& s, i16 cls)
{
    return cls <= 2 && s.checkelastic != kTrue;
}

// Shear area of a web that does not buckle, EN 1993-1-1, 6.2.6 (3), mm2.
double PlasticShearArea(const ProjectState& s)
{
    const double a = s.a, b = s.b, tf = s.tf, tw = s.tw, r = s.r;
    const double least = 1.0 * s.neta * s.hw * tw;
    switch (Traits(s).design.shear_area) {
    case ShearArea::channel:
        return a - 2 * b * tf + (tw + r) * tf;
    case ShearArea::web:
        return least;
    default:
        return std::max(a - 2 * b * tf + (tw + 2 * r) * tf, least);
    }
}

// Share of the area that is web, held at one half, EN 1993-1-1, 6.2.9.1 (5).
double WebShare(const ProjectState& s)
{
    return std::min((s.a - 2.0 * s.b * s.tf) / s.a, 0.5);
}

// Weff about z: both flange tips on the compressed side lose g, mm.
//
// Deviation D160: the modulus is that of the tension edge, the nearer one; the standard takes the
// compressed edge, further off as the centroid moves away from it.
double EffectiveModulusZ(const ProjectState& s)
{
    const double a = s.a, b = s.b, tf = s.tf;
    const double g = (1 - OutstandRho(s, kOutstandBending)) * s.cflange;
    const double strip = 2 * tf * g;
    const double y = b - g / 2;  // of the strips, from the tension edge
    const double rest = a - strip;
    const double z = (b * a / 2 - strip * y) / rest;
    const double i = b * b * a / 4 + s.iz - 2 * tf * g * g * g / 12 - strip * y * y - rest * z * z;
    return i / z;
}

}  // namespace

double OutstandRho(const ProjectState& s, double k)
{
    return s.checkflangebuck == kTrue ? 1.0
                                      : RhoOutstand(PlateSlenderness(s.cflange, s.tf, s.eps, k));
}

double WebRho(const ProjectState& s)
{
    return s.checkwebbuck == kTrue ? 1.0
                                   : RhoInternal(PlateSlenderness(s.d, s.tw, s.eps, kInternal));
}

// EN 1993-1-5, 4.4 and Table 4.1. Distances from the compressed edge, mm; the flange is lost first,
// and the stress ratio of the web is that of the section without it.
double EffectiveModulusY(const ProjectState& s, double lost)
{
    const double a = s.a, h = s.h, tw = s.tw, tf = s.tf, d = s.d;
    const double a2 = a - lost;
    const double zc = (h * a / 2 - lost * tf / 2) / a2;
    const double bc = zc - tf - s.r;  // compressed part of the web

    double rho = 1;
    if (s.checkwebbuck != kTrue && d > 0) {
        const double psi = StressRatio(-(d - bc) / bc);
        rho = RhoInternal(PlateSlenderness(d, tw, s.eps, KSigmaInternal(psi)), psi);
    }
    const double w = (1 - rho) * bc;
    const double aw = w * tw;
    const double zw = zc - 0.6 * rho * bc - w / 2;
    const double a3 = a2 - aw;
    const double z = (h * a / 2 - aw * zw - lost * tf / 2) / a3;
    const double edge = h * h * a / 4 + s.iy - tw * w * w * w / 12 - aw * zw * zw -
                        lost * tf * tf / 12 - lost * (tf / 2) * (tf / 2);  // about the edge, mm4
    return (edge - a3 * z * z) / z;
}

void CalcEffectiveI(ProjectState& s)
{
    const double lost = 2 * (1 - OutstandRho(s, kOutstand)) * s.cflange * s.tf;  // one flange, mm2
    s.aeff = F32(s.a - 2 * lost - (1 - WebRho(s)) * s.d * s.tw);
    s.weffy = F32(EffectiveModulusY(s, lost));
    s.weffz = F32(EffectiveModulusZ(s));
}

double ModulusByClass(const ProjectState& s, i16 cls, double wpl, double wel, double weff)
{
    if (Plastic(s, cls)) {
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
void CalcVzrd(ProjectState& s, double area)
{
    if (StockyInShear(s, s.hw, s.tw)) {
        s.avz = area;
        s.vzrd = s.avz * ShearYield(s) / s.gammam0 / 1000;
    } else {
        s.avz = 1.0 * s.tw * s.hw;
        const double chi = ChiWeb(s, WebSlenderness(s, s.hw, s.tw));
        s.vzrd = s.avz * chi * ShearYield(s) / s.gammam1 / 1000;
    }
    s.vplzrd = s.avz * ShearYield(s) / s.gammam0 / 1000;
}

// EN 1993-1-1, 6.2.3 to 6.2.6.
//   in   section record; fyk [MPa]; gammam0, gammam1 [-]
//   out  classes; nplrd, ncrd, vzrd, vyrd [kN]; mplyrd .. mzrd, mfrd, mfzrd [kNm]
void CalcResistanceI(ProjectState& s)
{
    const double h = s.h, b = s.b, tf = s.tf;
    s.mfrd = (h - tf) * tf * b * s.fyk / s.gammam0 / 1e6;
    s.mfzrd = (b * b / 4 + b * b / 4) * tf * s.fyk / s.gammam0 / 1e6;
    s.mplyrd = Moment(s, s.wply);
    s.melyrd = Moment(s, s.wely);
    s.meffyrd = Moment(s, s.weffy);
    s.mplzrd = Moment(s, s.wplz);
    s.melzrd = Moment(s, s.welz);
    s.meffzrd = Moment(s, s.weffz);

    s.classn = CalcClassY(s, 10, 0);
    s.classmy = CalcClassY(s, 0, 10);
    s.classmz = CalcClassZ(s, 0, 10);

    s.nplrd = 1.0 * s.a * s.fyk / s.gammam0 / 1000;
    s.ncrd = (s.classn == 4 ? 1.0 * s.aeff : 1.0 * s.a) * s.fyk / s.gammam0 / 1000;
    s.wyused = ModulusByClass(s, s.classmy, s.wply, s.wely, s.weffy);
    s.wzused = ModulusByClass(s, s.classmz, s.wplz, s.welz, s.weffz);
    s.myrd = Moment(s, s.wyused);
    s.mzrd = Moment(s, s.wzused);
    s.nrdm1 = s.ncrd * s.gammam0 / s.gammam1;
    s.myrdm1 = s.myrd * s.gammam0 / s.gammam1;
    s.mzrdm1 = s.mzrd * s.gammam0 / s.gammam1;

    CalcVzrd(s, PlasticShearArea(s));
    s.avy = 2 * b * tf;
    s.vyrd = s.avy * ShearYield(s) / s.gammam0 / 1000;
}

// EN 1993-1-5, 5.2 to 5.4.
//   in   hw, tw, b, tf, webstiffa [mm]; ned [kN]; myed, mfrd [kNm]; vzrd [kN]
//   out  vbrd [kN]; avz [mm2]; shearnote
//
// Deviation D154: each call reduces the moment of the flanges, mfrd, for the axial force in place,
// with ned in kN against a resistance in N, so that it hardly falls; EN 1993-1-5, 5.4 (2) compares
// like with like, once.
void CalcVbrd(ProjectState& s)
{
    s.vbrd = s.vzrd;
    s.shearnote = ")";
    if (!StockyInShear(s, s.hw, s.tw)) {
        s.shearnote = " Support stiffener recommended)";
        const double hw = s.hw, tw = s.tw, b = s.b, tf = s.tf;
        s.avz = tw * hw;
        const double chi = ChiWebEndPost(s, WebSlendernessStiffened(s, hw, tw));
        const double web = chi * s.avz * ShearYield(s) / s.gammam1 / 1000;
        s.mfrd *= 1 - std::abs(s.ned) / (2 * b * tf * s.fyk / s.gammam0);
        const double most = s.neta * hw * tw * ShearYield(s) / s.gammam1 / 1000;
        s.vbrd = std::min(web + FlangeShear(s, hw, tw, b, tf), most);
    }
    if (s.checkwebbuck == kTrue) {
        s.vbrd = s.vplzrd;
    }
}

// EN 1993-1-1, 6.2.6; about y the two flanges.
//   out  vbrd, vcyrd [kN]; avz, avy [mm2]; shearnote
//
// Deviation D152: the ratio of Vy divides by vcyrd = vyrd/1.5, the parabola of the shear stress in
// a flange, while the half-resistance test takes vyrd; the standard has the plastic value for both.
void CalcShearZ(ProjectState& s)
{
    CalcVbrd(s);
    s.avy = 2.0 * s.b * s.tf;
    s.vcyrd = 1 / 1.5 * s.avy * ShearYield(s) / s.gammam0 / 1000;
}

// EN 1993-1-1, 6.2.8 (5), Eq (6.30): the web loses rho of its part of the modulus.
//   in   classmyuse; vzed, vzrd [kN]; mplyrd, melyrd, meffyrd, myrd [kNm]
//   out  myrdv [kNm]
void ReduceMy(ProjectState& s)
{
    const double strip = 1.0 * s.hw * s.hw * s.tw * ShearReduction(s.vzed, s.vzrd);  // mm3
    if (Plastic(s, s.classmyuse)) {
        s.myrdv = s.mplyrd - Moment(s, strip / 4);
    } else {
        s.myrdv = (s.classmyuse == 4 ? s.meffyrd : s.melyrd) - Moment(s, strip / 6);
    }
    s.myrdv = std::min(s.myrdv, s.myrd);
}

// The same about z, where the flanges take the shear.
//   in   classmyuse; vyed, vyrd [kN]; mplzrd, melzrd, meffzrd, mzrd [kNm]
//   out  mzrdv [kNm]
//
// Deviation D161: the strip is that of one flange, b^2 tf rho/4; by 6.2.8 (3) both flanges, which
// make up the shear area, have the reduced yield strength: b^2 tf rho/2.
void ReduceMz(ProjectState& s)
{
    const double strip = 1.0 * s.b * s.b * s.tf * ShearReduction(s.vyed, s.vyrd);  // mm3
    if (Plastic(s, s.classmyuse)) {
        s.mzrdv = s.mplzrd - Moment(s, strip / 4);
    } else {
        s.mzrdv = (s.classmyuse == 4 ? s.meffzrd : s.melzrd) - Moment(s, strip / 6);
    }
    s.mzrdv = std::min(s.mzrdv, s.mzrd);
}

// EN 1993-1-1, 6.2.9.1 (4), Eq (6.33), (6.34); (5), Eq (6.36).
//   in   ned, nplrd [kN]; myrdv [kNm]
//   out  mnyrd [kNm]; below 0 for ned beyond nplrd
void CalcMNy(ProjectState& s)
{
    const double n = std::abs(s.ned / s.nplrd);
    s.mnyrd = std::min(s.myrdv, s.myrdv * (1 - n) / (1 - 0.5 * WebShare(s)));
    const double web = 0.5 * s.hw * s.tw * s.fyk / s.gammam0 / 1000;  // kN
    if (std::abs(s.ned) <= web && std::abs(s.ned) <= 0.25 * s.nplrd) {
        s.mnyrd = s.myrdv;
    }
}

// EN 1993-1-1, 6.2.9.1 (4), Eq (6.35); (5), Eq (6.37), (6.38).
//   in   ned, nplrd [kN]; mzrdv [kNm]
//   out  mnzrd [kNm]
void CalcMNz(ProjectState& s)
{
    const double n = std::abs(s.ned / s.nplrd);
    const double aw = WebShare(s);
    s.mnzrd = s.mzrdv;
    const double web = 1.0 * s.hw * s.tw * s.fyk / s.gammam0 / 1000;  // kN
    if (n > aw && std::abs(s.ned) > web) {
        const double beyond = (n - aw) / (1 - aw);
        s.mnzrd = s.mzrdv * (1 - beyond * beyond);
    }
}

// Deviation D151: the exponents go with moment resistances reduced for shear by 6.2.8; the standard
// reduces the yield strength of the shear area before axial force and biaxial bending, 6.2.10 (3).
void ExponentsI(ProjectState& s)
{
    s.alfaexp = 2;
    s.betaexp = std::max(1.0, 5 * std::abs(s.ned / s.nplrd));
}

// EN 1993-1-1, 6.2.
//
// Deviation D153: moments alone and both moments together keep the classes of the single moments;
// the class under N and M enters the combinations with N only. The standard classifies the section
// under all its forces, 5.5.2.
void ControlRolledI(ProjectState& s)
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
    ControlSection(s, kRoutines);
}

}  // namespace kestrum
