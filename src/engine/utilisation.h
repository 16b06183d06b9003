#pragma once

// Utilisation along the member by the program's rules: the largest ratio of the section control,
// EN 1993-1-1, 6.2, at each point of the diagrams, with the forces of the last combination.

#include "core/library.h"
#include "core/state/types.h"

#include <array>
#include <optional>

namespace kestrum {

struct ProjectState;

using AlongMember = std::array<double, kDiagramPoints>;  // at x = j L/50

// `s` after a pass that ended well. Nothing for a family without section control, and where the
// control fails at a point.
std::optional<AlongMember> SectionUtilisation(const Library& library, const ProjectState& s);

}  // namespace kestrum
