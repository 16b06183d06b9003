#pragma once

// The elastic critical forces as a border of the calculation: above one of them the interaction of
// EN 1993-1-1, 6.3.3 cannot be formed.

#include "core/state/forces.h"
#include "core/state/pass_outcome.h"

#include <initializer_list>
#include <string_view>

namespace kestrum {

constexpr i16 kAxialOverload = -1;  // of errorflag

struct CriticalForce {
    std::string_view name;  // "Ncr,z"
    double force;           // kN
};

// True when NEd exceeds one of them: errorflag says so, and the failure of the state names the
// smallest one. NEd equal to a critical force passes.
bool ExceedsCriticalForce(const Forces& forces, PassOutcome& outcome,
                          std::initializer_list<CriticalForce> critical);

}  // namespace kestrum
