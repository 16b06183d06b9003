#pragma once

// Geometry and properties of a strip of plate with one stiffener: flat bar (family 51), rolled
// angle (52), welded angle (53), bulb flat (54), T (56). Counted from the face of the plate, which
// is the top; stiffener flange below.

#include "core/library.h"
#include "core/state/inputs.h"
#include "core/state/section_record.h"

namespace kestrum {

void PropertiesPlate(const Library& library, const Inputs& in, SectionRecord& section);

}  // namespace kestrum
