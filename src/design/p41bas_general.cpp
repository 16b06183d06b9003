#include "design/p41bas_general.h"

#include "design/p01bas_rolled_i.h"
#include "design/resistance.h"
#include "design/section_control.h"

#include <algorithm>
#include <cmath>

namespace kestrum {

namespace {

// Deviation D173: the class entered for a moment also holds beside an axial force, and that for N
// plays no part; the standard's class is that under all forces, 5.5.2.
i16 ClassMy(ProjectState& s, float, float)
{
    return s.classmy;
}

i16 ClassMz(ProjectState& s, float, float)
{
    return s.classmz;
}

void ReduceMyGeneral(ProjectState& s)
{
    s.myrdv = s.myrd;
}

void ReduceMzGeneral(ProjectState& s)
{
    s.mzrdv = s.mzrd;
}

// EN 1993-1-1, 6.2.9.1 (4), (5), as for I sections.
//   in   ned, ncrd, nplrd [kN]; aweb, a [mm2]; myrdv [kNm]
//   out  mnyrd [kNm]; below 0 for ned beyond ncrd
//
// Deviation D180: the share of the web, aweb/a as entered, is not held at 0.5.
void CalcMNyGeneral(ProjectState& s)
{
    const double aw = 1.0 * s.aweb / s.a;
    const double n = std::abs(s.ned / s.ncrd);
    s.mnyrd = std::min(s.myrdv, s.myrdv * (1 - n) / (1 - 0.5 * aw));
    const double web = 0.5 * AxialResistance(s, s.aweb);
    if (std::abs(s.ned) <= web && std::abs(s.ned) <= 0.25 * s.nplrd) {
        s.mnyrd = s.myrdv;
    }
}

// The same about z.
//   out  mnzrd [kNm]
void CalcMNzGeneral(ProjectState& s)
{
    const double aw = 1.0 * s.aweb / s.a;
    const double n = std::abs(s.ned / s.ncrd);
    s.mnzrd = s.mzrdv;
    const double web = AxialResistance(s, 1.0 * s.hw * s.tw);
    if (n > aw && std::abs(s.ned) > web) {
        const double beyond = (n - aw) / (1 - aw);
        s.mnzrd = s.mzrdv * (1 - beyond * beyond);
    }
}

}  // namespace

// EN 1993-1-1, 6.2.3 to 6.2.6.
//   in   classes; a, aweb, aflange [mm2]; wply .. welz [mm3]; fyk [MPa]; gammam0, gammam1, neta
//   [-];
//        checkelastic
//   out  nplrd, ncrd, vzrd .. vcyrd [kN]; mplyrd .. mzrd [kNm]; avz, avy [mm2]; shearnote
void CalcResistanceGeneral(ProjectState& s)
{
    s.classflange = s.classweb = s.classn;
    s.nplrd = AxialResistance(s, s.a);
    s.ncrd = s.nplrd;
    s.mplyrd = MomentResistance(s, s.wply);
    s.mplzrd = MomentResistance(s, s.wplz);
    s.melyrd = s.meffyrd = MomentResistance(s, s.wely);
    s.melzrd = s.meffzrd = MomentResistance(s, s.welz);
    s.wyused = ModulusByClass(s, s.classmy, s.wply, s.wely, s.wely);
    s.wzused = ModulusByClass(s, s.classmz, s.wplz, s.welz, s.welz);
    s.myrd = MomentResistance(s, s.wyused);
    s.mzrd = MomentResistance(s, s.wzused);
    SetStabilityResistances(s);

    s.avz = 1.0 * s.aweb * s.neta;
    s.avy = s.aflange;
    s.vzrd = ShearResistance(s, s.avz);
    s.vyrd = ShearResistance(s, s.avy);
    s.vplzrd = s.vbrd = s.vzrd;
    s.vplyrd = s.vcyrd = s.vyrd;
    s.shearnote = ")";
}

// EN 1993-1-1, 6.2.
//
// Deviation D179: shear neither reduces the moments, 6.2.8, nor makes the web buckle, EN 1993-1-5,
// 5 (the web's thickness is not entered).
void ControlGeneral(ProjectState& s)
{
    constexpr SectionRoutines kRoutines{
        .class_y = ClassMy,
        .class_z = ClassMz,
        .reduce_my = ReduceMyGeneral,
        .reduce_mz = ReduceMzGeneral,
        .reduce_mny = CalcMNyGeneral,
        .reduce_mnz = CalcMNzGeneral,
        .shear = nullptr,
        .exponents = ExponentsI,
        .enter = nullptr,
        .placed_axial = false,
        .shear_labels = false,
        .y_only = false,
        .tube_exponents = false,
    };
    ControlSection(s, kRoutines);
}

}  // namespace kestrum
