#pragma once

// Resistances of the section.

#include "core/state/types.h"

namespace kestrum {

struct Resistances {
    bool operator==(const Resistances&) const = default;

    double nplrd, ncrd;
    double mplyrd, mplzrd, melyrd, melzrd, meffyrd, meffzrd;
    double myrd, mzrd;             // by class, gammaM0
    double wyused, wzused;         // moduli on which they rest
    double nrdm1, myrdm1, mzrdm1;  // with gammaM1
    double mytoprd, mybotrd;       // per sign, gammaM1
    double avz, avy;
    double vzrd;  // of the 0.5 VRd test
    double vplzrd, vplyrd;
    double vbrd;                    // of the utilisation, with shear buckling
    double vyrd;                    // of the 0.5 VRd test
    double vcyrd;                   // of the utilisation
    double mfrd, mfzrd;             // flanges alone
    double mry1, mry2, mrz1, mrz2;  // angles: elastic, at the points
    double mrely, mrelz;
    Rows<double, 3> mru, mrv;
};

}  // namespace kestrum
