#pragma once

// A member by a number, the same every time. Not all of its inputs are sensible.

#include "core/library.h"
#include "core/project_state.h"

#include <cstddef>

namespace kestrum {

ProjectState RandomMember(const Library& library, std::size_t number);

}  // namespace kestrum
