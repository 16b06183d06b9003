#pragma once

// Buckling curves of EN 1993-1-1, Tables 6.1 and 6.2: the curve of each axis by section, steel and
// thickness, or as the user chose it.

#include "core/state/carry.h"
#include "core/state/inputs.h"
#include "core/state/section_record.h"

namespace kestrum {

// Sets curvey, alphay, curvez, alphaz.
void BucklingCurves(const Inputs& in, const SectionRecord& section, Carry& carry);

}  // namespace kestrum
