#include "sections/plate_summation.h"

#include "core/arithmetic_trap.h"

#include <algorithm>
#include <cmath>

namespace kestrum {

namespace {

double Area(const Plate& p)
{
    return p.width * p.height;
}

double AreaBelow(std::span<const Plate> plates, double z)
{
    double below = 0;
    for (const Plate& p : plates) {
        below += p.width * std::clamp(z - p.z0, 0.0, std::max(0.0, p.height));
    }
    return below;
}

}  // namespace

PlateSums SumPlates(std::span<const Plate> plates)
{
    PlateSums sums{};
    double ay = 0, az = 0, ayy = 0, azz = 0, owny = 0, ownz = 0;
    for (const Plate& p : plates) {
        const double area = Area(p);
        const double z = p.z0 + p.height / 2;
        sums.a += area;
        ay += area * p.y;
        az += area * z;
        ayy += area * p.y * p.y;
        azz += area * z * z;
        owny += p.width * std::pow(p.height, 3) / 12;
        ownz += p.height * std::pow(p.width, 3) / 12;
        sums.it += std::max(p.width, p.height) * std::pow(std::min(p.width, p.height), 3) / 3;
        sums.height = std::max(sums.height, p.z0 + p.height);
    }
    sums.ey = ay / sums.a;
    sums.zcog = az / sums.a;
    sums.iy = azz + owny - sums.a * sums.zcog * sums.zcog;
    sums.iz = ayy + ownz - sums.a * sums.ey * sums.ey;
    for (const Plate& p : plates) {
        sums.ymax = std::max(sums.ymax, std::abs(p.y - sums.ey) + p.width / 2);
    }
    return sums;
}

float SteppedPlasticAxis(std::span<const Plate> plates)
{
    constexpr float kStart = 2.0F;
    constexpr double kStep = 0.1;    // mm
    constexpr double kMargin = 1.0;  // beyond the section, mm

    const PlateSums sums = SumPlates(plates);
    float zpl = kStart;
    double below = 0;
    while (below < sums.a / 2) {
        const float next = F32(static_cast<double>(zpl) + kStep);
        if (!(next > zpl) || next > sums.height + kMargin) {
            throw CalculationStop{};
        }
        zpl = next;
        below = AreaBelow(plates, zpl);
    }
    return zpl;
}

double ExactPlasticAxis(std::span<const Plate> plates)
{
    double rest = SumPlates(plates).a / 2;
    for (const Plate& p : plates) {
        if (rest <= Area(p)) {
            return p.z0 + rest / p.width;
        }
        rest -= Area(p);
    }
    return SumPlates(plates).height;  // reached by a rounding residue only
}

double PlasticModulus(std::span<const Plate> plates, double zpl)
{
    double modulus = 0;
    for (const Plate& p : plates) {
        const double upper = p.z0 + p.height;
        const double mid = p.z0 + p.height / 2;
        if (p.z0 >= zpl) {
            modulus += Area(p) * (mid - zpl);
        } else if (upper <= zpl) {
            modulus += Area(p) * (zpl - mid);
        } else {
            modulus += p.width * (zpl - p.z0) * (zpl - p.z0) / 2 +
                       p.width * (upper - zpl) * (upper - zpl) / 2;
        }
    }
    return modulus;
}

}  // namespace kestrum
