#pragma once

// Angles in bending and compression: factors of the interaction about the principal axes v and u,
// formed after EN 1993-1-1, 6.3.3.

#include "core/project_state.h"

namespace kestrum {

// cmv, cmu for loads on the member and for given end forces.
void CmAngleLoads(ProjectState& s);
void CmAngleForces(ProjectState& s);

// kvv, kvu.
void KAngleAnnexA(ProjectState& s);
void KAngleAnnexB(ProjectState& s);

// Moments and resistances of the principal axes, kNm.
struct PrincipalMoments {
    double mu, mv, murd, mvrd;
};
PrincipalMoments AnglePrincipalMoments(const ProjectState& s);

}  // namespace kestrum
