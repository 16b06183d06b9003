#include "sections/welded_t.h"

#include "core/arithmetic_trap.h"
#include "sections/section_record.h"
#include "sections/welded_record.h"

namespace kestrum {

// Welded T of flange and web.
//   in   p26 [mm]; density [kg/m3]
//   out  geometry [mm], properties [mm], weight [kg/m], surface [m2/m]
void PropertiesT(const Library&, const Inputs& in, SectionRecord& section)
{
    ClearSection(section);
    section.h = F32(in.p26.isth);
    section.btop = F32(in.p26.istb1);
    section.tw = F32(in.p26.isttw);
    section.ttop = in.p26.isttf1;
    SetWeldedWeb(section, 1.0 * section.h - section.ttop);

    const double b = section.btop, tf = section.ttop, tw = section.tw, hw = section.hw;
    section.cflange = F32((b - tw - 2.0 * section.r) / 2);
    section.ctop = section.cflange;
    const Plate plates[] = {
        {b, tf, 0, 0},
        {tw, hw, tf, 0},
    };
    StoreFromFace(in, section, plates);
    section.wplz = F32(tf * b * b / 4 + hw * tw * tw / 4);
    section.weffz = section.welz;
    section.surface = F32((2 * b + 2.0 * section.h) / 1000);
}

}  // namespace kestrum
