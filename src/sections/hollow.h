#pragma once

// Geometry and properties of rectangular hollow sections, hot finished (EN 10210-2) and cold formed
// (EN 10219-2), and of the welded box. Each routine fills the section record completely.

#include "core/library.h"
#include "core/state/inputs.h"
#include "core/state/section_record.h"

namespace kestrum {

void PropertiesHollow(const Library& library, const Inputs& in, SectionRecord& section);  // 6 to 9
void PropertiesBox(const Library& library, const Inputs& in, SectionRecord& section);     // 23

}  // namespace kestrum
