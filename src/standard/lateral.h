#pragma once

// Lateral torsional buckling of the whole member under its real moment line, EN 1993-1-1, 6.3.2.

#include "clauses/critical_moment.h"
#include "standard/lines.h"
#include "standard/resistance.h"

#include <optional>

namespace kestrum::standard {

struct LateralResult {
    double moment = 0;   // MEd,max with its sign, kNm
    double checked = 0;  // the moment that is checked, its size, kNm
    double place = 0;    // x/L
    double mcr = 0;      // kNm
    double lam = 0, chi = 1;
    double resistance = 0;  // Mb,Rd, kNm
    double c1 = 1;          // of the piece that holds MEd,max
    double kc = 1;
    bool rolled = false;  // 6.3.2.3, else 6.3.2.2
    double alpha = 0, plateau = 0, beta = 1;
    std::string_view clause{};
};

// The member in one combination.
struct LateralCase {
    const ProjectState& s;
    const Basis& basis;
    const ProjectState* program;  // the record after the program's pass, or null
    const PreparedSection& p;
    const MemberLoads& loads;
    const LoadFactors& factors;
    const CombinedLines& lines;
    int cls;
};

// Of a line with a moment; the numerical solution, or the closed formula with the user's C factors.
// Deviations D201, D213 to D216, D233 to D235, D238, D239.
LateralResult LateralBucklingOf(const LateralCase& m);

// The shape that goes with the numerical solution; nothing without one.
std::optional<BucklingShape> BucklingShapeOf(const LateralCase& m);

// Critical moment of uniform moment, Annex A: k up to 1 counts as 1, kNm.
double UniformCriticalMoment(const ProjectState& s, const StandardSection& q);

// The pieces between lateral restraints that hold MEd,max: one, or both beside a restraint.
struct HoldingPieces {
    std::array<double, 2> x0, x1;  // m
    std::size_t count;
};
HoldingPieces PiecesHolding(const ProjectState& s, double x);

}  // namespace kestrum::standard
