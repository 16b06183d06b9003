#include "design/channel_section.h"

#include "core/arithmetic_trap.h"
#include "design/i_section.h"
#include "design/local_buckling.h"

namespace kestrum {

// Two outstands in compression, one of them compressed in bending about y.
//
// Deviation D162: the modulus about z is the elastic one; EN 1993-1-5, 4.4 takes the flanges'
// effective widths.
void CalcEffectiveChannel(const Inputs& in, SectionRecord& section)
{
    const double lost = (1 - OutstandRho(in, section, kOutstand)) * section.cflange *
                        section.tf;  // one flange, mm2
    section.aeff = F32(section.a - 2 * lost - (1 - WebRho(in, section)) * section.d * section.tw);
    section.weffy = F32(EffectiveModulusY(in, section, lost));
    section.weffz = section.welz;
}

}  // namespace kestrum
