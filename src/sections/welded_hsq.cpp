#include "sections/welded_hsq.h"

#include "core/arithmetic_trap.h"
#include "sections/families.h"
#include "sections/section_record.h"
#include "sections/welded_record.h"

namespace kestrum {

namespace {

// Plates of flanges and two webs, the top flange centred on y = 0.
//   spacing  centre distance of the webs;  bottom  centre of the bottom flange
void StoreTwoWebs(ProjectState& s, double spacing, double bottom)
{
    const double btop = s.btop, ttop = s.ttop, bbot = s.bbot, tbot = s.tbot;
    const double tw = s.tw, hw = s.hw;
    const Plate plates[] = {
        {bbot, tbot, 0, bottom},
        {tw, hw, tbot, -spacing / 2},
        {tw, hw, tbot, spacing / 2},
        {btop, ttop, tbot + hw, 0},
    };
    StoreFromBelow(s, plates);
    s.wplz = F32(btop * btop * ttop / 4 + bbot * bbot * tbot / 4 + hw * tw * spacing);
    s.cflange = s.ctopin;
    s.weffz = s.welz;
}

}  // namespace

// Hat beams. `h` excludes the bottom flange; the top flange reaches over both webs.
//   in   p24 or p25 [mm]; density [kg/m3]
//   out  geometry [mm], properties [mm], weight [kg/m], surface [m2/m]
// Deviation D186 (zpl, wply).
void PropertiesHsq(const Library&, ProjectState& s)
{
    ClearSection(s);
    const bool onesided = Traits(s).shape.lower == LowerFlange::one_side;
    s.h = onesided ? s.p25.isth : s.p24.isth;
    s.btop = onesided ? s.p25.istb1 : s.p24.istb1;
    s.bbot = onesided ? s.p25.istb2 : s.p24.istb2;
    s.tw = onesided ? s.p25.isttw : s.p24.isttw;
    s.ttop = onesided ? s.p25.isttf1 : s.p24.isttf1;
    s.tbot = onesided ? s.p25.isttf2 : s.p24.isttf2;
    SetWeldedWeb(s, 1.0 * s.h - s.ttop);

    const double btop = s.btop, bbot = s.bbot, tw = s.tw;
    s.ctopin = F32(btop - 2 * tw);
    s.cbotin = s.ctopin;
    if (onesided) {
        const double closed = s.p25.istc;  // overhang at the closed side
        s.cbotout = F32(bbot - btop - closed);
        StoreTwoWebs(s, btop - tw, (bbot - btop) / 2 - closed);
    } else {
        s.cbotout = F32((bbot - btop) / 2);
        StoreTwoWebs(s, btop - tw, 0);
    }
    s.surface = F32((2 * bbot + 2 * (1.0 * s.h + s.tbot)) / 1000);
}

// Box with unequal flanges, the top one reaching `istc` beyond the webs.
//   in   p27 [mm]; density [kg/m3]
//   out  geometry [mm], properties [mm], weight [kg/m], surface [m2/m]
// Deviation D186 (zpl, wply).
void PropertiesUnequalBox(const Library&, ProjectState& s)
{
    ClearSection(s);
    s.h = F32(s.p27.isth);
    s.btop = F32(s.p27.istb1);
    s.bbot = F32(s.p27.istb2);
    s.tw = F32(s.p27.isttw);
    s.ttop = F32(s.p27.isttf1);
    s.tbot = F32(s.p27.isttf2);
    SetWeldedWeb(s, 1.0 * s.h - s.ttop - s.tbot);

    const double btop = s.btop, bbot = s.bbot, tw = s.tw, over = s.p27.istc;
    s.ctopin = F32(btop - 2 * over - 2 * tw);
    s.cbotin = s.ctopin;
    s.ctopout = F32(over);
    s.cbotout = F32((bbot - btop) / 2 + over);
    StoreTwoWebs(s, btop - 2 * over - tw, 0);
    s.surface = F32((2 * (btop + bbot + s.h) - 2 * (btop - 2 * over)) / 1000);
}

}  // namespace kestrum
