#pragma once

// Effective widths of plates, EN 1993-1-5, 4.4. Stresses are positive in compression; psi is the
// ratio of the edge stresses, the less compressed over the more compressed edge.

namespace kestrum::clauses {

// Table 4.1, internal part; psi from 1 to below -1 (values below -3 count as -3).
double BucklingFactorInternal(double psi);

// Table 4.2, outstand. `tip` and `root` are the stresses at the free and the held edge; the larger
// is compressed.
double BucklingFactorOutstand(double tip, double root);

// Slenderness of a plate of straight width b, eps = sqrt(235/fy), 4.4 (2).
double PlateSlenderness(double b, double t, double eps, double k_sigma);

// Reduction factors, Eq (4.2) and (4.3), at most 1.
double RhoInternal(double lam, double psi);
double RhoOutstand(double lam);

// What stays of an internal part whose compressed width (all of it for psi above 0) is reduced by
// rho: widths next to the more and to the less compressed edge, Table 4.1. The stretched width
// stays too.
struct EffectiveInternal {
    double near;     // be1, from the more compressed edge
    double far;      // be2, up to the neutral axis or the other edge
    double tension;  // bt, stretched
    double hole;     // between be1 and be2
};
EffectiveInternal EffectiveWidths(double b, double psi, double rho);

}  // namespace kestrum::clauses
