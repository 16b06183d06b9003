#pragma once

// What an area or a modulus resists with gammaM0, EN 1993-1-1, 6.2.3 to 6.2.6, for the families of
// simple form.

#include "core/project_state.h"

#include <cmath>

namespace kestrum {

// kN of an area in mm2, Eq (6.6), (6.10).
inline double AxialResistance(const ProjectState& s, double area)
{
    return area * s.fyk / s.gammam0 / 1000;
}

// kNm of a modulus in mm3, Eq (6.13) to (6.15).
inline double MomentResistance(const ProjectState& s, double modulus)
{
    return modulus * s.fyk / s.gammam0 / 1e6;
}

// Yield stress in shear, MPa.
inline double ShearStrength(const ProjectState& s)
{
    return s.fyk / std::sqrt(3.0);
}

// kN of a shear area in mm2, Eq (6.18).
inline double ShearResistance(const ProjectState& s, double area)
{
    return area * ShearStrength(s) / s.gammam0 / 1000;
}

// nrdm1, myrdm1, mzrdm1 of the stability control from ncrd, myrd, mzrd.
inline void SetStabilityResistances(ProjectState& s)
{
    s.nrdm1 = s.ncrd * s.gammam0 / s.gammam1;
    s.myrdm1 = s.myrd * s.gammam0 / s.gammam1;
    s.mzrdm1 = s.mzrd * s.gammam0 / s.gammam1;
}

}  // namespace kestrum
