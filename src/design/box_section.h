#pragma once

// Cross-section design of the welded box with unequal flanges (family 27), EN 1993-1-1, 6.2 and
// EN 1993-1-5, for My and Vz. Its control is ControlHsq.

#include "core/state/inputs.h"
#include "core/state/resistances.h"
#include "core/state/section_checks.h"
#include "core/state/section_record.h"

namespace kestrum {

void CalcEffectiveBox(const Inputs& in, SectionRecord& section);

// Class in bending that compresses the top, or the bottom.
i16 ClassBox(const Inputs& in, const SectionRecord& section, bool top);

void CalcResistanceBox(const Inputs& in, SectionRecord& section, Resistances& resistances,
                       SectionChecks& checks);

}  // namespace kestrum
