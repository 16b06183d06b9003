#pragma once

// Exact lines of moment, shear and deflection of one bending plane, EN 1993-1-1, 5.4.2: polynomials
// between the places where loads begin, end or act. Lengths m, forces kN, moments kNm, line loads
// kN/m; loads downward, moments sagging positive, V = dM/dx.

#include <array>
#include <cstddef>
#include <span>

namespace kestrum {

struct LineLoad {
    double x1, x2;  // from, to
    double q1, q2;  // straight between
};

struct PointLoad {
    double x;
    double force;   // kN
    double moment;  // kNm, a positive one makes the moment line jump up by it
};

// Rotation held at each end, as the share by which the moments of the pinned and of the held end
// are mixed: 0 pinned, 1 fixed. A cantilever is fixed at x = 0 and free at L.
struct EndFixity {
    double start, end;
    bool cantilever;
};

constexpr std::size_t kMaxLinePieces = 128;

// The places between which every line of a member is one polynomial, rising from 0 to the length.
struct LineGrid {
    std::array<double, kMaxLinePieces + 1> x;
    std::size_t pieces;

    double Length() const { return x[pieces]; }
};

// More places than there is room for are left out from the end: `complete` turns false.
class LineGridMaker {
public:
    explicit LineGridMaker(double length);
    void Add(double x);
    LineGrid Grid() const { return grid_; }
    bool Complete() const { return complete_; }

private:
    LineGrid grid_{};
    bool complete_ = true;
};

// M = m[0] + m[1] s + m[2] s^2 + m[3] s^3 on piece i, s = x - grid.x[i].
struct MomentPolynomials {
    std::array<std::array<double, 4>, kMaxLinePieces> m;
};

MomentPolynomials MomentsOf(const LineGrid& grid, std::span<const LineLoad> lines,
                            std::span<const PointLoad> points, const EndFixity& ends);

double MomentAt(const LineGrid& grid, const MomentPolynomials& line, std::size_t piece, double x);
double ShearAt(const LineGrid& grid, const MomentPolynomials& line, std::size_t piece, double x);

// The piece that holds x; at a border the left one of both.
std::size_t PieceAt(const LineGrid& grid, double x);

struct LineExtreme {
    double value = 0, x = 0;
    std::size_t piece = 0;
};
struct LineExtremes {
    LineExtreme most, least;
};
// Largest and least moment: both sides of every border and the zeros of the shear between.
LineExtremes ExtremesOfMoment(const LineGrid& grid, const MomentPolynomials& line);
LineExtremes ExtremesOfShear(const LineGrid& grid, const MomentPolynomials& line);

// Deflections in mm, down positive, EI d'' = -M; E in MPa, inertia in mm4. A spring end mixes the
// deflections of the pinned and the held end as it mixes the moments.
class DeflectionLine {
public:
    DeflectionLine(const LineGrid& grid, const MomentPolynomials& line, bool cantilever, double e,
                   double inertia);
    double At(std::size_t piece, double x) const;
    LineExtreme Largest() const;  // in size

private:
    double SlopeAt(std::size_t piece, double s) const;

    const LineGrid& grid_;
    std::array<std::array<double, 6>, kMaxLinePieces> d_;
};

}  // namespace kestrum
