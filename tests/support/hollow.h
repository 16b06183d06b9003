#pragma once

// Rectangular hollow sections and the welded box, designed: for the tests of their resistances.

#include "core/project_state.h"
#include "design/hollow_section.h"
#include "sections/hollow.h"
#include "support/sections.h"
#include "support/worked.h"

namespace kestrum {

// The record with properties and resistances.
inline void Design(ProjectState& s, float fyk = 355)
{
    SetSteel(s, fyk);
    if (s.family == 23) {
        PropertiesBox(Delivered(), s, s);
    } else {
        PropertiesHollow(Delivered(), s, s);
    }
    CalcEffectiveHollow(s, s);
    CalcResistanceHollow(s, s, s, s);
}

inline ProjectState Rolled(int family, const char* key)
{
    ProjectState s = Chosen(family, key);
    Design(s);
    return s;
}

inline ProjectState Box(FormP23 plates)
{
    ProjectState s = OfFamily(23);
    s.p23 = plates;
    Design(s);
    return s;
}

inline void Control(ProjectState& s, const EndForces& forces)
{
    SetForces(s, forces);
    ControlHollow(s, s, s, s, s, s);
}

}  // namespace kestrum
