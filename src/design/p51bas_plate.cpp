#include "design/p51bas_plate.h"

#include "core/arithmetic_trap.h"
#include "design/class_limits.h"
#include "design/class_welded.h"
#include "design/effective_welded.h"
#include "design/local_buckling.h"
#include "design/resistance_welded.h"
#include "design/welded_side.h"
#include "sections/families.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace kestrum {

namespace {

bool HasFlatBar(const ProjectState& s)
{
    return Traits(s).shape.stiffener == Stiffener::flat_bar;
}

// Area that a flat bar in uniform compression loses, mm2.
double LostFlatBar(const ProjectState& s)
{
    if (s.checkwebbuck == kTrue) {
        return 0;
    }
    return (1 - RhoOutstand(PlateSlenderness(s.d, s.tw, s.eps, kOutstand))) * s.d * s.tw;
}

// The flat bar with its tip compressed, EN 1993-1-1, Table 5.2, sheet 2; limits included.
i16 ClassTip(const ProjectState& s)
{
    const double eps = s.eps;
    const WeldedSide side = BottomSide(s);
    const double alpha = std::min(1.0, side.alpha);
    const double k = KSigmaOutstand(-side.webout / side.edge);
    return ClassAtMost(1.0 * s.d / s.tw, 9 * eps / alpha, 10 * eps / alpha,
                       21 * eps * std::sqrt(k));
}

i16 ClassInCompression(const ProjectState& s)
{
    if (HasFlatBar(s)) {
        return std::max(ClassOutstand(s, s.ctop, s.ttop), ClassOutstand(s, s.d, s.tw));
    }
    return ClassCompressed(s);
}

}  // namespace

// EN 1993-1-5, 4.4. A flat bar beside a compressed plate is in tension and keeps its area.
//   in   section record; eps; checkflangebuck, checkwebbuck
//   out  aeff [mm2]; weffytop1 .. weffybot2, weffy [mm3]
//
// Deviation D195: the compressed part of the web counts from the flange, its slenderness between
// the welds; the standard takes both between the welds.
void CalcEffectivePlate(ProjectState& s)
{
    const bool flatbar = HasFlatBar(s);
    const Flange plate = TopFlange(s);
    const WeldedSide top = TopSide(s), bottom = BottomSide(s);
    const EffectiveScheme scheme{.leg = 0, .webbuckles = !flatbar, .netcentroid = true};
    const EffectiveModuli compressed = EffectiveBending(s, top, plate, scheme);
    if (flatbar) {
        s.aeff = F32(s.a - FlangeLoss(s, plate) - LostFlatBar(s));
        StoreEffective(s, compressed, EffectiveTip(s, bottom));
        return;
    }
    const Flange flange = BottomFlange(s);
    s.aeff = F32(s.a - FlangeLoss(s, plate) - FlangeLoss(s, flange) - WebLoss(s));
    StoreEffective(s, compressed, EffectiveBending(s, bottom, flange, scheme));
}

// EN 1993-1-1, 5.5.2. Plate and stiffener flange are classified even where the elastic axis lies in
// them.
i16 ClassPlate(const ProjectState& s, bool plate)
{
    const bool flatbar = HasFlatBar(s);
    if (plate) {
        const i16 web = flatbar ? i16{1} : ClassWebBent(s, TopSide(s));
        return std::max(web, ClassFlange(s, TopFlange(s)));
    }
    if (flatbar) {
        return ClassTip(s);
    }
    return std::max(ClassWebBent(s, BottomSide(s)), ClassFlange(s, BottomFlange(s)));
}

// EN 1993-1-1, 6.2.3 to 6.2.6.
//   in   section record; fyk [MPa]; gammam0, gammam1 [-]
//   out  classes; resistances [kN, kNm]
//
// Deviation D197: bending is about y whatever the stiffener; the standard takes the principal axes
// of sections with a one-sided flange.
void CalcResistancePlate(ProjectState& s)
{
    s.classmytop = ClassPlate(s, true);
    s.classmybot = ClassPlate(s, false);
    s.classn = ClassInCompression(s);
    s.classmz = std::max(s.classmytop, s.classmybot);
    StoreResistances(s);
    s.mfrd = ElasticFlangeMoment(s);
    s.mfzrd = 0;
    StoreShear(s, 1.0 * s.btop * s.ttop + 1.0 * s.bbot * s.tbot);
}

void ControlPlate(ProjectState& s)
{
    ControlBending(s, 1.0);
}

// Tripping of the stiffener about its root: St Venant torsion, and of a flange its bending in
// plane.
//   in   wybot [mm3]; h, hw, tw, tplate, bbot, tbot [mm]; iz of the stiffener [mm4]; e [MPa]
//
// Deviation D196: tripping stress of the stiffener alone times the modulus in use with the
// stiffener compressed, for either sign; the standard asks for the elastic critical moment of the
// whole section and of the sign, EN 1993-1-1, 6.3.2.2 (2).
double PlateMcr(const ProjectState& s, double length_mm)
{
    constexpr double kPi = std::numbers::pi_v<float>;

    const double shear = s.e / 2.6;  // G, MPa
    const double tw = s.tw, hw = s.hw;
    if (HasFlatBar(s)) {
        const double slender = tw / s.h, stocky = hw / length_mm;
        return s.wybot * slender * slender * (2 * stocky * stocky + 1) * shear;
    }
    const double flange = 1.0 * s.tbot * s.bbot;  // mm2
    const double web = hw * tw;
    const double ratio = s.tbot / tw;
    const double slender = tw / (1.0 * s.h - s.ttop);
    const double torsion =
        (ratio * ratio * flange + web) * shear * slender * slender / (3 * flange + web);
    const double bending = kPi * kPi * s.e * s.iz / (web / 3 + flange) / (length_mm * length_mm);
    return s.wybot * (torsion + bending);
}

}  // namespace kestrum
