#pragma once

// Cross-section design of the welded box with unequal flanges (family 27), EN 1993-1-1, 6.2 and
// EN 1993-1-5, for My and Vz. Its control is ControlHsq.

#include "core/project_state.h"

namespace kestrum {

void CalcEffectiveBox(ProjectState& s);

// Class in bending that compresses the top, or the bottom.
i16 ClassBox(const ProjectState& s, bool top);

void CalcResistanceBox(ProjectState& s);

}  // namespace kestrum
