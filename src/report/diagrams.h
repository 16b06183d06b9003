#pragma once

// Moment, shear force and deflection along the member, as curves with their extremes. The member
// starts at x = 16 and is 70 units wide; the largest ordinate of a curve is 10 units, positive
// values below the axis. Where a load makes a line jump or bend between the 51 stored values, the
// drawn line does so at the place of the load.

#include "report/load_drawing.h"

#include <string>

namespace kestrum {

constexpr double kOrdinate = 10;

// Loads on the member: moment, shear and deflection about one axis.
Drawing DrawMyVz(const ProjectState& s);
Drawing DrawMzVy(const ProjectState& s);

// Given end forces: moment and shear, straight between the ends.
Drawing DrawEndMyVz(const ProjectState& s);
Drawing DrawEndMzVy(const ProjectState& s);

// The two pictures of an axis by the mode of loading.
struct AxisPictures {
    Drawing load;    // PicLoadZ, PicLoadY
    Drawing moment;  // PicMy, PicMz
};
AxisPictures DrawAll(const ProjectState& s, LoadAxis axis, const MemberSpan& span = {});

// Both pictures of an axis, one below the other.
Drawing DrawSheet(const ProjectState& s, LoadAxis axis);

// "Deflection: 12.3 mm  = l/406" of a largest deflection in mm; empty without one.
std::string DeflectionText(const ProjectState& s, double largest);

// Values under the pointer at x of the moment picture; empty outside the member.
std::string HoverText(const ProjectState& s, LoadAxis axis, double x);

}  // namespace kestrum
