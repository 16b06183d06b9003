#pragma once

// Cross-section design of a plate with one stiffener (families 51 to 54, 56), EN 1993-1-1, 6.2 and
// EN 1993-1-5, for My and Vz, and the critical moment of the stiffener's tripping.

#include "core/project_state.h"

namespace kestrum {

void CalcEffectivePlate(ProjectState& s);

// Class in bending that compresses the plate, or the stiffener.
i16 ClassPlate(const ProjectState& s, bool plate);

void CalcResistancePlate(ProjectState& s);
void ControlPlate(ProjectState& s);

// Elastic critical moment with the buckling length in mm, Nmm.
double PlateMcr(const ProjectState& s, double length_mm);

}  // namespace kestrum
