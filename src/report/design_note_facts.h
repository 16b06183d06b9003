#pragma once

// Facts about a result that the conditions of several design notes ask for.

#include "stability/buckling_resistance.h"

namespace kestrum {

struct ProjectState;

// I sections, rolled or of equal flanges; hollow sections of the tables and of plates.
bool IsDoublySymmetricI(const ProjectState& s);
bool IsHollowOrBox(const ProjectState& s);

// Sections of plates with unequal flanges, both present.
bool HasTwoPlatedFlanges(const ProjectState& s);

double LargestVz(const ProjectState& s);  // kN
double LargestVy(const ProjectState& s);
bool BendsAboutY(const ProjectState& s);
bool BendsAboutZ(const ProjectState& s);

// Lateral torsional buckling is controlled and has a row.
bool LateralControlled(const ProjectState& s);

// The web buckles in shear, and its resistance to that is in use.
bool WebBucklesInShear(const ProjectState& s);

// Critical forces for the torsional length of the member itself, whatever length the record holds:
// between its lateral restraints where lateral torsional buckling is checked, else the whole
// member (EN 1993-1-1, 6.3.1.4).
TorsionalForces OwnTorsionalForces(const ProjectState& s);

// The strength combination in force; the governing one of Eq 6.10a/b.
int StrengthCombination(const ProjectState& s);

}  // namespace kestrum
