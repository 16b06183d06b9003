#pragma once

// Shapes of the moment line of a piece of the member: Table 6.6 and Table B.3 of EN 1993-1-1.

#include "clauses/lateral_torsional.h"
#include "standard/lines.h"

#include <array>
#include <optional>

namespace kestrum::standard {

constexpr std::size_t kShapeSamples = 41;
std::array<double, kShapeSamples> SampledMoments(const CombinedLines& lines, Axis axis, double x0,
                                                 double x1);

// A row of Table 6.6.
struct TabulatedShape {
    clauses::MomentShape shape;
    double psi;  // of a straight line
    double Kc() const { return clauses::CorrectionFactor(shape, psi); }
};
// That of a line which is one of its shapes within 2 percent of the largest moment.
std::optional<TabulatedShape> TabulatedShapeOf(const CombinedLines& lines, Axis axis, double x0,
                                               double x1);

// End moments and the span moment of Table B.3: where the line is furthest from its chord.
struct SpanMoments {
    double mh, psi, ms;
    bool straight;
};
SpanMoments SpanMomentsOf(const CombinedLines& lines, Axis axis, double x0, double x1);

}  // namespace kestrum::standard
