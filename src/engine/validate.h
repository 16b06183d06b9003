#pragma once

// Which inputs cannot be calculated. The boxes keep such values out and the reader keeps them as
// they are; a calculation needs the answer before it begins, since a selector outside its list
// combines no load at all and a negative length turns signs.
//
// A value has its place here only where no meaning is agreed for it: an index of the material list
// beyond its end is the user's own strength, a buckling length factor of 0.002 and below means no
// buckling, an unknown series of a British section is the first one.

#include "core/failure.h"
#include "core/library.h"

#include <array>

namespace kestrum {

struct ProjectState;

// The faults in the order of the inputs; what does not fit is left out.
struct InputFaults {
    std::array<Failure, 16> fault;
    int count;
};

// Nothing for a family without a control. `library` (may be null) tells the rows of the profile
// tables. Allocates nothing.
InputFaults Validate(const ProjectState& s, const Library* library);

// Rows of loads that are half typed: a trapezoidal load that does not end behind its start. The
// window calculates while they are typed; no verdict rests on them.
InputFaults Unfinished(const ProjectState& s);

}  // namespace kestrum
