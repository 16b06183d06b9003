#pragma once

// What each deviation of the program costs in a member: the result of the standard against that of
// the standard with this one deviation switched back.

#include "standard/standard.h"

#include <functional>

namespace kestrum::standard {

// Fills `result.deviations` with those that act: some ratio differs by more than a rounding.
// Largest cost first.
//   project  as read
//   result   of the standard for it
//   program  the record after the program's own pass, or null where that pass failed
void CalculateCosts(const Library& library, const ProjectState& project,
                    const ProjectState* program, StandardResult& result);

// The same of whatever is calculated by a basis; the second argument is its result by another
// basis, as in CalculateStandard.
using Calculation = std::function<StandardResult(const Basis&, const StandardResult&)>;
void CalculateCosts(const Calculation& calculate, StandardResult& result);

// Whether a deviation of the result acts in the check: with the program's rule its ratio is another
// one.
bool ActsIn(const StandardResult& result, const DeviationCost& at, CheckId id);

}  // namespace kestrum::standard
