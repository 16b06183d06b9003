#include "design/p26bas_t.h"

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
i16 ClassPart(const ProjectState& s, double c, double t)
{
    const double eps = s.eps;
    return ClassAtMost(c / t, 10 * eps, 11 * eps, 15 * eps);
}

double LostArea(const ProjectState& s, double c, double t, i16 off)
{
    if (off == kTrue) {
        return 0;
    }
    return (1 - RhoOutstand(PlateSlenderness(c, t, s.eps, kOutstand))) * c * t;
}

// --- Routines of the control

// There is no reduced moment for N with My: the elastic sum always stands.
//
// Deviation D194: linear sum in classes 1 and 2; the standard allows MN,Rd, 6.2.9.1.
i16 ClassElastic(ProjectState&, float, float)
{
    return 3;
}

void ReduceMyT(ProjectState& s)
{
    s.myrdv = ReducedMoment(s, s.classmy);
}

void EnterSection(ProjectState& s)
{
    s.classmy = s.mysigned > 0 ? s.classmytop : s.classmybot;
}

}  // namespace

// EN 1993-1-5, 4.4. In bending the elastic modulus falls as the area.
//   in   section record; eps; checkflangebuck, checkwebbuck
//   out  aeff [mm2]; weffytop1 .. weffybot2, weffy [mm3]
void CalcEffectiveT(ProjectState& s)
{
    s.aeff = F32(s.a - LostArea(s, s.hw, s.tw, s.checkwebbuck) -
                 2 * LostArea(s, s.cflange, s.tf, s.checkflangebuck));
    s.weffy = F32(1.0 * s.wely * s.aeff / s.a);
    s.weffytop1 = s.weffytop2 = s.weffybot1 = s.weffybot2 = s.weffy;
}

// EN 1993-1-1, 6.2.3 to 6.2.6.
//   in   section record; fyk [MPa]; gammam0, gammam1 [-]
//   out  classes; resistances [kN, kNm]
//
// Deviation D193: the compression resistance takes aeff in every class; the standard takes the
// gross area in classes 1 to 3.
void CalcResistanceT(ProjectState& s)
{
    s.classmytop = ClassPart(s, s.cflange, s.tf);
    s.classmybot = ClassPart(s, s.hw, s.tw);
    s.classn = std::max(s.classmytop, s.classmybot);
    s.classmz = s.classmytop;  // the flange carries bending about z
    StoreResistances(s);
    s.ncrd = AxialResistance(s, s.aeff);
    s.nrdm1 = s.ncrd * s.gammam0 / s.gammam1;
    s.mfrd = 0;
    s.mfzrd = 0;
    StoreShear(s, 1.0 * s.b * s.tf);
}

// Deviation D198: no moment from the shift of the centroid in class 4 under compression; the
// standard adds NEd eN, 6.2.9.3 (2).
void ControlT(ProjectState& s)
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
        .enter = EnterSection,
        .placed_axial = true,
        .shear_labels = true,
        .y_only = true,
        .tube_exponents = false,
    };
    ControlSection(s, kRoutines);
    s.classmy = std::max(s.classmytop, s.classmybot);
}

}  // namespace kestrum
