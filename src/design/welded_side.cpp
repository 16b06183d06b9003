#include "design/welded_side.h"

#include "sections/families.h"

namespace kestrum {

namespace {

// The T and the stiffened plates are counted from the face of flange or plate, their top; the other
// sections from the lower edge.
bool CountedFromTop(const ProjectState& s)
{
    return Is(s, Kind::tee, Kind::plate);
}

// Height of all plates; `h` of the hat beams excludes the bottom flange.
double TotalHeight(const ProjectState& s)
{
    return Is(s, Kind::hat) ? 1.0 * s.h + s.tbot : 1.0 * s.h;
}

// Distance of a level, counted as the section is, from the upper edge.
double BelowTop(const ProjectState& s, double level)
{
    return CountedFromTop(s) ? level : TotalHeight(s) - level;
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
    return Is(s, Kind::hat, Kind::box_unequal) ? 2 : 1;
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
    const SectionForm& shape = Traits(s).shape;
    if (Webs(s) == 2) {  // overhangs may differ at the closed and the open side
        const bool onesided = shape.lower == LowerFlange::one_side;
        return {s.tbot, s.cbotin, onesided ? s.p25.istc : s.cbotout, s.cbotout};
    }
    const bool angle =
        shape.stiffener == Stiffener::rolled_angle || shape.stiffener == Stiffener::welded_angle;
    return {s.tbot, 0, s.cbot, angle ? 0 : s.cbot};
}

}  // namespace kestrum
