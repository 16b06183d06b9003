#include "design/shear.h"
#include "design/welded_side.h"
#include "report/design_note_facts.h"

#include <algorithm>

namespace kestrum {

namespace {

constexpr i16 kUpgraded = 23;  // class 3 web counted as class 2

// Sections of plates whose flanges take part in the shear buckling resistance.
bool FlangesHelpInShear(const ProjectState& s)
{
    const bool plated = s.family == 21 || s.family == 22 || IsHatBeam(s.family) || s.family == 27 ||
                        (IsPlate(s.family) && s.family != 51);
    return plated && s.mfrd > 0 && WebBucklesInShear(s);
}

// The effective section of 6.2.2.4 has lost some web, and its plastic axis lies in the other
// flange.
bool AxisInTheOtherFlange(const ProjectState& s, double compressed, double other)
{
    const double keep = 20.0 * s.eps * s.tw;  // mm, at each end of the compressed web
    return s.hw > 2 * keep && compressed + 4 * keep * s.tw < other;
}

}  // namespace

bool FlangeOfShearIsWide(const ProjectState& s)
{
    if (!FlangesHelpInShear(s)) {
        return false;
    }
    const double eps = s.eps;
    if (s.family == 21 || s.family == 22) {
        return s.b > 30 * eps * s.tf + s.tw;
    }
    const bool top = 1.0 * s.btop * s.ttop * s.ttop < 1.0 * s.bbot * s.tbot * s.tbot;
    const Flange flange = top ? TopFlange(s) : BottomFlange(s);
    return std::max({flange.inner / 2, flange.left, flange.right}) > 15 * eps * flange.t;
}

bool FlangeMomentIsHigh(const ProjectState& s)
{
    if (!FlangesHelpInShear(s) || s.family == 21 || s.family == 27 || !BendsAboutY(s)) {
        return false;
    }
    const double weaker = std::min(1.0 * s.btop * s.ttop, 1.0 * s.bbot * s.tbot);  // mm2
    const double arm = s.hw + (1.0 * s.ttop + s.tbot) / 2;
    return s.mfrd > weaker * arm * s.fyk / s.gammam0 / 1e6;
}

bool ShearAreaOfOneFlange(const ProjectState& s)
{
    constexpr int kT = 26, kPlateWithFlatBar = 51;
    return (s.family == kT || s.family == kPlateWithFlatBar) && LargestVz(s) != 0 &&
           StockyInShear(s, s.hw, s.tw) && s.neta * s.hw > s.hw + s.ttop / 2.0;
}

bool WebCompressedByMzIsSlender(const ProjectState& s)
{
    return IsChannel(s.family) && BendsAboutZ(s) && !(s.ned > 0) && s.classmz <= 2 &&
           s.checkelastic != kTrue && 1.0 * s.d / s.tw >= 38 * s.eps;
}

bool UpgradeIsHigh(const ProjectState& s)
{
    if (!IsHatBeam(s.family)) {
        return false;
    }
    const double top = 1.0 * s.btop * s.ttop, bottom = 1.0 * s.bbot * s.tbot;  // mm2
    return (s.mymax > 0 && s.classmytop == kUpgraded && AxisInTheOtherFlange(s, top, bottom)) ||
           (s.mymin < 0 && s.classmybot == kUpgraded && AxisInTheOtherFlange(s, bottom, top));
}

}  // namespace kestrum
