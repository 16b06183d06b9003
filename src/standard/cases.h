#pragma once

// What the largest ratios of a member are made of: every combination by itself, and the utilisation
// along the member.

#include "engine/utilisation.h"
#include "standard/standard.h"

#include <optional>
#include <vector>

namespace kestrum::standard {

struct CaseResult {
    LoadCase load_case{};
    bool service = false;  // of serviceability
    Checks checks{};
    bool rated = false;   // something is checked
    bool counts = true;   // in the member's largest ratio: not deflections nobody asked for
    double ir = 0;        // largest of its checks
    CheckId governing{};  // its check
};

// Strength, then serviceability; empty where the standard basis does not cover the project, `s` as
// read.
std::vector<CaseResult> CalculateCases(const Library& library, const ProjectState& s);

// The largest ratio of the section checks, EN 1993-1-1, 6.2, of all strength combinations at each
// point of the diagrams; nothing where the standard basis does not cover the project.
std::optional<AlongMember> SectionUtilisation(const Library& library, const ProjectState& s);

}  // namespace kestrum::standard
