#include "design/p05bas_channel.h"

#include "core/arithmetic_trap.h"
#include "design/local_buckling.h"
#include "design/p01bas_rolled_i.h"

namespace kestrum {

// Two outstands in compression, one of them compressed in bending about y.
//
// Deviation D162: the modulus about z is the elastic one; EN 1993-1-5, 4.4 takes the flanges'
// effective widths.
void CalcEffectiveChannel(ProjectState& s)
{
    const double lost = (1 - OutstandRho(s, kOutstand)) * s.cflange * s.tf;  // one flange, mm2
    s.aeff = F32(s.a - 2 * lost - (1 - WebRho(s)) * s.d * s.tw);
    s.weffy = F32(EffectiveModulusY(s, lost));
    s.weffz = s.welz;
}

}  // namespace kestrum
