#pragma once

// Internal forces and deflections of the member in the load combination in force: superposition of
// closed formulas for each load, EN 1990, 6.4.3.2 and 6.5.3 for the factors, EN 1993-1-1, 5.4.2 for
// the analysis.

#include "core/project_state.h"

namespace kestrum {

// Check sections, loads the family can carry, self-weight, forces, deflections, extremes and design
// moments. In the combination of Eq 6.10a and 6.10b `control` (section and buckling control) runs
// once for each and the worse one stays; an errorflag set by it ends the routine at once. Failures
// of arithmetic are left in the status flags for the caller, who has armed them.
void CalcMember(ProjectState& s, void (*control)(ProjectState&));

// Positions of the section control, xi and npts.
//
// Deviation D109: eleven even points and a pair at each point load, or the user's own points, are
// controlled; EN 1993-1-1, 6.2.1 (1) asks for every cross-section.
void MakeCheckSections(const Inputs& in, Forces& forces);

// Removes what the family cannot carry.
//
// Deviation D106: a T section (26) carries entered axial forces only, HSQ beams, boxes of unequal
// flanges and stiffened plates bending about y only, a flat bar no bending about z; EN 1993-1-1,
// 6.2.9 knows no such limit. The rows are emptied, so that they show what has been calculated.
void ClearInvalidLoads(const Inputs& in, LoadInputs& loads, PassOutcome& outcome);

// Row 0 of the uniform loads.
//
// Deviation D103: 1 kg/m weighs 0.01 kN/m; EN 1991-1-1, 5.1 with g = 9.81 m/s2 gives 0.00981.
void SetSelfweight(LoadInputs& loads, const SectionRecord& section);

}  // namespace kestrum
