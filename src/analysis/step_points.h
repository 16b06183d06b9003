#pragma once

// Moment and shear at the places where they jump or bend: what the drawn lines need besides the 51
// points of the diagrams, between which a step would show as a slope. Nothing is controlled with
// these values.

#include "analysis/load_table.h"
#include "core/state/carry.h"

#include <vector>

namespace kestrum {

struct StepPoint {
    double at;    // x/L
    double m, v;  // kNm, kN
};

// Just before and just behind every point force, moment and strip of a trapezoidal load (D101) that
// bends about the axis, in ascending order, under the combination in force: with Eq 6.10a and 6.10b
// the governing one. Empty with given end forces.
std::vector<StepPoint> StepPoints(const Inputs& in, const AnnexFactors& annex, const Carry& carry,
                                  const Forces& forces, BendingAxis axis);

}  // namespace kestrum
