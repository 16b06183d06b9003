#pragma once

// The interaction factors of EN 1993-1-1, Annex A, as equations, for both sets of rules.

#include "document/document.h"

#include <limits>
#include <string_view>

namespace kestrum {

// kN, kNm, mm. Steps that are not known are found by their formulas.
struct AnnexAValues {
    static constexpr double kUnknown = std::numeric_limits<double>::quiet_NaN();

    double ned;
    double ncry, ncrz, ncrt, ncrtf;  // infinite where the buckling takes no part
    double my, mz;                   // largest sizes
    double a, it, iy, wely, wply, welz, wplz;
    double a_eps, w_eps;  // of eps_y
    double resistance;    // of n_pl
    double mply, mplz;    // with the factor below
    double fy, gamma;
    const char* gamma_symbol;
    double chiy, chiz, chilt, lamy, lamz;
    double lam0, c1;
    double cmy0, cmz0, cmy, cmz, cmlt;
    bool twists, plastic_y, plastic_z;
    double kyy, kyz, kzy, kzz;
    const char* npl_remark = "";
    std::string_view lateral = "χ_LT";  // its symbol
    double alt = kUnknown, epsy = kUnknown, muy = kUnknown, muz = kUnknown;
    double wy = kUnknown, wz = kUnknown, npl = kUnknown, lammax = kUnknown;
    double blt = kUnknown, clt = kUnknown, dlt = kUnknown, elt = kUnknown;
    double cyy = kUnknown, cyz = kUnknown, czy = kUnknown, czz = kUnknown;
};

// From Cm,0 on, whose equations stand before.
void AddAnnexAFactors(const AnnexAValues& values, Document& d);

}  // namespace kestrum
