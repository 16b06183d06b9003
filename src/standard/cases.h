#pragma once

// Every combination of a member by itself: what the largest ratios of all of them are made of.

#include "standard/standard.h"

#include <vector>

namespace kestrum::standard {

struct CaseResult {
    LoadCase load_case{};
    Checks checks{};
    bool rated = false;   // something is checked
    bool counts = true;   // in the member's largest ratio: not deflections nobody asked for
    double ir = 0;        // largest of its checks
    CheckId governing{};  // its check
};

// Strength, then serviceability; empty where the standard basis does not cover the project, `s` as
// read.
std::vector<CaseResult> CalculateCases(const Library& library, const ProjectState& s);

}  // namespace kestrum::standard
