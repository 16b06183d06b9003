#pragma once

// Flexural, torsional and torsional-flexural buckling, EN 1993-1-1, 6.3.1.

#include "core/library.h"
#include "standard/resistance.h"

namespace kestrum::standard {

struct CriticalForces {
    double y, z;   // N; infinite without buckling about the axis; z of angles about v
    double t, tf;  // of open sections; tf is t where shear centre and centroid coincide
    bool twists;   // open section: torsional buckling is checked

    double Torsional() const { return t < tf ? t : tf; }
    double LeastFlexural() const { return y < z ? y : z; }
};
// What stands behind the torsional loads. mm; of angles the axes are u and v.
struct TorsionTerms {
    double length, i0_squared, iw;
    double about_y;  // Ncr of flexural buckling about y, N
    double y, z;     // shear centre from the centroid
};
// Deviation D209.
TorsionTerms TorsionTermsOf(const ProjectState& s, const StandardSection& q, const Basis& basis);

// Deviations D202, D209.
CriticalForces CriticalForcesOf(const ProjectState& s, const StandardSection& q,
                                const Basis& basis);

// Imperfection factors of Table 6.2 or as chosen.
struct ColumnCurves {
    double y, z;
};
// Deviations D203 to D205.
ColumnCurves CurvesOf(const Library& library, const ProjectState& s, const StandardSection& q,
                      const Basis& basis);

struct Reductions {
    double lamy, lamz, lamt;
    double chiy, chiz, chit;
    double squash;  // NRk, N

    double Least(bool twists) const
    {
        const double least = chiy < chiz ? chiy : chiz;
        return twists && chit < least ? chit : least;
    }
};
Reductions ReductionsOf(const PreparedSection& p, const CriticalForces& ncr,
                        const ColumnCurves& curves, int cls, const Basis& basis);

}  // namespace kestrum::standard
