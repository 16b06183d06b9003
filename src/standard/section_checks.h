#pragma once

// Checks of the cross-sections along the member, EN 1993-1-1, 6.2 and EN 1993-1-5, 5 and 7, at
// every extreme of moments and shear forces, on both sides of every jump, and between.

#include "standard/lines.h"
#include "standard/resistance.h"
#include "standard/result.h"

#include <span>

namespace kestrum::standard {

struct SectionMember {
    const PreparedSection& section;
    ShearInputs shear;
    bool cantilever;                // the other end is no support
    double flange_load;             // hat beams: on the lower flange beside the webs, N/mm
    std::span<const float> places;  // the program's check sections, x/L
};

// The classes of a combination: of all its forces, and of each moment by itself (D153).
struct Classes {
    int all, my, mz;
};

// Deviations D109, D153, D163, D164, D170, D171, D176 to D178, D190, D198.
void CheckSections(const SectionMember& member, const CombinedLines& lines, const Classes& classes,
                   const LoadCase& load_case, Checks& checks, const Basis& basis);

// The largest ratio of these checks at even places from end to end, on both sides of a jump; each
// is kept in `largest` where it is larger.
void KeepLargestAlong(const SectionMember& member, const CombinedLines& lines,
                      const Classes& classes, const Basis& basis, std::span<double> largest);

}  // namespace kestrum::standard
