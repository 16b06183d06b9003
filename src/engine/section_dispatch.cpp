#include "engine/section_dispatch.h"

#include "core/arithmetic_trap.h"
#include "core/project_state.h"
#include "engine/family_routines.h"
#include "engine/settle_inputs.h"
#include "sections/families.h"
#include "sections/whole_section.h"

namespace kestrum {

void CalcSection(const Library& library, ProjectState& s)
{
    const FamilyRoutines* routines = FindRoutines(s.family);
    if (routines == nullptr) {
        return;
    }
    const FamilyTraits& family = Traits(s);
    s.openprofile = family.design.open ? kTrue : kFalse;
    if (!family.carries.loads.n) {
        s.ned = 0;
    }
    try {
        family.properties(library, s, s);
    } catch (const CalculationStop&) {
        RequireWholeSection(s, s);  // the better answer, where the dimensions are at fault
        throw;
    }
    RequireWholeSection(s, s);
    SettleMaterial(library, s, s, s);
    if (routines->effective != nullptr) {
        routines->effective(s, s);
    }
    routines->resistance(s, s, s, s);
    SettleLateralBuckling(s, s);
}

}  // namespace kestrum
