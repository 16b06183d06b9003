#pragma once

// Section control and buckling control of the family in hand.

namespace kestrum {

struct ProjectState;

// In: the section record, resistances and internal forces. Out: the checks of section and
// member, irrow1..6, irsection, maxirbuckling, ltc1..3; errorflag -1 when the axial force exceeds
// an elastic critical force. Clears them all first, so that nothing of an earlier pass is left
// where a family has no such control.
void CalcControl(ProjectState& s);

// Its three steps. The section control may run several times, for check sections with an axial
// force of their own each; every run clears the section rows.
void ClearControl(ProjectState& s);
void CalcSectionControl(ProjectState& s);
void CalcBucklingControl(ProjectState& s);

}  // namespace kestrum
