#pragma once

// The steps of a pass one by one, by the family of the record, for tests that stop between them.

#include "core/project_state.h"
#include "engine/calculate.h"
#include "engine/family_routines.h"
#include "sections/families.h"
#include "support/delivered.h"

namespace kestrum {

// The section's properties from its table or its form.
inline void Measure(ProjectState& s)
{
    Traits(s).properties(Delivered(), s, s);
}

// Class, effective section and resistances of a measured section.
inline void Resist(ProjectState& s)
{
    const FamilyRoutines& routines = *FindRoutines(s.family);
    if (routines.effective != nullptr) {
        routines.effective(s, s);
    }
    routines.resistance(s, s, s, s);
}

inline void Design(ProjectState& s)
{
    Measure(s);
    Resist(s);
}

struct SectionForces {
    double n, my, mz, vz, vy;  // kN, kNm
};

// The forces at the one check section, x = 0.
inline void SetForces(ProjectState& s, const SectionForces& f)
{
    s.npts = 0;
    s.xi[0] = 0;
    s.ned = f.n;
    s.mysec[0] = f.my;
    s.mzsec[0] = static_cast<float>(f.mz);
    s.vzsec[0] = f.vz;
    s.vysec[0] = f.vy;
}

// The checks of a designed section under these forces.
inline void Control(ProjectState& s, const SectionForces& f)
{
    SetForces(s, f);
    FindRoutines(s.family)->control(s, s, s, s, s, s);
}

// Resistances of a measured section, then its checks under these forces.
inline void Verify(ProjectState& s, const SectionForces& f)
{
    Resist(s);
    Control(s, f);
}

// The whole pass.
inline bool EndsWell(ProjectState& s)
{
    return Calculate(Delivered(), s);
}

}  // namespace kestrum
