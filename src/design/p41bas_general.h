#pragma once

// Cross-section design of the general profile (family 41), whose properties and classes are
// entered, EN 1993-1-1, 6.2.

#include "core/project_state.h"

namespace kestrum {

// All resistances that do not depend on the loads. Reads classn, classmy, classmz as entered.
void CalcResistanceGeneral(ProjectState& s);

void ControlGeneral(ProjectState& s);

}  // namespace kestrum
