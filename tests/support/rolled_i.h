#pragma once

// I sections for tests of their design: properties from the tables or from plates, then resistances
// and control.

#include "core/project_state.h"
#include "design/i_section.h"
#include "sections/rolled_i.h"
#include "support/end_forces.h"
#include "support/sections.h"

#include <cmath>

namespace kestrum {

inline const double kRoot3 = std::sqrt(3.0);

inline void Design(ProjectState& s, const EndForces& f)
{
    CalcEffectiveI(s, s);
    CalcResistanceI(s, s, s, s);
    SetForces(s, f);
    ControlRolledI(s, s, s, s, s, s);
}

inline ProjectState Rolled(int family, const char* key, float fyk)
{
    ProjectState s = Chosen(family, key);
    if (family <= 4) {
        PropertiesRolledI(Delivered(), s, s);
    } else if (family == 15) {
        PropertiesInp(Delivered(), s, s);
    } else {
        PropertiesBritishI(Delivered(), s, s);
    }
    SetSteel(s, fyk);
    return s;
}

inline ProjectState Welded(float h, float b, float tw, float tf, float fyk)
{
    ProjectState s = OfFamily(21);
    s.p21 = {h, b, tw, tf};
    PropertiesWeldedI(Delivered(), s, s);
    SetSteel(s, fyk);
    return s;
}

}  // namespace kestrum
