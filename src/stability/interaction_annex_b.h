#pragma once

// Interaction factors of members in bending and compression, EN 1993-1-1, 6.3.3 and Annex B.

#include "core/state/carry.h"
#include "core/state/forces.h"
#include "core/state/inputs.h"
#include "core/state/section_record.h"
#include "core/state/stability.h"

namespace kestrum {

// cmy, cmz, cmlt for loads on the member and for given end forces.
void CmAnnexBLoads(const SectionRecord& section, Forces& forces, Stability& stability);
void CmAnnexBForces(Stability& stability);

// kyy, kyz, kzy, kzz.
void KFactorsAnnexB(const Inputs& in, const SectionRecord& section, const Forces& forces,
                    Stability& stability, Carry& carry);

}  // namespace kestrum
