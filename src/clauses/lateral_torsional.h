#pragma once

// Lateral torsional buckling, EN 1993-1-1, 6.3.2, from the critical moment on.

namespace kestrum::clauses {

// 6.3.2.2, general case: Eq (6.56) with Table 6.3; 1 up to `plateau` (6.3.2.2 (4)).
double GeneralLateralReduction(double lam, double alpha, double plateau);

// 6.3.2.3 (1), rolled or equivalent welded sections: Eq (6.57), at most 1 and 1/lam^2.
double RolledLateralReduction(double lam, double alpha, double plateau, double beta);

// 6.3.2.3 (2): f, at most 1.
double MomentShapeFactor(double lam, double kc);

// Table 6.6, the shapes of a moment line over the length of a piece.
enum class MomentShape {
    straight,               // kc = 1/(1.33 - 0.33 psi)
    uniform_pinned,         // parabola between free ends: 0.94
    uniform_fixed,          // both ends held: 0.90
    uniform_one_end_fixed,  // one end held: 0.91
    point_pinned,           // 0.86
    point_fixed,            // 0.77
    point_one_end_fixed,    // 0.82
};
double CorrectionFactor(MomentShape shape, double psi);

}  // namespace kestrum::clauses
