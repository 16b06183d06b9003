#pragma once

// Geometry and properties of the welded T (family 26), counted from the face of the flange.

#include "core/library.h"
#include "core/state/inputs.h"
#include "core/state/section_record.h"

namespace kestrum {

void PropertiesT(const Library& library, const Inputs& in, SectionRecord& section);

}  // namespace kestrum
