#include "design/p28bas_flat_bar.h"

#include "design/resistance.h"
#include "design/section_control.h"
#include "design/shear.h"

namespace kestrum {

namespace {

i16 ClassOne(ProjectState&, float, float)
{
    return 1;
}

// EN 1993-1-1, 6.2.8 (3). The whole bar carries the shear: the strip is a share of its modulus, so
// that full shear leaves exactly nothing, whatever the size.
void ReduceMyBar(ProjectState& s)
{
    const double strip = ShearReduction(s.vzed, s.vzrd) * s.wply;  // mm3
    s.myrdv = s.mplyrd - MomentResistance(s, strip);
}

// EN 1993-1-1, 6.2.9.1 (3), Eq (6.32).
//
// Deviation D177: the quotient is that of the two axial resistances in place of ned/nplrd. They are
// equal, so that nothing is left beside a compression: a moment then divides by zero and ends the
// pass, unless the linear form is asked for (checkconsercontrol). A tension leaves the moment
// resistance whole.
void CalcMNyBar(ProjectState& s)
{
    s.mnyrd = s.myrdv;
    if (s.ned > 0) {
        const double n = s.nplrd / s.ncrd;
        s.mnyrd = s.myrdv * (1 - n * n);
    }
}

}  // namespace

// EN 1993-1-1, 6.2.3 to 6.2.6. The shear resistance is the elastic one, 6.2.6 (4), of the parabola
// over the height.
//   in   h, tw [mm]; a [mm2]; wply, wplz [mm3]; fyk [MPa]; gammam0, gammam1 [-]
//   out  classes; nplrd, ncrd, vzrd .. vcyrd [kN]; mplyrd .. mzrd [kNm]; avz, avy [mm2]; shearnote
void CalcResistanceFlatBar(ProjectState& s)
{
    s.classn = s.classmy = s.classmz = 1;
    s.classflange = s.classweb = 1;

    s.nplrd = AxialResistance(s, s.a);
    s.ncrd = s.nplrd;
    s.mplyrd = MomentResistance(s, s.wply);
    s.mplzrd = MomentResistance(s, s.wplz);
    s.melyrd = s.meffyrd = MomentResistance(s, s.wely);
    s.melzrd = s.meffzrd = MomentResistance(s, s.welz);
    s.wyused = s.wply;
    s.wzused = s.wplz;
    s.myrd = s.mplyrd;
    s.mzrd = s.mplzrd;
    SetStabilityResistances(s);

    s.avz = s.avy = 1.0 * s.tw * s.h;
    s.vzrd = 1 / 1.5 * ShearResistance(s, s.avz);
    s.vplzrd = s.vplyrd = s.vyrd = s.vbrd = s.vcyrd = s.vzrd;
    s.shearnote = ")";
}

// EN 1993-1-1, 6.2, for N, My and Vz.
//
// Deviation D178: Mz and Vy are not controlled.
void ControlFlatBar(ProjectState& s)
{
    constexpr SectionRoutines kRoutines{
        .class_y = ClassOne,
        .class_z = nullptr,
        .reduce_my = ReduceMyBar,
        .reduce_mz = nullptr,
        .reduce_mny = CalcMNyBar,
        .reduce_mnz = nullptr,
        .shear = nullptr,
        .exponents = nullptr,
        .enter = nullptr,
        .placed_axial = false,
        .shear_labels = true,
        .y_only = true,
        .tube_exponents = false,
    };
    ControlSection(s, kRoutines);
}

}  // namespace kestrum
