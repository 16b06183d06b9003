#pragma once

// The member line with its supports and its length: x from 16 to 86 in the units of all diagrams.

#include "report/drawing.h"

namespace kestrum {

struct ProjectInputs;
struct ProjectState;

// Units of the pictures along the member.
constexpr double kMemberStart = 16;
constexpr double kMemberWidth = 70;
constexpr double kPictureWidth = 102;

// A member may be drawn longer or shorter than that, in a pane; what stands left and right of it
// keeps its size.
struct MemberSpan {
    double length = kMemberWidth;

    double At(double relative) const { return kMemberStart + relative * length; }
    double Picture() const { return kPictureWidth - kMemberWidth + length; }
};

constexpr double kLabelSize = 2.85;   // font size of figures and values
constexpr double kHeadingSize = 3.1;  // of headings

// The member at the height y: line, supports, dimension line with "L = 5.000 m". Takes
// kMemberAbove above y and kMemberBelow below.
constexpr double kMemberAbove = 5, kMemberBelow = 12;
constexpr double kDimension = 8.5;  // of the dimension line, below y
void AddMember(Drawing& d, const ProjectInputs& s, double y, const MemberSpan& span = {},
               double dimension = kDimension);

// The member alone.
Drawing DrawMember(const ProjectState& s);

}  // namespace kestrum
