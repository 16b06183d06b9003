#pragma once

// Design settings: in the stored setup, and but for the four curve parameters also in the project.

#include "core/state/types.h"

namespace kestrum {

struct Settings {
    bool operator==(const Settings&) const = default;

    double gammam0;
    float gammam1;
    float neta;      // shear area factor eta, EN 1993-1-5, 5.1 (2)
    i16 method;      // interaction factors: 1 Annex A, 2 Annex B
    float lamdalt0;  // EN 1993-1-1, 6.3.2.3, rolled sections
    double beta;
    float lamdalt0w;  // the same, welded sections
    double betaw;
    i16 fykindex;            // row of the material list
    float fyk;               // MPa
    double fyd;              // fyk/gammam0
    float e;                 // modulus of elasticity, MPa
    float uflimit;           // stored and shown, read by no calculation
    float irlimit;           // limit of every utilisation ratio: 1.0
    i16 checkelastic;        // bool: class 1 and 2 designed elastically
    i16 checkconsercontrol;  // bool: linear interaction only, 6.2.1 (7)
    i16 checkflangebuck;     // bool: no effective width of flanges
    i16 checkwebbuck;        // bool: no effective width of webs
    i16 loadcomb;  // 0 Eq 6.10, 1 6.10a, 2 6.10b, 3 6.10a/b, 4 user factors, 5 basic loads
    i16 deflimity, deflimitz;  // n in L/n
    i16 safetyclass;           // 1..3
    i16 psi1index, psi2index;  // psi = (index + 1) * 0.1
    float psi1, psi2;
    float lfulsg, lfulsq1, lfulsq2;  // user factors, strength
    float lfslsg, lfslsq1, lfslsq2;  // user factors, serviceability
    i16 checksls;                    // bool: deflection control is part of the result
};

}  // namespace kestrum
