#pragma once

// Closed formulas of elementary beam theory for one load on one span: moment, shear and deflection
// to the left and to the right of the load. Elastic first-order analysis, EN 1993-1-1, 5.4.2.
//
// Signs: a positive load and its deflection point the same way, E I d'' = -M, V = dM/dx; a moment
// load makes the moment line jump by its value. Units kN, m; deflections times E I, kNm3.

namespace kestrum {

enum class Beam {
    pinned,     // both ends
    propped,    // pinned at x = 0, fixed at x = L
    fixed,      // both ends
    cantilever  // fixed at x = 0, free at x = L
};

// A stretch of the three lines, as polynomials of the distance t from one end.
struct Terms {
    double m0 = 0, m1 = 0, m2 = 0;
    double v0 = 0, v1 = 0;
    double d0 = 0, d1 = 0, d2 = 0, d3 = 0, d4 = 0;

    double M(double t) const { return m0 + t * (m1 + t * m2); }
    double V(double t) const { return v0 + t * v1; }
    double D(double t) const { return d0 + t * (d1 + t * (d2 + t * (d3 + t * d4))); }
};

// The sum of terms counted from the start, t = x, and from the end, t = L - x. A side that is not
// in use holds zeros.
struct Curve {
    Terms x, y;
    bool usesx = false, usesy = false;
};

// A load at a point; the curve to its left and to its right.
struct PointResponse {
    double a;
    Curve left, right;
};

// Uniform load q [kN/m] over the whole length l [m].
//
// Deviation D105: the shear of a cantilever is stored with the opposite sign, V = -dM/dx;
// resistance checks take its size.
Curve UniformLoad(Beam beam, double l, double q);

// Force p [kN] at a [m] from the start. Deviation D105 as above.
PointResponse PointForce(Beam beam, double l, double p, double a);

// Moment m [kNm] at a [m] from the start.
PointResponse PointMoment(Beam beam, double l, double m, double a);

}  // namespace kestrum
