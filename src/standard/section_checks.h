#pragma once

// Checks of the cross-sections along the member, EN 1993-1-1, 6.2 and EN 1993-1-5, 5 and 7, at
// every extreme of moments and shear forces, on both sides of every jump, and between.

#include "standard/lines.h"
#include "standard/resistance.h"
#include "standard/result.h"

#include <cstdint>
#include <optional>
#include <span>

namespace kestrum::standard {

struct SectionMember {
    const PreparedSection& section;
    ShearInputs shear;
    bool cantilever;                // the other end is no support
    double flange_load;             // hat beams: on the lower flange beside the webs, N/mm
    std::span<const float> places;  // the program's check sections, x/L
    const ProjectState* state;      // after the program's section step (D42)
};

// The classes of a combination: of all its forces, and of each moment by itself (D153).
struct Classes {
    // Of My, which two unequal flanges make depend on its sign.
    struct BySign {
        int sagging, hogging;
        int At(bool sags) const { return sags ? sagging : hogging; }
    };

    int all;    // of all forces
    BySign my;  // of each moment alone
    int mz;
    BySign n_my;  // of N with each moment
    int n_mz;
};

// What stands behind the ratios at one place. N, Nmm, mm; 0 where a check does not take part.
struct SectionTerms {
    enum class Rule : std::uint8_t { none, linear, i_section, closed, tube, flat, corners };

    double n, my, mz, vz, vy;  // acting, with their signs
    Classes classes;           // of the moments alone and of all forces
    double area;               // of NEd alone
    ShearResistance along_z, along_y;
    std::optional<ShearTerms> shear;  // of webs that buckle
    bool rigid_end_post;
    double flange_load;  // on a lower flange beside the webs, N/mm
    ShearShares rho;
    double moment_y, moment_z;  // resistances of the moments alone
    Rule rule;                  // of all forces together
    ReducedResistance beside_shear;
    double shift_y, shift_z;     // eN of class 4, sizes
    double share, web_y, web_z;  // n and a of 6.2.9.1
    double mny, mnz;
    double alpha, beta;           // exponents; 0: one moment alone
    double across;                // use of a loaded flange across the member
    double eta3, flanges, whole;  // EN 1993-1-5, 7.1
    FlangeAreas flange_areas;
    CornerTerms my_corner, mz_corner, corner;  // of angles: each moment alone, all forces
};

// At the place x in m where the check has its largest ratio; of both sides of a jump the worse.
SectionTerms SectionTermsAt(const SectionMember& member, const CombinedLines& lines,
                            const Classes& classes, const Basis& basis, double x, CheckId id);

// Deviations D42 to D44, D48, D109, D153, D163, D164, D170, D171, D176 to D178, D190, D198.
void CheckSections(const SectionMember& member, const CombinedLines& lines, const Classes& classes,
                   const LoadCase& load_case, Checks& checks, const Basis& basis);

// The largest ratio of these checks at even places from end to end, on both sides of a jump; each
// is kept in `largest` where it is larger.
void KeepLargestAlong(const SectionMember& member, const CombinedLines& lines,
                      const Classes& classes, const Basis& basis, std::span<double> largest);

}  // namespace kestrum::standard
