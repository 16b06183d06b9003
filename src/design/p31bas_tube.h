#pragma once

// Cross-section design of circular tubes (family 31), EN 1993-1-1, 6.2.

#include "core/project_state.h"

namespace kestrum {

// Class and all resistances that do not depend on the loads.
void CalcResistanceTube(ProjectState& s);

void ControlTube(ProjectState& s);

}  // namespace kestrum
