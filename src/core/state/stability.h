#pragma once

// Buckling, lateral torsional buckling and interaction.

#include "core/state/types.h"

namespace kestrum {

struct Stability {
    bool operator==(const Stability&) const = default;

    double ncry, ncrz, ncrv, ncru, ncrt, ncrtf;
    double lamy, lamz, lamv, lamu, lammax;
    double chiy, chiz, chiv, chiu;
    double nbyrd, nbzrd, nbvrd, nburd;
    double maxirbuckling;
    double ltc1, ltc2, ltc3;  // C factors in use
    float kc;
    double zg, zload;  // load above the shear centre, above the centroid, mm
    double mcr, mcr0;  // Nmm
    float lamlt, lam0;
    double xlt, xlt0;
    float ffactor;
    double mltrd;
    float mydesignf;
    Rows<double, kSegments - 1> segc1, segc3, segmcr;
    double cmy0, cmz0, cmy, cmz, cmv, cmu;
    float cmlt;
    double alt, epsy, muy, muz;
    float wy, wz;
    double npl, blt, clt, dlt, elt;
    double cyy, cyz, czy, czz;
    double kyy, kyz, kzy, kvv, kvu;
    double myaxrd, mzaxrd;  // moment resistances of angles, gammaM1
};

}  // namespace kestrum
