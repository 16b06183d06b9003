#include "stability/critical_force.h"

#include <algorithm>

namespace kestrum {

bool ExceedsCriticalForce(ProjectState& s, std::initializer_list<CriticalForce> forces)
{
    const CriticalForce* const least = std::min_element(
        forces.begin(), forces.end(),
        [](const CriticalForce& a, const CriticalForce& b) { return a.force < b.force; });
    if (!(s.ned > least->force)) {
        return false;
    }
    s.errorflag = -1;
    s.failure = {.stage = s.failure.stage,
                 .cause = Cause::critical_force,
                 .quantity = least->name,
                 .value = s.ned,
                 .limit = least->force,
                 .unit = "kN"};
    return true;
}

}  // namespace kestrum
