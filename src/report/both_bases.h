#pragma once

// A member by both sets of rules, with the notes that their comparison gives.

#include "core/library.h"
#include "standard/standard.h"

namespace kestrum {

struct ProjectState;

struct BothBases {
    bool well;                          // the pass of the program ended well
    standard::StandardResult standard;  // with the cost of each departure
};

// The pass of the program on `s`, the standard's result for the project as read with the costs of
// the departures, and from these the notes of `s`.
BothBases CalculateBoth(const Library& library, const ProjectState& read, ProjectState& s);

// Of a record after a pass: the standard's result with the costs, and from these the notes of `s`.
standard::StandardResult MeasureStandard(const Library& library, ProjectState& s);

}  // namespace kestrum
