#include "clauses/bending.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace kestrum::clauses {

namespace {

double Share(double a)
{
    return std::clamp(a, 0.0, 0.5);
}

double Power(double m, double resistance, double exponent)
{
    if (m == 0) {
        return 0;
    }
    return resistance > 0 ? std::pow(std::abs(m) / resistance, exponent)
                          : std::numeric_limits<double>::infinity();
}

}  // namespace

double ReducedMomentY(double mpl, double n, double a)
{
    return std::clamp(mpl * (1 - n) / (1 - 0.5 * Share(a)), 0.0, mpl);
}

bool AxialForceNegligibleY(double ned, double npl, double hw, double tw, double fy, double gammam0)
{
    const double force = std::abs(ned);
    return force <= 0.25 * npl && force <= 0.5 * hw * tw * fy / gammam0;
}

double ReducedMomentZ(double mpl, double n, double a)
{
    const double share = Share(a);
    if (n <= share) {
        return mpl;
    }
    const double over = (n - share) / (1 - share);
    return std::clamp(mpl * (1 - over * over), 0.0, mpl);
}

bool AxialForceNegligibleZ(double ned, double hw, double tw, double fy, double gammam0)
{
    return std::abs(ned) <= hw * tw * fy / gammam0;
}

double ReducedMomentHollow(double mpl, double n, double a)
{
    return ReducedMomentY(mpl, n, a);
}

double ReducedMomentFlat(double mpl, double n)
{
    return std::max(0.0, mpl * (1 - n * n));
}

double ReducedMomentTube(double mpl, double n)
{
    return n < 1 ? mpl * (1 - std::pow(n, 1.7)) : 0;
}

BiaxialExponents ExponentsOfI(double n)
{
    return {2, std::max(1.0, 5 * n)};
}

BiaxialExponents ExponentsOfHollow(double n)
{
    const double rest = 1 - 1.13 * n * n;
    const double exponent = rest > 0 ? std::min(6.0, 1.66 / rest) : 6.0;
    return {exponent, exponent};
}

BiaxialExponents ExponentsOfTube()
{
    return {2, 2};
}

double BiaxialSum(double my, double mny, double mz, double mnz, const BiaxialExponents& exponents)
{
    return Power(my, mny, exponents.alpha) + Power(mz, mnz, exponents.beta);
}

}  // namespace kestrum::clauses
