#pragma once

// Cross-section design of the hat beams (families 24, 25), EN 1993-1-1, 6.2 and EN 1993-1-5, for My
// and Vz. The control also serves the box with unequal flanges (27).

#include "core/project_state.h"

#include <string_view>

namespace kestrum {

// What the user reads when a pass has set flangeoverload.
inline constexpr std::string_view kFlangeOverload =
    " Flange overloaded! Program removes flangeloading ";

void CalcEffectiveHsq(ProjectState& s);

// Class in bending that compresses the top, or the bottom; 23 for a class 3 web that
// 6.2.2.4 replaces by an effective class 2 web.
i16 ClassHsq(const ProjectState& s, bool top);

void CalcResistanceHsq(ProjectState& s);

// Reduction of My,Rd by the load `qsum` on the bottom flange, at most 1; a flange too weak for it
// switches the option off.
double FlangeFactor(ProjectState& s);

void ControlHsq(ProjectState& s);

}  // namespace kestrum
