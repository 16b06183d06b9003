#include "engine/ccontrol.h"

#include "analysis/cmoment.h"
#include "core/arithmetic_trap.h"
#include "design/section_control.h"
#include "engine/family_routines.h"
#include "sections/families.h"
#include "stability/buckling_control.h"

namespace kestrum {

void CalcControl(ProjectState& s)
{
    ClearSectionRows(s);
    ClearBucklingRows(s);
    s.maxirbuckling = 0;
    s.ltc1 = 0;
    s.ltc2 = 0;
    s.ltc3 = 0;
    const FamilyRoutines* routines = FindRoutines(s.family);
    if (routines == nullptr) {
        return;
    }
    if (Is(s, Kind::tee)) {
        ClearInvalidLoads(s);  // end forces do not pass the clearing of the analysis
    }
    if (routines->control_without_n) {
        s.ned = 0;
    }
    s.failure.stage = Stage::section_control;
    routines->control(s);
    CheckTrap();
    s.failure.stage = Stage::buckling_control;
    if (routines->buckling != nullptr && (!routines->compressed_only || s.ned > 0)) {
        routines->buckling(s);
    }
}

}  // namespace kestrum
