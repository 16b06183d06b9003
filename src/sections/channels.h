#pragma once

// Geometry and properties of rolled channels from their tables. Each routine fills the section
// record completely. ecg is the centroid from the web back, ys the rest of the way to the shear
// centre as the table counts it, so that ecg + ys is the distance between the two (D54 for UPE).

#include "core/library.h"
#include "core/state/inputs.h"
#include "core/state/section_record.h"

namespace kestrum {

void PropertiesUpe(const Library& library, const Inputs& in, SectionRecord& section);  // 5
void PropertiesUnp(const Library& library, const Inputs& in, SectionRecord& section);  // 16
void PropertiesBritishChannel(const Library& library, const Inputs& in,
                              SectionRecord& section);  // 103 CH, PFC

}  // namespace kestrum
