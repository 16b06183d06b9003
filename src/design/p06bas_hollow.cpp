#include "design/p06bas_hollow.h"

#include "core/arithmetic_trap.h"
#include "design/class_hollow.h"
#include "design/local_buckling.h"
#include "design/p01bas_rolled_i.h"
#include "design/resistance.h"
#include "design/section_control.h"
#include "design/shear.h"
#include "sections/families.h"

#include <algorithm>
#include <cmath>

namespace kestrum {

namespace {

// rho of a flange in uniform compression.
double FlangeRho(const ProjectState& s)
{
    return s.checkflangebuck == kTrue
               ? 1.0
               : RhoInternal(PlateSlenderness(s.cflange, s.tf, s.eps, kInternal));
}

// A closed section bent about one axis. Lengths mm, from the compressed edge.
struct BentBox {
    double height;     // in the plane of bending
    double inertia;    // mm4
    double lost;       // area that buckles from the compressed wall, mm2
    double at;         // its distance
    double wall;       // thickness of that wall
    double c;          // straight length of each bent wall
    double t;          // thickness of each bent wall
    bool no_buckling;  // of the bent walls
};

// EN 1993-1-5, 4.4 and Table 4.1: the compressed wall loses its part first, and the stress ratio of
// the bent walls is that of the section without it.
double EffectiveModulus(const ProjectState& s, const BentBox& box)
{
    const double a = s.a, h = box.height, lost = box.lost;
    const double a2 = a - lost;
    const double zc = (h * a / 2 - lost * box.at) / a2;
    const double bc = zc - (h - box.c) / 2;  // compressed part of the bent walls

    double rho = 1;
    if (!box.no_buckling && box.c > 0) {
        const double psi = StressRatio(-(box.c - bc) / bc);
        rho = RhoInternal(PlateSlenderness(box.c, box.t, s.eps, KSigmaInternal(psi)), psi);
    }
    const double w = (1 - rho) * bc;
    const double t2 = 2 * box.t;  // both bent walls
    const double aw = w * t2;
    const double zw = zc - 0.6 * rho * bc - w / 2;
    const double a3 = a2 - aw;
    const double z = (h * a / 2 - aw * zw - lost * box.at) / a3;
    const double edge = h * h * a / 4 + box.inertia - t2 * w * w * w / 12 - aw * zw * zw -
                        lost * box.wall * box.wall / 12 -
                        lost * box.at * box.at;  // about the edge, mm4
    return (edge - a3 * z * z) / z;
}

// Resistance to shear of two walls of clear width c and thickness t, EN 1993-1-1, 6.2.6 and EN
// 1993-1-5, 5.3 where they buckle. Stiffeners do not count in it (D158).
double WallShear(const ProjectState& s, double c, double t, double area)
{
    if (StockyInShear(s, c, t)) {
        return ShearResistance(s, area);
    }
    const double chi = ChiWeb(s, WebSlenderness(s, c, t));
    return area * chi * ShearStrength(s) / s.gammam1 / 1000;
}

// Moment resistance of the class in use less that of the strip, kNm; strip: rho c^2 t of both walls
// in shear, mm3.
double MomentWithShear(const ProjectState& s, double strip, double mpl, double mel, double meff)
{
    const bool plastic = s.classmyuse <= 2 && s.checkelastic != kTrue;
    return ModulusByClass(s, s.classmyuse, mpl, mel, meff) -
           MomentResistance(s, strip / (plastic ? 4 : 6));
}

// EN 1993-1-1, 6.2.9.1 (6).
//
// Deviation D171: beyond ned = 0.94 nplrd the exponent turns negative and passes on as it is; the
// standard's limit of 6 then gives 6.
void Exponents(ProjectState& s)
{
    const double n = s.ned / s.nplrd;
    const double exponent = 1.66 / (1 - 1.13 * n * n);
    s.alfaexp = exponent > 6 ? 6.0 : exponent;
    s.betaexp = s.alfaexp;
}

}  // namespace

// EN 1993-1-5, 4.4.
//   in   section record; eps [-]; checkflangebuck, checkwebbuck
//   out  aeff [mm2]; weffy, weffz [mm3]
//
// Deviation D169: the flange of a box beyond the webs keeps its full width; the standard reduces it
// as an outstand.
void CalcEffectiveHollow(ProjectState& s)
{
    const double rhof = FlangeRho(s), rhow = WebRho(s);
    const double flange = (1 - rhof) * s.cflange * s.tf;  // lost in one flange, in one web, mm2
    const double web = (1 - rhow) * s.d * s.tw;
    s.aeff = F32(s.a - 2 * flange - 2 * web);
    s.weffy = F32(EffectiveModulus(s, {.height = s.h,
                                       .inertia = s.iy,
                                       .lost = flange,
                                       .at = s.tf / 2.0,
                                       .wall = s.tf,
                                       .c = s.d,
                                       .t = s.tw,
                                       .no_buckling = s.checkwebbuck == kTrue}));
    s.weffz = F32(EffectiveModulus(s, {.height = s.b,
                                       .inertia = s.iz,
                                       .lost = web,
                                       .at = s.bo + s.tw / 2.0,
                                       .wall = s.tw,
                                       .c = s.cflange,
                                       .t = s.tf,
                                       .no_buckling = s.checkflangebuck == kTrue}));
}

// EN 1993-1-1, 6.2.3 to 6.2.6.
//   in   section record; fyk [MPa]; gammam0, gammam1 [-]
//   out  classes; nplrd, ncrd, vzrd, vyrd, vplzrd, vplyrd [kN]; mplyrd .. mzrd, mfrd, mfzrd [kNm]
//
// Deviation D29: the shear areas of the box have no factor eta; the standard has eta hw tw for each
// web of a welded section, 6.2.6 (3).
void CalcResistanceHollow(ProjectState& s)
{
    const double a = s.a, h = s.h, b = s.b, tf = s.tf;
    s.mfrd = MomentResistance(s, (h - tf) * tf * b);
    s.mfzrd = MomentResistance(s, (b * b / 4 + b * b / 4) * tf);
    s.mplyrd = MomentResistance(s, s.wply);
    s.melyrd = MomentResistance(s, s.wely);
    s.meffyrd = MomentResistance(s, s.weffy);
    s.mplzrd = MomentResistance(s, s.wplz);
    s.melzrd = MomentResistance(s, s.welz);
    s.meffzrd = MomentResistance(s, s.weffz);

    s.classn = CalcClassHollowY(s, 10, 0);  // the size of 10 only picks the case
    s.classmy = CalcClassHollowY(s, 0, 10);
    s.classmz = CalcClassHollowZ(s, 0, 10);

    s.nplrd = AxialResistance(s, a);
    s.ncrd = s.classn == 4 ? AxialResistance(s, s.aeff) : s.nplrd;
    s.wyused = ModulusByClass(s, s.classmy, s.wply, s.wely, s.weffy);
    s.wzused = ModulusByClass(s, s.classmz, s.wplz, s.welz, s.weffz);
    s.myrd = MomentResistance(s, s.wyused);
    s.mzrd = MomentResistance(s, s.wzused);
    SetStabilityResistances(s);

    const bool box = Traits(s).design.shear_area == ShearArea::web;
    s.avz = box ? 2.0 * s.hw * s.tw : h / (h + b) * a;
    s.avy = box ? 2.0 * s.bw * tf : b / (h + b) * a;
    s.vzrd = WallShear(s, s.hw, s.tw, s.avz);
    s.vyrd = WallShear(s, s.bw, s.tf, s.avy);
    s.vplzrd = ShearResistance(s, s.avz);
    s.vplyrd = ShearResistance(s, s.avy);
}

// EN 1993-1-5, 5.2 and 5.3.
//   in   hw, bw, tw, tf, webstiffa [mm]; avz, avy [mm2]; vzrd, vyrd [kN]
//   out  vbrd, vcyrd [kN]; shearnote (of Vz)
//
// Deviation D172: vcyrd of flanges that buckle in shear rests on gammaM0, where EN 1993-1-5, 5.2
// (1) takes gammaM1, and its upper limit counts the thickness of the webs, not of the flanges.
//
// Deviation D174: the walls beside add nothing to vbrd and vcyrd; 5.4 allows a part of theirs.
void CalcShearHollow(ProjectState& s)
{
    const double tau = ShearStrength(s);
    s.vbrd = s.vzrd;
    s.shearnote = ")";
    if (!StockyInShear(s, s.hw, s.tw)) {
        s.shearnote = " Support stiffener recommended)";
        const double chi = ChiWebEndPost(s, WebSlendernessStiffened(s, s.hw, s.tw));
        const double most = 2 * (s.neta * tau * s.hw * s.tw / s.gammam1 / 1000);
        s.vbrd = std::min(chi * s.avz * tau / s.gammam1 / 1000, most);
    }
    s.vcyrd = s.vyrd;
    if (!StockyInShear(s, s.bw, s.tf)) {
        const double chi = ChiWebEndPost(s, WebSlendernessStiffened(s, s.bw, s.tf));
        const double most = 2 * (s.neta * tau * s.bw * s.tw / s.gammam1 / 1000);
        s.vcyrd = std::min(chi * s.avy * tau / s.gammam0 / 1000, most);
    }
    if (s.checkwebbuck == kTrue) {
        s.vbrd = s.vplzrd;
        s.vcyrd = s.vplyrd;
    }
}

// EN 1993-1-1, 6.2.8 (3): both webs lose rho of their part of the modulus.
//   in   classmyuse; vzed, vzrd [kN]; mplyrd, melyrd, meffyrd, myrd [kNm]
//   out  myrdv [kNm]
void ReduceMyHollow(ProjectState& s)
{
    const double strip = 1.0 * s.hw * s.hw * 2 * ShearReduction(s.vzed, s.vzrd) * s.tw;
    s.myrdv = std::min(s.myrd, MomentWithShear(s, strip, s.mplyrd, s.melyrd, s.meffyrd));
}

// The same about z with both flanges.
//   in   classmyuse; vyed, vyrd [kN]; mplzrd, melzrd, meffzrd, mzrd [kNm]
//   out  mzrdv [kNm]
void ReduceMzHollow(ProjectState& s)
{
    const double strip = 1.0 * s.bw * s.bw * 2 * ShearReduction(s.vyed, s.vyrd) * s.tf;
    s.mzrdv = std::min(s.mzrd, MomentWithShear(s, strip, s.mplzrd, s.melzrd, s.meffzrd));
}

// EN 1993-1-1, 6.2.9.1 (5), Eq (6.39).
//   in   ned, nplrd [kN]; myrdv [kNm]
//   out  mnyrd [kNm]; below 0 for ned beyond nplrd
//
// Deviation D170: the area of the flanges is 2 b tw for the box too; the standard takes 2 b tf,
// which gives less where the flanges are thicker than the webs.
void CalcMNyHollow(ProjectState& s)
{
    const double aw = std::min((s.a - 2.0 * s.b * s.tw) / s.a, 0.5);
    const double n = std::abs(s.ned / s.nplrd);
    s.mnyrd = std::min(s.myrdv, s.myrdv * (1 - n) / (1 - 0.5 * aw));
}

// EN 1993-1-1, 6.2.9.1 (5), Eq (6.40).
//   in   ned, nplrd [kN]; mzrdv [kNm]
//   out  mnzrd [kNm]; below 0 for ned beyond nplrd
void CalcMNzHollow(ProjectState& s)
{
    const double af = std::min((s.a - 2.0 * s.h * s.tw) / s.a, 0.5);
    const double n = std::abs(s.ned / s.nplrd);
    s.mnzrd = std::min(s.mzrdv, s.mzrdv * (1 - n) / (1 - 0.5 * af));
}

// EN 1993-1-1, 6.2. Shear and the classes of single moments enter the combinations as in I sections
// (D151, D153).
void ControlHollow(ProjectState& s)
{
    constexpr SectionRoutines kRoutines{
        .class_y = CalcClassHollowY,
        .class_z = CalcClassHollowZ,
        .reduce_my = ReduceMyHollow,
        .reduce_mz = ReduceMzHollow,
        .reduce_mny = CalcMNyHollow,
        .reduce_mnz = CalcMNzHollow,
        .shear = CalcShearHollow,
        .exponents = Exponents,
        .enter = nullptr,
        .placed_axial = true,
        .shear_labels = true,
        .y_only = false,
        .tube_exponents = false,
    };
    ControlSection(s, kRoutines);
}

}  // namespace kestrum
