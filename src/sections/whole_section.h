#pragma once

// Whether the parts of a section fit together. The boxes bound each dimension alone, a file bounds
// none: two flanges may be thicker than the section is high.

#include "core/state/inputs.h"
#include "core/state/section_record.h"

namespace kestrum {

// Stops the pass with the cause when parts overlap, a clear web or flat is not positive, or an
// area, second moment or modulus is not. To be called after the properties of the family.
void RequireWholeSection(const Inputs& in, const SectionRecord& section);

}  // namespace kestrum
