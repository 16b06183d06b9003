#include "sections/welded_hsq.h"

#include "core/arithmetic_trap.h"
#include "sections/families.h"
#include "sections/section_record.h"
#include "sections/welded_record.h"

namespace kestrum {

namespace {

// Plates of flanges and two webs, the top flange centred on y = 0.
//   spacing  centre distance of the webs;  bottom  centre of the bottom flange
void StoreTwoWebs(const Inputs& in, SectionRecord& section, double spacing, double bottom)
{
    const double btop = section.btop, ttop = section.ttop, bbot = section.bbot, tbot = section.tbot;
    const double tw = section.tw, hw = section.hw;
    const Plate plates[] = {
        {bbot, tbot, 0, bottom},
        {tw, hw, tbot, -spacing / 2},
        {tw, hw, tbot, spacing / 2},
        {btop, ttop, tbot + hw, 0},
    };
    StoreFromBelow(in, section, plates);
    section.wplz = F32(btop * btop * ttop / 4 + bbot * bbot * tbot / 4 + hw * tw * spacing);
    section.cflange = section.ctopin;
    section.weffz = section.welz;
}

}  // namespace

// Hat beams. `h` excludes the bottom flange; the top flange reaches over both webs.
//   in   p24 or p25 [mm]; density [kg/m3]
//   out  geometry [mm], properties [mm], weight [kg/m], surface [m2/m]
// Deviation D186 (zpl, wply).
void PropertiesHsq(const Library&, const Inputs& in, SectionRecord& section)
{
    ClearSection(section);
    const bool onesided = Traits(in).shape.lower == LowerFlange::one_side;
    section.h = onesided ? in.p25.isth : in.p24.isth;
    section.btop = onesided ? in.p25.istb1 : in.p24.istb1;
    section.bbot = onesided ? in.p25.istb2 : in.p24.istb2;
    section.tw = onesided ? in.p25.isttw : in.p24.isttw;
    section.ttop = onesided ? in.p25.isttf1 : in.p24.isttf1;
    section.tbot = onesided ? in.p25.isttf2 : in.p24.isttf2;
    SetWeldedWeb(section, 1.0 * section.h - section.ttop);

    const double btop = section.btop, bbot = section.bbot, tw = section.tw;
    section.ctopin = F32(btop - 2 * tw);
    section.cbotin = section.ctopin;
    if (onesided) {
        const double closed = in.p25.istc;  // overhang at the closed side
        section.cbotout = F32(bbot - btop - closed);
        StoreTwoWebs(in, section, btop - tw, (bbot - btop) / 2 - closed);
    } else {
        section.cbotout = F32((bbot - btop) / 2);
        StoreTwoWebs(in, section, btop - tw, 0);
    }
    section.surface = F32((2 * bbot + 2 * (1.0 * section.h + section.tbot)) / 1000);
}

// Box with unequal flanges, the top one reaching `istc` beyond the webs.
//   in   p27 [mm]; density [kg/m3]
//   out  geometry [mm], properties [mm], weight [kg/m], surface [m2/m]
// Deviation D186 (zpl, wply).
void PropertiesUnequalBox(const Library&, const Inputs& in, SectionRecord& section)
{
    ClearSection(section);
    section.h = F32(in.p27.isth);
    section.btop = F32(in.p27.istb1);
    section.bbot = F32(in.p27.istb2);
    section.tw = F32(in.p27.isttw);
    section.ttop = F32(in.p27.isttf1);
    section.tbot = F32(in.p27.isttf2);
    SetWeldedWeb(section, 1.0 * section.h - section.ttop - section.tbot);

    const double btop = section.btop, bbot = section.bbot, tw = section.tw, over = in.p27.istc;
    section.ctopin = F32(btop - 2 * over - 2 * tw);
    section.cbotin = section.ctopin;
    section.ctopout = F32(over);
    section.cbotout = F32((bbot - btop) / 2 + over);
    StoreTwoWebs(in, section, btop - 2 * over - tw, 0);
    section.surface = F32((2 * (btop + bbot + section.h) - 2 * (btop - 2 * over)) / 1000);
}

}  // namespace kestrum
