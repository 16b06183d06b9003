#include "design/p27bas_box.h"

#include "design/class_welded.h"
#include "design/effective_welded.h"
#include "design/resistance.h"
#include "design/resistance_welded.h"
#include "design/welded_side.h"

#include <algorithm>

namespace kestrum {

void CalcEffectiveBox(ProjectState& s)
{
    CalcEffectiveTwoWebs(s);
}

// EN 1993-1-1, 5.5.2. Unlike the hat beams with outstands, and without an upgrade.
i16 ClassBox(const ProjectState& s, bool top)
{
    const WeldedSide side = top ? TopSide(s) : BottomSide(s);
    if (!(side.webin > 0)) {
        return 1;
    }
    return std::max(ClassWebBent(s, side), ClassFlange(s, top ? TopFlange(s) : BottomFlange(s)));
}

// EN 1993-1-1, 6.2.3 to 6.2.6. The flanges' moment is that of the weaker flange on the arm between
// both.
//   in   section record; fyk [MPa]; gammam0, gammam1 [-]
//   out  classes; resistances [kN, kNm]
void CalcResistanceBox(ProjectState& s)
{
    s.classmytop = ClassBox(s, true);
    s.classmybot = ClassBox(s, false);
    s.classn = ClassCompressed(s);
    s.classmz = std::max(s.classmytop, s.classmybot);
    StoreResistances(s);
    const double top = 1.0 * s.btop * s.ttop, bottom = 1.0 * s.bbot * s.tbot;  // mm2
    const double arm = s.h - s.ttop / 2.0 - s.tbot / 2.0;
    s.mfrd = MomentResistance(s, std::min(top, bottom) * arm);
    s.mfzrd = MeanFlangeMomentZ(s);
    StoreShear(s, bottom + top);
}

}  // namespace kestrum
