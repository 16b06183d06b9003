#pragma once

// Shapes of the moment line of a piece of the member: Table 6.6 and Table B.3 of EN 1993-1-1.

#include "standard/lines.h"

#include <array>
#include <optional>

namespace kestrum::standard {

constexpr std::size_t kShapeSamples = 41;
std::array<double, kShapeSamples> SampledMoments(const CombinedLines& lines, Axis axis, double x0,
                                                 double x1);

// kc of Table 6.6 where the line is one of its shapes within 2 percent of the largest moment.
std::optional<double> TabulatedKc(const CombinedLines& lines, Axis axis, double x0, double x1);

// End moments and the span moment of Table B.3: where the line is furthest from its chord.
struct SpanMoments {
    double mh, psi, ms;
    bool straight;
};
SpanMoments SpanMomentsOf(const CombinedLines& lines, Axis axis, double x0, double x1);

}  // namespace kestrum::standard
