#include "clauses/plate_buckling.h"

#include <algorithm>
#include <cmath>

namespace kestrum::clauses {

double BucklingFactorInternal(double psi)
{
    constexpr double kRounding = 1e-9;
    if (psi >= 0) {
        return 8.2 / (1.05 + std::min(psi, 1.0));
    }
    if (psi > -1 - kRounding) {  // 23.88 in bending alone, of which the table prints 23.9
        return 7.81 - 6.29 * psi + 9.78 * psi * psi;
    }
    const double p = std::max(psi, -3.0);
    return 5.98 * (1 - p) * (1 - p);
}

double BucklingFactorOutstand(double tip, double root)
{
    if (tip >= root) {  // the free edge is the more compressed one
        const double psi = std::max(root / tip, -3.0);
        return 0.57 - 0.21 * psi + 0.07 * psi * psi;
    }
    const double psi = tip / root;
    if (psi >= 0) {
        return 0.578 / (psi + 0.34);
    }
    const double p = std::max(psi, -1.0);
    return 1.7 - 5 * p + 17.1 * p * p;
}

double PlateSlenderness(double b, double t, double eps, double k_sigma)
{
    return b / t / (28.4 * eps * std::sqrt(k_sigma));
}

double RhoInternal(double lam, double psi)
{
    const double p = std::max(psi, -3.0);
    const double limit = 0.5 + std::sqrt(std::max(0.0, 0.085 - 0.055 * p));
    if (lam <= limit) {
        return 1;
    }
    return std::clamp((lam - 0.055 * (3 + p)) / (lam * lam), 0.0, 1.0);
}

double RhoOutstand(double lam)
{
    return lam <= 0.748 ? 1 : std::min(1.0, (lam - 0.188) / (lam * lam));
}

EffectiveInternal EffectiveWidths(double b, double psi, double rho)
{
    if (psi >= 0) {
        const double all = rho * b;
        const double near = 2 / (5 - std::min(psi, 1.0)) * all;
        return {near, all - near, 0, b - all};
    }
    const double compressed = b / (1 - psi);
    const double all = rho * compressed;
    return {0.4 * all, 0.6 * all, b - compressed, compressed - all};
}

}  // namespace kestrum::clauses
