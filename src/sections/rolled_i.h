#pragma once

// Geometry and properties of doubly symmetric I and H sections: rolled series from their tables,
// the welded I from its plates. Each routine fills the section record completely.

#include "core/library.h"
#include "core/state/inputs.h"
#include "core/state/section_record.h"

namespace kestrum {

void PropertiesRolledI(const Library& library, const Inputs& in,
                       SectionRecord& section);  // 1 HEA, 2 HEB, 3 HEM, 4 IPE
void PropertiesInp(const Library& library, const Inputs& in, SectionRecord& section);  // 15
void PropertiesBritishI(const Library& library, const Inputs& in,
                        SectionRecord& section);  // 101 UB, UC, UBP; 102 J
void PropertiesWeldedI(const Library& library, const Inputs& in, SectionRecord& section);  // 21

}  // namespace kestrum
