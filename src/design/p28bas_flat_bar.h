#pragma once

// Cross-section design of the flat bar on edge (family 28), bent about its strong axis, EN
// 1993-1-1, 6.2.

#include "core/project_state.h"

namespace kestrum {

// All resistances that do not depend on the loads; the class is 1 throughout.
void CalcResistanceFlatBar(ProjectState& s);

void ControlFlatBar(ProjectState& s);

}  // namespace kestrum
