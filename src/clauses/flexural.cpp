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

double TorsionalFlexuralLoad(const UncoupledLoads& ncr, const ShearCentre& s, double i0_squared)
{
    if (s.y == 0 || s.z == 0) {  // an axis of symmetry, which couples
        const double flexural = s.y == 0 ? ncr.z : ncr.y;
        const double apart = std::hypot(s.y, s.z);
        return apart > 0 && std::isfinite(flexural)
                   ? TorsionalFlexuralLoad(flexural, ncr.t, apart, i0_squared)
                   : ncr.t;
    }
    // Over -Ny Nz NT: positive at 0, falling through the smallest root below the least load.
    const auto rest = [&](double n) {
        const double y = 1 - n / ncr.y;
        const double z = 1 - n / ncr.z;
        const double coupled = s.y * s.y * z / ncr.y + s.z * s.z * y / ncr.z;
        return i0_squared * y * z * (1 - n / ncr.t) - n * n / ncr.t * coupled;
    };
    double lo = 0;
    double hi = std::fmin(ncr.t, std::fmin(ncr.y, ncr.z));
    constexpr int kHalvings = 60;
    for (int i = 0; i < kHalvings; ++i) {
        const double middle = 0.5 * (lo + hi);
        (rest(middle) > 0 ? lo : hi) = middle;
    }
    return hi;
}

}  // namespace kestrum::clauses
