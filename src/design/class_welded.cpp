#include "design/class_welded.h"

#include "design/class_limits.h"
#include "design/local_buckling.h"

#include <algorithm>
#include <cmath>

namespace kestrum {

// Deviation D187: the limits of outstands and internal parts in uniform compression are not
// included; the standard includes them.
i16 ClassOutstand(const ProjectState& s, double c, double t)
{
    const double eps = s.eps;
    return ClassBelow(c / t, 9 * eps, 10 * eps, 14 * eps);
}

i16 ClassInternal(const ProjectState& s, double c, double t)
{
    const double eps = s.eps;
    return ClassBelow(c / t, 33 * eps, 38 * eps, 42 * eps);
}

i16 ClassWebCompressed(const ProjectState& s)
{
    return ClassInternal(s, s.d, s.tw);
}

// Table 5.2, sheet 1. Deviation D165: alpha comes in as the share of the clear web height hw.
//
// Deviation D188: class 3 up to 126 eps/(2 + psi); the standard has 42 eps/(0.67 + 0.33 psi), less
// by up to 2 % towards psi = -1.
i16 ClassWebBent(const ProjectState& s, double alpha, double psi)
{
    if (!(alpha > 0)) {
        return 1;
    }
    const double eps = s.eps;
    const double ratio = StressRatio(psi);
    const double limit1 = alpha > 0.5 ? 396 / (13 * alpha - 1) : 36 / alpha;
    const double limit2 = alpha > 0.5 ? 456 / (13 * alpha - 1) : 41.5 / alpha;
    const double limit3 = ratio > -1 ? 126 / (2 + ratio) : 62 * (1 - ratio) * std::sqrt(-ratio);
    return ClassAtMost(1.0 * s.d / s.tw, limit1 * eps, limit2 * eps, limit3 * eps);
}

i16 ClassWebBent(const ProjectState& s, const WeldedSide& side)
{
    if (!(side.webin > 0)) {
        return 1;
    }
    return ClassWebBent(s, std::clamp(side.alpha, 0.0, 1.0), -side.webout / side.webin);
}

i16 ClassFlange(const ProjectState& s, const Flange& flange)
{
    return std::max({ClassInternal(s, flange.inner, flange.t),
                     ClassOutstand(s, flange.left, flange.t),
                     ClassOutstand(s, flange.right, flange.t)});
}

i16 ClassCompressed(const ProjectState& s)
{
    return std::max(
        {ClassFlange(s, TopFlange(s)), ClassFlange(s, BottomFlange(s)), ClassWebCompressed(s)});
}

}  // namespace kestrum
