#pragma once

// Cross-section design of equal and unequal angles (families 10, 11), EN 1993-1-1, 6.2.1 (5):
// elastic stresses at three points, 1 tip of the leg h, 2 heel, 3 tip of the leg b.

#include "core/state/forces.h"
#include "core/state/inputs.h"
#include "core/state/pass_outcome.h"
#include "core/state/resistances.h"
#include "core/state/section_checks.h"
#include "core/state/section_record.h"

namespace kestrum {

// Class, effective area of class 4 and all resistances, with those of the points.
void CalcResistanceAngle(const Inputs& in, SectionRecord& section, Resistances& resistances,
                         SectionChecks& checks);

void ControlAngle(const Inputs& in, SectionRecord& section, Resistances& resistances,
                  const Forces& forces, SectionChecks& checks, PassOutcome& outcome);

}  // namespace kestrum
