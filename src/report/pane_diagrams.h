#pragma once

// Moment, shear force, deflection and utilisation of one axis as a pane of a window shows them: the
// bands share the height that there is, and the member has the width. Texts keep their size.

#include "report/load_drawing.h"
#include "report/utilisation_figure.h"

namespace kestrum {

// Room of a pane, in units of which a text has kLabelSize.
struct PaneRoom {
    double width = 0, height = 0;

    MemberSpan Span() const;  // not below a shortest member, which is wider than the room
};

// The loads, as high as they need to be; in a low room they stand closer. A room without a height
// has all that they need.
Drawing DrawPaneLoads(const ProjectState& s, LoadAxis axis, PaneRoom room);

// The curves; higher than the room where the bands would be too low to be read.
Drawing DrawPaneCurves(const ProjectState& s, LoadAxis axis, const Utilisation& along,
                       PaneRoom room);

// Whether there is anything to see about this axis: loads, given forces, results.
bool IsAxisLoaded(const ProjectState& s, LoadAxis axis);

}  // namespace kestrum
