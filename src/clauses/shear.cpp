#include "clauses/shear.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace kestrum::clauses {

double PlasticShear(double area, double fy, double gammam0)
{
    return area * fy / std::numbers::sqrt3 / gammam0;
}

double StockyWebLimit(double eps, double eta)
{
    return 72 * eps / eta;
}

double ShearBucklingFactor(double hw, double a)
{
    if (!(a > 0) || std::isinf(a)) {
        return kUnstiffenedFactor;
    }
    const double ratio = hw / a;
    return a >= hw ? 5.34 + 4 * ratio * ratio : 4 + 5.34 * ratio * ratio;
}

double WebSlenderness(double hw, double t, double eps, double k_tau)
{
    if (k_tau == kUnstiffenedFactor) {
        return hw / (86.4 * t * eps);
    }
    return hw / (37.4 * t * eps * std::sqrt(k_tau));
}

double WebFactor(double lam, double eta, bool rigid_end_post)
{
    if (lam < 0.83 / eta) {
        return eta;
    }
    if (lam < 1.08 || !rigid_end_post) {
        return 0.83 / lam;
    }
    return 1.37 / (0.7 + lam);
}

double FlangeShear(const FlangeOfWeb& weaker, double hw, double t, double a, double fy,
                   double gammam1, double moment, double mf)
{
    if (!(moment < mf) || !(a > 0)) {
        return 0;
    }
    const double flange = weaker.width * weaker.thickness * weaker.thickness * fy;
    const double c = a * (0.25 + 1.6 * flange / (t * hw * hw * fy));
    const double share = moment / mf;
    return flange / (c * gammam1) * (1 - share * share);
}

double WebShear(double factor, double hw, double t, double fy, double gammam1)
{
    return factor * fy * hw * t / (std::numbers::sqrt3 * gammam1);
}

double ShearBucklingLimit(double eta, double hw, double t, double fy, double gammam1)
{
    return eta * fy * hw * t / (std::numbers::sqrt3 * gammam1);
}

double ShearReduction(double ved, double vrd)
{
    const double ratio = std::abs(ved) / vrd;
    if (ratio <= 0.5) {
        return 0;
    }
    return std::min(1.0, (2 * ratio - 1) * (2 * ratio - 1));
}

}  // namespace kestrum::clauses
