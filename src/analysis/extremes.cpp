#include "analysis/extremes.h"

#include "core/arithmetic_trap.h"
#include "core/member_choices.h"
#include "core/wide.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstring>

namespace kestrum {

namespace {

using Diagram = std::array<float, kDiagramPoints>;

struct Extremes {
    double max = 0, min = 0, xmax = 0, xmin = 0;
};

// A later value replaces an earlier one only when it lies beyond it.
void Take(Extremes& e, double value, double x)
{
    if (value > e.max) {
        e.max = value;
        e.xmax = x;
    }
    if (value < e.min) {
        e.min = value;
        e.xmin = x;
    }
}

// Eight ordinates at a time; the last eight take some of those before once more.
constexpr std::size_t kLanes = 8;
using Lanes [[gnu::vector_size(kLanes * sizeof(float))]] = float;

// The largest and the least ordinate, 0 where all lie on the other side.
struct Bounds {
    float most = 0, least = 0;
};

// Of the points first to last, eight at least.
KESTRUM_WIDE Bounds BoundsOf(const Diagram& line, std::size_t first, std::size_t last)
{
    Lanes most{}, least{}, some;
    const auto take = [&](const Lanes& high, const Lanes& low) {
        most = high > most ? high : most;
        least = low < least ? low : least;
    };
    for (std::size_t j = first; j + kLanes <= last + 1; j += kLanes) {
        std::memcpy(&some, &line[j], sizeof some);
        take(some, some);
    }
    std::memcpy(&some, &line[last + 1 - kLanes], sizeof some);
    take(some, some);
    // Halves of what is left on each other.
    take(__builtin_shufflevector(most, most, 4, 5, 6, 7, 0, 1, 2, 3),
         __builtin_shufflevector(least, least, 4, 5, 6, 7, 0, 1, 2, 3));
    take(__builtin_shufflevector(most, most, 2, 3, 0, 1, 6, 7, 4, 5),
         __builtin_shufflevector(least, least, 2, 3, 0, 1, 6, 7, 4, 5));
    take(__builtin_shufflevector(most, most, 1, 0, 3, 2, 5, 4, 7, 6),
         __builtin_shufflevector(least, least, 1, 0, 3, 2, 5, 4, 7, 6));
    return {most[0], least[0]};
}

// x/L of the first point with this ordinate, which the line has. Lines often are extreme at an end
// or in the middle.
double PlaceOf(const Diagram& line, float ordinate)
{
    std::size_t j = 0;
#ifdef __SSE__
    constexpr std::size_t kFour = 4;
    using Four [[gnu::vector_size(kFour * sizeof(float))]] = float;
    for (Four some; j + kFour <= line.size(); j += kFour) {
        std::memcpy(&some, &line[j], sizeof some);
        if (__builtin_ia32_movmskps(Four(some == ordinate)) != 0) {
            break;
        }
    }
#endif
    const auto from = line.begin() + static_cast<std::ptrdiff_t>(j);
    const auto at = std::find(from, line.end(), ordinate) - line.begin();
    return static_cast<double>(at) / kLastPoint;
}

Extremes ExtremesOf(const Diagram& line)
{
    const auto [most, least] = BoundsOf(line, 0, kLastPoint);
    Extremes e;
    e.max = most;
    e.min = least;
    e.xmax = most > 0 ? PlaceOf(line, most) : 0;
    e.xmin = least < 0 ? PlaceOf(line, least) : 0;
    return e;
}

template <class Sections>
Extremes ExtremesOf(const Forces& forces, const Diagram& line, const Sections& sections)
{
    Extremes e = ExtremesOf(line);
    for (std::size_t k = 0; k <= static_cast<std::size_t>(forces.npts); ++k) {
        Take(e, sections[k], forces.xi[k]);
    }
    return e;
}

double LargerSize(double max, double min)
{
    return std::max(std::abs(max), std::abs(min));
}

// Moments at the ends, the quarter points and the middle.
struct Points {
    double start, q1, mid, q3, end;
};

Points PointsOf(const Diagram& m)
{
    const auto between = [&m](std::size_t j) {
        return (static_cast<double>(m[j]) + static_cast<double>(m[j + 1])) / 2;
    };
    return {m[0], between(12), m[25], between(37), m[kLastPoint]};
}

// Position of the last zero crossing between the points first and last + 1; 0 when there is none.
// Index 0 counts as none.
float ZeroCrossing(const Diagram& m, std::size_t first, std::size_t last)
{
    std::size_t hit = 0;
    for (std::size_t j = first; j <= last; ++j) {
        const bool falls = m[j] > m[j + 1] && m[j] >= 0 && m[j + 1] <= 0;
        const bool rises = m[j] < m[j + 1] && m[j] <= 0 && m[j + 1] >= 0;
        if (falls || rises) {
            hit = j;
        }
    }
    if (hit == 0) {
        return 0;
    }
    const double from = m[hit], to = m[hit + 1];
    return F32(static_cast<double>(hit) / kLastPoint +
               std::abs(from) / std::abs(to - from) / kLastPoint);
}

// Ratio of the end moments, the smaller over the larger one, in -1..1.
double EndRatio(double start, double end)
{
    const bool endlarger = std::abs(end) > std::abs(start);
    const double small = endlarger ? start : end;
    const double large = endlarger ? end : start;
    return small == 0 ? 0 : std::clamp(small / large, -1.0, 1.0);
}

// The point of the middle half with the largest moment, the first of equal ones; 0 without moment.
int PeakIndex(const Diagram& m)
{
    constexpr int kFirst = 12, kEnd = 38;
    const auto [most, least] = BoundsOf(m, kFirst, kEnd);
    const float largest = std::max(most, -least);
    const auto at = std::find_if(m.begin() + kFirst, m.begin() + kEnd + 1,
                                 [largest](float moment) { return std::abs(moment) == largest; });
    return largest > 0 ? static_cast<int>(at - m.begin()) : 0;
}

double At(const Diagram& m, int j)
{
    return m[static_cast<std::size_t>(j)];
}

// Half of a whole number, halves to the even one.
int HalfOf(int n)
{
    return ToI16(n / 2.0);
}

struct Shape {
    i16 curved, endsbig, linear;
    double peakratio, endratio;
};

Shape ShapeOf(const Diagram& m)
{
    const double start = m[0], mid = m[25], end = m[kLastPoint];
    Shape shape{};
    shape.curved = CurvedHalf(m, Half::right) ? kTrue : kFalse;  // D107
    shape.endsbig =
        std::abs(start) > std::abs(mid) && std::abs(end) > std::abs(mid) ? kTrue : kFalse;
    const double low = start + 0.3 * (end - start), high = start + 0.7 * (end - start);
    const bool loaded = start != 0 || end != 0;
    shape.linear =
        loaded && mid >= std::min(low, high) && mid <= std::max(low, high) ? kTrue : kFalse;
    const double small = std::abs(end) > std::abs(start) ? start : end;
    shape.endratio = mid == 0 ? 0 : small / mid;
    shape.peakratio = small == 0 ? 0 : mid / small;
    return shape;
}

}  // namespace

bool CurvedHalf(const Diagram& m, Half half)
{
    constexpr double kBand = 0.2;
    const int peak = PeakIndex(m);
    const int support = half == Half::left ? 0 : kLastPoint;
    const int test = HalfOf(peak + support);
    const int distance = half == Half::left ? test : test - peak;
    const double slope = peak == support ? 0 : (At(m, support) - At(m, peak)) / (support - peak);
    const double chord = (At(m, support) + At(m, peak)) / 2;
    const double width = std::abs(kBand * distance * slope);
    const double value = At(m, test);
    return !(value > chord - width && value < chord + width);  // a level line counts as curved
}

void SetDesignMoments(Forces& forces)
{
    forces.mydesign = std::abs(forces.mymax) > std::abs(forces.mymin) ? forces.mymax : forces.mymin;
    forces.mzdesign = F32(LargerSize(forces.mzmax, forces.mzmin));
}

void SetQuarterPoints(Forces& forces)
{
    const Points y = PointsOf(forces.mydiag), z = PointsOf(forces.mzdiag);
    forces.my0 = y.start;
    forces.myq1 = y.q1;
    forces.mymid = y.mid;
    forces.myq3 = y.q3;
    forces.myl = y.end;
    forces.mz0 = z.start;
    forces.mzq1 = z.q1;
    forces.mzmid = z.mid;
    forces.mzq3 = z.q3;
    forces.mzl = z.end;
}

void SetZeroCrossings(const Inputs& in, Forces& forces)
{
    forces.x0my1 = forces.x0my2 = forces.x0mz1 = forces.x0mz2 = 0;
    const bool restrained =
        in.supportcase == SupportCase::pinned_fixed || in.supportcase == SupportCase::fixed ||
        in.supportcase == SupportCase::springs || in.supportcase == SupportCase::pinned_spring;
    if (restrained) {
        forces.x0my1 = ZeroCrossing(forces.mydiag, 0, 25);
        forces.x0my2 = ZeroCrossing(forces.mydiag, 25, 49);
        forces.x0mz1 = ZeroCrossing(forces.mzdiag, 0, 25);
        forces.x0mz2 = ZeroCrossing(forces.mzdiag, 25, 49);
    }
}

void SetEndRatios(Forces& forces)
{
    forces.psiy = EndRatio(forces.my0, forces.myl);
    forces.psiz = EndRatio(forces.mz0, forces.mzl);
}

// Deviation D249: of 51 points and the check sections; the line may be larger between them.
void SetLargestMoments(Forces& forces)
{
    forces.mymaxabs = LargerSize(forces.mymax, forces.mymin);
    forces.mzmaxabs = LargerSize(forces.mzmax, forces.mzmin);
}

void FindExtremes(const Inputs& in, Forces& forces)
{
    const Extremes my = ExtremesOf(forces, forces.mydiag, forces.mysec);
    forces.mymax = my.max;
    forces.mymin = my.min;
    forces.xmymax = my.xmax;
    forces.xmymin = my.xmin;
    const Extremes mz = ExtremesOf(forces, forces.mzdiag, forces.mzsec);
    forces.mzmax = mz.max;
    forces.mzmin = mz.min;
    forces.xmzmax = mz.xmax;
    forces.xmzmin = mz.xmin;
    const Extremes vz = ExtremesOf(forces, forces.vzdiag, forces.vzsec);
    forces.vzmax = vz.max;
    forces.vzmin = vz.min;
    forces.xvzmax = vz.xmax;
    forces.xvzmin = vz.xmin;
    const Extremes vy = ExtremesOf(forces, forces.vydiag, forces.vysec);
    forces.vymax = vy.max;
    forces.vymin = vy.min;
    forces.xvymax = vy.xmax;
    forces.xvymin = vy.xmin;
    const Bounds dz = BoundsOf(forces.dzdiag, 0, kLastPoint),
                 dy = BoundsOf(forces.dydiag, 0, kLastPoint);
    forces.dzmax = dz.most;
    forces.dzmin = dz.least;
    forces.dymax = dy.most;
    forces.dymin = dy.least;

    SetQuarterPoints(forces);
    SetZeroCrossings(in, forces);
    SetLargestMoments(forces);
    forces.dzmaxabs = LargerSize(forces.dzmax, forces.dzmin);
    forces.dymaxabs = LargerSize(forces.dymax, forces.dymin);
    SetEndRatios(forces);

    const Shape y = ShapeOf(forces.mydiag), z = ShapeOf(forces.mzdiag);
    forces.mycurved = y.curved;
    forces.myendsbig = y.endsbig;
    forces.mylinear = y.linear;
    forces.mypeakratio = y.peakratio;
    forces.myendratio = y.endratio;
    forces.mzcurved = z.curved;
    forces.mzendsbig = z.endsbig;
    forces.mzlinear = z.linear;
    forces.mzpeakratio = z.peakratio;
    forces.mzendratio = z.endratio;
}

}  // namespace kestrum
