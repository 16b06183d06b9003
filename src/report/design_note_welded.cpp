#include "report/design_note_welded.h"

#include "core/arithmetic_trap.h"
#include "core/project_state.h"
#include "design/class_welded.h"
#include "design/local_buckling.h"
#include "design/shear.h"
#include "design/single_symmetric_i_section.h"
#include "design/welded_side.h"
#include "report/design_note_facts.h"
#include "sections/families.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace kestrum {

namespace {

// Web of class 1 or 2 with n [kN]; `straight` counts the compressed share on d instead of hw.
bool PlasticWeb(const ProjectState& s, const WeldedSide& side, double n, bool straight)
{
    const double alpha = side.alpha + 500.0 * n / (1.0 * s.hw * s.tw * s.fyk);
    const double share = straight ? (alpha * s.hw - s.r) / s.d : alpha;
    return ClassWebBent(s, std::clamp(share, 0.0, 1.0), 1) <= 2;
}

bool PlasticByClearHeight(const ProjectState& s, const WeldedSide& side, i16 cls)
{
    const bool alone = cls <= 2 && PlasticWeb(s, side, 0, false) && !PlasticWeb(s, side, 0, true);
    const bool withn = Is(s, Kind::i_single) && s.ned != 0 && PlasticWeb(s, side, s.ned, false) &&
                       !PlasticWeb(s, side, s.ned, true);
    return side.webin > 0 && (alone || withn);
}

// N moves the plastic axis away from the centroid, and the moment about it falls from the start.
bool AxialForceLowersMoment(const ProjectState& s)
{
    const double away = s.ned * (s.zcog - s.zpl);
    for (int k = 0; k <= s.npts; ++k) {
        const double my = s.mysec[static_cast<std::size_t>(k)];
        if (away * my > 0 && ClassWelded(s, s, F32(s.ned), F32(my)) <= 2) {
            return true;
        }
    }
    return false;
}

// Sections of plates whose flanges take part in the shear buckling resistance.
bool FlangesHelpInShear(const ProjectState& s)
{
    return (Is(s, Kind::i_welded) || HasTwoPlatedFlanges(s)) && s.mfrd > 0 && WebBucklesInShear(s);
}

// Width and thickness of a flange, mm.
struct FlangePlate {
    double b, t;
};

// The upgraded modulus against the plastic modulus of the effective section of 6.2.2.4 about its
// own axis, where that lies in the flange that is not compressed; elsewhere ours is the same or
// lower.
bool UpgradedAbove(const ProjectState& s, double used, const FlangePlate& compressed,
                   const FlangePlate& other)
{
    const double keep = 20.0 * s.eps * s.tw;  // mm, at each end of the compressed web
    const double webs = 2 * keep * s.tw;      // mm2, at one end of both webs
    const double near = compressed.b * compressed.t, far = other.b * other.t;  // mm2
    if (!(s.hw > 2 * keep) || !(near + 2 * webs < far)) {
        return false;
    }
    const double depth = (far - near - 2 * webs) / (2 * other.b);  // of the axis in the flange
    const double rest = other.t - depth;
    const double modulus = near * (s.hw + compressed.t / 2 + depth) + webs * (s.hw + 2 * depth) +
                           other.b * (depth * depth + rest * rest) / 2;
    return used > modulus * (1 + 1e-4);
}

}  // namespace

bool PlasticByClearHeight(const ProjectState& s)
{
    if (!HasTwoPlatedFlanges(s) || s.checkelastic == kTrue || !(s.d > 0)) {
        return false;
    }
    return (s.mymax > 0 && PlasticByClearHeight(s, TopSide(s, s), s.classmytop)) ||
           (s.mymin < 0 && PlasticByClearHeight(s, BottomSide(s, s), s.classmybot));
}

bool TakenAsDoublySymmetric(const ProjectState& s)
{
    if (!Is(s, Kind::i_single) || (s.btop == s.bbot && s.ttop == s.tbot)) {
        return false;
    }
    const bool plastic = s.ned != 0 && s.checkconsercontrol != kTrue;
    const bool sideways = BendsAboutZ(s) && s.classmz <= 2;
    const bool shear =
        1.0 * s.btop * s.ttop * s.ttop != 1.0 * s.bbot * s.tbot * s.tbot && WebBucklesInShear(s);
    return (plastic && (sideways || AxialForceLowersMoment(s))) || shear;
}

bool ClassThreeOfWholeFlange(const ProjectState& s, double b, double c, double t)
{
    const double eps = s.eps, slenderness = c / t;
    const double axial = s.ned * 1000 / s.a;  // MPa, compression positive
    for (int k = 0; k <= s.npts; ++k) {
        const double moment = s.mzsec[static_cast<std::size_t>(k)];
        const double tip = std::abs(moment) * 1e6 * (b / 2) / s.iz;
        const double root = std::abs(moment) * 1e6 * (b / 2 - c) / s.iz;
        if (moment == 0 || !(axial + tip > 0) || slenderness < 10 * eps) {
            continue;
        }
        const double whole = KSigmaOutstand((axial - tip) / (axial + tip));
        const double outstand = KSigmaOutstand((axial + root) / (axial + tip));
        if (slenderness <= 21 * eps * std::sqrt(whole) &&
            slenderness > 21 * eps * std::sqrt(outstand)) {
            return true;
        }
    }
    return false;
}

bool FlangeOfShearIsWide(const ProjectState& s)
{
    if (!FlangesHelpInShear(s)) {
        return false;
    }
    const double eps = s.eps;
    if (Is(s, Kind::i_welded, Kind::i_single)) {
        return s.b > 30 * eps * s.tf + s.tw;
    }
    const bool top = 1.0 * s.btop * s.ttop * s.ttop < 1.0 * s.bbot * s.tbot * s.tbot;
    const Flange flange = top ? TopFlange(s, s) : BottomFlange(s, s);
    return std::max({flange.inner / 2, flange.left, flange.right}) > 15 * eps * flange.t;
}

bool FlangeMomentIsHigh(const ProjectState& s)
{
    if (!FlangesHelpInShear(s) || Is(s, Kind::i_welded, Kind::box_unequal) || !BendsAboutY(s)) {
        return false;
    }
    const double weaker = std::min(1.0 * s.btop * s.ttop, 1.0 * s.bbot * s.tbot);  // mm2
    const double arm = s.hw + (1.0 * s.ttop + s.tbot) / 2;
    return s.mfrd > weaker * arm * s.fyk / s.gammam0 / 1e6;
}

bool ShearAreaOfOneFlange(const ProjectState& s)
{
    const bool flatbar = Traits(s).shape.stiffener == Stiffener::flat_bar;
    return (Is(s, Kind::tee) || flatbar) && LargestVz(s) != 0 && StockyInShear(s, s, s.hw, s.tw) &&
           s.neta * s.hw > s.hw + s.ttop / 2.0;
}

// z_j of the compressed flange of the single-symmetric I, exactly: the distance of the shear centre
// less half of the integral of (y^2 + z^2) z over Iy, on the side of that flange.
double ExactAsymmetry(const ProjectState& s, bool top)
{
    struct Part {
        double width, depth, z;  // mm; z of its middle above the lower edge
    };
    const Part parts[] = {{s.btop, s.ttop, s.h - s.ttop / 2.0},
                          {s.bbot, s.tbot, s.tbot / 2.0},
                          {s.tw, s.hw, s.tbot + s.hw / 2.0}};
    double integral = 0;
    for (const Part& part : parts) {
        const double z = part.z - s.zcog, area = part.width * part.depth;
        const double depth2 = part.depth * part.depth, width2 = part.width * part.width;
        integral += area * z * (z * z + depth2 / 4 + width2 / 12);
    }
    const double zj = s.zshear - integral / (2.0 * s.iy);
    return top ? zj : -zj;
}

bool UpgradeIsHigh(const ProjectState& s)
{
    if (!Is(s, Kind::hat)) {
        return false;
    }
    const FlangePlate top{s.btop, s.ttop}, bottom{s.bbot, s.tbot};
    return (s.mymax > 0 && s.classmytop == kUpgraded && UpgradedAbove(s, s.wplplus, top, bottom)) ||
           (s.mymin < 0 && s.classmybot == kUpgraded && UpgradedAbove(s, s.wplminus, bottom, top));
}

}  // namespace kestrum
