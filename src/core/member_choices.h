#pragma once

// Names of the choices that a project keeps as numbers; those of loadcomb are in load_combination.
// The fields keep their types, and a file may hold numbers that none of these names.

#include "core/state/types.h"

namespace kestrum {

// Supports at end 1 and end 2.
struct SupportCase {
    enum : i16 {
        pinned = 0,
        pinned_fixed = 1,
        fixed = 2,
        springs = 3,
        cantilever = 4,  // fixed at end 1
        pinned_spring = 5
    };
};

// Interaction factors of EN 1993-1-1, 6.3.3.
struct Method {
    enum : i16 { annex_a = 1, annex_b = 2 };
};

// Reduction curves of EN 1993-1-1: 6.3.2.2, and 6.3.2.3 of rolled or equivalent welded sections.
struct LtbCurve {
    enum : i16 { general = 2, rolled = 3 };
};

}  // namespace kestrum
