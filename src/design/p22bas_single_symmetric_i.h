#pragma once

// Cross-section design of the welded I with unequal flanges (family 22), EN 1993-1-1, 6.2 and
// EN 1993-1-5. As that of doubly symmetric I sections (p01bas), but with class, effective section
// and resistance of My once for each sign.

#include "core/project_state.h"

namespace kestrum {

// Effective section of class 4: aeff, weffytop1 .. weffybot2, weffy, weffz.
void CalcEffectiveSingleI(ProjectState& s);

// Class with n [kN], positive in compression, and My [kNm], positive when it compresses the top.
i16 ClassWelded(const ProjectState& s, float n, float m);

void CalcResistanceSingleI(ProjectState& s);
void ControlSingleI(ProjectState& s);

}  // namespace kestrum
