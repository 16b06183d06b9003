#pragma once

// What one load of the member does, on both position grids and in the support case of the member:
// the beam formulas, the percentage mix of the spring supports, the trapezoidal load as point
// loads.
//
// Deviation D101: a trapezoidal load acts as 20 point loads in the middle of equal strips; the
// exact lines are the integrals of elementary beam theory (EN 1993-1-1, 5.4.2).
//
// Deviation D102: a spring support of s percent gives (100 - s) percent of the result with a pinned
// end plus s percent of the result with a fixed end; EN 1993-1-1, 5.1.2 and EN 1993-1-8, 5.1 ask
// for the rotational stiffness of the joint.
//
// Deviation D104: a moment load on a support with springs at both ends takes the end values -M (at
// x = 0) and +M (at x = L) of the fixed beam into the mix, so that the support shows (1 - 2 s) M;
// elastic analysis gives (1 - s) M beside the support, which only the check section at x = 0 holds.
//
// Deviation D110: a load or check point that a project file puts off the member, and a load that
// ends before it starts, go through the formulas as they stand; elastic analysis (EN 1993-1-1,
// 5.4.2) knows loads on the member only. The boxes refuse such positions.

#include "core/state/forces.h"
#include "core/state/inputs.h"

#include <array>

namespace kestrum {

// Positions and supports of the member, read once in a pass.
struct Span {
    double l;  // m
    i16 supportcase, spring;
    int sections;                           // check sections in use
    std::array<double, kDiagramPoints> x;   // m
    std::array<double, kDiagramPoints> y;   // m, from the end
    std::array<double, kCheckSections> xs;  // m, of the check sections; single precision values
    std::array<double, kCheckSections> ys;
};

// From l, supportcase, spring, xi and npts.
Span SpanOf(const Inputs& in, const Forces& forces);

// The lines of one load, rounded once to single precision. kN, kNm; deflection times E I, kNm3.
struct LoadLines {
    std::array<float, kDiagramPoints> m, v, d;
    std::array<float, kCheckSections> msec, vsec;
};

// The same before they are rounded.
struct LineSums {
    std::array<double, kDiagramPoints> m{}, v{}, d{};
    std::array<double, kCheckSections> msec{}, vsec{};
};

void UniformLines(const Span& span, double q, LoadLines& lines);                // kN/m
void ForceLines(const Span& span, double p, double a, LoadLines& lines);        // kN, m
void MomentLines(const Span& span, double moment, double a, LoadLines& lines);  // kNm, m

// Centre [m] of a strip of a trapezoidal load from x1 to x2, counted from 0; D101.
constexpr int kStrips = 20;
double StripCentre(double x1, double x2, int strip);

// q1 at x1 to q2 at x2; kN/m, m.
void TrapezoidLines(const Span& span, double q1, double q2, double x1, double x2, LoadLines& lines);

}  // namespace kestrum
