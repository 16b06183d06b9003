#pragma once

// Internal forces and deflections of the member in a load combination: superposition of closed
// formulas for each load, EN 1990, 6.4.3.2 and 6.5.3 for the factors, EN 1993-1-1, 5.4.2 for the
// analysis.

#include "core/state/annex_factors.h"
#include "core/state/forces.h"
#include "core/state/inputs.h"
#include "core/state/section_record.h"

namespace kestrum {

struct LoadTable;

// Positions of the section control, xi and npts.
//
// Deviation D109: eleven even points and a pair at each point load, or the user's own points, are
// controlled; EN 1993-1-1, 6.2.1 (1) asks for every cross-section.
void MakeCheckSections(const Inputs& in, Forces& forces);

// Whether loads bend the member about y and about z: hasyloads, haszloads.
void MarkLoadedAxes(const Inputs& in, const LoadTable& table, Forces& forces);

// Forces, deflections, extremes and design moments in the combination 0, 1, 2, 4 or 5; any other
// combines nothing. Failures of arithmetic are left in the status flags for the caller, who has
// armed them.
void AnalyseCombination(const Inputs& in, const AnnexFactors& annex, const SectionRecord& section,
                        const LoadTable& table, int loadcomb, Forces& forces);

}  // namespace kestrum
