#pragma once

// The shape in which a member buckles sideways.

#include "clauses/critical_moment.h"
#include "report/drawing.h"

namespace kestrum {

struct ProjectState;

// Seen from above: lateral deflection of the shear centre and twist, each to its own largest value.
Drawing DrawBucklingShape(const ProjectState& s, const BucklingShape& shape);

}  // namespace kestrum
