#include "sections/welded_plate.h"

#include "core/arithmetic_trap.h"
#include "sections/families.h"
#include "sections/section_record.h"
#include "sections/table_row.h"
#include "sections/welded_record.h"

#include <cmath>
#include <span>

namespace kestrum {

namespace {

// Height of the stiffener alone, mm; plate, web and stiffener flange into the record.
double ReadFlatBar(const Inputs& in, SectionRecord& section)
{
    section.btop = F32(in.p51.istb1);
    section.ttop = in.p51.isttf1;
    section.tw = F32(in.p51.isttw);
    return in.p51.isth;
}

// The rolled angle as two rectangles, without root and toe radii.
double ReadRolledAngle(const Library& library, const Inputs& in, SectionRecord& section)
{
    const TableRow row = ChosenRow(library, in, Table::l3);
    section.btop = F32(in.p52.istb1);
    section.ttop = in.p52.istt1;
    section.bbot = row(2);
    section.tw = row(3);
    section.tbot = row(4);
    return row(1);
}

double ReadWeldedAngle(const Inputs& in, SectionRecord& section)
{
    section.btop = F32(in.p53.istb1);
    section.ttop = F32(in.p53.isttf1);
    section.bbot = F32(in.p53.istb2);
    section.tw = F32(in.p53.isttw);
    section.tbot = in.p53.isttf2;
    return in.p53.isth;
}

// The bulb as a rectangle that keeps the area of the table, EN 10067.
double ReadBulbFlat(const Library& library, const Inputs& in, SectionRecord& section)
{
    const TableRow row = ChosenRow(library, in, Table::hp);
    const double h = row(1), tw = row(2), c = row(3), a = row(5, 1e2);
    section.btop = F32(in.p54.istb1);
    section.ttop = in.p54.istt1;
    section.tw = F32(tw);
    section.tbot = F32((a - h * tw) / c);
    section.bbot = F32(tw + c);
    return h;
}

double ReadT(const Inputs& in, SectionRecord& section)
{
    section.btop = F32(in.p56.istb1);
    section.ttop = F32(in.p56.isttf1);
    section.bbot = F32(in.p56.istb2);
    section.tw = F32(in.p56.isttw);
    section.tbot = in.p56.isttf2;
    return in.p56.isth;
}

double ReadStiffener(const Library& library, const Inputs& in, SectionRecord& section)
{
    switch (Traits(in).shape.stiffener) {
    case Stiffener::flat_bar:
        return ReadFlatBar(in, section);
    case Stiffener::rolled_angle:
        return ReadRolledAngle(library, in, section);
    case Stiffener::welded_angle:
        return ReadWeldedAngle(in, section);
    case Stiffener::bulb_flat:
        return ReadBulbFlat(library, in, section);
    default:
        return ReadT(in, section);
    }
}

// Outstands of plate and stiffener flange beyond the welds; the bulb has none.
void SetOutstands(const Inputs& in, SectionRecord& section)
{
    const double r = section.r, tw = section.tw;
    section.ctop = F32((section.btop - tw - 2 * r) / 2);
    section.cflange = section.ctop;
    const Stiffener stiffener = Traits(in).shape.stiffener;
    if (stiffener == Stiffener::rolled_angle || stiffener == Stiffener::welded_angle) {
        section.cbot = F32(section.bbot - tw - r);
    } else if (stiffener == Stiffener::tee) {
        section.cbot = F32((section.bbot - tw - 2 * r) / 2);
    }
}

}  // namespace

// Plate with stiffener. `iz` and `welz` belong to the stiffener alone, about its own centroid:
// tripping of the stiffener is what they serve.
//   in   p51 .. p56 [mm]; rows of l3, hp; density [kg/m3]
//   out  geometry [mm], properties [mm], weight [kg/m], surface [m2/m]
void PropertiesPlate(const Library& library, const Inputs& in, SectionRecord& section)
{
    const SectionForm& shape = Traits(in).shape;
    const bool onesided = shape.lower == LowerFlange::one_side;
    const bool flatbar = shape.stiffener == Stiffener::flat_bar;
    ClearSection(section);
    const double stiffener = ReadStiffener(library, in, section);
    section.h = F32(stiffener + section.ttop);
    SetWeldedWeb(section, stiffener - section.tbot);
    SetOutstands(in, section);

    const double tw = section.tw, hw = section.hw, btop = section.btop, ttop = section.ttop,
                 bbot = section.bbot, tbot = section.tbot;
    const double aside = onesided ? (bbot - tw) / 2 : 0;
    const Plate list[] = {
        {btop, ttop, 0, 0},
        {tw, hw, ttop, 0},
        {bbot, tbot, ttop + hw, aside},
    };
    const std::span<const Plate> plates(list, flatbar ? 2 : 3);
    StoreFromFace(in, section, plates);

    const PlateSums own = SumPlates(plates.subspan(1));
    section.iz = F32(own.iz);
    section.welz = F32(own.iz / own.ymax);
    section.weffz = section.welz;
    if (flatbar) {
        section.surface = F32(2 * (btop + section.h) / 1000);
        return;
    }
    section.surface = F32((2 * (btop + ttop + hw + bbot + tbot) - 2 * tw) / 1000);
    if (!onesided) {
        section.wplz = F32(ttop * btop * btop / 4 + tbot * bbot * bbot / 4 + hw * tw * tw / 4);
    }
}

}  // namespace kestrum
