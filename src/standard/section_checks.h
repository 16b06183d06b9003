#pragma once

// Checks of the cross-sections along the member, EN 1993-1-1, 6.2 and EN 1993-1-5, 5 and 7, at
// every extreme of moments and shear forces, on both sides of every jump, and between.

#include "standard/lines.h"
#include "standard/resistance.h"
#include "standard/result.h"

namespace kestrum::standard {

struct SectionMember {
    const PreparedSection& section;
    ShearInputs shear;
    bool cantilever;     // the other end is no support
    double flange_load;  // hat beams: on the lower flange beside the webs, N/mm
};

void CheckSections(const SectionMember& member, const CombinedLines& lines, int cls,
                   const LoadCase& load_case, Checks& checks);

}  // namespace kestrum::standard
