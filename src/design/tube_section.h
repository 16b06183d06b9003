#pragma once

// Cross-section design of circular tubes (family 31), EN 1993-1-1, 6.2.

#include "core/state/forces.h"
#include "core/state/inputs.h"
#include "core/state/pass_outcome.h"
#include "core/state/resistances.h"
#include "core/state/section_checks.h"
#include "core/state/section_record.h"

namespace kestrum {

// Class and all resistances that do not depend on the loads.
void CalcResistanceTube(const Inputs& in, SectionRecord& section, Resistances& resistances,
                        SectionChecks& checks);

void ControlTube(const Inputs& in, SectionRecord& section, Resistances& resistances,
                 const Forces& forces, SectionChecks& checks, PassOutcome& outcome);

}  // namespace kestrum
