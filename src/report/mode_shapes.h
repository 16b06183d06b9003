#pragma once

// The shapes of a beam's first three natural modes, as the modal form shows them.

#include "report/member_drawing.h"

namespace kestrum {

// Ordinate of mode 1..3 of an even beam at the part x of its length, the largest being 1. Zero for
// the supports with springs, which have no closed form.
double ModeShape(int supportcase, int mode, double x);

// The member with mode 1..3 of its supports.
Drawing DrawModeShape(const ProjectState& s, int mode);

}  // namespace kestrum
