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

constexpr float kStart = 2.0F;
constexpr double kStep = 0.1;    // mm
constexpr double kMargin = 1.0;  // beyond the section, mm

float NextLevel(float level)
{
    return F32(static_cast<double>(level) + kStep);
}

// Levels first + i step, i below count, exactly those that single steps reach.
struct EvenSteps {
    float first;
    double step;
    int count;

    float At(int i) const { return F32(static_cast<double>(first) + i * step); }
};

// The run of levels behind this one in which every step has the same size, a float being as fine
// between two powers of two, and in which the area grows evenly, between two edges of plates.
EvenSteps StepsFrom(std::span<const Plate> plates, float level)
{
    const float first = NextLevel(level);
    const double step = static_cast<double>(NextLevel(first)) - first;
    if (!(step > 0)) {
        return {first, 0, 1};
    }
    int power = 0;
    std::frexp(first, &power);
    double end = std::ldexp(1.0, power);  // beyond the run
    for (const Plate& p : plates) {
        for (const double edge : {p.z0, p.z0 + p.height}) {
            end = edge > first ? std::min(end, edge) : end;
        }
    }
    return {first, step, std::max(1, static_cast<int>(std::ceil((end - first) / step)))};
}

// The first level of the run with half the area below it, the last one when there is none.
float FirstWithHalf(std::span<const Plate> plates, const EvenSteps& steps, double half)
{
    if (!(AreaBelow(plates, steps.first) < half)) {
        return steps.first;
    }
    int under = 0, at = steps.count - 1;
    while (at - under > 1) {
        const int mid = under + (at - under) / 2;
        (AreaBelow(plates, steps.At(mid)) < half ? under : at) = mid;
    }
    return steps.At(at);
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
    const PlateSums sums = SumPlates(plates);
    const double half = sums.a / 2, most = sums.height + kMargin;
    float zpl = kStart;
    double below = 0;
    while (below < half) {
        const EvenSteps steps = StepsFrom(plates, zpl);
        if (!(steps.first > zpl)) {
            throw CalculationStop{{.cause = Cause::index, .quantity = "plastic axis"}};
        }
        zpl = FirstWithHalf(plates, steps, half);
        if (zpl > most) {
            throw CalculationStop{{.cause = Cause::index, .quantity = "plastic axis"}};
        }
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
