#include "design/box_section.h"

#include "design/class_welded.h"
#include "design/effective_welded.h"
#include "design/resistance.h"
#include "design/resistance_welded.h"
#include "design/welded_side.h"

#include <algorithm>

namespace kestrum {

void CalcEffectiveBox(const Inputs& in, SectionRecord& section)
{
    CalcEffectiveTwoWebs(in, section);
}

// EN 1993-1-1, 5.5.2. Unlike the hat beams with outstands, and without an upgrade.
i16 ClassBox(const Inputs& in, const SectionRecord& section, bool top)
{
    const WeldedSide side = top ? TopSide(in, section) : BottomSide(in, section);
    if (!(side.webin > 0)) {
        return 1;
    }
    return std::max(ClassWebBent(section, side),
                    ClassFlange(section, top ? TopFlange(in, section) : BottomFlange(in, section)));
}

// EN 1993-1-1, 6.2.3 to 6.2.6. The flanges' moment is that of the weaker flange on the arm between
// both.
//   in   section record; fyk [MPa]; gammam0, gammam1 [-]
//   out  classes; resistances [kN, kNm]
void CalcResistanceBox(const Inputs& in, SectionRecord& section, Resistances& resistances,
                       SectionChecks&)
{
    section.classmytop = ClassBox(in, section, true);
    section.classmybot = ClassBox(in, section, false);
    section.classn = ClassCompressed(in, section);
    section.classmz = std::max(section.classmytop, section.classmybot);
    StoreResistances(in, section, resistances);
    const double top = 1.0 * section.btop * section.ttop,
                 bottom = 1.0 * section.bbot * section.tbot;  // mm2
    const double arm = section.h - section.ttop / 2.0 - section.tbot / 2.0;
    resistances.mfrd = MomentResistance(in, std::min(top, bottom) * arm);
    resistances.mfzrd = MeanFlangeMomentZ(in, section);
    StoreShear(in, section, resistances, bottom + top);
}

}  // namespace kestrum
