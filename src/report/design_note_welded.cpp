#include "report/design_note_welded.h"

#include "core/arithmetic_trap.h"
#include "design/class_welded.h"
#include "design/local_buckling.h"
#include "design/p22bas_single_symmetric_i.h"
#include "report/design_note_facts.h"

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
    const bool withn = s.family == 22 && s.ned != 0 && PlasticWeb(s, side, s.ned, false) &&
                       !PlasticWeb(s, side, s.ned, true);
    return side.webin > 0 && (alone || withn);
}

// N moves the plastic axis away from the centroid, and the moment about it falls from the start.
bool AxialForceLowersMoment(const ProjectState& s)
{
    const double away = s.ned * (s.zcog - s.zpl);
    for (int k = 0; k <= s.npts; ++k) {
        const double my = s.mysec[static_cast<std::size_t>(k)];
        if (away * my > 0 && ClassWelded(s, F32(s.ned), F32(my)) <= 2) {
            return true;
        }
    }
    return false;
}

}  // namespace

bool PlasticByClearHeight(const ProjectState& s)
{
    const bool covered = s.family == 22 || IsHatBeam(s.family) || s.family == 27 ||
                         (IsPlate(s.family) && s.family != 51);
    if (!covered || s.checkelastic == kTrue || !(s.d > 0)) {
        return false;
    }
    return (s.mymax > 0 && PlasticByClearHeight(s, TopSide(s), s.classmytop)) ||
           (s.mymin < 0 && PlasticByClearHeight(s, BottomSide(s), s.classmybot));
}

bool TakenAsDoublySymmetric(const ProjectState& s)
{
    if (s.family != 22 || (s.btop == s.bbot && s.ttop == s.tbot)) {
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

}  // namespace kestrum
