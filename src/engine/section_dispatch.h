#pragma once

// Section properties, classes and resistances of the family in hand.

#include "core/library.h"

namespace kestrum {

struct ProjectState;

// In: family with its table row or form, material and annex settings. Out: the section record, fyk,
// fyd, eps, the resistances, openprofile, and what the family says of lateral torsional buckling
// (ltbavail, ltb, restraints, ltbcurve). Does nothing for a number that names no section.
void CalcSection(const Library& library, ProjectState& s);

}  // namespace kestrum
