#pragma once

// Cross-section design of rectangular hollow sections (families 6 to 9) and of the welded box with
// equal flanges (23), EN 1993-1-1, 6.2 and EN 1993-1-5. The classes stand in class_hollow.h.

#include "core/state/forces.h"
#include "core/state/inputs.h"
#include "core/state/pass_outcome.h"
#include "core/state/resistances.h"
#include "core/state/section_checks.h"
#include "core/state/section_record.h"

namespace kestrum {

// Effective section of class 4, EN 1993-1-5, 4.4: aeff, weffy, weffz.
void CalcEffectiveHollow(const Inputs& in, SectionRecord& section);

// Classes of N, My and Mz alone and all resistances that do not depend on the loads.
void CalcResistanceHollow(const Inputs& in, SectionRecord& section, Resistances& resistances,
                          SectionChecks& checks);

// Shear resistances of the ratios: vbrd, vcyrd, shearnote.
void CalcShearHollow(const Inputs& in, const SectionRecord& section, Resistances& resistances,
                     const Forces& forces, SectionChecks& checks);

// Moment resistances reduced for the shear of the section in hand, 6.2.8: myrdv, mzrdv from
// classmyuse.
void ReduceMyHollow(const Inputs& in, const SectionRecord& section, const Resistances& resistances,
                    const Forces& forces, SectionChecks& checks);
void ReduceMzHollow(const Inputs& in, const SectionRecord& section, const Resistances& resistances,
                    const Forces& forces, SectionChecks& checks);

// Moment resistances reduced for the axial force, 6.2.9.1 (5): mnyrd, mnzrd from myrdv, mzrdv.
void CalcMNyHollow(const Inputs& in, const SectionRecord& section, const Resistances& resistances,
                   const Forces& forces, SectionChecks& checks);
void CalcMNzHollow(const Inputs& in, const SectionRecord& section, const Resistances& resistances,
                   const Forces& forces, SectionChecks& checks);

void ControlHollow(const Inputs& in, SectionRecord& section, Resistances& resistances,
                   const Forces& forces, SectionChecks& checks, PassOutcome& outcome);

}  // namespace kestrum
