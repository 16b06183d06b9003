#pragma once

// The exact lines of one combination of a member: N, My and Vz, Mz and Vy, and the loads that cause
// them. kN, kNm, m.

#include "analysis/exact_line.h"
#include "core/basis.h"
#include "core/load_cases.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

namespace kestrum {
struct ProjectState;
}

namespace kestrum::standard {

struct Load {
    int category;  // 0 G, 1 Q1, 2 Q2
    bool about_y;
    bool point;
    bool self_weight;
    LineLoad line;
    PointLoad at;
    bool strip = false;  // a point load of a trapezoidal one (D101)
};
constexpr std::size_t kMaxLoads = 2 * kMaxLinePieces;  // as forces at stations tell of them

struct MemberLoads {
    std::array<Load, kMaxLoads> load;
    std::size_t count = 0;
    ActionsPresent present{};
    LineGrid grid;  // borders of the loads and lateral restraints
};

// The reason why the loads cannot be taken: off the member, or ending before they start (D110).
std::string_view NoLoadsReason(const ProjectState& s);
// Deviations D101, D103, D106.
MemberLoads LoadsOf(const ProjectState& s, const Basis& basis);

enum class Axis { y, z };  // the axis of bending

// Moments and shear forces of one plane.
struct Plane {
    MomentPolynomials m;
    bool given = false;     // shear as entered with the end forces
    double v0 = 0, v1 = 0;  // then from end to end
};

// Lines of forces at stations that no moment polynomial tells of: from end to end of each piece.
struct StationPieces {
    std::array<std::array<double, 2>, kMaxLinePieces> n, vz, vy;
    double steepest;  // fall of Vz, kN/m
};

// Only the pieces of the grid are filled, here as everywhere below.
struct CombinedLines {
    LineGrid grid;
    double n = 0;  // compression positive; the largest where it varies
    Plane y, z;
    const StationPieces* stations = nullptr;  // must last; null where N is constant

    double Axial(std::size_t piece, double x) const;

    const Plane& Of(Axis axis) const { return axis == Axis::y ? y : z; }
    double Moment(Axis axis, std::size_t piece, double x) const
    {
        return MomentAt(grid, Of(axis).m, piece, x);
    }
    double Shear(Axis axis, std::size_t piece, double x) const;
    LineExtreme LargestMoment(Axis axis) const;  // in size
};

// The largest of a deflection at the points of the program's diagram (D217, D261).
LineExtreme LargestAtPoints(const DeflectionLine& line, const LineGrid& grid);

EndFixity FixityOf(const ProjectState& s);
// Deviations D178, D189: end forces that the family does not take.
CombinedLines LinesOf(const ProjectState& s, const MemberLoads& loads, const LoadFactors& factors,
                      const Basis& basis);
double FactorOn(const LoadFactors& factors, int category);

}  // namespace kestrum::standard
