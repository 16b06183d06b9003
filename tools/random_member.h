#pragma once

// A member by a number, the same every time. Not all of its inputs are sensible.

#include "core/library.h"
#include "core/project_state.h"

#include <cstddef>

namespace kestrum {

ProjectState RandomMember(const Library& library, std::size_t number);

// Few forces on the same section, so that rules of the program that depart may all be idle: by turns
// N, one moment, one shear force, N with a moment; forces at the ends or a uniform load.
void MakePlain(ProjectState& s, std::size_t number);

}  // namespace kestrum
