#include "design/welded_side.h"

namespace kestrum {

namespace {

// The T and the stiffened plates are counted from the face of flange or plate, their top; the other
// sections from the lower edge.
bool CountedFromTop(int family)
{
    return family == 26 || family > 50;
}

// Height of all plates; `h` of the hat beams excludes the bottom flange.
double TotalHeight(const ProjectState& s)
{
    return s.family == 24 || s.family == 25 ? 1.0 * s.h + s.tbot : 1.0 * s.h;
}

// Distance of a level, counted as the section is, from the upper edge.
double BelowTop(const ProjectState& s, double level)
{
    return CountedFromTop(s.family) ? level : TotalHeight(s) - level;
}

}  // namespace

WeldedSide TopSide(const ProjectState& s)
{
    const double centroid = BelowTop(s, s.zcog);
    const double below = TotalHeight(s) - centroid;
    return {.top = true,
            .edge = centroid,
            .opposite = below,
            .t = s.ttop,
            .webin = centroid - s.ttop,
            .webout = below - s.tbot,
            .alpha = (BelowTop(s, s.zpl) - s.ttop) / s.hw};
}

WeldedSide BottomSide(const ProjectState& s)
{
    const WeldedSide top = TopSide(s);
    return {.top = false,
            .edge = top.opposite,
            .opposite = top.edge,
            .t = s.tbot,
            .webin = top.webout,
            .webout = top.webin,
            .alpha = (TotalHeight(s) - BelowTop(s, s.zpl) - s.tbot) / s.hw};
}

int Webs(const ProjectState& s)
{
    return s.family == 24 || s.family == 25 || s.family == 27 ? 2 : 1;
}

Flange TopFlange(const ProjectState& s)
{
    if (Webs(s) == 2) {
        return {s.ttop, s.ctopin, s.ctopout, s.ctopout};
    }
    return {s.ttop, 0, s.ctop, s.ctop};
}

Flange BottomFlange(const ProjectState& s)
{
    switch (s.family) {
    case 24:
    case 27:
        return {s.tbot, s.cbotin, s.cbotout, s.cbotout};
    case 25:  // unlike overhangs at the closed and the open side
        return {s.tbot, s.cbotin, s.p25.istc, s.cbotout};
    case 52:
    case 53:
        return {s.tbot, 0, s.cbot, 0};
    default:
        return {s.tbot, 0, s.cbot, s.cbot};
    }
}

}  // namespace kestrum
