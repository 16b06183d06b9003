#pragma once

// Elastic critical moment for lateral torsional buckling by numerical solution, EN 1993-1-1,
// 6.3.2.2 (2): the factor by which the whole moment line of a member grows until it buckles, with
// its real moments, load levels, supports and lateral restraints.
//
// The member is a chain of beam elements with the lateral deflection v of the shear centre and the
// twist phi. It buckles where this energy stops being positive:
//   1/2 integral of EIz v''^2 + EIw phi''^2 + GIt phi'^2
//   + alpha [ 1/2 integral of 2 M v'' phi + 2 M zj phi'^2 - q zg phi^2  -  1/2 sum of P zg phi^2 ]
// Units: N and mm. M sagging, q and P downward positive; zg of a load is its height above the
// shear centre, upward positive.

#include <array>
#include <cstddef>
#include <span>

namespace kestrum {

struct LateralSection {
    double eiz;  // lateral bending stiffness, Nmm2
    double eiw;  // warping stiffness, Nmm4; 0 for sections without warping
    double git;  // torsional stiffness, Nmm2; above 0
    double zj;  // asymmetry, mm, positive where the larger flange is compressed by a sagging moment
};

enum class LateralEnd {
    fork,     // v and phi held
    clamped,  // v, v', phi and, where the section warps, phi' held
    free      // of the end alone, with a clamped start: a cantilever
};

struct LateralSupports {
    LateralEnd start, end;
    std::span<const double> held;  // places of the restraints of v and phi, rising, inside, mm
};

// M = m[0] + m[1] s + m[2] s^2 + m[3] s^3 with s = x - x0. Pieces follow each other without gaps
// from 0 to the length; moments may jump between them.
struct MomentPiece {
    double x0, x1;            // mm
    std::array<double, 4> m;  // Nmm, N, N/mm, N/mm2
    double qz0, qz1;          // sum of q zg at both ends, straight between, N
};

struct PointTorque {
    double x;   // mm
    double pz;  // P zg, Nmm
};

struct MomentLine {
    double length;  // mm
    std::span<const MomentPiece> pieces;
    std::span<const PointTorque> points;
};

constexpr std::size_t kShapePoints = 51;  // x = j L/50

// The buckled member; the largest twist is 1 rad, v goes with it in mm. Its energies in Nmm: what
// the member stores, and what the loads give at the factor 1. The factor is the quotient of both
// sums.
struct BucklingShape {
    std::array<double, kShapePoints> v, phi;
    double bending, warping, torsion;   // 1/2 EIz v''^2, 1/2 EIw phi''^2, 1/2 GIt phi'^2
    double moments, asymmetry, levels;  // -M v'' phi, -M zj phi'^2, 1/2 q zg phi^2
};

// The smallest factor above 0; infinite where no factor buckles the member (no moment). NaN for
// what the model does not take: more restraints than kMaxHeld, a free start, a free end without a
// clamped start, no moment line.
constexpr std::size_t kMaxHeld = 16;
double CriticalLoadFactor(const LateralSection& section, const LateralSupports& supports,
                          const MomentLine& line);

// The shape that goes with a finite factor.
BucklingShape BucklingShapeAt(double factor, const LateralSection& section,
                              const LateralSupports& supports, const MomentLine& line);

}  // namespace kestrum
