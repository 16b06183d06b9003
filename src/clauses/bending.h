#pragma once

// Bending and axial force in classes 1 and 2, EN 1993-1-1, 6.2.9.1. n = |NEd|/Npl,Rd (or over
// NV,Rd), moments in the unit of their resistance.

namespace kestrum::clauses {

// Eq (6.36), I and H about y; `a` share of the webs in the area, at most 0.5. Whether 6.2.9.1 (4)
// lets the axial force be left out is AxialForceNegligibleY.
double ReducedMomentY(double mpl, double n, double a);
// Eq (6.33), (6.34): |NEd| at most a quarter of Npl,Rd and half the web. N, MPa, mm.
bool AxialForceNegligibleY(double ned, double npl, double hw, double tw, double fy, double gammam0);

// Eq (6.37), (6.38), I and H about z. Eq (6.35): negligible up to hw tw fy/gammaM0.
double ReducedMomentZ(double mpl, double n, double a);
bool AxialForceNegligibleZ(double ned, double hw, double tw, double fy, double gammam0);

// Eq (6.39), (6.40), hollow sections: `a` share of the walls in the plane of bending, at most 0.5.
double ReducedMomentHollow(double mpl, double n, double a);

// Solid rectangle, Eq (6.32).
double ReducedMomentFlat(double mpl, double n);

// Tube; the 2005 edition leaves the formula open: 1 - n^1.7.
double ReducedMomentTube(double mpl, double n);

// Exponents of Eq (6.41).
struct BiaxialExponents {
    double alpha, beta;
};
BiaxialExponents ExponentsOfI(double n);       // 2 and 5 n, at least 1
BiaxialExponents ExponentsOfHollow(double n);  // 1.66/(1 - 1.13 n^2), at most 6
BiaxialExponents ExponentsOfTube();            // 2

// (My/MN,y)^alpha + (Mz/MN,z)^beta; infinite where a moment meets no resistance.
double BiaxialSum(double my, double mny, double mz, double mnz, const BiaxialExponents& exponents);

}  // namespace kestrum::clauses
