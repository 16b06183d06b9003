#pragma once

// Geometry and properties of the welded I with unequal flanges (family 22).

#include "core/library.h"

namespace kestrum {

void PropertiesSingleSymmetricI(const Library& library, const Inputs& in, SectionRecord& section);

}  // namespace kestrum
