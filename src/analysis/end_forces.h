#pragma once

// A member with given end forces in place of loads: all lines run straight from end to end.

#include "core/project_state.h"

namespace kestrum {

// Forces along the member, extremes, quarter points, crossings, end ratios and design moments from
// ne, my1 .. vz2; empties the end forces that the family cannot carry (deviation D106). Needs the
// check sections. Deflections, positions of extremes and the moment shapes stay as they are.
void CalcEndForceMode(ProjectState& s);

}  // namespace kestrum
