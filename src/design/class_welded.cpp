#include "design/class_welded.h"

#include "design/class_limits.h"
#include "design/local_buckling.h"

#include <algorithm>
#include <cmath>

namespace kestrum {

// Deviation D187: the limits of outstands and internal parts in uniform compression are not
// included; the standard includes them.
i16 ClassOutstand(const SectionRecord& section, double c, double t)
{
    const double eps = section.eps;
    return ClassBelow(c / t, 9 * eps, 10 * eps, 14 * eps);
}

i16 ClassInternal(const SectionRecord& section, double c, double t)
{
    const double eps = section.eps;
    return ClassBelow(c / t, 33 * eps, 38 * eps, 42 * eps);
}

i16 ClassWebCompressed(const SectionRecord& section)
{
    return ClassInternal(section, section.d, section.tw);
}

// Table 5.2, sheet 1. Deviation D165: alpha comes in as the share of the clear web height hw.
//
// Deviation D188: class 3 up to 126 eps/(2 + psi); the standard has 42 eps/(0.67 + 0.33 psi), less
// by up to 2 % towards psi = -1.
i16 ClassWebBent(const SectionRecord& section, double alpha, double psi)
{
    if (!(alpha > 0)) {
        return 1;
    }
    const double eps = section.eps;
    const double ratio = StressRatio(psi);
    const double limit1 = alpha > 0.5 ? 396 / (13 * alpha - 1) : 36 / alpha;
    const double limit2 = alpha > 0.5 ? 456 / (13 * alpha - 1) : 41.5 / alpha;
    const double limit3 = ratio > -1 ? 126 / (2 + ratio) : 62 * (1 - ratio) * std::sqrt(-ratio);
    return ClassAtMost(1.0 * section.d / section.tw, limit1 * eps, limit2 * eps, limit3 * eps);
}

i16 ClassWebBent(const SectionRecord& section, const WeldedSide& side)
{
    if (!(side.webin > 0)) {
        return 1;
    }
    return ClassWebBent(section, std::clamp(side.alpha, 0.0, 1.0), -side.webout / side.webin);
}

i16 ClassFlange(const SectionRecord& section, const Flange& flange)
{
    return std::max({ClassInternal(section, flange.inner, flange.t),
                     ClassOutstand(section, flange.left, flange.t),
                     ClassOutstand(section, flange.right, flange.t)});
}

i16 ClassCompressed(const Inputs& in, const SectionRecord& section)
{
    return std::max({ClassFlange(section, TopFlange(in, section)),
                     ClassFlange(section, BottomFlange(in, section)), ClassWebCompressed(section)});
}

}  // namespace kestrum
