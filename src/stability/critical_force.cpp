#include "stability/critical_force.h"

#include <algorithm>

namespace kestrum {

bool ExceedsCriticalForce(const Forces& forces, PassOutcome& outcome,
                          std::initializer_list<CriticalForce> critical)
{
    const CriticalForce* const least = std::min_element(
        critical.begin(), critical.end(),
        [](const CriticalForce& a, const CriticalForce& b) { return a.force < b.force; });
    if (!(forces.ned > least->force)) {
        return false;
    }
    outcome.errorflag = kAxialOverload;
    outcome.failure = {.stage = outcome.failure.stage,
                       .cause = Cause::critical_force,
                       .quantity = least->name,
                       .value = forces.ned,
                       .limit = least->force,
                       .unit = "kN"};
    return true;
}

}  // namespace kestrum
