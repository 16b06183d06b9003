#include "stability/interaction_angle.h"

#include "stability/interaction_annex_a.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

namespace kestrum {
namespace {

// The smallest resistance of the three points, with gammaM1. A point on the axis has none (0).
double Smallest(const Inputs& in, const Rows<double, 3>& resistance)
{
    double smallest = std::numeric_limits<double>::max();
    for (std::size_t point = 1; point <= 3; ++point) {
        if (resistance[point] != 0) {
            smallest = std::min(smallest, resistance[point]);
        }
    }
    return smallest * in.gammam0 / in.gammam1;
}

}  // namespace

// The u axis takes the shape of the moments about y, the v axis that of z.
void CmAngleLoads(const Inputs& in, const SectionRecord& section, const Forces& forces,
                  Stability& stability)
{
    stability.cmu = CmLoads(in, ShapeY(forces), section.iu, forces.ned / stability.ncru);
    stability.cmv = CmLoads(in, ShapeZ(forces), section.iv, forces.ned / stability.ncrv);
}

void CmAngleForces(const Forces& forces, Stability& stability)
{
    stability.cmu = CmEndMoments(forces.psiy, forces.ned / stability.ncru);
    stability.cmv = CmEndMoments(forces.psiz, forces.ned / stability.ncrv);
}

// Elastic column of Table A.1.
// Deviation D226: the slenderness of the uniform moment is taken as 1 and CmLT as 1 for angles, and
// there is no lateral torsional check of them; 6.3.2 has no exception for angles.
void KAngleAnnexA(const Forces& forces, Stability& stability)
{
    stability.cmlt = 1.0f;
    stability.kvv = stability.cmv * MuOverRest(stability.chiv, forces.ned / stability.ncrv);
    stability.kvu =
        stability.cmu * stability.cmlt * stability.muz / Rest(forces.ned / stability.ncru);
}

// Table B.1, elastic.
// Deviation D227: kvu is kvv, with the factors of the v axis; by the scheme of Table B.1 it would
// rest on the moments about u.
void KAngleAnnexB(const Forces& forces, Stability& stability)
{
    const double n = forces.ned / stability.nbvrd;
    stability.kvv =
        std::min(stability.cmv * (1.0 + 0.6 * stability.lamv * n), stability.cmv * (1.0 + 0.6 * n));
    stability.kvu = stability.kvv;
}

// mzdesign has no sign, so that the moments add up as sizes (an upper bound).
//   in   mydesign, mzdesign, mru, mrv [kNm], alfa [degrees]
PrincipalMoments AnglePrincipalMoments(const Inputs& in, const SectionRecord& section,
                                       const Resistances& resistances, const Forces& forces)
{
    const double turn = section.alfa * std::numbers::pi / 180.0;
    const double my = std::abs(forces.mydesign);
    const double mz = forces.mzdesign;
    return {my * std::cos(turn) + mz * std::sin(turn), my * std::sin(turn) + mz * std::cos(turn),
            Smallest(in, resistances.mru), Smallest(in, resistances.mrv)};
}

}  // namespace kestrum
