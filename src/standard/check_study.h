#pragma once

// A check of the standard told in full: its terms as the pass finds them in the combination and at
// the place of its largest ratio.

#include "core/library.h"
#include "standard/member.h"

#include <optional>

namespace kestrum::standard {

struct CheckStudy {
    StandardSection section;
    EffectiveValues effective;
    std::optional<SectionTerms> at_section{};
    std::optional<MemberTerms> of_member{};
    std::optional<DeflectionTerms> deflection{};
};

// `project` as read, `check` as CalculateStandard gave it. Nothing where there is no such check.
std::optional<CheckStudy> CheckStudyOf(const Library& library, const ProjectState& project,
                                       CheckId id, const Check& check);

}  // namespace kestrum::standard
