#include "design/p22bas_single_symmetric_i.h"

#include "core/arithmetic_trap.h"
#include "design/class_i.h"
#include "design/class_welded.h"
#include "design/effective_welded.h"
#include "design/local_buckling.h"
#include "design/p01bas_rolled_i.h"
#include "design/resistance_welded.h"
#include "design/section_control.h"
#include "design/welded_side.h"

#include <algorithm>
#include <cmath>

namespace kestrum {

namespace {

// Width of a flange that loses the compressed tip in bending about z, mm.
double EffectiveWidth(const ProjectState& s, double b, double c, double t)
{
    if (s.checkflangebuck == kTrue) {
        return b;
    }
    return b - (1 - RhoOutstand(PlateSlenderness(c, t, s.eps, kOutstandBending))) * c;
}

// The flanges alone, each with its effective width about its own middle.
//
// Deviation D200: the web does not count and each flange loses one tip in place; the standard takes
// the whole effective section about its own centroid.
double EffectiveModulusZ(const ProjectState& s)
{
    const double top = EffectiveWidth(s, s.btop, s.ctop, s.ttop);
    const double bottom = EffectiveWidth(s, s.bbot, s.cbot, s.tbot);
    const double i = (s.ttop * std::pow(top, 3) + s.tbot * std::pow(bottom, 3)) / 12;
    return i / (std::max(top, bottom) / 2);
}

// --- Routines of the control

i16 ClassY(ProjectState& s, float n, float m)
{
    return ClassWelded(s, n, s.mysigned > 0 ? m : -m);
}

// The worse of the two flanges, which is also the one that classflange tells of.
i16 ClassZ(ProjectState& s, float n, float m)
{
    const i16 top = CalcClassZ(s, n, m, s.ctop, s.ttop, s.btop);
    const i16 topflange = s.classflange;
    const i16 bottom = CalcClassZ(s, n, m, s.cbot, s.tbot, s.bbot);
    s.classflange = std::max(topflange, s.classflange);
    return std::max(top, bottom);
}

void ReduceMySingleI(ProjectState& s)
{
    s.myrdv = ReducedMoment(s, s.classmyuse);
}

// The class of the sign of My at the section.
void EnterSection(ProjectState& s)
{
    s.classmy = s.mysigned > 0 ? s.classmytop : s.classmybot;
}

}  // namespace

// EN 1993-1-5, 4.4.
//   in   section record; eps; checkflangebuck, checkwebbuck
//   out  aeff [mm2]; weffytop1 .. weffybot2, weffy, weffz [mm3]
//
// Deviation D183: the centroid with the webs' loss divides by the area less the flange's loss only,
// so that it stays too near to the compressed edge; the standard takes the effective area.
void CalcEffectiveSingleI(ProjectState& s)
{
    const Flange top = TopFlange(s), bottom = BottomFlange(s);
    const EffectiveScheme scheme{.leg = s.r, .webbuckles = true, .netcentroid = false};
    s.aeff = F32(s.a - FlangeLoss(s, top) - FlangeLoss(s, bottom) - WebLoss(s));
    StoreEffective(s, EffectiveBending(s, TopSide(s), top, scheme),
                   EffectiveBending(s, BottomSide(s), bottom, scheme));
    s.weffz = F32(EffectiveModulusZ(s));
}

// EN 1993-1-1, Table 5.2. Compressive stresses positive.
i16 ClassWelded(const ProjectState& s, float n, float m)
{
    if (m == 0) {
        return n > 0 ? ClassCompressed(s) : i16{1};
    }
    const bool top = m > 0;
    const WeldedSide side = top ? TopSide(s) : BottomSide(s);
    const Flange pressed = top ? TopFlange(s) : BottomFlange(s);
    const Flange other = top ? BottomFlange(s) : TopFlange(s);
    const double axial = 1000.0 * n / s.a;            // MPa
    const double bending = 1e6 * std::abs(m) / s.iy;  // MPa/mm
    const double s1 = axial + bending * side.webin;
    const double s2 = axial - bending * side.webout;
    if (!(s1 > 0)) {
        return 1;
    }
    const double alpha = side.alpha + 500.0 * n / (1.0 * s.hw * s.tw * s.fyk);
    i16 cls =
        std::max(ClassWebBent(s, std::clamp(alpha, 0.0, 1.0), s2 / s1), ClassFlange(s, pressed));
    if (axial - bending * (side.webout + other.t / 2) > 0) {
        cls = std::max(cls, ClassFlange(s, other));
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
void CalcResistanceSingleI(ProjectState& s)
{
    s.classmytop = ClassWelded(s, 0, 10);
    s.classmybot = ClassWelded(s, 0, -10);
    s.classmz = ClassZ(s, 0, 10);
    s.classn = ClassWelded(s, 10, 0);
    StoreResistances(s);
    s.mfrd = ElasticFlangeMoment(s);
    s.mfzrd = MeanFlangeMomentZ(s);
    StoreShear(s, 1.0 * s.bbot * s.tbot + 1.0 * s.btop * s.ttop);
}

// Deviation D198: no moment from the shift of the centroid in class 4 under compression; the
// standard adds NEd eN, 6.2.9.3 (2).
void ControlSingleI(ProjectState& s)
{
    constexpr SectionRoutines kRoutines{
        .class_y = ClassY,
        .class_z = ClassZ,
        .reduce_my = ReduceMySingleI,
        .reduce_mz = ReduceMz,
        .reduce_mny = CalcMNy,
        .reduce_mnz = CalcMNz,
        .shear = CalcVbrd,
        .exponents = ExponentsI,
        .enter = EnterSection,
        .placed_axial = false,
        .shear_labels = true,
        .y_only = false,
        .tube_exponents = false,
    };
    ControlSection(s, kRoutines);
    s.classmy = std::max(s.classmytop, s.classmybot);
}

}  // namespace kestrum
