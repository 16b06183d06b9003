#pragma once

// The member analysis as a step of the driver.

namespace kestrum {

struct Forces;
struct ProjectState;
struct Stability;

// Check sections, loads that the family can carry, self-weight, forces, deflections, extremes and
// design moments. In the combination of Eq 6.10a and 6.10b `control` (section and buckling control)
// runs once for each and the worse one stays; an errorflag set by it ends the routine at once.
// Failures of arithmetic are left in the status flags for the caller, who has armed them.
void CalcMember(ProjectState& s, void (*control)(ProjectState&));

// The moment that lateral torsional buckling is checked for, unless a segment has its own.
void HandOnDesignMoment(const Forces& forces, Stability& stability);

}  // namespace kestrum
