#include "analysis/step_points.h"

#include <algorithm>
#include <cstddef>

namespace kestrum {

namespace {

bool Acts(const ProjectState& s, i16 checked)
{
    return checked != 0 || s.loadcomb != kBasicLoads;
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

std::vector<StepPoint> PlacesOf(const ProjectState& s, float direction)
{
    std::vector<StepPoint> points;
    for (std::size_t k = 1; k <= 8; ++k) {
        if (s.pm[k] != 0 && s.pmdir[k] == direction && Acts(s, s.pmchecked[k])) {
            AddSides(points, s.pmx[k], s.l);
        }
    }
    for (std::size_t k = 1; k <= 3; ++k) {
        const bool loaded = s.qt1[k] != 0 || s.qt2[k] != 0;
        if (loaded && s.qtdir[k] == direction && Acts(s, s.qtchecked[k])) {
            for (int strip = 0; strip < kStrips; ++strip) {
                AddSides(points, StripCentre(s.qtx1[k], s.qtx2[k], strip), s.l);
            }
        }
    }
    std::sort(points.begin(), points.end(),
              [](const StepPoint& one, const StepPoint& other) { return one.at < other.at; });
    return points;
}

// The lines of all loads at some of the places, in the order of the places.
void Evaluate(const ProjectState& s, BendingAxis axis, StepPoint* points, std::size_t count)
{
    Span span = SpanOf(s);
    span.sections = static_cast<int>(count);
    for (std::size_t k = 0; k < count; ++k) {
        span.xs[k] = points[k].at * span.l;
        span.ys[k] = span.l - span.xs[k];
    }
    LoadTable table;
    FillTable(s, span, table);
    const bool governed = s.loadcomb == kEq610ab;
    const LoadFactors factors = StrengthFactors(s, !governed          ? s.loadcomb
                                                   : s.governing == 1 ? kEq610a
                                                                      : kEq610b);
    for (int i = 0; i < table.count; ++i) {
        const ActingLoad& load = table.load[static_cast<std::size_t>(i)];
        if (load.axis != axis || (s.loadcomb == kBasicLoads && !load.checked)) {
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

std::vector<StepPoint> StepPoints(const ProjectState& s, BendingAxis axis)
{
    if (s.loadmode != 1 || !(s.l > 0) || axis == BendingAxis::none) {
        return {};
    }
    std::vector<StepPoint> points = PlacesOf(s, axis == BendingAxis::y ? 1.0F : 0.0F);
    for (std::size_t first = 0; first < points.size(); first += kCheckSections) {
        const std::size_t left = points.size() - first;
        Evaluate(s, axis, &points[first], std::min<std::size_t>(left, kCheckSections));
    }
    return points;
}

}  // namespace kestrum
