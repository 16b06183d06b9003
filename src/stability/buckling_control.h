#pragma once

// Member control, EN 1993-1-1, 6.3: lateral torsional buckling, flexural buckling about each axis
// and the interaction with bending. Fills the rows yline, zline, ltline, their ratios irrow4,
// irrow5, irrow6 and the governing ratio maxirbuckling. One routine per group of families; each
// expects the section control of the family to have run in this pass. An axial force above an
// elastic critical force, where the interaction cannot be formed, sets errorflag to -1 and leaves
// at once.

#include "core/project_state.h"

namespace kestrum {

// Empties the three rows and their ratios, for a member without this control.
void ClearBucklingRows(ProjectState& s);

void BucklingControlRolledI(ProjectState& s);  // I sections, channels, general profile
void BucklingControlHollow(ProjectState& s);   // hollow sections, box, tube
void BucklingControlWeldedI(ProjectState& s);  // single-symmetric I
void BucklingControlFlatBar(ProjectState& s);  // with compression only
void BucklingControlAngle(ProjectState& s);    // with compression only
void BucklingControlT(ProjectState& s);        // with compression only
void BucklingControlPlate(ProjectState& s);    // lateral torsional buckling only

}  // namespace kestrum
