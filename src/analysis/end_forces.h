#pragma once

// A member with given end forces in place of loads: all lines run straight from end to end.

#include "core/state/forces.h"
#include "core/state/inputs.h"

namespace kestrum {

// Forces along the member, extremes, quarter points, crossings, end ratios and design moments from
// ne, my1 .. vz2. Needs the check sections. Deflections, positions of extremes and the moment
// shapes stay as they are.
void CalcEndForceMode(const Inputs& in, Forces& forces);

}  // namespace kestrum
