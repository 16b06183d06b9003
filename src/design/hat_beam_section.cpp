#include "design/hat_beam_section.h"

#include "core/arithmetic_trap.h"
#include "design/class_welded.h"
#include "design/effective_welded.h"
#include "design/resistance_welded.h"
#include "design/welded_side.h"
#include "sections/families.h"

#include <algorithm>
#include <cmath>

namespace kestrum {

namespace {

constexpr i16 kUpgrade = 0;     // class23
constexpr i16 kConsidered = 0;  // hsqopt

// Plastic modulus with 20 eps tw left of the webs at the compressed flange and as much beside the
// neutral axis, EN 1993-1-1, 6.2.2.4 (1); areas of the compressed and the other flange in mm2.
//
// Deviation D33: the modulus of the whole section less what is lost, about an axis that is held in
// the web; the standard has that of the effective section about its own axis.
double UpgradedModulus(const SectionRecord& section, double compressed, double other)
{
    const double tw = section.tw;
    const double keep = 20 * section.eps * tw;       // mm
    const double area = compressed + 4 * keep * tw;  // mm2
    const double x =
        std::clamp((area - other) / 2 / tw, 0.0, std::max(0.0, 1.0 * section.d));  // tension
    const double hole = std::max(0.0, section.hw - x - 2 * keep);
    return section.wply - 2 * tw * hole * (hole / 2 + keep);
}

// The upgraded moduli of both signs.
void StoreUpgrade(SectionRecord& section)
{
    const double top = 1.0 * section.btop * section.ttop,
                 bottom = 1.0 * section.bbot * section.tbot;  // mm2
    section.wplplus = section.wply;
    section.wplminus = section.wply;
    if (section.classmytop == kUpgraded) {
        section.wplplus = F32(UpgradedModulus(section, top, bottom));
    }
    if (section.classmybot == kUpgraded) {
        section.wplminus = F32(UpgradedModulus(section, bottom, top));
    }
}

}  // namespace

bool UpgradeNeedsWebBuckling(const Inputs& in, const SectionRecord& section)
{
    return ClassHsq(in, section, true) == kUpgraded || ClassHsq(in, section, false) == kUpgraded;
}

void CalcEffectiveHsq(const Inputs& in, SectionRecord& section)
{
    CalcEffectiveTwoWebs(in, section);
}

// EN 1993-1-1, 5.5.2 and 6.2.2.4.
//
// Deviation D184: of the compressed flange only the part between the webs is classified; the
// standard also classifies the outstands of the bottom flange, Table 5.2, sheet 2.
i16 ClassHsq(const Inputs& in, const SectionRecord& section, bool top)
{
    const WeldedSide side = top ? TopSide(in, section) : BottomSide(in, section);
    if (!(side.webin > 0)) {
        return 1;
    }
    const i16 web = ClassWebBent(section, side);
    const i16 flange = ClassInternal(section, top ? section.ctopin : section.cbotin, side.t);
    if (in.class23 == kUpgrade && in.checkelastic != kTrue && web == 3 && flange <= 2) {
        return kUpgraded;
    }
    return std::max(web, flange);
}

// EN 1993-1-1, 6.2.3 to 6.2.6.
//   in   section record; class23; fyk [MPa]; gammam0, gammam1 [-]
//   out  classes; wplplus, wplminus [mm3]; resistances [kN, kNm] without flange loading
void CalcResistanceHsq(const Inputs& in, SectionRecord& section, Resistances& resistances,
                       SectionChecks&)
{
    section.classmytop = ClassHsq(in, section, true);
    section.classmybot = ClassHsq(in, section, false);
    section.classn = ClassCompressed(in, section);
    section.classmz = std::max(section.classmytop, section.classmybot);
    StoreUpgrade(section);
    StoreResistances(in, section, resistances);
    resistances.mfrd = ElasticFlangeMoment(in, section, resistances);
    resistances.mfzrd = MeanFlangeMomentZ(in, section);
    StoreShear(in, section, resistances,
               1.0 * section.bbot * section.tbot + 1.0 * section.btop * section.ttop);
    section.flangefactor = 1;
}

//   in   qsum [kN/m]; flangeload [percent]; tbot [mm]; fyk [MPa]; gammam0 [-]; hsqopt
//   out  flangeoverload, for which the driver takes the flange loading off
//
// Deviation D185: the load acts 60 mm from the web whatever the section; the true arm is that of
// the bearing.
// Deviation D191: plate bending resists with 1.75 times the elastic moment and lowers My,Rd by half
// of what exceeds it; the standard has 1.5 (plastic, 6.2.5) and the sum of 6.2.1 (5).
double FlangeFactor(const Inputs& in, const SectionRecord& section, const Forces& forces,
                    PassOutcome& outcome)
{
    constexpr double kArm = 60;  // mm

    if (in.hsqopt != kConsidered) {
        return 1;
    }
    const double share =
        Traits(in).shape.lower == LowerFlange::both_sides ? in.flangeload / 100.0 : 1.0;
    const double mload = std::abs(share * forces.qsum * kArm);  // Nmm/mm
    const double mflange = 1.75 * in.fyk / in.gammam0 * section.tbot * section.tbot / 6;
    if (mload <= 0.2 * mflange) {
        return 1;
    }
    const double rest = 1 - mload / mflange;
    if (rest < 0) {
        outcome.flangeoverload = true;
        return 1;
    }
    return std::min(1.0, (std::sqrt(rest) + 1.1) * 0.5);
}

// The factor follows the loads of this very pass.
void ControlHsq(const Inputs& in, SectionRecord& section, Resistances& resistances,
                const Forces& forces, SectionChecks& checks, PassOutcome& outcome)
{
    double factor = 1;
    if (Is(in, Kind::hat)) {
        factor = FlangeFactor(in, section, forces, outcome);
        section.flangefactor = F32(factor);
    }
    StoreSigns(in, section, resistances, factor);
    ControlBending(in, section, resistances, forces, checks, factor);
}

}  // namespace kestrum
