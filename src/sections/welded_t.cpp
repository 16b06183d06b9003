#include "sections/welded_t.h"

#include "core/arithmetic_trap.h"
#include "sections/section_record.h"
#include "sections/welded_record.h"

namespace kestrum {

// Welded T of flange and web.
//   in   p26 [mm]; density [kg/m3]
//   out  geometry [mm], properties [mm], weight [kg/m], surface [m2/m]
void PropertiesT(const Library&, ProjectState& s)
{
    ClearSection(s);
    s.h = F32(s.p26.isth);
    s.btop = F32(s.p26.istb1);
    s.tw = F32(s.p26.isttw);
    s.ttop = s.p26.isttf1;
    SetWeldedWeb(s, 1.0 * s.h - s.ttop);

    const double b = s.btop, tf = s.ttop, tw = s.tw, hw = s.hw;
    s.cflange = F32((b - tw - 2.0 * s.r) / 2);
    s.ctop = s.cflange;
    const Plate plates[] = {
        {b, tf, 0, 0},
        {tw, hw, tf, 0},
    };
    StoreFromFace(s, plates);
    s.wplz = F32(tf * b * b / 4 + hw * tw * tw / 4);
    s.weffz = s.welz;
    s.surface = F32((2 * b + 2.0 * s.h) / 1000);
}

}  // namespace kestrum
