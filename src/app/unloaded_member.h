#pragma once

// The member that tables and other programs begin from.

#include "core/held_state.h"
#include "core/library.h"

namespace kestrum {

// A new project without its example loads and its identification.
HeldState UnloadedMember(const Library& library);

}  // namespace kestrum
