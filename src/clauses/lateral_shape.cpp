// The shape in which a member buckles laterally, by inverse iteration.

#include "clauses/lateral_problem.h"

#include <algorithm>
#include <cmath>

namespace kestrum {

// lambda of v'' = -alpha mu phi + sum of lambda h: C lambda = alpha H^T phi, so that no deflection
// is left where v is held.
LateralProblem::Reactions LateralProblem::ReactionsOf(double alpha, const TwistVector& phi) const
{
    Reactions lambda{};
    auto c = c_;
    for (std::size_t r = 0; r < redundants_; ++r) {
        for (std::size_t i = 0; i < dofs_; ++i) {
            lambda[r] += alpha * h_[r][i] * phi[i];
        }
    }
    for (std::size_t r = 0; r < redundants_; ++r) {  // C is positive definite: no search for pivots
        for (std::size_t q = r + 1; q < redundants_; ++q) {
            const double factor = c[q][r] / c[r][r];
            for (std::size_t k = r; k < redundants_; ++k) {
                c[q][k] -= factor * c[r][k];
            }
            lambda[q] -= factor * lambda[r];
        }
    }
    for (std::size_t r = redundants_; r-- > 0;) {
        for (std::size_t k = r + 1; k < redundants_; ++k) {
            lambda[r] -= c[r][k] * lambda[k];
        }
        lambda[r] /= c[r][r];
    }
    return lambda;
}

double LateralProblem::TwistAt(std::size_t element, double t, const TwistVector& phi) const
{
    const ShapeAt n = ShapesOf(warps_, t, mesh_.x[element + 1] - mesh_.x[element]);
    double twist = 0;
    for (std::size_t i = 0; i < 4; ++i) {
        twist += n.value[i] * phi[FirstOf(element) + i];
    }
    return twist;
}

// v'' that makes the energy least.
double LateralProblem::CurvatureAt(double alpha, double mu, double twist, const Reactions& lambda,
                                   double x) const
{
    double curve = -alpha * mu * twist;
    for (std::size_t r = 0; r < redundants_; ++r) {
        curve += lambda[r] * Redundant(r, x);
    }
    return curve;
}

// Adds the integrals of v'' and x v'' over the first share t of an element.
void LateralProblem::AddCurvature(double alpha, const TwistVector& phi, const Reactions& lambda,
                                  std::size_t element, double t, Curvature& sum) const
{
    const double from = mesh_.x[element];
    const double h = mesh_.x[element + 1] - from;
    std::size_t piece = 0;
    for (std::size_t p = 0; p < kGaussPoints; ++p) {
        const double x = from + kGaussPlace[p] * t * h;
        while (piece + 1 < line_.pieces.size() && line_.pieces[piece].x1 < x * length_) {
            ++piece;
        }
        const double curve = CurvatureAt(alpha, ActionAt(line_.pieces[piece], x).mu,
                                         TwistAt(element, kGaussPlace[p] * t, phi), lambda, x);
        sum.bend += curve * kGaussWeight[p] * t * h;
        sum.moment += curve * x * kGaussWeight[p] * t * h;
    }
}

void LateralProblem::Deflect(double alpha, const TwistVector& phi, const Reactions& lambda,
                             BucklingShape& shape) const
{
    std::array<Curvature, kMaxElements + 1> upto{};
    for (std::size_t e = 0; e < mesh_.elements; ++e) {
        upto[e + 1] = upto[e];
        AddCurvature(alpha, phi, lambda, e, 1, upto[e + 1]);
    }
    // v = slope x + x (integral of v'') - integral of x v''; clamped at x = 0, or 0 again at x = 1.
    const Curvature& all = upto[mesh_.elements];
    const double slope = start_ == LateralEnd::fork ? all.moment - all.bend : 0;
    const double to_mm = length_ * std::sqrt(section_.git / section_.eiz);
    std::size_t e = 0;
    for (std::size_t j = 0; j < kShapePoints; ++j) {
        const double x = static_cast<double>(j) / static_cast<double>(kShapePoints - 1);
        while (e + 1 < mesh_.elements && mesh_.x[e + 1] < x) {
            ++e;
        }
        const double t = std::clamp((x - mesh_.x[e]) / (mesh_.x[e + 1] - mesh_.x[e]), 0.0, 1.0);
        Curvature sum = upto[e];
        AddCurvature(alpha, phi, lambda, e, t, sum);
        shape.v[j] = to_mm * (slope * x + x * sum.bend - sum.moment);
        shape.phi[j] = TwistAt(e, t, phi);
    }
}

void LateralProblem::AddEnergies(double alpha, const TwistVector& phi, const Reactions& lambda,
                                 BucklingShape& shape) const
{
    const double unit = section_.git / (2 * length_);  // Nmm
    std::size_t piece = 0;
    for (std::size_t e = 0; e < mesh_.elements; ++e) {
        const double h = mesh_.x[e + 1] - mesh_.x[e];
        for (std::size_t p = 0; p < kGaussPoints; ++p) {
            const double x = mesh_.x[e] + kGaussPlace[p] * h;
            while (piece + 1 < line_.pieces.size() && line_.pieces[piece].x1 < x * length_) {
                ++piece;
            }
            const Action a = ActionAt(line_.pieces[piece], x);
            const ShapeAt n = ShapesOf(warps_, kGaussPlace[p], h);
            double twist = 0, slope = 0, bend = 0;
            for (std::size_t i = 0; i < 4; ++i) {
                const double at = phi[FirstOf(e) + i];
                twist += n.value[i] * at;
                slope += n.slope[i] * at;
                bend += n.bend[i] * at;
            }
            const double curve = CurvatureAt(alpha, a.mu, twist, lambda, x);
            const double weight = unit * kGaussWeight[p] * h;
            shape.bending += weight * curve * curve;
            shape.warping += weight * warping_ * bend * bend;
            shape.torsion += weight * slope * slope;
            shape.moments -= weight * 2 * a.mu * curve * twist;
            shape.asymmetry -= weight * a.mzj * slope * slope;
            shape.levels += weight * a.qz * twist * twist;
        }
    }
    for (const PointTorque& point : line_.points) {
        const double twist = phi[Twist(NodeAt(point.x / length_))];
        shape.levels += point.pz * twist * twist / 2;
    }
}

BucklingShape LateralProblem::ShapeAtFactor(double alpha)
{
    const double below = alpha * (1 - 1e-7);  // S itself has no inverse at the factor
    At(below);
    TwistVector phi;
    for (std::size_t i = 0; i < dofs_; ++i) {
        phi[i] = 1 + 0.1 * std::sin(1.7 * static_cast<double>(i));  // no symmetry of its own
    }
    for (int turn = 0; turn < 3; ++turn) {
        Solve(below, phi);
        double largest = 0;
        for (std::size_t node = 0; node <= mesh_.elements; ++node) {
            const double twist = phi[Twist(node)];
            largest = std::abs(twist) > std::abs(largest) ? twist : largest;
        }
        for (std::size_t i = 0; i < dofs_; ++i) {
            phi[i] /= largest;
        }
    }
    BucklingShape shape{};
    const Reactions lambda = ReactionsOf(alpha, phi);
    Deflect(alpha, phi, lambda, shape);
    AddEnergies(alpha, phi, lambda, shape);
    return shape;
}

}  // namespace kestrum
