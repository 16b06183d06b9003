#include "standard/costs.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace kestrum::standard {

namespace {

constexpr double kRounding = 1e-6;  // of a ratio
constexpr double kNone = std::numeric_limits<double>::quiet_NaN();

// Checks of one kind, of which a basis makes one or another.
constexpr std::array kInteraction = {CheckId::eq661, CheckId::eq662, CheckId::interaction_outside,
                                     CheckId::n_above_ncr};

bool IsInteraction(CheckId id)
{
    return std::find(kInteraction.begin(), kInteraction.end(), id) != kInteraction.end();
}

double RatioOf(const Checks& checks, CheckId id)
{
    return checks[id].present ? checks[id].ir : 0;
}

double LargestInteraction(const Checks& checks)
{
    double largest = 0;
    for (const CheckId id : kInteraction) {
        largest = std::max(largest, RatioOf(checks, id));
    }
    return largest;
}

bool Above(double a, double b)
{
    return std::isfinite(b) && a > b * (1 + kRounding) + 1e-9;
}

struct Difference {
    bool any = false, higher = false;

    void Take(double standard, double program)
    {
        higher = higher || Above(standard, program);
        any = any || higher || Above(program, standard);
    }
};

Difference Compare(const Checks& standard, const Checks& program)
{
    Difference difference;
    for (std::size_t i = 0; i < kCheckIds; ++i) {
        const auto id = static_cast<CheckId>(i);
        if (!IsInteraction(id)) {
            difference.Take(RatioOf(standard, id), RatioOf(program, id));
        }
    }
    // The sum outside 6.3.3 and its equations stand for each other; rows of both are compared one
    // by one.
    if (standard[CheckId::interaction_outside].present ||
        program[CheckId::interaction_outside].present) {
        difference.Take(LargestInteraction(standard), LargestInteraction(program));
        return difference;
    }
    for (const CheckId id : kInteraction) {
        difference.Take(RatioOf(standard, id), RatioOf(program, id));
    }
    return difference;
}

// Costs without a value come first: they decide whether there is a result at all.
bool Costlier(const DeviationCost& a, const DeviationCost& b)
{
    if (std::isnan(a.cost) || std::isnan(b.cost)) {
        return std::isnan(a.cost) && !std::isnan(b.cost);
    }
    return a.cost > b.cost;
}

}  // namespace

void CalculateCosts(const Library& library, const ProjectState& project,
                    const ProjectState* program, StandardResult& result)
{
    result.deviations.clear();
    for (std::size_t i = 0; i < kDeviations; ++i) {
        if (!result.met[i]) {
            continue;
        }
        const auto deviation = static_cast<Dev>(i);
        const StandardResult back =
            CalculateStandard(library, project, Basis::StandardBut(deviation), program);
        const Difference difference = Compare(result.checks, back.checks);
        if (difference.any || result.rated != back.rated) {
            const double without = back.rated ? back.ir : kNone;
            const double cost = result.rated && back.rated ? result.ir - back.ir : kNone;
            DeviationCost& found = result.deviations.emplace_back(
                DeviationCost{deviation, without, cost, difference.higher || !result.rated, {}});
            for (std::size_t k = 0; k < kCheckIds; ++k) {
                found.ratios[k] = RatioOf(back.checks, static_cast<CheckId>(k));
            }
        }
    }
    std::stable_sort(result.deviations.begin(), result.deviations.end(), Costlier);
}

}  // namespace kestrum::standard
