#pragma once

// Geometry and properties of rolled angles, EN 10056-1. The vertical leg is h, its outer face and
// the outer face of the leg b are the zero lines of ez and ey. u is the strong, v the weak
// principal axis.
//
// Points of the elastic check: 1 tip of the leg h, 2 heel, 3 tip of the leg b; wu and wv hold the
// principal moduli at them.

#include "core/library.h"
#include "core/state/inputs.h"
#include "core/state/section_record.h"

namespace kestrum {

void PropertiesAngle(const Library& library, const Inputs& in,
                     SectionRecord& section);  // 10 equal, 11 unequal

}  // namespace kestrum
