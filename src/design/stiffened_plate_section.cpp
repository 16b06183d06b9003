#include "design/stiffened_plate_section.h"

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

bool HasFlatBar(const Inputs& in)
{
    return Traits(in).shape.stiffener == Stiffener::flat_bar;
}

namespace {

// Area that a flat bar in uniform compression loses, mm2.
double LostFlatBar(const Inputs& in, const SectionRecord& section)
{
    if (in.checkwebbuck == kTrue) {
        return 0;
    }
    return (1 - RhoOutstand(PlateSlenderness(section.d, section.tw, section.eps, kOutstand))) *
           section.d * section.tw;
}

// The flat bar with its tip compressed, EN 1993-1-1, Table 5.2, sheet 2; limits included.
i16 ClassTip(const Inputs& in, const SectionRecord& section)
{
    const double eps = section.eps;
    const WeldedSide side = BottomSide(in, section);
    const double alpha = std::min(1.0, side.alpha);
    const double k = KSigmaOutstand(-side.webout / side.edge);
    return ClassAtMost(1.0 * section.d / section.tw, 9 * eps / alpha, 10 * eps / alpha,
                       21 * eps * std::sqrt(k));
}

i16 ClassInCompression(const Inputs& in, const SectionRecord& section)
{
    if (HasFlatBar(in)) {
        return std::max(ClassOutstand(section, section.ctop, section.ttop),
                        ClassOutstand(section, section.d, section.tw));
    }
    return ClassCompressed(in, section);
}

}  // namespace

// EN 1993-1-5, 4.4. A flat bar beside a compressed plate is in tension and keeps its area.
//   in   section record; eps; checkflangebuck, checkwebbuck
//   out  aeff [mm2]; weffytop1 .. weffybot2, weffy [mm3]
//
// Deviation D195: the compressed part of the web counts from the flange, its slenderness between
// the welds; the standard takes both between the welds.
void CalcEffectivePlate(const Inputs& in, SectionRecord& section)
{
    const bool flatbar = HasFlatBar(in);
    const Flange plate = TopFlange(in, section);
    const WeldedSide top = TopSide(in, section), bottom = BottomSide(in, section);
    const EffectiveScheme scheme{.leg = 0, .webbuckles = !flatbar, .netcentroid = true};
    const EffectiveModuli compressed = EffectiveBending(in, section, top, plate, scheme);
    if (flatbar) {
        section.aeff = F32(section.a - FlangeLoss(in, section, plate) - LostFlatBar(in, section));
        StoreEffective(section, compressed, EffectiveTip(in, section, bottom));
        return;
    }
    const Flange flange = BottomFlange(in, section);
    section.aeff = F32(section.a - FlangeLoss(in, section, plate) -
                       FlangeLoss(in, section, flange) - WebLoss(in, section));
    StoreEffective(section, compressed, EffectiveBending(in, section, bottom, flange, scheme));
}

// EN 1993-1-1, 5.5.2. Plate and stiffener flange are classified even where the elastic axis lies in
// them.
i16 ClassPlate(const Inputs& in, const SectionRecord& section, bool plate)
{
    const bool flatbar = HasFlatBar(in);
    if (plate) {
        const i16 web = flatbar ? i16{1} : ClassWebBent(section, TopSide(in, section));
        return std::max(web, ClassFlange(section, TopFlange(in, section)));
    }
    if (flatbar) {
        return ClassTip(in, section);
    }
    return std::max(ClassWebBent(section, BottomSide(in, section)),
                    ClassFlange(section, BottomFlange(in, section)));
}

// EN 1993-1-1, 6.2.3 to 6.2.6.
//   in   section record; fyk [MPa]; gammam0, gammam1 [-]
//   out  classes; resistances [kN, kNm]
//
// Deviation D197: bending is about y whatever the stiffener; the standard takes the principal axes
// of sections with a one-sided flange.
void CalcResistancePlate(const Inputs& in, SectionRecord& section, Resistances& resistances,
                         SectionChecks&)
{
    section.classmytop = ClassPlate(in, section, true);
    section.classmybot = ClassPlate(in, section, false);
    section.classn = ClassInCompression(in, section);
    section.classmz = std::max(section.classmytop, section.classmybot);
    StoreResistances(in, section, resistances);
    resistances.mfrd = ElasticFlangeMoment(in, section, resistances);
    resistances.mfzrd = 0;
    StoreShear(in, section, resistances,
               1.0 * section.btop * section.ttop + 1.0 * section.bbot * section.tbot);
}

void ControlPlate(const Inputs& in, SectionRecord& section, Resistances& resistances,
                  const Forces& forces, SectionChecks& checks, PassOutcome&)
{
    ControlBending(in, section, resistances, forces, checks, 1.0);
}

// Tripping of the stiffener about its root: St Venant torsion, and of a flange its bending in
// plane.
//   in   wybot [mm3]; h, hw, tw, tplate, bbot, tbot [mm]; iz of the stiffener [mm4]; e [MPa]
//
// Deviation D196: tripping stress of the stiffener alone times the modulus in use with the
// stiffener compressed, for either sign; the standard asks for the elastic critical moment of the
// whole section and of the sign, EN 1993-1-1, 6.3.2.2 (2).
double PlateMcr(const Inputs& in, const SectionRecord& section, double length_mm)
{
    constexpr double kPi = std::numbers::pi_v<float>;

    const double shear = in.e / 2.6;  // G, MPa
    const double tw = section.tw, hw = section.hw;
    if (HasFlatBar(in)) {
        const double slender = tw / section.h, stocky = hw / length_mm;
        return section.wybot * slender * slender * (2 * stocky * stocky + 1) * shear;
    }
    const double flange = 1.0 * section.tbot * section.bbot;  // mm2
    const double web = hw * tw;
    const double ratio = section.tbot / tw;
    const double slender = tw / (1.0 * section.h - section.ttop);
    const double torsion =
        (ratio * ratio * flange + web) * shear * slender * slender / (3 * flange + web);
    const double bending =
        kPi * kPi * in.e * section.iz / (web / 3 + flange) / (length_mm * length_mm);
    return section.wybot * (torsion + bending);
}

}  // namespace kestrum
