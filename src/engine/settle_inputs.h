#pragma once

// The one place where a pass overwrites inputs, so that record, forms and files show what was
// calculated. Each routine runs at the step that finds out what it needs: before that, a pass that
// fails leaves the input as the user gave it.

#include "core/library.h"
#include "core/state/inputs.h"

namespace kestrum {

struct DroppedLoads;
struct SectionRecord;

// Yield strength by steel and thickness; the web option that the upgrade of a hat section rules
// out. After the properties, which find the thickness.
void SettleMaterial(const Library& library, const Inputs& in, Settings& settings,
                    SectionRecord& section);

// Lateral torsional buckling: off for sections that cannot have it, and the general case for those
// that have no other. After the resistances.
void SettleLateralBuckling(const Inputs& in, MemberInputs& member);

// Loads or end forces that the section cannot take; self-weight.
void SettleLoads(const Inputs& in, LoadInputs& loads, const SectionRecord& section,
                 DroppedLoads& dropped);

// Removes what the family cannot carry.
//
// Deviation D106: a T section (26) carries entered axial forces only, HSQ beams, boxes of unequal
// flanges and stiffened plates bending about y only, a flat bar no bending about z; EN 1993-1-1,
// 6.2.9 knows no such limit. The rows are emptied, so that they show what has been calculated.
void ClearInvalidLoads(const Inputs& in, LoadInputs& loads, DroppedLoads& dropped);

// Row 0 of the uniform loads.
//
// Deviation D103: 1 kg/m weighs 0.01 kN/m; EN 1991-1-1, 5.1 with g = 9.81 m/s2 gives 0.00981.
void SetSelfweight(LoadInputs& loads, const SectionRecord& section);

// An overloaded flange takes no load from here on. After the section control.
void SettleFlangeLoading(SectionForms& forms);

// A general profile has no outline to place a load on: it acts at the centroid. Before lateral
// torsional buckling.
void SettleLoadLevel(const Inputs& in, MemberInputs& member);

}  // namespace kestrum
