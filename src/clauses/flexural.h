#pragma once

// Flexural, torsional and torsional-flexural buckling, EN 1993-1-1, 6.3.1. Units N, mm, MPa.

namespace kestrum::clauses {

// Table 6.1: imperfection factor of curve 0 a0, 1 a, 2 b, 3 c, 4 d.
enum class BucklingCurve { a0, a, b, c, d };
double Imperfection(BucklingCurve curve);

// Eq (6.49), at most 1; 1 up to a slenderness of 0.2.
double BucklingReduction(double lam, double alpha);

// Euler's load; infinite for a length of 0.
double EulerLoad(double e, double inertia, double length);

// Ncr,T: torsional buckling, length of both twist and warping.
//   i0_squared  iy^2 + iz^2 + distance of centroid and shear centre squared, mm2
double TorsionalLoad(double e, double it, double iw, double i0_squared, double length);

// Ncr,TF: the torsional load coupled with buckling along the axis of symmetry.
//   ncr       Euler's load about the axis of symmetry
//   ncrt      torsional load
//   distance  between centroid and shear centre, mm
double TorsionalFlexuralLoad(double ncr, double ncrt, double distance, double i0_squared);

// The same for any open section: the smallest N at which
//   i0^2 (N - Ny)(N - Nz)(N - NT) = N^2 [ys^2 (N - Nz) + zs^2 (N - Ny)]
// Loads of axes that do not buckle are infinite. y and z are principal axes; ys, zs the shear
// centre from the centroid, mm.
struct UncoupledLoads {
    double y, z, t;
};
struct ShearCentre {
    double y, z;
};
double TorsionalFlexuralLoad(const UncoupledLoads& ncr, const ShearCentre& s, double i0_squared);

}  // namespace kestrum::clauses
