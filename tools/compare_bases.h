#pragma once

// Both bases over random members, the same every time. Where no departure changes the ratio of the
// standard by more than 1e-9, by itself or with all others, both must agree but for the single
// precision in which the program keeps sections, forces and pi (D202, which is the program's here in
// both). Every other member is plain: few forces, so that this happens at all.

#include "core/library.h"
#include "core/project_state.h"
#include "report/outcome.h"
#include "standard/standard.h"

#include <cstddef>
#include <functional>

namespace kestrum {

// The standard's checks with every deviation switched back to the program's rule.
Basis EveryRuleBack();

// A member of the family by its number; plain where that is odd.
ProjectState RolledMember(const Library& library, std::size_t number, int family);

// As an engineer leaves a member: the program's ratio between 0.6 and 1.1, roughly.
void LoadFully(const Library& library, ProjectState& s, std::size_t number);

struct BothBases {
    int members = 0, rated = 0, differ = 0, same_rules = 0, disagree = 0;
    double largest = 0;
};

// A member that disagrees although no departure acts.
using Disagreement = std::function<void(std::size_t number, const ProjectState& designed,
                                        const Outcome& program,
                                        const standard::StandardResult& standard)>;

// One member of the family by its number; `sum` counts it.
void CompareBases(const Library& library, std::size_t number, int family,
                  const Disagreement& disagreement, BothBases& sum);

}  // namespace kestrum
