#include "clauses/flexural.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <limits>
#include <numbers>

namespace kestrum::clauses {

namespace {

constexpr double kPi2 = std::numbers::pi * std::numbers::pi;

}  // namespace

double Imperfection(BucklingCurve curve)
{
    constexpr std::array<double, 5> kAlpha = {0.13, 0.21, 0.34, 0.49, 0.76};
    return kAlpha[static_cast<std::size_t>(curve)];
}

double BucklingReduction(double lam, double alpha)
{
    if (lam <= 0.2) {
        return 1;
    }
    const double phi = 0.5 * (1 + alpha * (lam - 0.2) + lam * lam);
    return 1 / (phi + std::sqrt(phi * phi - lam * lam));
}

double EulerLoad(double e, double inertia, double length)
{
    return length > 0 ? kPi2 * e * inertia / (length * length)
                      : std::numeric_limits<double>::infinity();
}

double TorsionalLoad(double e, double it, double iw, double i0_squared, double length)
{
    const double g = e / 2.6;
    return (g * it + EulerLoad(e, iw, length)) / i0_squared;
}

double TorsionalFlexuralLoad(double ncr, double ncrt, double distance, double i0_squared)
{
    const double beta = 1 - distance * distance / i0_squared;
    const double sum = ncr + ncrt;
    const double root = std::sqrt(std::fmax(0.0, sum * sum - 4 * beta * ncr * ncrt));
    return 2 * ncr * ncrt / (sum + root);  // the smaller root without cancellation
}

}  // namespace kestrum::clauses
