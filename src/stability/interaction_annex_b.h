#pragma once

// Interaction factors of members in bending and compression, EN 1993-1-1, 6.3.3 and Annex B.

#include "core/project_state.h"

namespace kestrum {

// cmy, cmz, cmlt for loads on the member and for given end forces.
void CmAnnexBLoads(ProjectState& s);
void CmAnnexBForces(ProjectState& s);

// kyy, kyz, kzy, kzz.
void KFactorsAnnexB(ProjectState& s);

}  // namespace kestrum
