#pragma once

// Buckling of the member, EN 1993-1-1, 6.3: flexural, torsional, lateral torsional, and N with
// bending by 6.3.3.

#include "core/library.h"
#include "standard/lines.h"
#include "standard/resistance.h"
#include "standard/result.h"
#include "standard/section_checks.h"

namespace kestrum::standard {

struct MemberCase {
    const Library& library;
    const ProjectState& s;
    const Basis& basis;
    const ProjectState* program;  // the record after the program's pass, or null
    const PreparedSection& section;
    const MemberLoads& loads;
    const LoadCase& load_case;
    const CombinedLines& lines;
    Classes classes;
    bool my, mz;
};

// Deviations D207, D208, D217 to D219, D221 to D223, D225, D229, D230, D232, D236, D240.
// False where the numerical solution does not take the member (more than 16 restraints).
bool CheckMember(const MemberCase& member, Checks& checks);

}  // namespace kestrum::standard
