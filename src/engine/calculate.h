#pragma once

// The driver: one pass of the whole calculation over the record.

#include "core/held_state.h"
#include "core/library.h"

#include <string_view>

namespace kestrum {

// The one message of a pass that could not finish, whatever the reason.
constexpr std::string_view kCalculationError =
    " Calculation Error. Axial load too big. Increase profile or reduce axial force ";

// Section, member analysis, section and buckling control, deflections, modal analysis. Never fails
// outwards: false, and calculationerror set, when an axial force exceeds its elastic critical force
// (errorflag -1) or the arithmetic failed somewhere; the record is then half written and not to be
// shown. Faces draw from a copy taken after a pass that ended well. Allocates nothing.
bool Calculate(const Library& library, ProjectState& s);

// The project as the last pass found it: with the loads that the section cannot take and the flange
// loading that was switched off.
HeldState AsGiven(const ProjectState& s);

}  // namespace kestrum
