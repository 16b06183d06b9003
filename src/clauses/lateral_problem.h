#pragma once

// The eigenvalue problem behind the critical moment (critical_moment.h).
//
// The lateral deflection is eliminated: at every place v'' is the one that makes the energy least,
//   v'' = -alpha M phi/EIz + sum of lambda_i h_i,
// with h_i the straight lines between lateral supports that stand for the redundant reactions. What
// is left is a banded problem in the twist alone and one small full matrix. With x as share of the
// length L, energies over GIt/(2 L):
//   K0 = w phi''^2 + phi'^2                          w  = EIw/(GIt L^2)
//   K1 = 2 M zj/GIt phi'^2 - qz L^2/GIt phi^2 - ...  qz = q zg
//   K2 = mu^2 phi^2                                  mu = M L/sqrt(EIz GIt)
//   S(alpha) = K0 + alpha K1 - alpha^2 (K2 - H C^-1 H^T), H_i = mu h_i phi, C_ij = h_i h_j
// S loses its definiteness first at the factor sought. Its negative eigenvalues are counted by the
// signs of the pivots (Sylvester); they only grow in number with alpha.

#include "clauses/critical_moment.h"
#include "clauses/lateral_mesh.h"

#include <array>
#include <cstddef>

namespace kestrum {

constexpr std::size_t kHalfBand = 3;     // half width behind the diagonal
constexpr std::size_t kGaussPoints = 5;  // of an element: exact to degree 9
constexpr std::size_t kMaxTwistDofs = 3 * (kMaxElements + 1);
constexpr std::size_t kMaxRedundant = kMaxHeld + 2;

inline constexpr std::array<double, kGaussPoints> kGaussPlace = {
    0.5 - 0.4530899229693320, 0.5 - 0.2692346550528415, 0.5, 0.5 + 0.2692346550528415,
    0.5 + 0.4530899229693320};
inline constexpr std::array<double, kGaussPoints> kGaussWeight = {
    0.1184634425280945, 0.2393143352496832, 0.2844444444444444, 0.2393143352496832,
    0.1184634425280945};

using Shape = std::array<double, 4>;  // twist and slope at the start, twist and slope at the end

struct ShapeAt {
    Shape value, slope, bend;
};

// Cubic shapes of an element of length h at the share t of it.
ShapeAt ShapesOf(bool warps, double t, double h);

// What acts at one place of the line, without dimension.
struct Action {
    double mu, mzj, qz;
};

using TwistBand =
    std::array<std::array<double, kHalfBand + 1>, kMaxTwistDofs>;  // [row][row - column]
using TwistVector = std::array<double, kMaxTwistDofs>;

class LateralProblem {
public:
    LateralProblem(const LateralSection& section, const LateralSupports& supports,
                   const MomentLine& line);

    bool Moves() const { return largest_mu_ > 0; }
    double FirstGuess() const;

    // Number of negative eigenvalues of S, and the sign and logarithm of a determinant that is a
    // smooth function of alpha and vanishes with S.
    struct Count {
        int negative;
        double sign, log;
    };
    Count At(double alpha);

    BucklingShape ShapeAtFactor(double alpha);

private:
    std::size_t Twist(std::size_t node) const { return warps_ ? 2 * node : 3 * node + 1; }
    std::size_t FirstOf(std::size_t element) const { return Twist(element); }
    std::size_t NodeAt(double x) const;
    Action ActionAt(const MomentPiece& piece, double x) const;
    void PlaceRedundants(const LateralSupports& supports);
    double Redundant(std::size_t i, double x) const;
    void Assemble();
    void AddElement(std::size_t element, std::size_t& piece);
    void AddRedundants(std::size_t element, std::size_t point, double mu);
    void AddPoints();
    void Hold(const LateralSupports& supports);
    void HoldOne(std::size_t dof);
    void Forward(TwistVector& x, std::size_t from) const;
    void Border(double alpha);
    void Solve(double alpha, TwistVector& x) const;
    using Reactions = std::array<double, kMaxRedundant>;
    struct Curvature {
        double bend, moment;  // integrals of v'' and of x v''
    };
    Reactions ReactionsOf(double alpha, const TwistVector& phi) const;
    double TwistAt(std::size_t element, double t, const TwistVector& phi) const;
    double CurvatureAt(double alpha, double mu, double twist, const Reactions& lambda,
                       double x) const;
    void AddCurvature(double alpha, const TwistVector& phi, const Reactions& lambda,
                      std::size_t element, double t, Curvature& sum) const;
    void Deflect(double alpha, const TwistVector& phi, const Reactions& lambda,
                 BucklingShape& shape) const;
    void AddEnergies(double alpha, const TwistVector& phi, const Reactions& lambda,
                     BucklingShape& shape) const;

    const LateralSection& section_;
    const MomentLine& line_;
    double length_;
    bool warps_;
    LateralEnd start_, end_;
    LateralMesh mesh_;
    std::size_t dofs_ = 0;
    double warping_ = 0;     // w
    double per_moment_ = 0;  // mu of a moment of 1
    double largest_mu_ = 0;
    TwistBand k0_, k1_, k2_, factor_;
    TwistVector inverse_;  // of the pivots
    std::size_t redundants_ = 0;
    std::array<double, kMaxRedundant + 2>
        support_{};                  // places that hold v, and two beyond the ends
    std::size_t first_support_ = 0;  // of the first redundant
    std::array<TwistVector, kMaxRedundant> h_;
    std::array<TwistVector, kMaxRedundant> forward_;      // L^-1 H
    std::array<std::size_t, kMaxRedundant> first_row_{};  // of H that is not empty
    std::array<std::array<double, kMaxRedundant>, kMaxRedundant> c_{}, small_{};
    std::size_t segments_ = 1;
};

}  // namespace kestrum
