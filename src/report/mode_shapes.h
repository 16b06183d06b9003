#pragma once

// The shapes of a beam's first three natural modes, as the modal form shows them.

#include "report/member_drawing.h"

namespace kestrum {

// Ordinate of mode 1..3 of an even beam at the part x of its length, the largest being 1. Zero for
// the supports with springs, which have no closed form.
double ModeShape(int supportcase, int mode, double x);

// Mass, and the three modes with frequency and period.
Drawing DrawModeShapes(const ProjectState& s);

}  // namespace kestrum
