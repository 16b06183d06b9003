#include "design/local_buckling.h"

#include <algorithm>
#include <cmath>

namespace kestrum {

double PlateSlenderness(double c, double t, double eps, double k)
{
    return c / t / (28.4 * eps * std::sqrt(k));
}

double RhoOutstand(double lambda)
{
    return lambda <= 0.748 ? 1.0 : std::min(1.0, (lambda - 0.188) / (lambda * lambda));
}

double RhoInternal(double lambda)
{
    return lambda <= 0.673 ? 1.0 : std::min(1.0, (lambda - 0.22) / (lambda * lambda));
}

double RhoInternal(double lambda, double psi)
{
    if (!(lambda > 0.5 + std::sqrt(std::max(0.0, 0.085 - 0.055 * psi)))) {
        return 1.0;
    }
    return std::min(1.0, (lambda - 0.055 * (3.0 + psi)) / (lambda * lambda));
}

double StressRatio(double psi)
{
    return std::abs(psi + 1.0) <= 1e-6 ? -1.0 : psi;
}

double KSigmaInternal(double psi)
{
    if (psi > 0) {
        return 8.2 / (1.05 + psi);
    }
    if (psi < -1) {
        return 5.98 * (1.0 - psi) * (1.0 - psi);
    }
    return 7.81 - 6.29 * psi + 9.78 * psi * psi;
}

double KSigmaOutstand(double psi)
{
    return 0.57 - 0.21 * psi + 0.07 * psi * psi;
}

}  // namespace kestrum
