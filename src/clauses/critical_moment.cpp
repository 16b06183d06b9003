#include "clauses/critical_moment.h"

#include "clauses/lateral_problem.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace kestrum {

namespace {

constexpr double kExact = 1e-9;  // of the factor, relative

// A factor and what is counted there.
struct Tried {
    double alpha;
    LateralProblem::Count count;

    bool Below() const { return count.negative == 0; }
};

// Share of the way from `last` to `other`, which bracket the factor, where the parabola through
// both and the one tried before is 0, with its factor as function of the determinant. Half the way
// where that parabola turns, or where more than one factor lies below one of them (Chandrupatla,
// Advances in Engineering Software 28 (1997), p. 145).
double NextShare(const Tried& last, const Tried& other, const Tried& before)
{
    constexpr double kHalf = 0.5;
    if (std::max({last.count.negative, other.count.negative, before.count.negative}) > 1) {
        return kHalf;
    }
    const auto over = [](const Tried& a, const Tried& b) {
        return a.count.sign * b.count.sign *
               std::exp(std::clamp(a.count.log - b.count.log, -600.0, 600.0));
    };
    const double xi = (last.alpha - other.alpha) / (before.alpha - other.alpha);
    const double a = over(last, other);
    const double c = over(before, other);
    const double phi = (a - 1) / (c - 1);
    if (!(phi * phi < xi && (1 - phi) * (1 - phi) < 1 - xi)) {
        return kHalf;
    }
    const double way = (before.alpha - last.alpha) / (other.alpha - last.alpha);
    return a / (1 - a) * c / (1 - c) + way * a / (c - a) / (c - 1);
}

// The factor between lo, below it, and hi.
double Between(LateralProblem& problem, const Tried& lo, const Tried& hi)
{
    Tried last = lo;
    Tried other = hi;
    constexpr int kMostSteps = 200;
    double share = 0.5;
    for (int step = 0; step < kMostSteps; ++step) {
        const double alpha = last.alpha + share * (other.alpha - last.alpha);
        const Tried tried{alpha, problem.At(alpha)};
        Tried before = last;
        if (tried.Below() != last.Below()) {
            before = other;
            other = last;
        }
        last = tried;
        const double exact = 0.5 * kExact * last.alpha / std::abs(other.alpha - last.alpha);
        if (!(exact < 0.5)) {
            break;
        }
        share = std::clamp(NextShare(last, other, before), exact, 1 - exact);
    }
    return 0.5 * (last.alpha + other.alpha);
}

}  // namespace

double CriticalLoadFactor(const LateralSection& section, const LateralSupports& supports,
                          const MomentLine& line)
{
    const bool hangs = supports.start == LateralEnd::free ||
                       (supports.end == LateralEnd::free && supports.start != LateralEnd::clamped);
    if (hangs || supports.held.size() > kMaxHeld || line.pieces.empty()) {
        return std::numeric_limits<double>::quiet_NaN();
    }
    LateralProblem problem(section, supports, line);
    if (!problem.Moves()) {
        return std::numeric_limits<double>::infinity();
    }
    const auto tried = [&](double alpha) { return Tried{alpha, problem.At(alpha)}; };
    constexpr int kMostDoublings = 60;
    Tried hi = tried(problem.FirstGuess());
    Tried lo = hi;
    for (int turn = 0; hi.Below(); ++turn) {
        if (turn == kMostDoublings) {
            return std::numeric_limits<double>::infinity();
        }
        lo = hi;
        hi = tried(2 * hi.alpha);
    }
    while (!lo.Below() && lo.alpha > 0) {  // 0 is, for stiffnesses above 0
        hi = lo;
        lo = tried(0.5 * hi.alpha);
    }
    return Between(problem, lo, hi);
}

BucklingShape BucklingShapeAt(double factor, const LateralSection& section,
                              const LateralSupports& supports, const MomentLine& line)
{
    return LateralProblem(section, supports, line).ShapeAtFactor(factor);
}

}  // namespace kestrum
