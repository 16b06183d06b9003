#pragma once

// Cross-section design of equal and unequal angles (families 10, 11), EN 1993-1-1, 6.2.1 (5):
// elastic stresses at three points, 1 tip of the leg h, 2 heel, 3 tip of the leg b.

#include "core/project_state.h"

namespace kestrum {

// Class, effective area of class 4 and all resistances, with those of the points.
void CalcResistanceAngle(ProjectState& s);

void ControlAngle(ProjectState& s);

}  // namespace kestrum
