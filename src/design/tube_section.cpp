#include "design/tube_section.h"

#include "design/class_limits.h"
#include "design/i_section.h"
#include "design/resistance.h"
#include "design/section_control.h"
#include "design/shear.h"

#include <cmath>
#include <numbers>

namespace kestrum {

namespace {

// One class for all forces.
i16 Class(const Inputs&, SectionRecord& section, const SectionChecks&, float, float)
{
    return section.classn;
}

// EN 1993-1-1, 6.2.8 (3), the strength of the whole tube reduced. The class plays no part.
void ReduceMyTube(const Inputs&, const SectionRecord&, const Resistances& resistances,
                  const Forces&, SectionChecks& checks)
{
    checks.myrdv = resistances.myrd * (1 - ShearReduction(checks.vzed, resistances.vzrd));
}

void ReduceMzTube(const Inputs&, const SectionRecord&, const Resistances& resistances,
                  const Forces&, SectionChecks& checks)
{
    checks.mzrdv = resistances.mzrd * (1 - ShearReduction(checks.vyed, resistances.vyrd));
}

// 1 - n^1.7, the interaction of the plastic tube; EN 1993-1-1:2005 has no formula for it.
double AxialShare(const Resistances& resistances, const Forces& forces)
{
    return 1 - std::pow(std::abs(forces.ned / resistances.nplrd), 1.7);
}

void CalcMNyTube(const Inputs&, const SectionRecord&, const Resistances& resistances,
                 const Forces& forces, SectionChecks& checks)
{
    checks.mnyrd = checks.myrdv * AxialShare(resistances, forces);
}

void CalcMNzTube(const Inputs&, const SectionRecord&, const Resistances& resistances,
                 const Forces& forces, SectionChecks& checks)
{
    checks.mnzrd = checks.mzrdv * AxialShare(resistances, forces);
}

// EN 1993-1-1, 6.2.9.1 (6).
void Exponents(const Resistances&, const Forces&, SectionChecks& checks)
{
    checks.alfaexp = 2;
    checks.betaexp = 2;
}

}  // namespace

// EN 1993-1-1, Table 5.2 and 6.2.3 to 6.2.6.
//   in   d, tw [mm]; a [mm2]; wely, wply [mm3]; fyk [MPa]; gammam0, gammam1 [-]; checkelastic
//   out  classes; nplrd, ncrd, vzrd .. vcyrd [kN]; mplyrd .. mzrd [kNm]; avz, avy [mm2]; shearnote
//
// Deviation D175: a tube of class 4 keeps the gross area and the elastic modulus; the standard
// sends it to EN 1993-1-6.
void CalcResistanceTube(const Inputs& in, SectionRecord& section, Resistances& resistances,
                        SectionChecks& checks)
{
    const double eps2 = 1.0 * section.eps * section.eps;
    section.classn = ClassAtMost(1.0 * section.d / section.tw, 50 * eps2, 70 * eps2, 90 * eps2);
    section.classmy = section.classmz = section.classn;
    section.classflange = section.classweb = section.classn;

    resistances.nplrd = AxialResistance(in, section.a);
    resistances.ncrd = resistances.nplrd;
    resistances.mplyrd = resistances.mplzrd = MomentResistance(in, section.wply);
    resistances.melyrd = resistances.melzrd = MomentResistance(in, section.wely);
    resistances.meffyrd = resistances.meffzrd = resistances.melyrd;
    resistances.wyused = resistances.wzused =
        ModulusByClass(in, section.classmy, section.wply, section.wely, section.wely);
    resistances.myrd = resistances.mzrd = MomentResistance(in, resistances.wyused);
    SetStabilityResistances(in, resistances);

    resistances.avz = resistances.avy = 2 * section.a / std::numbers::pi;
    resistances.vzrd = ShearResistance(in, resistances.avz);
    resistances.vplzrd = resistances.vplyrd = resistances.vyrd = resistances.vbrd =
        resistances.vcyrd = resistances.vzrd;
    checks.shearnote = ")";
}

// EN 1993-1-1, 6.2.
//
// Deviation D176: the shear forces of the two directions act each for itself, in the shear ratio as
// in the reduction of the moments; on a tube the standard's resistance is that of their resultant.
// The moments are summed, or their squares beside an axial force in class 1 and 2, where the
// standard has their resultant too.
void ControlTube(const Inputs& in, SectionRecord& section, Resistances& resistances,
                 const Forces& forces, SectionChecks& checks, PassOutcome&)
{
    constexpr SectionRoutines kRoutines{
        .class_y = Class,
        .class_z = Class,
        .reduce_my = ReduceMyTube,
        .reduce_mz = ReduceMzTube,
        .reduce_mny = CalcMNyTube,
        .reduce_mnz = CalcMNzTube,
        .shear = nullptr,
        .exponents = Exponents,
        .enter = nullptr,
        .placed_axial = true,
        .shear_labels = true,
        .y_only = false,
        .tube_exponents = true,
    };
    ControlSection(in, section, resistances, forces, checks, kRoutines);
}

}  // namespace kestrum
