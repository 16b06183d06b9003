#include "design/general_section.h"

#include "design/i_section.h"
#include "design/resistance.h"
#include "design/section_control.h"

#include <algorithm>
#include <cmath>

namespace kestrum {

namespace {

// Deviation D173: the class entered for a moment also holds beside an axial force, and that for N
// plays no part; the standard's class is that under all forces, 5.5.2.
i16 ClassMy(const Inputs&, SectionRecord& section, const SectionChecks&, float, float)
{
    return section.classmy;
}

i16 ClassMz(const Inputs&, SectionRecord& section, const SectionChecks&, float, float)
{
    return section.classmz;
}

void ReduceMyGeneral(const Inputs&, const SectionRecord&, const Resistances& resistances,
                     const Forces&, SectionChecks& checks)
{
    checks.myrdv = resistances.myrd;
}

void ReduceMzGeneral(const Inputs&, const SectionRecord&, const Resistances& resistances,
                     const Forces&, SectionChecks& checks)
{
    checks.mzrdv = resistances.mzrd;
}

// EN 1993-1-1, 6.2.9.1 (4), (5), as for I sections.
//   in   ned, ncrd, nplrd [kN]; aweb, a [mm2]; myrdv [kNm]
//   out  mnyrd [kNm]; below 0 for ned beyond ncrd
//
// Deviation D180: the share of the web, aweb/a as entered, is not held at 0.5.
void CalcMNyGeneral(const Inputs& in, const SectionRecord& section, const Resistances& resistances,
                    const Forces& forces, SectionChecks& checks)
{
    const double aw = 1.0 * section.aweb / section.a;
    const double n = std::abs(forces.ned / resistances.ncrd);
    checks.mnyrd = std::min(checks.myrdv, checks.myrdv * (1 - n) / (1 - 0.5 * aw));
    const double web = 0.5 * AxialResistance(in, section.aweb);
    if (std::abs(forces.ned) <= web && std::abs(forces.ned) <= 0.25 * resistances.nplrd) {
        checks.mnyrd = checks.myrdv;
    }
}

// The same about z.
//   out  mnzrd [kNm]
void CalcMNzGeneral(const Inputs& in, const SectionRecord& section, const Resistances& resistances,
                    const Forces& forces, SectionChecks& checks)
{
    const double aw = 1.0 * section.aweb / section.a;
    const double n = std::abs(forces.ned / resistances.ncrd);
    checks.mnzrd = checks.mzrdv;
    const double web = AxialResistance(in, 1.0 * section.hw * section.tw);
    if (n > aw && std::abs(forces.ned) > web) {
        const double beyond = (n - aw) / (1 - aw);
        checks.mnzrd = checks.mzrdv * (1 - beyond * beyond);
    }
}

}  // namespace

// EN 1993-1-1, 6.2.3 to 6.2.6.
//   in   classes; a, aweb, aflange [mm2]; wply .. welz [mm3]; fyk [MPa]; gammam0, gammam1, neta
//   [-];
//        checkelastic
//   out  nplrd, ncrd, vzrd .. vcyrd [kN]; mplyrd .. mzrd [kNm]; avz, avy [mm2]; shearnote
void CalcResistanceGeneral(const Inputs& in, SectionRecord& section, Resistances& resistances,
                           SectionChecks& checks)
{
    section.classflange = section.classweb = section.classn;
    resistances.nplrd = AxialResistance(in, section.a);
    resistances.ncrd = resistances.nplrd;
    resistances.mplyrd = MomentResistance(in, section.wply);
    resistances.mplzrd = MomentResistance(in, section.wplz);
    resistances.melyrd = resistances.meffyrd = MomentResistance(in, section.wely);
    resistances.melzrd = resistances.meffzrd = MomentResistance(in, section.welz);
    resistances.wyused =
        ModulusByClass(in, section.classmy, section.wply, section.wely, section.wely);
    resistances.wzused =
        ModulusByClass(in, section.classmz, section.wplz, section.welz, section.welz);
    resistances.myrd = MomentResistance(in, resistances.wyused);
    resistances.mzrd = MomentResistance(in, resistances.wzused);
    SetStabilityResistances(in, resistances);

    resistances.avz = 1.0 * section.aweb * in.neta;
    resistances.avy = section.aflange;
    resistances.vzrd = ShearResistance(in, resistances.avz);
    resistances.vyrd = ShearResistance(in, resistances.avy);
    resistances.vplzrd = resistances.vbrd = resistances.vzrd;
    resistances.vplyrd = resistances.vcyrd = resistances.vyrd;
    checks.shearnote = ")";
}

// EN 1993-1-1, 6.2.
//
// Deviation D179: shear neither reduces the moments, 6.2.8, nor makes the web buckle, EN 1993-1-5,
// 5 (the web's thickness is not entered).
void ControlGeneral(const Inputs& in, SectionRecord& section, Resistances& resistances,
                    const Forces& forces, SectionChecks& checks, PassOutcome&)
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
    ControlSection(in, section, resistances, forces, checks, kRoutines);
}

}  // namespace kestrum
