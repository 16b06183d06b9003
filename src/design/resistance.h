#pragma once

// What an area or a modulus resists with gammaM0, EN 1993-1-1, 6.2.3 to 6.2.6, for the families of
// simple form.

#include "core/state/inputs.h"
#include "core/state/resistances.h"
#include "core/state/section_record.h"

#include <cmath>

namespace kestrum {

// kN of an area in mm2, Eq (6.6), (6.10).
inline double AxialResistance(const Inputs& in, double area)
{
    return area * in.fyk / in.gammam0 / 1000;
}

// kNm of a modulus in mm3, Eq (6.13) to (6.15).
inline double MomentResistance(const Inputs& in, double modulus)
{
    return modulus * in.fyk / in.gammam0 / 1e6;
}

// mplyrd to meffzrd of both axes, plastic, elastic and effective.
inline void SetMomentResistances(const Inputs& in, const SectionRecord& section,
                                 Resistances& resistances)
{
    resistances.mplyrd = MomentResistance(in, section.wply);
    resistances.melyrd = MomentResistance(in, section.wely);
    resistances.meffyrd = MomentResistance(in, section.weffy);
    resistances.mplzrd = MomentResistance(in, section.wplz);
    resistances.melzrd = MomentResistance(in, section.welz);
    resistances.meffzrd = MomentResistance(in, section.weffz);
}

// Yield stress in shear, MPa.
inline double ShearStrength(const Inputs& in)
{
    return in.fyk / std::sqrt(3.0);
}

// kN of a shear area in mm2, Eq (6.18).
inline double ShearResistance(const Inputs& in, double area)
{
    return area * ShearStrength(in) / in.gammam0 / 1000;
}

// nrdm1, myrdm1, mzrdm1 of the stability control from ncrd, myrd, mzrd.
inline void SetStabilityResistances(const Inputs& in, Resistances& resistances)
{
    resistances.nrdm1 = resistances.ncrd * in.gammam0 / in.gammam1;
    resistances.myrdm1 = resistances.myrd * in.gammam0 / in.gammam1;
    resistances.mzrdm1 = resistances.mzrd * in.gammam0 / in.gammam1;
}

}  // namespace kestrum
