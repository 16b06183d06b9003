#pragma once

// Cross-section design of the general profile (family 41), whose properties and classes are
// entered, EN 1993-1-1, 6.2.

#include "core/state/forces.h"
#include "core/state/inputs.h"
#include "core/state/pass_outcome.h"
#include "core/state/resistances.h"
#include "core/state/section_checks.h"
#include "core/state/section_record.h"

namespace kestrum {

// All resistances that do not depend on the loads. Reads classn, classmy, classmz as entered.
void CalcResistanceGeneral(const Inputs& in, SectionRecord& section, Resistances& resistances,
                           SectionChecks& checks);

void ControlGeneral(const Inputs& in, SectionRecord& section, Resistances& resistances,
                    const Forces& forces, SectionChecks& checks, PassOutcome& outcome);

}  // namespace kestrum
