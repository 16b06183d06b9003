#pragma once

// Cross-section design of the flat bar on edge (family 28), bent about its strong axis, EN
// 1993-1-1, 6.2.

#include "core/state/forces.h"
#include "core/state/inputs.h"
#include "core/state/pass_outcome.h"
#include "core/state/resistances.h"
#include "core/state/section_checks.h"
#include "core/state/section_record.h"

namespace kestrum {

// All resistances that do not depend on the loads; the class is 1 throughout.
void CalcResistanceFlatBar(const Inputs& in, SectionRecord& section, Resistances& resistances,
                           SectionChecks& checks);

void ControlFlatBar(const Inputs& in, SectionRecord& section, Resistances& resistances,
                    const Forces& forces, SectionChecks& checks, PassOutcome& outcome);

}  // namespace kestrum
