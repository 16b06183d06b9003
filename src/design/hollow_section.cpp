#include "design/hollow_section.h"

#include "core/arithmetic_trap.h"
#include "design/class_hollow.h"
#include "design/i_section.h"
#include "design/local_buckling.h"
#include "design/resistance.h"
#include "design/section_control.h"
#include "design/shear.h"
#include "sections/families.h"

#include <algorithm>
#include <cmath>

namespace kestrum {

namespace {

// rho of a flange in uniform compression.
double FlangeRho(const Inputs& in, const SectionRecord& section)
{
    return in.checkflangebuck == kTrue
               ? 1.0
               : RhoInternal(PlateSlenderness(section.cflange, section.tf, section.eps, kInternal));
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
double EffectiveModulus(const SectionRecord& section, const BentBox& box)
{
    const double a = section.a, h = box.height, lost = box.lost;
    const double a2 = a - lost;
    const double zc = (h * a / 2 - lost * box.at) / a2;
    const double bc = zc - (h - box.c) / 2;  // compressed part of the bent walls

    double rho = 1;
    if (!box.no_buckling && box.c > 0) {
        const double psi = StressRatio(-(box.c - bc) / bc);
        rho = RhoInternal(PlateSlenderness(box.c, box.t, section.eps, KSigmaInternal(psi)), psi);
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

// Deviation D45: walls that buckle count with the area of 6.2.6, `area`; EN 1993-1-5, 5.2 (1) takes
// c t of both.
// Resistance to shear of two walls of clear width c and thickness t, EN 1993-1-1, 6.2.6 and EN
// 1993-1-5, 5.3 where they buckle. Stiffeners do not count in it (D158).
double WallShear(const Inputs& in, const SectionRecord& section, double c, double t, double area)
{
    if (StockyInShear(in, section, c, t)) {
        return ShearResistance(in, area);
    }
    const double chi = ChiWeb(in, WebSlenderness(section, c, t));
    return area * chi * ShearStrength(in) / in.gammam1 / 1000;
}

// Moment resistance of the class in use less that of the strip, kNm; strip: rho c^2 t of both walls
// in shear, mm3.
double MomentWithShear(const Inputs& in, const SectionChecks& checks, double strip, double mpl,
                       double mel, double meff)
{
    const bool plastic = checks.classmyuse <= 2 && in.checkelastic != kTrue;
    return ModulusByClass(in, checks.classmyuse, mpl, mel, meff) -
           MomentResistance(in, strip / (plastic ? 4 : 6));
}

// EN 1993-1-1, 6.2.9.1 (6).
//
// Deviation D171: beyond ned = 0.94 nplrd the exponent turns negative and passes on as it is; the
// standard's limit of 6 then gives 6.
void Exponents(const Resistances& resistances, const Forces& forces, SectionChecks& checks)
{
    const double n = forces.ned / resistances.nplrd;
    const double exponent = 1.66 / (1 - 1.13 * n * n);
    checks.alfaexp = exponent > 6 ? 6.0 : exponent;
    checks.betaexp = checks.alfaexp;
}

}  // namespace

// EN 1993-1-5, 4.4.
//   in   section record; eps [-]; checkflangebuck, checkwebbuck
//   out  aeff [mm2]; weffy, weffz [mm3]
//
// Deviation D169: the flange of a box beyond the webs keeps its full width; the standard reduces it
// as an outstand.
void CalcEffectiveHollow(const Inputs& in, SectionRecord& section)
{
    const double rhof = FlangeRho(in, section), rhow = WebRho(in, section);
    const double flange =
        (1 - rhof) * section.cflange * section.tf;  // lost in one flange, in one web, mm2
    const double web = (1 - rhow) * section.d * section.tw;
    section.aeff = F32(section.a - 2 * flange - 2 * web);
    section.weffy = F32(EffectiveModulus(section, {.height = section.h,
                                                   .inertia = section.iy,
                                                   .lost = flange,
                                                   .at = section.tf / 2.0,
                                                   .wall = section.tf,
                                                   .c = section.d,
                                                   .t = section.tw,
                                                   .no_buckling = in.checkwebbuck == kTrue}));
    section.weffz = F32(EffectiveModulus(section, {.height = section.b,
                                                   .inertia = section.iz,
                                                   .lost = web,
                                                   .at = section.bo + section.tw / 2.0,
                                                   .wall = section.tw,
                                                   .c = section.cflange,
                                                   .t = section.tf,
                                                   .no_buckling = in.checkflangebuck == kTrue}));
}

// EN 1993-1-1, 6.2.3 to 6.2.6.
//   in   section record; fyk [MPa]; gammam0, gammam1 [-]
//   out  classes; nplrd, ncrd, vzrd, vyrd, vplzrd, vplyrd [kN]; mplyrd .. mzrd, mfrd, mfzrd [kNm]
//
// Deviation D29: the shear areas of the box have no factor eta; the standard has eta hw tw for each
// web of a welded section, 6.2.6 (3).
void CalcResistanceHollow(const Inputs& in, SectionRecord& section, Resistances& resistances,
                          SectionChecks& checks)
{
    const double a = section.a, h = section.h, b = section.b, tf = section.tf;
    resistances.mfrd = MomentResistance(in, (h - tf) * tf * b);
    resistances.mfzrd = MomentResistance(in, (b * b / 4 + b * b / 4) * tf);
    SetMomentResistances(in, section, resistances);

    section.classn =
        CalcClassHollowY(in, section, checks, 10, 0);  // the size of 10 only picks the case
    section.classmy = CalcClassHollowY(in, section, checks, 0, 10);
    section.classmz = CalcClassHollowZ(in, section, checks, 0, 10);

    resistances.nplrd = AxialResistance(in, a);
    resistances.ncrd = section.classn == 4 ? AxialResistance(in, section.aeff) : resistances.nplrd;
    resistances.wyused =
        ModulusByClass(in, section.classmy, section.wply, section.wely, section.weffy);
    resistances.wzused =
        ModulusByClass(in, section.classmz, section.wplz, section.welz, section.weffz);
    resistances.myrd = MomentResistance(in, resistances.wyused);
    resistances.mzrd = MomentResistance(in, resistances.wzused);
    SetStabilityResistances(in, resistances);

    const bool box = Traits(in).design.shear_area == ShearArea::web;
    resistances.avz = box ? 2.0 * section.hw * section.tw : h / (h + b) * a;
    resistances.avy = box ? 2.0 * section.bw * tf : b / (h + b) * a;
    resistances.vzrd = WallShear(in, section, section.hw, section.tw, resistances.avz);
    resistances.vyrd = WallShear(in, section, section.bw, section.tf, resistances.avy);
    resistances.vplzrd = ShearResistance(in, resistances.avz);
    resistances.vplyrd = ShearResistance(in, resistances.avy);
}

// EN 1993-1-5, 5.2 and 5.3.
//   in   hw, bw, tw, tf, webstiffa [mm]; avz, avy [mm2]; vzrd, vyrd [kN]
//   out  vbrd, vcyrd [kN]; shearnote (of Vz)
//
// Deviation D172: vcyrd of flanges that buckle in shear rests on gammaM0, where EN 1993-1-5, 5.2
// (1) takes gammaM1, and its upper limit counts the thickness of the webs, not of the flanges.
//
// Deviation D174: the walls beside add nothing to vbrd and vcyrd; 5.4 allows a part of theirs.
void CalcShearHollow(const Inputs& in, const SectionRecord& section, Resistances& resistances,
                     const Forces&, SectionChecks& checks)
{
    const double tau = ShearStrength(in);
    resistances.vbrd = resistances.vzrd;
    checks.shearnote = ")";
    if (!StockyInShear(in, section, section.hw, section.tw)) {
        checks.shearnote = " Support stiffener recommended)";
        const double chi =
            ChiWebEndPost(in, WebSlendernessStiffened(in, section, section.hw, section.tw));
        const double most = 2 * (in.neta * tau * section.hw * section.tw / in.gammam1 / 1000);
        resistances.vbrd = std::min(chi * resistances.avz * tau / in.gammam1 / 1000, most);
    }
    resistances.vcyrd = resistances.vyrd;
    if (!StockyInShear(in, section, section.bw, section.tf)) {
        const double chi =
            ChiWebEndPost(in, WebSlendernessStiffened(in, section, section.bw, section.tf));
        const double most = 2 * (in.neta * tau * section.bw * section.tw / in.gammam1 / 1000);
        resistances.vcyrd = std::min(chi * resistances.avy * tau / in.gammam0 / 1000, most);
    }
    if (in.checkwebbuck == kTrue) {
        resistances.vbrd = resistances.vplzrd;
        resistances.vcyrd = resistances.vplyrd;
    }
}

// EN 1993-1-1, 6.2.8 (3): both webs lose rho of their part of the modulus.
//   in   classmyuse; vzed, vzrd [kN]; mplyrd, melyrd, meffyrd, myrd [kNm]
//   out  myrdv [kNm]
void ReduceMyHollow(const Inputs& in, const SectionRecord& section, const Resistances& resistances,
                    const Forces&, SectionChecks& checks)
{
    const double strip = 1.0 * section.hw * section.hw * 2 *
                         ShearReduction(checks.vzed, resistances.vzrd) * section.tw;
    checks.myrdv =
        std::min(resistances.myrd, MomentWithShear(in, checks, strip, resistances.mplyrd,
                                                   resistances.melyrd, resistances.meffyrd));
}

// The same about z with both flanges.
//   in   classmyuse; vyed, vyrd [kN]; mplzrd, melzrd, meffzrd, mzrd [kNm]
//   out  mzrdv [kNm]
void ReduceMzHollow(const Inputs& in, const SectionRecord& section, const Resistances& resistances,
                    const Forces&, SectionChecks& checks)
{
    const double strip = 1.0 * section.bw * section.bw * 2 *
                         ShearReduction(checks.vyed, resistances.vyrd) * section.tf;
    checks.mzrdv =
        std::min(resistances.mzrd, MomentWithShear(in, checks, strip, resistances.mplzrd,
                                                   resistances.melzrd, resistances.meffzrd));
}

// EN 1993-1-1, 6.2.9.1 (5), Eq (6.39).
//   in   ned, nplrd [kN]; myrdv [kNm]
//   out  mnyrd [kNm]; below 0 for ned beyond nplrd
//
// Deviation D170: the area of the flanges is 2 b tw for the box too; the standard takes 2 b tf,
// which gives less where the flanges are thicker than the webs.
void CalcMNyHollow(const Inputs&, const SectionRecord& section, const Resistances& resistances,
                   const Forces& forces, SectionChecks& checks)
{
    const double aw = std::min((section.a - 2.0 * section.b * section.tw) / section.a, 0.5);
    const double n = std::abs(forces.ned / resistances.nplrd);
    checks.mnyrd = std::min(checks.myrdv, checks.myrdv * (1 - n) / (1 - 0.5 * aw));
}

// EN 1993-1-1, 6.2.9.1 (5), Eq (6.40).
//   in   ned, nplrd [kN]; mzrdv [kNm]
//   out  mnzrd [kNm]; below 0 for ned beyond nplrd
void CalcMNzHollow(const Inputs&, const SectionRecord& section, const Resistances& resistances,
                   const Forces& forces, SectionChecks& checks)
{
    const double af = std::min((section.a - 2.0 * section.h * section.tw) / section.a, 0.5);
    const double n = std::abs(forces.ned / resistances.nplrd);
    checks.mnzrd = std::min(checks.mzrdv, checks.mzrdv * (1 - n) / (1 - 0.5 * af));
}

// EN 1993-1-1, 6.2. Shear and the classes of single moments enter the combinations as in I sections
// (D151, D153).
void ControlHollow(const Inputs& in, SectionRecord& section, Resistances& resistances,
                   const Forces& forces, SectionChecks& checks, PassOutcome&)
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
    ControlSection(in, section, resistances, forces, checks, kRoutines);
}

}  // namespace kestrum
