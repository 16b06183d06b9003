#pragma once

// Lateral torsional buckling of one combination told in full: its values, and what the
// numerical solution was given and found.

#include "clauses/critical_moment.h"
#include "core/library.h"
#include "core/load_cases.h"
#include "standard/lateral.h"

#include <optional>

namespace kestrum::standard {

struct LateralStudy {
    StandardSection section;
    LateralResult result;
    std::optional<NumericalStudy> numerical{};
};

// `project` as read. Nothing for members without such a check here: plates with a stiffener, angles
// and what the standard basis does not cover.
std::optional<LateralStudy> LateralStudyOf(const Library& library, const ProjectState& project,
                                           const LoadCase& load_case);

}  // namespace kestrum::standard
