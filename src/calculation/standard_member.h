#pragma once

// Buckling by EN 1993-1-1 as written with its terms.

#include "core/project_state.h"
#include "document/document.h"
#include "standard/check_study.h"

namespace kestrum {

// Adds what leads to the ratio of a check of the member and returns its formula; null where it is
// told by its value alone.
Expr StandardMemberRatio(const ProjectState& input, const standard::CheckStudy& study,
                         standard::CheckId id, Document& d);

}  // namespace kestrum
