#pragma once

// Angles in bending and compression: factors of the interaction about the principal axes v and u,
// formed after EN 1993-1-1, 6.3.3.

#include "core/state/forces.h"
#include "core/state/inputs.h"
#include "core/state/resistances.h"
#include "core/state/section_record.h"
#include "core/state/stability.h"

namespace kestrum {

// cmv, cmu for loads on the member and for given end forces.
void CmAngleLoads(const Inputs& in, const SectionRecord& section, const Forces& forces,
                  Stability& stability);
void CmAngleForces(const Forces& forces, Stability& stability);

// kvv, kvu.
void KAngleAnnexA(const Forces& forces, Stability& stability);
void KAngleAnnexB(const Forces& forces, Stability& stability);

// Moments and resistances of the principal axes, kNm.
struct PrincipalMoments {
    double mu, mv, murd, mvrd;
};
PrincipalMoments AnglePrincipalMoments(const Inputs& in, const SectionRecord& section,
                                       const Resistances& resistances, const Forces& forces);

}  // namespace kestrum
