#pragma once

// Geometry and properties of the sections that are entered as such: flat bar, circular tube and the
// general profile, of which the user gives the properties themselves. Each routine fills the
// section record completely.

#include "core/library.h"
#include "core/state/inputs.h"
#include "core/state/section_record.h"

namespace kestrum {

void PropertiesFlatBar(const Library& library, const Inputs& in, SectionRecord& section);  // 28
void PropertiesTube(const Library& library, const Inputs& in, SectionRecord& section);     // 31
void PropertiesGeneral(const Library& library, const Inputs& in, SectionRecord& section);  // 41

}  // namespace kestrum
