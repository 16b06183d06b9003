#pragma once

// Which routines design which kind of section, EN 1993-1-1, section 6. The properties of a family
// and all else that is asked about it are in its row of sections/families.

#include "core/project_state.h"

namespace kestrum {

struct FamilyRoutines {
    void (*effective)(ProjectState& s);  // null: none, or part of `resistance`
    void (*resistance)(ProjectState& s);
    void (*control)(ProjectState& s);
    void (*buckling)(ProjectState& s);  // null: none
    bool control_without_n;             // N is cleared before the control
    bool compressed_only;               // no buckling control unless N is compression
};

// The routines of a family, or null for a number that names no section (0, 55, unknown).
const FamilyRoutines* FindRoutines(int family);

}  // namespace kestrum
