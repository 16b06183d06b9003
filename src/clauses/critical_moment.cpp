#include "clauses/critical_moment.h"

#include "clauses/lateral_problem.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace kestrum {

namespace {

constexpr double kExact = 1e-9;  // of the factor, relative

// Narrows lo (none negative) and hi (one negative or more) by Ridders' method, which keeps the
// bracket; by halves while hi lies behind several factors.
double Narrow(LateralProblem& problem, double lo, double hi)
{
    LateralProblem::Count at_lo = problem.At(lo);
    LateralProblem::Count at_hi = problem.At(hi);
    const auto take = [&](double alpha, const LateralProblem::Count& count) {
        if (count.negative == 0) {
            lo = alpha;
            at_lo = count;
        } else {
            hi = alpha;
            at_hi = count;
        }
    };
    constexpr int kMostSteps = 200;
    for (int step = 0; step < kMostSteps && hi - lo > kExact * hi; ++step) {
        const double middle = 0.5 * (lo + hi);
        const LateralProblem::Count at_middle = problem.At(middle);
        double next = middle;
        if (at_hi.negative == 1 && at_middle.negative <= 1) {
            const double base = at_lo.log;
            const double fl = 1;
            const double fm =
                at_middle.sign * std::exp(std::clamp(at_middle.log - base, -600.0, 600.0));
            const double fh = -std::exp(std::clamp(at_hi.log - base, -600.0, 600.0));
            next = middle + (middle - lo) * fm / std::sqrt(fm * fm - fl * fh);
        }
        take(middle, at_middle);
        if (next > lo && next < hi) {
            // Aim a little past the estimate, so that the bracket closes from both sides.
            const double past = next > 0.5 * (lo + hi) ? -0.5 : 0.5;
            take(next, problem.At(next));
            const double nudged = next + past * kExact * hi;
            if (hi - lo > kExact * hi && nudged > lo && nudged < hi) {
                take(nudged, problem.At(nudged));
            }
        }
    }
    return 0.5 * (lo + hi);
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
    double hi = problem.FirstGuess();
    double lo = 0;
    constexpr int kMostDoublings = 60;
    int turn = 0;
    for (; problem.At(hi).negative == 0; ++turn) {
        if (turn == kMostDoublings) {
            return std::numeric_limits<double>::infinity();
        }
        lo = hi;
        hi *= 2;
    }
    for (turn = 0; lo == 0 && turn < kMostDoublings; ++turn) {
        const double half = 0.5 * hi;
        if (problem.At(half).negative == 0) {
            lo = half;
        } else {
            hi = half;
        }
    }
    return Narrow(problem, lo, hi);
}

BucklingShape BucklingShapeAt(double factor, const LateralSection& section,
                              const LateralSupports& supports, const MomentLine& line)
{
    return LateralProblem(section, supports, line).ShapeAtFactor(factor);
}

}  // namespace kestrum
