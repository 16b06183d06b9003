#pragma once

// The member that tables and other programs begin from.

#include "core/library.h"

namespace kestrum {

struct ProjectState;

// A new project without its example loads and its identification.
ProjectState UnloadedMember(const Library& library);

}  // namespace kestrum
