#pragma once

// Lateral torsional buckling of one combination told in full: its values, and the shape in which
// the member buckles.

#include "clauses/critical_moment.h"
#include "core/library.h"
#include "core/load_cases.h"
#include "standard/lateral.h"

#include <optional>

namespace kestrum::standard {

struct LateralStudy {
    LateralResult result;
    double characteristic;                 // MRk of the compressed side, kNm
    std::optional<BucklingShape> shape{};  // of the numerical solution
};

// `project` as read. Nothing for members without such a check here: plates with a stiffener, angles
// and what the standard basis does not cover.
std::optional<LateralStudy> LateralStudyOf(const Library& library, const ProjectState& project,
                                           const LoadCase& load_case);

}  // namespace kestrum::standard
