#include "standard/moment_shape.h"

#include <algorithm>
#include <cmath>

namespace kestrum::standard {

namespace {

using clauses::MomentShape;

constexpr double kClose = 0.02;

double MomentFrom(const CombinedLines& lines, Axis axis, double x, bool from_right)
{
    std::size_t piece = PieceAt(lines.grid, x);
    if (from_right && piece + 1 < lines.grid.pieces && lines.grid.x[piece + 1] <= x + 1e-9) {
        ++piece;
    }
    return lines.Moment(axis, piece, x);
}

// Largest size 1; fixed ends at t = 1.
double ShapeAt(MomentShape shape, double t)
{
    const double peak = 1 - std::abs(2 * t - 1);
    switch (shape) {
    case MomentShape::uniform_pinned:
        return 4 * t * (1 - t);
    case MomentShape::uniform_fixed:
        return 6 * t * (1 - t) - 1;
    case MomentShape::uniform_one_end_fixed:
        return 3 * t - 4 * t * t;
    case MomentShape::point_pinned:
        return peak;
    case MomentShape::point_fixed:
        return 2 * peak - 1;
    case MomentShape::point_one_end_fixed:
        return 5 * t / 3 - 16 * std::max(0.0, t - 0.5) / 3;
    case MomentShape::straight:
        break;
    }
    return 1;
}

bool Fits(const std::array<double, kShapeSamples>& m, double largest, MomentShape shape,
          bool mirrored, double scale)
{
    for (std::size_t i = 0; i < kShapeSamples; ++i) {
        const double t = static_cast<double>(i) / (kShapeSamples - 1);
        const double at = ShapeAt(shape, mirrored ? 1 - t : t);
        if (std::abs(m[i] - scale * at) > kClose * largest) {
            return false;
        }
    }
    return true;
}

bool IsStraight(const std::array<double, kShapeSamples>& m, double largest)
{
    for (std::size_t i = 0; i < kShapeSamples; ++i) {
        const double t = static_cast<double>(i) / (kShapeSamples - 1);
        if (std::abs(m[i] - (m.front() + t * (m.back() - m.front()))) > kClose * largest) {
            return false;
        }
    }
    return true;
}

}  // namespace

std::array<double, kShapeSamples> SampledMoments(const CombinedLines& lines, Axis axis, double x0,
                                                 double x1)
{
    std::array<double, kShapeSamples> m{};
    for (std::size_t i = 0; i < kShapeSamples; ++i) {
        const double t = static_cast<double>(i) / (kShapeSamples - 1);
        m[i] = MomentFrom(lines, axis, x0 + t * (x1 - x0), i == 0);
    }
    return m;
}

std::optional<TabulatedShape> TabulatedShapeOf(const CombinedLines& lines, Axis axis, double x0,
                                               double x1)
{
    const auto m = SampledMoments(lines, axis, x0, x1);
    double largest = 0;
    for (const double value : m) {
        largest = std::max(largest, std::abs(value));
    }
    if (IsStraight(m, largest)) {
        const bool first = std::abs(m.front()) >= std::abs(m.back());
        const double big = first ? m.front() : m.back();
        return TabulatedShape{MomentShape::straight, (first ? m.back() : m.front()) / big};
    }
    for (const MomentShape shape : {MomentShape::uniform_pinned, MomentShape::uniform_fixed,
                                    MomentShape::uniform_one_end_fixed, MomentShape::point_pinned,
                                    MomentShape::point_fixed, MomentShape::point_one_end_fixed}) {
        for (const double scale : {largest, -largest}) {
            if (Fits(m, largest, shape, false, scale) || Fits(m, largest, shape, true, scale)) {
                return TabulatedShape{shape, 0};
            }
        }
    }
    return std::nullopt;
}

SpanMoments SpanMomentsOf(const CombinedLines& lines, Axis axis, double x0, double x1)
{
    constexpr int kSteps = 400;
    const double m0 = MomentFrom(lines, axis, x0, true);
    const double m1 = MomentFrom(lines, axis, x1, false);
    const bool first = std::abs(m0) >= std::abs(m1);
    SpanMoments span{first ? m0 : m1, 1, 0, true};
    span.psi = span.mh != 0 ? (first ? m1 : m0) / span.mh : 1;
    double furthest = 0;
    double largest = std::abs(span.mh);
    const auto take = [&](double x, bool from_right) {
        const double m = MomentFrom(lines, axis, x, from_right);
        const double off = m - (m0 + (m1 - m0) * (x - x0) / (x1 - x0));
        largest = std::max(largest, std::abs(m));
        if (std::abs(off) > std::abs(furthest)) {
            furthest = off;
            span.ms = m;
        }
    };
    for (int i = 1; i < kSteps; ++i) {
        take(x0 + (x1 - x0) * i / kSteps, false);
    }
    for (std::size_t i = 1; i < lines.grid.pieces; ++i) {
        if (lines.grid.x[i] > x0 + 1e-9 && lines.grid.x[i] < x1 - 1e-9) {
            take(lines.grid.x[i], false);
            take(lines.grid.x[i], true);
        }
    }
    span.straight = std::abs(furthest) <= 1e-9 * largest;
    return span;
}

}  // namespace kestrum::standard
