#include "analysis/load_lines.h"

#include "analysis/beam_formulas.h"
#include "analysis/extremes.h"
#include "core/arithmetic_trap.h"
#include "core/member_choices.h"
#include "core/wide.h"

#include <algorithm>
#include <cstddef>
#include <numeric>

namespace kestrum {

namespace {

// The sum in double precision, before the one rounding.
// Which side of a point load holds where a grid point falls exactly on it. The end points of the
// diagram show the supports: they belong to the left curve before `first` and to the right one from
// `last`, wherever the load stands.
struct Sides {
    bool diagramleft, sectionleft;  // the left curve holds at the load itself
    int first, last;
};

Sides SidesOfForce(Beam beam)
{
    switch (beam) {
    case Beam::fixed:
        return {true, false, 1, kLastPoint};
    case Beam::cantilever:
        return {true, true, 1, kDiagramPoints};  // a force at the tip acts on the last point
    default:
        return {false, false, 1, kLastPoint};
    }
}

Sides SidesOfMoment(Beam beam)
{
    switch (beam) {
    case Beam::fixed:
        return {false, false, 1, kLastPoint};
    case Beam::cantilever:
        return {true, true, 1, kLastPoint};
    default:
        return {false, false, 0, kLastPoint};  // a moment on the pinned end acts on the first point
    }
}

// The part of a member's response that one of the four beams gives.
struct Share {
    Beam beam;
    double weight;
};

struct Shares {
    int count;
    std::array<Share, 2> share;
};

// D102
Shares SharesOf(const Span& span)
{
    const double fixity = span.spring / 100.0;
    const double freedom = (100 - span.spring) / 100.0;
    switch (span.supportcase) {
    case SupportCase::pinned_fixed:
        return {1, {{{Beam::propped, 1}}}};
    case SupportCase::fixed:
        return {1, {{{Beam::fixed, 1}}}};
    case SupportCase::springs:
        return {2, {{{Beam::pinned, freedom}, {Beam::fixed, fixity}}}};
    case SupportCase::cantilever:
        return {1, {{{Beam::cantilever, 1}}}};
    case SupportCase::pinned_spring:
        return {2, {{{Beam::pinned, freedom}, {Beam::propped, fixity}}}};
    default:
        return {1, {{{Beam::pinned, 1}}}};
    }
}

void AddToDiagram(const Terms& terms, const std::array<double, kDiagramPoints>& t, int from, int to,
                  double weight, LineSums& sums)
{
    for (auto j = static_cast<std::size_t>(from); j < static_cast<std::size_t>(to); ++j) {
        sums.m[j] += weight * terms.M(t[j]);
        sums.v[j] += weight * terms.V(t[j]);
        sums.d[j] += weight * terms.D(t[j]);
    }
}

void AddToDiagram(const Span& span, const Curve& curve, int from, int to, double weight,
                  LineSums& sums)
{
    if (curve.usesx) {
        AddToDiagram(curve.x, span.x, from, to, weight, sums);
    }
    if (curve.usesy) {
        AddToDiagram(curve.y, span.y, from, to, weight, sums);
    }
}

void AddToSection(const Span& span, const Curve& curve, std::size_t k, double weight,
                  LineSums& sums)
{
    const double x = span.xs[k], y = span.ys[k];
    sums.msec[k] += weight * (curve.x.M(x) + curve.y.M(y));
    sums.vsec[k] += weight * (curve.x.V(x) + curve.y.V(y));
}

void Add(Terms& sum, const Terms& t)
{
    sum.m0 += t.m0;
    sum.m1 += t.m1;
    sum.m2 += t.m2;
    sum.v0 += t.v0;
    sum.v1 += t.v1;
    sum.d0 += t.d0;
    sum.d1 += t.d1;
    sum.d2 += t.d2;
    sum.d3 += t.d3;
    sum.d4 += t.d4;
}

void Add(Curve& sum, const Curve& c)
{
    if (c.usesx) {
        Add(sum.x, c.x);
        sum.usesx = true;
    }
    if (c.usesy) {
        Add(sum.y, c.y);
        sum.usesy = true;
    }
}

// Adds point loads that stand in ascending order. Between two of them one curve holds: the right
// curves of the loads passed and the left curves of those to come.
template <std::size_t N>
void AddPointLoads(const Span& span, const std::array<PointResponse, N>& loads, const Sides& sides,
                   double weight, LineSums& sums)
{
    std::array<Curve, N + 1> curve{};
    for (std::size_t n = 1; n <= N; ++n) {
        curve[n] = curve[n - 1];
        Add(curve[n], loads[n - 1].right);
    }
    Curve tocome;
    for (std::size_t n = N; n-- > 0;) {
        Add(tocome, loads[n].left);
        Add(curve[n], tocome);
    }

    int from = 0;
    for (std::size_t n = 0; n <= N; ++n) {
        int to = kDiagramPoints;
        if (n < N) {
            const auto begin = span.x.begin(), end = span.x.end();
            const auto behind = sides.diagramleft ? std::upper_bound(begin, end, loads[n].a)
                                                  : std::lower_bound(begin, end, loads[n].a);
            to = std::clamp(static_cast<int>(behind - begin), sides.first, sides.last);
        }
        AddToDiagram(span, curve[n], from, to, weight, sums);
        from = to;
    }

    for (std::size_t k = 0; k < static_cast<std::size_t>(span.sections); ++k) {
        std::size_t passed = 0;
        while (passed < N &&
               (sides.sectionleft ? loads[passed].a < span.xs[k] : loads[passed].a <= span.xs[k])) {
            ++passed;
        }
        AddToSection(span, curve[passed], k, weight, sums);
    }
}

KESTRUM_WIDE void Store(const Span& span, const LineSums& sums, LoadLines& lines)
{
    std::transform(sums.m.begin(), sums.m.end(), lines.m.begin(), F32);
    std::transform(sums.v.begin(), sums.v.end(), lines.v.begin(), F32);
    std::transform(sums.d.begin(), sums.d.end(), lines.d.begin(), F32);
    std::transform(sums.msec.begin(), sums.msec.end(), lines.msec.begin(), F32);
    std::transform(sums.vsec.begin(), sums.vsec.end(), lines.vsec.begin(), F32);
    lines.d[0] = 0;
    if (span.supportcase != SupportCase::cantilever) {
        lines.d[kLastPoint] = 0;
    }
}

}  // namespace

KESTRUM_WIDE Span SpanOf(const Inputs& in, const Forces& forces)
{
    // The numbers of the points, ready as double.
    static constexpr std::array<double, kDiagramPoints> kPoints = [] {
        std::array<double, kDiagramPoints> points{};
        std::iota(points.begin(), points.end(), 0.0);
        return points;
    }();
    Span span{};
    span.l = in.l;
    span.supportcase = in.supportcase;
    span.spring = in.spring;
    span.sections = forces.npts + 1;
    for (std::size_t j = 0; j < span.x.size(); ++j) {
        span.x[j] = kPoints[j] * span.l / kLastPoint;
        span.y[j] = span.l - span.x[j];
    }
    for (std::size_t k = 0; k < static_cast<std::size_t>(span.sections); ++k) {
        span.xs[k] = F32(span.l * forces.xi[k]);
        span.ys[k] = span.l - span.xs[k];
    }
    return span;
}

KESTRUM_WIDE void UniformLines(const Span& span, double q, LoadLines& lines)
{
    LineSums sums;
    const Shares shares = SharesOf(span);
    for (std::size_t i = 0; i < static_cast<std::size_t>(shares.count); ++i) {
        const auto& [beam, weight] = shares.share[i];
        const Curve curve = UniformLoad(beam, span.l, q);
        AddToDiagram(span, curve, 0, kDiagramPoints, weight, sums);
        for (std::size_t k = 0; k < static_cast<std::size_t>(span.sections); ++k) {
            AddToSection(span, curve, k, weight, sums);
        }
    }
    Store(span, sums, lines);
}

KESTRUM_WIDE void ForceLines(const Span& span, double p, double a, LoadLines& lines)
{
    LineSums sums;
    const Shares shares = SharesOf(span);
    for (std::size_t i = 0; i < static_cast<std::size_t>(shares.count); ++i) {
        const auto& [beam, weight] = shares.share[i];
        AddPointLoads<1>(span, {PointForce(beam, span.l, p, a)}, SidesOfForce(beam), weight, sums);
    }
    Store(span, sums, lines);
}

void MomentLines(const Span& span, double moment, double a, LoadLines& lines)
{
    LineSums sums;
    const Shares shares = SharesOf(span);
    for (std::size_t i = 0; i < static_cast<std::size_t>(shares.count); ++i) {
        const auto& [beam, weight] = shares.share[i];
        AddPointLoads<1>(span, {PointMoment(beam, span.l, moment, a)}, SidesOfMoment(beam), weight,
                         sums);  // D104
    }
    Store(span, sums, lines);
}

double StripCentre(double x1, double x2, int strip)
{
    const double dx = (x2 - x1) / kStrips;
    return x1 + (strip + 1) * dx - 0.5 * dx;
}

void TrapezoidLines(const Span& span, double q1, double q2, double x1, double x2, LoadLines& lines)
{
    const double dx = (x2 - x1) / kStrips;
    const double dq = (q2 - q1) / kStrips;
    LineSums sums;
    const Shares shares = SharesOf(span);
    for (std::size_t part = 0; part < static_cast<std::size_t>(shares.count); ++part) {
        const auto& [beam, weight] = shares.share[part];
        std::array<PointResponse, kStrips> strip{};
        for (int n = 0; n < kStrips; ++n) {
            const double p = (q1 + (n + 1) * dq - 0.5 * dq) * dx;
            // A file may hold x2 below x1; the strips are kept in ascending order.
            strip[static_cast<std::size_t>(dx < 0 ? kStrips - 1 - n : n)] =
                PointForce(beam, span.l, p, StripCentre(x1, x2, n));
        }
        AddPointLoads(span, strip, SidesOfForce(beam), weight, sums);
    }
    Store(span, sums, lines);
}

}  // namespace kestrum
