#include "design/single_symmetric_i_section.h"

#include "core/arithmetic_trap.h"
#include "design/class_i.h"
#include "design/class_welded.h"
#include "design/effective_welded.h"
#include "design/i_section.h"
#include "design/local_buckling.h"
#include "design/resistance_welded.h"
#include "design/section_control.h"
#include "design/welded_side.h"

#include <algorithm>
#include <cmath>

namespace kestrum {

namespace {

// Width of a flange that loses the compressed tip in bending about z, mm.
double EffectiveWidth(const Inputs& in, const SectionRecord& section, double b, double c, double t)
{
    if (in.checkflangebuck == kTrue) {
        return b;
    }
    return b - (1 - RhoOutstand(PlateSlenderness(c, t, section.eps, kOutstandBending))) * c;
}

// The flanges alone, each with its effective width about its own middle.
//
// Deviation D200: the web does not count and each flange loses one tip in place; the standard takes
// the whole effective section about its own centroid.
double EffectiveModulusZ(const Inputs& in, const SectionRecord& section)
{
    const double top = EffectiveWidth(in, section, section.btop, section.ctop, section.ttop);
    const double bottom = EffectiveWidth(in, section, section.bbot, section.cbot, section.tbot);
    const double i = (section.ttop * std::pow(top, 3) + section.tbot * std::pow(bottom, 3)) / 12;
    return i / (std::max(top, bottom) / 2);
}

// --- Routines of the control

void ReduceMySingleI(const Inputs& in, const SectionRecord& section, const Resistances& resistances,
                     const Forces&, SectionChecks& checks)
{
    checks.myrdv = ReducedMoment(in, section, resistances, checks, checks.classmyuse);
}

}  // namespace

i16 ClassSingleIY(const Inputs& in, SectionRecord& section, const SectionChecks& checks, float n,
                  float m)
{
    return ClassWelded(in, section, n, checks.mysigned > 0 ? m : -m);
}

i16 ClassSingleIZ(const Inputs& in, SectionRecord& section, const SectionChecks&, float n, float m)
{
    const i16 top = CalcClassZ(in, section, n, m, section.ctop, section.ttop, section.btop);
    const i16 topflange = section.classflange;
    const i16 bottom = CalcClassZ(in, section, n, m, section.cbot, section.tbot, section.bbot);
    section.classflange = std::max(topflange, section.classflange);
    return std::max(top, bottom);
}

// EN 1993-1-5, 4.4.
//   in   section record; eps; checkflangebuck, checkwebbuck
//   out  aeff [mm2]; weffytop1 .. weffybot2, weffy, weffz [mm3]
//
// Deviation D183: the centroid with the webs' loss divides by the area less the flange's loss only,
// so that it stays too near to the compressed edge; the standard takes the effective area.
void CalcEffectiveSingleI(const Inputs& in, SectionRecord& section)
{
    const Flange top = TopFlange(in, section), bottom = BottomFlange(in, section);
    const EffectiveScheme scheme{.leg = section.r, .webbuckles = true, .netcentroid = false};
    section.aeff = F32(section.a - FlangeLoss(in, section, top) - FlangeLoss(in, section, bottom) -
                       WebLoss(in, section));
    StoreEffective(section, EffectiveBending(in, section, TopSide(in, section), top, scheme),
                   EffectiveBending(in, section, BottomSide(in, section), bottom, scheme));
    section.weffz = F32(EffectiveModulusZ(in, section));
}

// EN 1993-1-1, Table 5.2. Compressive stresses positive.
i16 ClassWelded(const Inputs& in, const SectionRecord& section, float n, float m)
{
    if (m == 0) {
        return n > 0 ? ClassCompressed(in, section) : i16{1};
    }
    const bool top = m > 0;
    const WeldedSide side = top ? TopSide(in, section) : BottomSide(in, section);
    const Flange pressed = top ? TopFlange(in, section) : BottomFlange(in, section);
    const Flange other = top ? BottomFlange(in, section) : TopFlange(in, section);
    const double axial = 1000.0 * n / section.a;            // MPa
    const double bending = 1e6 * std::abs(m) / section.iy;  // MPa/mm
    const double s1 = axial + bending * side.webin;
    const double s2 = axial - bending * side.webout;
    if (!(s1 > 0)) {
        return 1;
    }
    const double alpha = side.alpha + 500.0 * n / (1.0 * section.hw * section.tw * in.fyk);
    i16 cls = std::max(ClassWebBent(section, std::clamp(alpha, 0.0, 1.0), s2 / s1),
                       ClassFlange(section, pressed));
    if (axial - bending * (side.webout + other.t / 2) > 0) {
        cls = std::max(cls, ClassFlange(section, other));
    }
    return cls;
}

// EN 1993-1-1, 6.2.3 to 6.2.6.
//   in   section record; fyk [MPa]; gammam0, gammam1 [-]
//   out  classes; resistances [kN, kNm]
//
// Deviation D190: biaxial bending, axial reduction and the flanges' shear take two flanges of mean
// width and mean thickness; the standard takes each flange as it is, and its formulas of 6.2.9.1
// (4), (5) are for doubly symmetric sections. Where N moves the plastic axis away from the
// centroid, the moment falls from the start.
void CalcResistanceSingleI(const Inputs& in, SectionRecord& section, Resistances& resistances,
                           SectionChecks& checks)
{
    section.classmytop = ClassWelded(in, section, 0, 10);
    section.classmybot = ClassWelded(in, section, 0, -10);
    section.classmz = ClassSingleIZ(in, section, checks, 0, 10);
    section.classn = ClassWelded(in, section, 10, 0);
    StoreResistances(in, section, resistances);
    resistances.mfrd = ElasticFlangeMoment(in, section, resistances);
    resistances.mfzrd = MeanFlangeMomentZ(in, section);
    StoreShear(in, section, resistances,
               1.0 * section.bbot * section.tbot + 1.0 * section.btop * section.ttop);
}

// Deviation D198: no moment from the shift of the centroid in class 4 under compression; the
// standard adds NEd eN, 6.2.9.3 (2).
void ControlSingleI(const Inputs& in, SectionRecord& section, Resistances& resistances,
                    const Forces& forces, SectionChecks& checks, PassOutcome&)
{
    constexpr SectionRoutines kRoutines{
        .class_y = ClassSingleIY,
        .class_z = ClassSingleIZ,
        .reduce_my = ReduceMySingleI,
        .reduce_mz = ReduceMz,
        .reduce_mny = CalcMNy,
        .reduce_mnz = CalcMNz,
        .shear = CalcVbrd,
        .exponents = ExponentsI,
        .enter = TakeClassOfSign,
        .placed_axial = false,
        .shear_labels = true,
        .y_only = false,
        .tube_exponents = false,
    };
    ControlSection(in, section, resistances, forces, checks, kRoutines);
    section.classmy = std::max(section.classmytop, section.classmybot);
}

}  // namespace kestrum
