#pragma once

// Geometry and properties of welded sections with two webs and unequal flanges: the hat beams with
// a bottom flange on both sides (family 24) or on one side (25), and the box (27).

#include "core/library.h"
#include "core/state/inputs.h"
#include "core/state/section_record.h"

namespace kestrum {

void PropertiesHsq(const Library& library, const Inputs& in, SectionRecord& section);  // 24, 25
void PropertiesUnequalBox(const Library& library, const Inputs& in, SectionRecord& section);  // 27

}  // namespace kestrum
