#pragma once

// Inputs that the calculation does not read as the project stands.

#include "core/library.h"
#include "core/project_state.h"

#include <string>
#include <string_view>

namespace kestrum {

// Why the value of this field, by its canonical name, plays no part: annex or material overrule it,
// or another choice would have to be made first. Empty when it counts, and for loads of 0.
std::string WithoutEffect(const Library& library, const ProjectState& s, std::string_view name);

}  // namespace kestrum
