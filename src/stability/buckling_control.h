#pragma once

// Member control, EN 1993-1-1, 6.3: lateral torsional buckling, flexural buckling about each axis
// and the interaction with bending. Takes the checks of the rows y, z and lateral with their ratios
// irrow4, irrow5, irrow6 and the governing ratio maxirbuckling. One routine per group of families;
// each expects the section control of the family to have run in this pass. An axial force above an
// elastic critical force, where the interaction cannot be formed, sets errorflag to -1 and leaves
// at once.

#include "core/state/carry.h"
#include "core/state/forces.h"
#include "core/state/inputs.h"
#include "core/state/pass_outcome.h"
#include "core/state/resistances.h"
#include "core/state/section_checks.h"
#include "core/state/section_record.h"
#include "core/state/stability.h"

namespace kestrum {

// Empties the three rows and their ratios, for a member without this control.
void ClearBucklingRows(SectionChecks& checks, Stability& stability);

void BucklingControlRolledI(const Inputs& in, SectionRecord& section,
                            const Resistances& resistances, Forces& forces, SectionChecks& checks,
                            Stability& stability, Carry& carry,
                            PassOutcome& outcome);  // I sections, channels, general profile
void BucklingControlHollow(const Inputs& in, SectionRecord& section, const Resistances& resistances,
                           Forces& forces, SectionChecks& checks, Stability& stability,
                           Carry& carry, PassOutcome& outcome);  // hollow sections, box, tube
void BucklingControlWeldedI(const Inputs& in, SectionRecord& section,
                            const Resistances& resistances, Forces& forces, SectionChecks& checks,
                            Stability& stability, Carry& carry,
                            PassOutcome& outcome);  // single-symmetric I
void BucklingControlFlatBar(const Inputs& in, SectionRecord& section,
                            const Resistances& resistances, Forces& forces, SectionChecks& checks,
                            Stability& stability, Carry& carry,
                            PassOutcome& outcome);  // with compression only
void BucklingControlAngle(const Inputs& in, SectionRecord& section, const Resistances& resistances,
                          Forces& forces, SectionChecks& checks, Stability& stability, Carry& carry,
                          PassOutcome& outcome);  // with compression only
void BucklingControlT(const Inputs& in, SectionRecord& section, const Resistances& resistances,
                      Forces& forces, SectionChecks& checks, Stability& stability, Carry& carry,
                      PassOutcome& outcome);  // with compression only
void BucklingControlPlate(const Inputs& in, SectionRecord& section, const Resistances& resistances,
                          Forces& forces, SectionChecks& checks, Stability& stability, Carry& carry,
                          PassOutcome& outcome);  // lateral torsional buckling only

}  // namespace kestrum
