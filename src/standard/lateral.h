#pragma once

// Lateral torsional buckling of the whole member under its real moment line, EN 1993-1-1, 6.3.2.

#include "clauses/critical_moment.h"
#include "standard/lines.h"
#include "standard/moment_shape.h"
#include "standard/resistance.h"
#include "standard/solved_lines.h"

#include <optional>

namespace kestrum::standard {

// Where the critical moment comes from.
enum class CriticalRoute {
    none,
    numerical,
    closed,   // with the user's C factors
    angle,    // unequal legs, uniform moment about u
    program,  // the program's formula, where its deviation is switched back
    tripping  // of a stiffener about its root
};
struct CriticalTerms {
    CriticalRoute route = CriticalRoute::none;
    double factor = 0;                  // numerical: Mcr over the largest moment
    double stress = 0;                  // tripping, MPa
    double length = 0, zg = 0, zj = 0;  // of the closed formulas, mm
};

// C1 of the piece that holds MEd,max: its critical moment alone, over that of uniform moment.
struct PieceTerms {
    double c1 = 1;
    double length = 0;   // over which the uniform moment acts, mm; 0 where C1 is entered
    double factor = 0;   // on its moments at which it buckles
    double moment = 0;   // its largest moment, kNm
    double uniform = 0;  // kNm
};

struct LateralResult {
    double moment = 0;   // MEd,max with its sign, kNm
    double checked = 0;  // the moment that is checked, its size, kNm
    double place = 0;    // x/L
    double mcr = 0;      // kNm
    CriticalTerms critical{};
    double modulus = 0;  // of the compressed side, mm3
    double lam = 0, chi = 1;
    double resistance = 0;  // Mb,Rd, kNm
    PieceTerms piece{};
    double kc = 1;
    std::optional<TabulatedShape> tabulated{};  // kc is a value of Table 6.6
    bool rolled = false;                        // 6.3.2.3, else 6.3.2.2
    double alpha = 0, plateau = 0, beta = 1;
    std::string_view clause{};
};

// The member in one combination.
struct LateralCase {
    const ProjectState& s;
    const Basis& basis;
    const ProjectState* program;  // the record after the program's pass, or null
    const PreparedSection& p;
    SolvedLines& solved;
    const MemberLoads& loads;
    const LoadFactors& factors;
    const CombinedLines& lines;
    int cls;
};

// The size of MEd,max. D201: the program sees the moments at the ends of its segments only.
double CheckedMoment(const LateralCase& m, const LineExtreme& most);

// Of a line with a moment; the numerical solution, or the closed formula with the user's C factors.
// Deviations D201, D213 to D216, D233 to D235, D238, D239.
LateralResult LateralBucklingOf(const LateralCase& m);

// What the numerical solution was given, and the shape that goes with it.
struct NumericalStudy {
    LateralSection section;
    LateralEnd start, end;
    double stretch;  // the moment line over k L, for ends that are neither fork nor clamped
    double level;    // loads above the shear centre, mm
    std::size_t restraints;
    std::array<double, 11> moments;  // kNm, at tenths of the length
    double piece;                    // length between restraints, m
    double uniform;                  // Mcr of uniform moment on it by formula, kNm
    BucklingShape shape;
};
// Nothing where the critical moment is none.
std::optional<NumericalStudy> NumericalStudyOf(const LateralCase& m);

// Critical moment of uniform moment, Annex A: k up to 1 counts as 1. Deviation D244.
struct UniformMomentTerms {
    double length;  // mm
    double eiw;     // warping stiffness that counts, Nmm4
    double mcr;     // kNm
};
UniformMomentTerms UniformCriticalMoment(const ProjectState& s, const StandardSection& q,
                                         const Basis& basis);

// The pieces between lateral restraints that hold MEd,max: one, or both beside a restraint.
struct HoldingPieces {
    std::array<double, 2> x0, x1;  // m
    std::size_t count;
};
HoldingPieces PiecesHolding(const ProjectState& s, double x);

}  // namespace kestrum::standard
