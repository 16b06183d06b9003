#pragma once

// What the user gives. A pass reads it; the few inputs that a pass must overwrite (loads that a
// family cannot take, switches and strengths that follow from other inputs) are written by the
// routines whose signature says so.

#include "core/state/load_inputs.h"
#include "core/state/member_inputs.h"
#include "core/state/section_forms.h"
#include "core/state/settings.h"

namespace kestrum {

struct Inputs : Settings, MemberInputs, LoadInputs, SectionForms {
    bool operator==(const Inputs&) const = default;
};

}  // namespace kestrum
