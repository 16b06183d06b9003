#pragma once

// Class of cross-section parts, EN 1993-1-1, Table 5.2. Limits belong to the better class. c is the
// straight part between roots or welds, t its thickness; eps = sqrt(235/fy). Stresses are positive
// in compression.

namespace kestrum::clauses {

// sqrt(235/fy), fy in MPa.
double Epsilon(double fy);

// Sheet 1, internal part.
//   alpha  share of c that is compressed when the part is plastic, 0..1
//   psi    ratio of the smaller to the larger elastic edge stress, compression positive: 1 uniform
//          compression, -1 bending, below -1 mostly tension
int ClassOfInternal(double c, double t, double eps, double alpha, double psi);

// Sheet 2, outstand whose tip is compressed (alpha 1). `elastic_limit` is the limit of class 3 over
// eps: 14, or that of OutstandElasticLimit.
int ClassOfOutstand(double c, double t, double eps, double elastic_limit = 14);

// Sheet 2, outstand bent in its plane: alpha is the compressed share of c in the plastic state,
// next to the tip or next to the root.
int ClassOfOutstandBent(double c, double t, double eps, double alpha, bool tip_compressed,
                        double elastic_limit);

// 21 sqrt(k_sigma), not below 14.
//   k_sigma  EN 1993-1-5, Table 4.2
double OutstandElasticLimit(double k_sigma);

// Sheet 3, angle as a whole in compression: h the longer leg. 3 or 4.
int ClassOfAngle(double h, double b, double t, double eps);

// Sheet 3, tube.
int ClassOfTube(double d, double t, double eps);

}  // namespace kestrum::clauses
