#include "engine/csection.h"

#include "core/material.h"
#include "design/p01bas_rolled_i.h"
#include "engine/family_routines.h"

namespace kestrum {

namespace {

constexpr i16 kGeneralCurve = 2;
constexpr i16 kParallelFlangeChannel = 2;  // series103

// Of the British channels only the series CH runs the web shear routine here.
bool WithWebShear(const FamilyRoutines& routines, const ProjectState& s)
{
    return routines.webshear && !(s.family == 103 && s.series103 == kParallelFlangeChannel);
}

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
        s.ltbcurve = kGeneralCurve;
    }
}

}  // namespace

void CalcSection(const Library& library, ProjectState& s)
{
    const FamilyRoutines* routines = FindRoutines(s.family);
    if (routines == nullptr) {
        return;
    }
    s.openprofile = routines->open ? kTrue : kFalse;
    if (routines->transverse_only) {
        s.ned = 0;
    }
    routines->properties(library, s);
    SetMaterial(library, s, s.fykindex);  // after the properties: tmax chooses the strength
    if (routines->effective != nullptr) {
        routines->effective(s);
    }
    if (WithWebShear(*routines, s)) {
        CalcShearZ(s);
    }
    routines->resistance(s);
    SetLateralBuckling(s, routines->lateral);
}

}  // namespace kestrum
