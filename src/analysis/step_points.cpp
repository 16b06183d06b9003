#include "analysis/step_points.h"

#include <algorithm>
#include <cstddef>

namespace kestrum {

namespace {

bool Acts(const Inputs& in, i16 checked)
{
    return checked != 0 || in.loadcomb != kBasicLoads;
}

// Both sides of the place a, as far as they lie on the member.
void AddSides(std::vector<StepPoint>& points, double a, double l)
{
    constexpr double kBeside = 1e-9;  // of the length
    if (a > 0 && a <= l) {
        points.push_back({a / l - kBeside, 0, 0});
    }
    if (a >= 0 && a < l) {
        points.push_back({a / l + kBeside, 0, 0});
    }
}

std::vector<StepPoint> PlacesOf(const Inputs& in, float direction)
{
    std::vector<StepPoint> points;
    for (std::size_t k = 1; k <= 8; ++k) {
        if (in.pm[k] != 0 && in.pmdir[k] == direction && Acts(in, in.pmchecked[k])) {
            AddSides(points, in.pmx[k], in.l);
        }
    }
    for (std::size_t k = 1; k <= 3; ++k) {
        const bool loaded = in.qt1[k] != 0 || in.qt2[k] != 0;
        if (loaded && in.qtdir[k] == direction && Acts(in, in.qtchecked[k])) {
            for (int strip = 0; strip < kStrips; ++strip) {
                AddSides(points, StripCentre(in.qtx1[k], in.qtx2[k], strip), in.l);
            }
        }
    }
    std::sort(points.begin(), points.end(),
              [](const StepPoint& one, const StepPoint& other) { return one.at < other.at; });
    return points;
}

// The lines of all loads at some of the places, in the order of the places.
void Evaluate(const Inputs& in, const AnnexFactors& annex, const Carry& carry, const Forces& forces,
              BendingAxis axis, StepPoint* points, std::size_t count)
{
    Span span = SpanOf(in, forces);
    span.sections = static_cast<int>(count);
    for (std::size_t k = 0; k < count; ++k) {
        span.xs[k] = points[k].at * span.l;
        span.ys[k] = span.l - span.xs[k];
    }
    LoadTable table;
    FillTable(in, span, table);
    const bool governed = in.loadcomb == kEq610ab;
    const LoadFactors factors = StrengthFactors(in, annex,
                                                !governed              ? in.loadcomb
                                                : carry.governing == 1 ? kEq610a
                                                                       : kEq610b);
    for (int i = 0; i < table.count; ++i) {
        const ActingLoad& load = table.load[static_cast<std::size_t>(i)];
        if (load.axis != axis || (in.loadcomb == kBasicLoads && !load.checked)) {
            continue;
        }
        const double factor = FactorOf(factors, load.category);
        for (std::size_t k = 0; k < count; ++k) {
            points[k].m += factor * load.lines.msec[k];
            points[k].v += factor * load.lines.vsec[k];
        }
    }
}

}  // namespace

std::vector<StepPoint> StepPoints(const Inputs& in, const AnnexFactors& annex, const Carry& carry,
                                  const Forces& forces, BendingAxis axis)
{
    if (in.loadmode != 1 || !(in.l > 0) || axis == BendingAxis::none) {
        return {};
    }
    std::vector<StepPoint> points = PlacesOf(in, axis == BendingAxis::y ? 1.0F : 0.0F);
    for (std::size_t first = 0; first < points.size(); first += kCheckSections) {
        const std::size_t left = points.size() - first;
        Evaluate(in, annex, carry, forces, axis, &points[first],
                 std::min<std::size_t>(left, kCheckSections));
    }
    return points;
}

}  // namespace kestrum
