#pragma once

// Deflection control, EN 1993-1-1, 7.2.1: the largest deflection of the serviceability combination
// against L/n, about each axis.

#include "core/state/forces.h"
#include "core/state/inputs.h"
#include "core/state/section_checks.h"

namespace kestrum {

// Takes the checks deflection_z and deflection_y from dzmax .. dymin [mm], l [m], deflimitz,
// deflimity and irlimit; an axis without deflection has none.
//
// Deviation D258: the whole deflection is compared, without a precamber; EN 1990, A1.4.3 (1) lets
// wc be taken off.
void DeflectionControl(const Inputs& in, const Forces& forces, SectionChecks& checks);

}  // namespace kestrum
