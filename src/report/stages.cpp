#include "report/stages.h"

#include "core/member_choices.h"
#include "core/project_state.h"
#include "engine/family_routines.h"
#include "stability/buckling_control.h"
#include "stability/buckling_rows.h"

namespace kestrum {

namespace {

// Whether the forces lead the stage to EN 1993-1-1, 6.3.3.
bool Interacts(const ProjectState& s, decltype(FamilyRoutines::buckling) buckling)
{
    const bool buckles = BucklesAboutY(s) || BucklesAboutZ(s);
    if (buckling == BucklingControlT || buckling == BucklingControlPlate) {
        return false;
    }
    if (buckling == BucklingControlFlatBar) {
        return buckles && s.mydesign != 0;
    }
    if (s.ned > 0) {
        return buckles && (s.mydesign != 0 || s.mzdesign != 0);
    }
    return s.ned == 0 && s.mydesign != 0 && s.mzdesign != 0;
}

bool BendsSideways(decltype(FamilyRoutines::buckling) buckling)
{
    return buckling == BucklingControlRolledI || buckling == BucklingControlWeldedI ||
           buckling == BucklingControlFlatBar || buckling == BucklingControlPlate;
}

}  // namespace

bool LateralBucklingLeftOut(const ProjectState& s)
{
    const FamilyRoutines* routines = FindRoutines(s.family);
    return routines != nullptr && BendsSideways(routines->buckling) && s.ltb == 0 &&
           s.mydesign != 0;
}

StagesRun StagesOf(const ProjectState& s)
{
    StagesRun run{};
    const FamilyRoutines* routines = FindRoutines(s.family);
    if (routines == nullptr || routines->buckling == nullptr ||
        (routines->compressed_only && !(s.ned > 0))) {
        return run;
    }
    const auto buckling = routines->buckling;
    const bool bends_sideways = BendsSideways(buckling);
    run.stage = true;
    run.axial = buckling != BucklingControlPlate;
    run.lateral = bends_sideways && s.ltb == 1;
    run.interaction = Interacts(s, buckling);
    run.uniform = run.interaction && bends_sideways && s.method == Method::annex_a;
    return run;
}

}  // namespace kestrum
