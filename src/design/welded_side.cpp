#include "design/welded_side.h"

#include "sections/families.h"

namespace kestrum {

namespace {

// The T and the stiffened plates are counted from the face of flange or plate, their top; the other
// sections from the lower edge.
bool CountedFromTop(const Inputs& in)
{
    return Is(in, Kind::tee, Kind::plate);
}

// Height of all plates; `h` of the hat beams excludes the bottom flange.
double TotalHeight(const Inputs& in, const SectionRecord& section)
{
    return Is(in, Kind::hat) ? 1.0 * section.h + section.tbot : 1.0 * section.h;
}

// Distance of a level, counted as the section is, from the upper edge.
double BelowTop(const Inputs& in, const SectionRecord& section, double level)
{
    return CountedFromTop(in) ? level : TotalHeight(in, section) - level;
}

}  // namespace

WeldedSide TopSide(const Inputs& in, const SectionRecord& section)
{
    const double centroid = BelowTop(in, section, section.zcog);
    const double below = TotalHeight(in, section) - centroid;
    return {.top = true,
            .edge = centroid,
            .opposite = below,
            .t = section.ttop,
            .webin = centroid - section.ttop,
            .webout = below - section.tbot,
            .alpha = (BelowTop(in, section, section.zpl) - section.ttop) / section.hw};
}

WeldedSide BottomSide(const Inputs& in, const SectionRecord& section)
{
    const WeldedSide top = TopSide(in, section);
    return {.top = false,
            .edge = top.opposite,
            .opposite = top.edge,
            .t = section.tbot,
            .webin = top.webout,
            .webout = top.webin,
            .alpha =
                (TotalHeight(in, section) - BelowTop(in, section, section.zpl) - section.tbot) /
                section.hw};
}

int Webs(const Inputs& in)
{
    return Is(in, Kind::hat, Kind::box_unequal) ? 2 : 1;
}

Flange TopFlange(const Inputs& in, const SectionRecord& section)
{
    if (Webs(in) == 2) {
        return {section.ttop, section.ctopin, section.ctopout, section.ctopout};
    }
    return {section.ttop, 0, section.ctop, section.ctop};
}

Flange BottomFlange(const Inputs& in, const SectionRecord& section)
{
    const SectionForm& shape = Traits(in).shape;
    if (Webs(in) == 2) {  // overhangs may differ at the closed and the open side
        const bool onesided = shape.lower == LowerFlange::one_side;
        return {section.tbot, section.cbotin, onesided ? in.p25.istc : section.cbotout,
                section.cbotout};
    }
    const bool angle =
        shape.stiffener == Stiffener::rolled_angle || shape.stiffener == Stiffener::welded_angle;
    return {section.tbot, 0, section.cbot, angle ? 0 : section.cbot};
}

}  // namespace kestrum
