#include "design/tee_section.h"

#include "core/arithmetic_trap.h"
#include "design/class_limits.h"
#include "design/local_buckling.h"
#include "design/resistance.h"
#include "design/resistance_welded.h"
#include "design/section_control.h"

#include <algorithm>

namespace kestrum {

namespace {

// Web and flange alike.
//
// Deviation D192: limits 10, 11, 15 eps; the standard has 9, 10, 14 eps, Table 5.2, sheet 2.
i16 ClassPart(const SectionRecord& section, double c, double t)
{
    const double eps = section.eps;
    return ClassAtMost(c / t, 10 * eps, 11 * eps, 15 * eps);
}

double LostArea(const SectionRecord& section, double c, double t, i16 off)
{
    if (off == kTrue) {
        return 0;
    }
    return (1 - RhoOutstand(PlateSlenderness(c, t, section.eps, kOutstand))) * c * t;
}

// --- Routines of the control

// There is no reduced moment for N with My: the elastic sum always stands.
//
// Deviation D194: linear sum in classes 1 and 2; the standard allows MN,Rd, 6.2.9.1.
i16 ClassElastic(const Inputs&, SectionRecord&, const SectionChecks&, float, float)
{
    return 3;
}

void ReduceMyT(const Inputs& in, const SectionRecord& section, const Resistances& resistances,
               const Forces&, SectionChecks& checks)
{
    checks.myrdv = ReducedMoment(in, section, resistances, checks, section.classmy);
}

}  // namespace

// EN 1993-1-5, 4.4. In bending the elastic modulus falls as the area.
//   in   section record; eps; checkflangebuck, checkwebbuck
//   out  aeff [mm2]; weffytop1 .. weffybot2, weffy [mm3]
void CalcEffectiveT(const Inputs& in, SectionRecord& section)
{
    section.aeff = F32(section.a - LostArea(section, section.hw, section.tw, in.checkwebbuck) -
                       2 * LostArea(section, section.cflange, section.tf, in.checkflangebuck));
    section.weffy = F32(1.0 * section.wely * section.aeff / section.a);
    section.weffytop1 = section.weffytop2 = section.weffybot1 = section.weffybot2 = section.weffy;
}

// EN 1993-1-1, 6.2.3 to 6.2.6.
//   in   section record; fyk [MPa]; gammam0, gammam1 [-]
//   out  classes; resistances [kN, kNm]
//
// Deviation D193: the compression resistance takes aeff in every class; the standard takes the
// gross area in classes 1 to 3.
void CalcResistanceT(const Inputs& in, SectionRecord& section, Resistances& resistances,
                     SectionChecks&)
{
    section.classmytop = ClassPart(section, section.cflange, section.tf);
    section.classmybot = ClassPart(section, section.hw, section.tw);
    section.classn = std::max(section.classmytop, section.classmybot);
    section.classmz = section.classmytop;  // the flange carries bending about z
    StoreResistances(in, section, resistances);
    resistances.ncrd = AxialResistance(in, section.aeff);
    resistances.nrdm1 = resistances.ncrd * in.gammam0 / in.gammam1;
    resistances.mfrd = 0;
    resistances.mfzrd = 0;
    StoreShear(in, section, resistances, 1.0 * section.b * section.tf);
}

// Deviation D198: no moment from the shift of the centroid in class 4 under compression; the
// standard adds NEd eN, 6.2.9.3 (2).
void ControlT(const Inputs& in, SectionRecord& section, Resistances& resistances,
              const Forces& forces, SectionChecks& checks, PassOutcome&)
{
    constexpr SectionRoutines kRoutines{
        .class_y = ClassElastic,
        .class_z = nullptr,
        .reduce_my = ReduceMyT,
        .reduce_mz = nullptr,
        .reduce_mny = nullptr,
        .reduce_mnz = nullptr,
        .shear = CalcShearWelded,
        .exponents = nullptr,
        .enter = TakeClassOfSign,
        .placed_axial = true,
        .shear_labels = true,
        .y_only = true,
        .tube_exponents = false,
    };
    ControlSection(in, section, resistances, forces, checks, kRoutines);
    section.classmy = std::max(section.classmytop, section.classmybot);
}

}  // namespace kestrum
