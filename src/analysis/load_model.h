#pragma once

// The load table: what its rows may hold, and the command that empties chosen rows.

#include "core/dropped_loads.h"
#include "core/literal.h"
#include "core/state/inputs.h"
#include "core/state/load_inputs.h"
#include "core/state/member_inputs.h"

namespace kestrum {

// Outcome of a check: what to tell the user, and the box of which row (counted from 1) to focus.
struct LoadCheck {
    bool ok = true;
    Literal message;
    Literal box;
    int row = 0;

    bool operator==(const LoadCheck&) const = default;
};

// Length of the member in the unit and precision of the stiffener spacing: 4.1 m is 4100 mm, not
// the 4099.9999 mm of the float.
float LengthInMm(const Inputs& in);

// The whole check, for closing the load form and after a change of length or supports. Cuts
// trapezoidal loads and check points to the member, empties point loads that stand on a support,
// takes web stiffeners away that are farther apart than the member is long. Not ok: the form stays
// open; all other rows are settled all the same.
LoadCheck ValidateLoads(const Inputs& in, MemberInputs& member, LoadInputs& loads,
                        DroppedLoads& dropped);

// The part for the trapezoidal rows alone, after an edit of one of them.
LoadCheck CheckLoadPositions(const Inputs& in, LoadInputs& loads, DroppedLoads& dropped);

// What the whole check would tell of the trapezoidal rows as they stand; changes nothing.
LoadCheck CheckTrapezoids(const Inputs& in);

// Empties the rows whose box is ticked; the ticks stay. Switches self-weight and relative positions
// off and puts the load level to the top flange.
void RemoveCheckedLoads(MemberInputs& member, LoadInputs& loads);

}  // namespace kestrum
