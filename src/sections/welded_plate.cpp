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
double ReadFlatBar(ProjectState& s)
{
    s.btop = F32(s.p51.istb1);
    s.ttop = s.p51.isttf1;
    s.tw = F32(s.p51.isttw);
    return s.p51.isth;
}

// The rolled angle as two rectangles, without root and toe radii.
double ReadRolledAngle(const Library& library, ProjectState& s)
{
    const TableRow row = ChosenRow(library, s, Table::l3);
    s.btop = F32(s.p52.istb1);
    s.ttop = s.p52.istt1;
    s.bbot = row(2);
    s.tw = row(3);
    s.tbot = row(4);
    return row(1);
}

double ReadWeldedAngle(ProjectState& s)
{
    s.btop = F32(s.p53.istb1);
    s.ttop = F32(s.p53.isttf1);
    s.bbot = F32(s.p53.istb2);
    s.tw = F32(s.p53.isttw);
    s.tbot = s.p53.isttf2;
    return s.p53.isth;
}

// The bulb as a rectangle that keeps the area of the table, EN 10067.
double ReadBulbFlat(const Library& library, ProjectState& s)
{
    const TableRow row = ChosenRow(library, s, Table::hp);
    const double h = row(1), tw = row(2), c = row(3), a = row(5, 1e2);
    s.btop = F32(s.p54.istb1);
    s.ttop = s.p54.istt1;
    s.tw = F32(tw);
    s.tbot = F32((a - h * tw) / c);
    s.bbot = F32(tw + c);
    return h;
}

double ReadT(ProjectState& s)
{
    s.btop = F32(s.p56.istb1);
    s.ttop = F32(s.p56.isttf1);
    s.bbot = F32(s.p56.istb2);
    s.tw = F32(s.p56.isttw);
    s.tbot = s.p56.isttf2;
    return s.p56.isth;
}

double ReadStiffener(const Library& library, ProjectState& s)
{
    switch (Traits(s).shape.stiffener) {
    case Stiffener::flat_bar:
        return ReadFlatBar(s);
    case Stiffener::rolled_angle:
        return ReadRolledAngle(library, s);
    case Stiffener::welded_angle:
        return ReadWeldedAngle(s);
    case Stiffener::bulb_flat:
        return ReadBulbFlat(library, s);
    default:
        return ReadT(s);
    }
}

// Outstands of plate and stiffener flange beyond the welds; the bulb has none.
void SetOutstands(ProjectState& s)
{
    const double r = s.r, tw = s.tw;
    s.ctop = F32((s.btop - tw - 2 * r) / 2);
    s.cflange = s.ctop;
    const Stiffener stiffener = Traits(s).shape.stiffener;
    if (stiffener == Stiffener::rolled_angle || stiffener == Stiffener::welded_angle) {
        s.cbot = F32(s.bbot - tw - r);
    } else if (stiffener == Stiffener::tee) {
        s.cbot = F32((s.bbot - tw - 2 * r) / 2);
    }
}

}  // namespace

// Plate with stiffener. `iz` and `welz` belong to the stiffener alone, about its own centroid:
// tripping of the stiffener is what they serve.
//   in   p51 .. p56 [mm]; rows of l3, hp; density [kg/m3]
//   out  geometry [mm], properties [mm], weight [kg/m], surface [m2/m]
void PropertiesPlate(const Library& library, ProjectState& s)
{
    const SectionForm& shape = Traits(s).shape;
    const bool onesided = shape.lower == LowerFlange::one_side;
    const bool flatbar = shape.stiffener == Stiffener::flat_bar;
    ClearSection(s);
    const double stiffener = ReadStiffener(library, s);
    s.h = F32(stiffener + s.ttop);
    SetWeldedWeb(s, stiffener - s.tbot);
    SetOutstands(s);

    const double tw = s.tw, hw = s.hw, btop = s.btop, ttop = s.ttop, bbot = s.bbot, tbot = s.tbot;
    const double aside = onesided ? (bbot - tw) / 2 : 0;
    const Plate list[] = {
        {btop, ttop, 0, 0},
        {tw, hw, ttop, 0},
        {bbot, tbot, ttop + hw, aside},
    };
    const std::span<const Plate> plates(list, flatbar ? 2 : 3);
    StoreFromFace(s, plates);

    const PlateSums own = SumPlates(plates.subspan(1));
    s.iz = F32(own.iz);
    s.welz = F32(own.iz / own.ymax);
    s.weffz = s.welz;
    if (flatbar) {
        s.surface = F32(2 * (btop + s.h) / 1000);
        return;
    }
    s.surface = F32((2 * (btop + ttop + hw + bbot + tbot) - 2 * tw) / 1000);
    if (!onesided) {
        s.wplz = F32(ttop * btop * btop / 4 + tbot * bbot * bbot / 4 + hw * tw * tw / 4);
    }
}

}  // namespace kestrum
