#include "design/flat_bar_section.h"

#include "design/resistance.h"
#include "design/section_control.h"
#include "design/shear.h"

namespace kestrum {

namespace {

i16 ClassOne(const Inputs&, SectionRecord&, const SectionChecks&, float, float)
{
    return 1;
}

// EN 1993-1-1, 6.2.8 (3). The whole bar carries the shear: the strip is a share of its modulus, so
// that full shear leaves exactly nothing, whatever the size.
void ReduceMyBar(const Inputs& in, const SectionRecord& section, const Resistances& resistances,
                 const Forces&, SectionChecks& checks)
{
    const double strip = ShearReduction(checks.vzed, resistances.vzrd) * section.wply;  // mm3
    checks.myrdv = resistances.mplyrd - MomentResistance(in, strip);
}

// EN 1993-1-1, 6.2.9.1 (3), Eq (6.32).
//
// Deviation D177: the quotient is that of the two axial resistances in place of ned/nplrd. They are
// equal, so that nothing is left beside a compression: a moment then divides by zero and ends the
// pass, unless the linear form is asked for (checkconsercontrol). A tension leaves the moment
// resistance whole.
void CalcMNyBar(const Inputs&, const SectionRecord&, const Resistances& resistances,
                const Forces& forces, SectionChecks& checks)
{
    checks.mnyrd = checks.myrdv;
    if (forces.ned > 0) {
        const double n = resistances.nplrd / resistances.ncrd;
        checks.mnyrd = checks.myrdv * (1 - n * n);
    }
}

}  // namespace

// EN 1993-1-1, 6.2.3 to 6.2.6. The shear resistance is the elastic one, 6.2.6 (4), of the parabola
// over the height.
//   in   h, tw [mm]; a [mm2]; wply, wplz [mm3]; fyk [MPa]; gammam0, gammam1 [-]
//   out  classes; nplrd, ncrd, vzrd .. vcyrd [kN]; mplyrd .. mzrd [kNm]; avz, avy [mm2]; shearnote
void CalcResistanceFlatBar(const Inputs& in, SectionRecord& section, Resistances& resistances,
                           SectionChecks& checks)
{
    section.classn = section.classmy = section.classmz = 1;
    section.classflange = section.classweb = 1;

    resistances.nplrd = AxialResistance(in, section.a);
    resistances.ncrd = resistances.nplrd;
    resistances.mplyrd = MomentResistance(in, section.wply);
    resistances.mplzrd = MomentResistance(in, section.wplz);
    resistances.melyrd = resistances.meffyrd = MomentResistance(in, section.wely);
    resistances.melzrd = resistances.meffzrd = MomentResistance(in, section.welz);
    resistances.wyused = section.wply;
    resistances.wzused = section.wplz;
    resistances.myrd = resistances.mplyrd;
    resistances.mzrd = resistances.mplzrd;
    SetStabilityResistances(in, resistances);

    resistances.avz = resistances.avy = 1.0 * section.tw * section.h;
    resistances.vzrd = 1 / 1.5 * ShearResistance(in, resistances.avz);
    resistances.vplzrd = resistances.vplyrd = resistances.vyrd = resistances.vbrd =
        resistances.vcyrd = resistances.vzrd;
    checks.shearnote = ")";
}

// EN 1993-1-1, 6.2, for N, My and Vz.
//
// Deviation D178: Mz and Vy are not controlled.
void ControlFlatBar(const Inputs& in, SectionRecord& section, Resistances& resistances,
                    const Forces& forces, SectionChecks& checks, PassOutcome&)
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
    ControlSection(in, section, resistances, forces, checks, kRoutines);
}

}  // namespace kestrum
