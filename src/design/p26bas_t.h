#pragma once

// Cross-section design of the welded T (family 26), EN 1993-1-1, 6.2 and EN 1993-1-5: axial force,
// and the bending and shear of its self-weight.

#include "core/project_state.h"

namespace kestrum {

void CalcEffectiveT(ProjectState& s);
void CalcResistanceT(ProjectState& s);
void ControlT(ProjectState& s);

}  // namespace kestrum
