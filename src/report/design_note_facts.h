#pragma once

// Deviations that the basis does not switch (docs/deviations.md, "What each one costs"): a fact of
// the record says whether they act.

#include "core/deviation.h"

#include <span>

namespace kestrum {

struct ProjectState;

struct NoteFact {
    Dev deviation;
    bool (*acts)(const ProjectState& s);
};

std::span<const NoteFact> MemberFacts();
std::span<const NoteFact> VortexFacts();

}  // namespace kestrum
