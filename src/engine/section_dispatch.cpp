#include "engine/section_dispatch.h"

#include "core/arithmetic_trap.h"
#include "core/material.h"
#include "core/member_choices.h"
#include "core/project_state.h"
#include "design/hat_beam_section.h"
#include "engine/family_routines.h"
#include "sections/families.h"
#include "sections/whole_section.h"

namespace kestrum {

namespace {

void SetLateralBuckling(ProjectState& s, LateralBuckling lateral)
{
    if (lateral == LateralBuckling::off) {
        s.ltb = 0;
        s.restraints = 0;
        s.ltbavail = kFalse;
        return;
    }
    if (lateral != LateralBuckling::unchanged) {
        s.ltbavail = kTrue;
    }
    if (lateral != LateralBuckling::on) {
        s.ltbcurve = LtbCurve::general;
    }
}

}  // namespace

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
    SetMaterial(library, s, s, s.fykindex);  // after the properties: tmax chooses the strength
    if (Is(s, Kind::hat) && UpgradeNeedsWebBuckling(s, s)) {
        s.checkwebbuck = kFalse;
    }
    if (routines->effective != nullptr) {
        routines->effective(s, s);
    }
    routines->resistance(s, s, s, s);
    SetLateralBuckling(s, family.design.lateral);
}

}  // namespace kestrum
