#pragma once

// The project as the user gives it: what a file keeps, without any result. Whoever reads or writes
// inputs only needs this header, and not project_state.h.

#include "core/state/annex_factors.h"
#include "core/state/identification.h"
#include "core/state/inputs.h"

namespace kestrum {

struct ProjectInputs : Identification, Inputs, AnnexFactors {
    bool operator==(const ProjectInputs&) const = default;
};

struct ProjectState;

// The inputs of a record, for whoever does not know what else is in one.
ProjectInputs& InputsOf(ProjectState& s);
const ProjectInputs& InputsOf(const ProjectState& s);

}  // namespace kestrum
