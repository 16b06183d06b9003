#include "clauses/lateral_torsional.h"

#include <algorithm>
#include <cmath>

namespace kestrum::clauses {

double GeneralLateralReduction(double lam, double alpha, double plateau)
{
    if (lam <= plateau) {
        return 1;
    }
    const double phi = 0.5 * (1 + alpha * (lam - 0.2) + lam * lam);
    return std::min(1.0, 1 / (phi + std::sqrt(phi * phi - lam * lam)));
}

double RolledLateralReduction(double lam, double alpha, double plateau, double beta)
{
    const double phi = 0.5 * (1 + alpha * (lam - plateau) + beta * lam * lam);
    const double root = phi * phi - beta * lam * lam;
    if (lam <= plateau) {
        return 1;
    }
    const double chi = 1 / (phi + std::sqrt(std::max(0.0, root)));
    return std::min({1.0, 1 / (lam * lam), chi});
}

double MomentShapeFactor(double lam, double kc)
{
    const double offset = lam - 0.8;
    return std::min(1.0, 1 - 0.5 * (1 - kc) * (1 - 2 * offset * offset));
}

double CorrectionFactor(MomentShape shape, double psi)
{
    switch (shape) {
    case MomentShape::uniform_pinned:
        return 0.94;
    case MomentShape::uniform_fixed:
        return 0.90;
    case MomentShape::uniform_one_end_fixed:
        return 0.91;
    case MomentShape::point_pinned:
        return 0.86;
    case MomentShape::point_fixed:
        return 0.77;
    case MomentShape::point_one_end_fixed:
        return 0.82;
    case MomentShape::straight:
        break;
    }
    return 1 / (1.33 - 0.33 * psi);
}

}  // namespace kestrum::clauses
