#pragma once

// The one record of inputs, settings and results: everything the program knows about the current
// member, in fixed arrays. It is composed of slices by what they hold and who writes them, one
// header each in core/state; a routine that needs some of them includes and takes those. Every
// slice is a base, so that a field is `s.fyk` wherever the whole state is at hand.
// A value-initialised record (`ProjectState s{};`) is the state of the program before its first
// project.

#include "core/project_inputs.h"
#include "core/state/carry.h"
#include "core/state/forces.h"
#include "core/state/pass_outcome.h"
#include "core/state/resistances.h"
#include "core/state/section_checks.h"
#include "core/state/section_record.h"
#include "core/state/service.h"
#include "core/state/stability.h"

namespace kestrum {

// What a pass finds.
struct Results : SectionRecord,
                 Resistances,
                 Forces,
                 SectionChecks,
                 Stability,
                 Service,
                 PassOutcome {
    bool operator==(const Results&) const = default;
};

struct ProjectState : ProjectInputs, Results, Carry {
    bool operator==(const ProjectState&) const = default;
};

}  // namespace kestrum
