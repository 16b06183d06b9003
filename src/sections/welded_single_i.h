#pragma once

// Geometry and properties of the welded I with unequal flanges (family 22).

#include "core/library.h"
#include "core/state/inputs.h"
#include "core/state/section_record.h"

namespace kestrum {

void PropertiesSingleSymmetricI(const Library& library, const Inputs& in, SectionRecord& section);

}  // namespace kestrum
