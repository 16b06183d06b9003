#include "design/p24bas_hsq.h"

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
constexpr i16 kNotConsidered = 1;
constexpr i16 kUpgraded = 23;

// Plastic modulus with 20 eps tw left of the webs at the compressed flange and as much beside the
// neutral axis, EN 1993-1-1, 6.2.2.4 (1); areas of the compressed and the other flange in mm2.
//
// Deviation D33: the modulus of the whole section less what is lost, about an axis that is held in
// the web; the standard has that of the effective section about its own axis.
double UpgradedModulus(const ProjectState& s, double compressed, double other)
{
    const double tw = s.tw;
    const double keep = 20 * s.eps * tw;                                                  // mm
    const double area = compressed + 4 * keep * tw;                                       // mm2
    const double x = std::clamp((area - other) / 2 / tw, 0.0, std::max(0.0, 1.0 * s.d));  // tension
    const double hole = std::max(0.0, s.hw - x - 2 * keep);
    return s.wply - 2 * tw * hole * (hole / 2 + keep);
}

// The upgraded moduli of both signs. The upgrade works with a web that buckles: it leaves the
// switch against web buckling off.
void StoreUpgrade(ProjectState& s)
{
    const double top = 1.0 * s.btop * s.ttop, bottom = 1.0 * s.bbot * s.tbot;  // mm2
    s.wplplus = s.wply;
    s.wplminus = s.wply;
    if (s.classmytop == kUpgraded) {
        s.wplplus = F32(UpgradedModulus(s, top, bottom));
        s.checkwebbuck = kFalse;
    }
    if (s.classmybot == kUpgraded) {
        s.wplminus = F32(UpgradedModulus(s, bottom, top));
        s.checkwebbuck = kFalse;
    }
}

}  // namespace

void CalcEffectiveHsq(ProjectState& s)
{
    CalcEffectiveTwoWebs(s);
}

// EN 1993-1-1, 5.5.2 and 6.2.2.4.
//
// Deviation D184: of the compressed flange only the part between the webs is classified; the
// standard also classifies the outstands of the bottom flange, Table 5.2, sheet 2.
i16 ClassHsq(const ProjectState& s, bool top)
{
    const WeldedSide side = top ? TopSide(s) : BottomSide(s);
    if (!(side.webin > 0)) {
        return 1;
    }
    const i16 web = ClassWebBent(s, side);
    const i16 flange = ClassInternal(s, top ? s.ctopin : s.cbotin, side.t);
    if (s.class23 == kUpgrade && s.checkelastic != kTrue && web == 3 && flange <= 2) {
        return kUpgraded;
    }
    return std::max(web, flange);
}

// EN 1993-1-1, 6.2.3 to 6.2.6.
//   in   section record; class23; fyk [MPa]; gammam0, gammam1 [-]
//   out  classes; wplplus, wplminus [mm3]; resistances [kN, kNm] without flange loading
void CalcResistanceHsq(ProjectState& s)
{
    s.classmytop = ClassHsq(s, true);
    s.classmybot = ClassHsq(s, false);
    s.classn = ClassCompressed(s);
    s.classmz = std::max(s.classmytop, s.classmybot);
    const i16 switched = s.checkwebbuck;
    StoreUpgrade(s);
    if (s.checkwebbuck != switched) {
        CalcEffectiveHsq(s);  // class 4 of the other sign: the webs now buckle in this pass already
    }
    StoreResistances(s);
    s.mfrd = ElasticFlangeMoment(s);
    s.mfzrd = MeanFlangeMomentZ(s);
    StoreShear(s, 1.0 * s.bbot * s.tbot + 1.0 * s.btop * s.ttop);
    s.flangefactor = 1;
}

//   in   qsum [kN/m]; flangeload [percent]; tbot [mm]; fyk [MPa]; gammam0 [-]; hsqopt
//   out  hsqopt, flangeoverload
//
// Deviation D185: the load acts 60 mm from the web whatever the section; the true arm is that of
// the bearing.
// Deviation D191: plate bending resists with 1.75 times the elastic moment and lowers My,Rd by half
// of what exceeds it; the standard has 1.5 (plastic, 6.2.5) and the sum of 6.2.1 (5).
double FlangeFactor(ProjectState& s)
{
    constexpr double kArm = 60;  // mm

    if (s.hsqopt != kConsidered) {
        return 1;
    }
    const double share =
        Traits(s).shape.lower == LowerFlange::both_sides ? s.flangeload / 100.0 : 1.0;
    const double mload = std::abs(share * s.qsum * kArm);  // Nmm/mm
    const double mflange = 1.75 * s.fyk / s.gammam0 * s.tbot * s.tbot / 6;
    if (mload <= 0.2 * mflange) {
        return 1;
    }
    const double rest = 1 - mload / mflange;
    if (rest < 0) {
        s.hsqopt = kNotConsidered;
        s.flangeoverload = true;
        return 1;
    }
    return std::min(1.0, (std::sqrt(rest) + 1.1) * 0.5);
}

// The factor follows the loads of this very pass.
void ControlHsq(ProjectState& s)
{
    double factor = 1;
    if (Is(s, Kind::hat)) {
        factor = FlangeFactor(s);
        s.flangefactor = F32(factor);
    }
    StoreSigns(s, factor);
    ControlBending(s, factor);
}

}  // namespace kestrum
