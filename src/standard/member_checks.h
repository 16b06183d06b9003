#pragma once

// Buckling of the member, EN 1993-1-1, 6.3: flexural, torsional, lateral torsional, and N with
// bending by 6.3.3.

#include "core/library.h"
#include "standard/lines.h"
#include "standard/resistance.h"
#include "standard/result.h"

namespace kestrum::standard {

struct MemberCase {
    const Library& library;
    const ProjectState& s;
    const PreparedSection& section;
    const MemberLoads& loads;
    const LoadCase& load_case;
    const CombinedLines& lines;
    int cls;  // of the combination
    bool my, mz;
};

// False where the numerical solution does not take the member (more than 16 restraints).
bool CheckMember(const MemberCase& member, Checks& checks);

}  // namespace kestrum::standard
