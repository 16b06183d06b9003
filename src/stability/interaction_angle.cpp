#include "stability/interaction_angle.h"

#include "stability/interaction_annex_a.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

namespace kestrum {
namespace {

// The smallest resistance of the three points, with gammaM1. A point on the axis has none (0).
double Smallest(const ProjectState& s, const Rows<double, 3>& resistance)
{
    double smallest = std::numeric_limits<double>::max();
    for (std::size_t point = 1; point <= 3; ++point) {
        if (resistance[point] != 0) {
            smallest = std::min(smallest, resistance[point]);
        }
    }
    return smallest * s.gammam0 / s.gammam1;
}

}  // namespace

// The u axis takes the shape of the moments about y, the v axis that of z.
void CmAngleLoads(ProjectState& s)
{
    s.cmu = CmLoads(s, ShapeY(s), s.iu, s.ned / s.ncru);
    s.cmv = CmLoads(s, ShapeZ(s), s.iv, s.ned / s.ncrv);
}

void CmAngleForces(ProjectState& s)
{
    s.cmu = CmEndMoments(s.psiy, s.ned / s.ncru);
    s.cmv = CmEndMoments(s.psiz, s.ned / s.ncrv);
}

// Elastic column of Table A.1.
// Deviation D226: the slenderness of the uniform moment is taken as 1 and CmLT as 1 for angles, and
// there is no lateral torsional check of them; 6.3.2 has no exception for angles.
void KAngleAnnexA(ProjectState& s)
{
    s.cmlt = 1.0f;
    s.kvv = s.cmv * MuOverRest(s.chiv, s.ned / s.ncrv);
    s.kvu = s.cmu * s.cmlt * s.muz / Rest(s.ned / s.ncru);
}

// Table B.1, elastic.
// Deviation D227: kvu is kvv, with the factors of the v axis; by the scheme of Table B.1 it would
// rest on the moments about u.
void KAngleAnnexB(ProjectState& s)
{
    const double n = s.ned / s.nbvrd;
    s.kvv = std::min(s.cmv * (1.0 + 0.6 * s.lamv * n), s.cmv * (1.0 + 0.6 * n));
    s.kvu = s.kvv;
}

// mzdesign has no sign, so that the moments add up as sizes (an upper bound).
//   in   mydesign, mzdesign, mru, mrv [kNm], alfa [degrees]
PrincipalMoments AnglePrincipalMoments(const ProjectState& s)
{
    const double turn = s.alfa * std::numbers::pi / 180.0;
    const double my = std::abs(s.mydesign);
    const double mz = s.mzdesign;
    return {my * std::cos(turn) + mz * std::sin(turn), my * std::sin(turn) + mz * std::cos(turn),
            Smallest(s, s.mru), Smallest(s, s.mrv)};
}

}  // namespace kestrum
