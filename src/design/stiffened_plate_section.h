#pragma once

// Cross-section design of a plate with one stiffener (families 51 to 54, 56), EN 1993-1-1, 6.2 and
// EN 1993-1-5, for My and Vz, and the critical moment of the stiffener's tripping.

#include "core/state/forces.h"
#include "core/state/inputs.h"
#include "core/state/pass_outcome.h"
#include "core/state/resistances.h"
#include "core/state/section_checks.h"
#include "core/state/section_record.h"

namespace kestrum {

bool HasFlatBar(const Inputs& in);

void CalcEffectivePlate(const Inputs& in, SectionRecord& section);

// Class in bending that compresses the plate, or the stiffener.
i16 ClassPlate(const Inputs& in, const SectionRecord& section, bool plate);

void CalcResistancePlate(const Inputs& in, SectionRecord& section, Resistances& resistances,
                         SectionChecks& checks);
void ControlPlate(const Inputs& in, SectionRecord& section, Resistances& resistances,
                  const Forces& forces, SectionChecks& checks, PassOutcome& outcome);

// Elastic critical moment with the buckling length in mm, Nmm.
double PlateMcr(const Inputs& in, const SectionRecord& section, double length_mm);

}  // namespace kestrum
