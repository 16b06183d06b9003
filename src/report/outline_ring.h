#pragma once

// Closed lines of points, of which outlines are made.

#include "report/drawing.h"

#include <vector>

namespace kestrum {

using Ring = std::vector<Point>;

// A corner of a ring with the radius that rounds it.
struct Corner {
    double x, y;
    double r = 0;
};

// The ring through the corners, each rounded; a radius gives way where an edge is too short.
Ring Rounded(const std::vector<Corner>& corners);
Ring Rectangle(double left, double top, double right, double bottom, double r);
Ring Circle(double centre, double radius);  // the centre has it as both coordinates

// With the sign of its sense.
double RingArea(const Ring& ring);

}  // namespace kestrum
