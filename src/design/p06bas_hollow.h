#pragma once

// Cross-section design of rectangular hollow sections (families 6 to 9) and of the welded box with
// equal flanges (23), EN 1993-1-1, 6.2 and EN 1993-1-5. The classes stand in class_hollow.h.

#include "core/project_state.h"

namespace kestrum {

// Effective section of class 4, EN 1993-1-5, 4.4: aeff, weffy, weffz.
void CalcEffectiveHollow(ProjectState& s);

// Classes of N, My and Mz alone and all resistances that do not depend on the loads.
void CalcResistanceHollow(ProjectState& s);

// Shear resistances of the ratios: vbrd, vcyrd, shearnote.
void CalcShearHollow(ProjectState& s);

// Moment resistances reduced for the shear of the section in hand, 6.2.8: myrdv, mzrdv from
// classmyuse.
void ReduceMyHollow(ProjectState& s);
void ReduceMzHollow(ProjectState& s);

// Moment resistances reduced for the axial force, 6.2.9.1 (5): mnyrd, mnzrd from myrdv, mzrdv.
void CalcMNyHollow(ProjectState& s);
void CalcMNzHollow(ProjectState& s);

void ControlHollow(ProjectState& s);

}  // namespace kestrum
