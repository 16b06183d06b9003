#pragma once

// Which routines design which section family: the one place where a family number chooses code.
// EN 1993-1-1, section 6; families as in sections/family_table.

#include "core/library.h"
#include "core/project_state.h"

#include <span>

namespace kestrum {

// What the family does to lateral torsional buckling, EN 1993-1-1, 6.3.2.
enum class LateralBuckling {
    on,         // can have it; the switch stays as the user left it
    general,    // the same, always with the general curve of 6.3.2.2
    off,        // cannot have it: switch and restraints are cleared
    unchanged,  // flat bar: general curve, the rest as the family before left it
};

struct FamilyRoutines {
    int family = 0;
    void (*properties)(const Library& library, ProjectState& s) = nullptr;
    void (*effective)(ProjectState& s) = nullptr;  // null: none, or part of `resistance`
    void (*resistance)(ProjectState& s) = nullptr;
    void (*control)(ProjectState& s) = nullptr;
    void (*buckling)(ProjectState& s) = nullptr;  // null: none
    LateralBuckling lateral = LateralBuckling::off;
    bool open = false;               // open profile: torsional buckling matters
    bool webshear = false;           // the web shear routine follows the effective one
    bool transverse_only = false;    // cleared of N before its properties
    bool control_without_n = false;  // and again before its control
    bool compressed_only = false;    // no buckling control unless N is compression
};

// The routines of a family, or null for a number that names no section (0, 55, unknown).
const FamilyRoutines* FindRoutines(int family);

std::span<const FamilyRoutines> AllRoutines();

}  // namespace kestrum
