#pragma once

// Local buckling of plate parts, EN 1993-1-5, 4.4: slenderness, buckling factors, reduction
// factors. Ratios without unit; c and t in the same unit, eps = sqrt(235/fyk).

namespace kestrum {

// lambda_p of a part, EN 1993-1-5, 4.4 (2): (c/t)/(28.4 eps sqrt(k)).
double PlateSlenderness(double c, double t, double eps, double k);

// rho of an outstand part, Eq (4.3): 1 up to 0.748, never above 1.
double RhoOutstand(double lambda);

// rho of an internal part in uniform compression, Eq (4.2) with psi = 1: 1 up to 0.673, never
// above 1.
double RhoInternal(double lambda);

// rho of an internal part with the stress ratio psi, Eq (4.2), never above 1.
double RhoInternal(double lambda, double psi);

// The stress ratio with a rounding residue at the symmetric case removed: within 1e-6 of -1 it is
// -1.
double StressRatio(double psi);

// k_sigma of an internal part, Table 4.1.
double KSigmaInternal(double psi);

// k_sigma of an outstand part with its tip compressed, Table 4.2: 0.57 - 0.21 psi + 0.07 psi^2.
double KSigmaOutstand(double psi);

constexpr double kOutstand = 0.43;  // k_sigma, uniform compression
constexpr double kOutstandBending = 0.57;
constexpr double kInternal = 4.0;

}  // namespace kestrum
