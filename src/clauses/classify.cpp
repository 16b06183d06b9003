#include "clauses/classify.h"

#include <algorithm>
#include <cmath>

namespace kestrum::clauses {

namespace {

int ClassByLimits(double ratio, double one, double two, double three)
{
    return ratio <= one ? 1 : ratio <= two ? 2 : ratio <= three ? 3 : 4;
}

// Elastic limit of an internal part over eps; the second form is continuous with bending at psi -1.
double InternalElasticLimit(double psi)
{
    return psi > -1 ? 42 / (0.67 + 0.33 * psi) : 62 * (1 - psi) * std::sqrt(-psi);
}

}  // namespace

double Epsilon(double fy)
{
    return std::sqrt(235 / fy);
}

int ClassOfInternal(double c, double t, double eps, double alpha, double psi)
{
    const double a = std::clamp(alpha, 0.0, 1.0);
    if (a == 0) {
        return 1;  // stretched all over
    }
    const double one = a > 0.5 ? 396 / (13 * a - 1) : 36 / a;
    const double two = a > 0.5 ? 456 / (13 * a - 1) : 41.5 / a;
    return ClassByLimits(c / (t * eps), one, two, InternalElasticLimit(psi));
}

int ClassOfOutstand(double c, double t, double eps, double elastic_limit)
{
    return ClassByLimits(c / (t * eps), 9, 10, elastic_limit);
}

int ClassOfOutstandBent(double c, double t, double eps, double alpha, bool tip_compressed,
                        double elastic_limit)
{
    if (!(alpha > 0)) {
        return 1;  // stretched all over
    }
    const double part = tip_compressed ? alpha : alpha * std::sqrt(alpha);
    return ClassByLimits(c / (t * eps), 9 / part, 10 / part, elastic_limit);
}

double OutstandElasticLimit(double k_sigma)
{
    return std::max(14.0, 21 * std::sqrt(k_sigma));
}

int ClassOfAngle(double h, double b, double t, double eps)
{
    return h / t <= 15 * eps && (b + h) / (2 * t) <= 11.5 * eps ? 3 : 4;
}

int ClassOfTube(double d, double t, double eps)
{
    return ClassByLimits(d / (t * eps * eps), 50, 70, 90);
}

}  // namespace kestrum::clauses
