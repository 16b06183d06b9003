#pragma once

// Cross-section design of the welded T (family 26), EN 1993-1-1, 6.2 and EN 1993-1-5: axial force,
// and the bending and shear of its self-weight.

#include "core/state/forces.h"
#include "core/state/inputs.h"
#include "core/state/pass_outcome.h"
#include "core/state/resistances.h"
#include "core/state/section_checks.h"
#include "core/state/section_record.h"

namespace kestrum {

void CalcEffectiveT(const Inputs& in, SectionRecord& section);
void CalcResistanceT(const Inputs& in, SectionRecord& section, Resistances& resistances,
                     SectionChecks& checks);
void ControlT(const Inputs& in, SectionRecord& section, Resistances& resistances,
              const Forces& forces, SectionChecks& checks, PassOutcome& outcome);

}  // namespace kestrum
