#pragma once

// Facts about a result that the conditions of several design notes ask for.

#include "core/project_state.h"

namespace kestrum {

bool IsRolledOrWeldedI(int family);  // 1 to 4, 15, 21, 101, 102
bool IsChannel(int family);          // 5, 16, 103
bool IsHollowOrBox(int family);      // 6 to 9, 23
bool IsAngle(int family);            // 10, 11
bool IsHatBeam(int family);          // 24, 25
bool IsPlate(int family);            // 51 to 54, 56

double LargestVz(const ProjectState& s);  // kN
double LargestVy(const ProjectState& s);
bool BendsAboutY(const ProjectState& s);
bool BendsAboutZ(const ProjectState& s);

// The web buckles in shear, and its resistance to that is in use.
bool WebBucklesInShear(const ProjectState& s);

// Sections of plates whose flanges take part in the shear buckling resistance: the flange counted
// is wider than 15 eps tf on a side of a web; the moment of both is above that of the weaker one.
bool FlangeOfShearIsWide(const ProjectState& s);
bool FlangeMomentIsHigh(const ProjectState& s);

// T and plate with flat bar: eta raises the shear area above tw (h - tf/2).
bool ShearAreaOfOneFlange(const ProjectState& s);

// Channels: Mz may compress a web that then is no longer of class 2.
bool WebCompressedByMzIsSlender(const ProjectState& s);

// Hat beams: the plastic modulus beside a class 3 web is above that of the effective section.
bool UpgradeIsHigh(const ProjectState& s);

// The strength combination in force; the governing one of Eq 6.10a/b.
int StrengthCombination(const ProjectState& s);

}  // namespace kestrum
