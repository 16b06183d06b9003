#include "engine/control_dispatch.h"

#include "core/arithmetic_trap.h"
#include "core/project_state.h"
#include "design/section_control.h"
#include "engine/family_routines.h"
#include "engine/settle_inputs.h"
#include "sections/families.h"
#include "stability/buckling_control.h"

#include <algorithm>
#include <cmath>
#include <string_view>

namespace kestrum {

namespace {

struct Resistance {
    std::string_view name;
    double force, value;
    std::string_view unit;
};

template <class Sections> double Largest(const Sections& sections, int npts)
{
    double largest = 0;
    for (int k = 0; k <= npts; ++k) {
        largest =
            std::max(largest, std::abs(static_cast<double>(sections[static_cast<std::size_t>(k)])));
    }
    return largest;
}

// A resistance that is not positive would take the row of its force away: a ratio below zero
// governs nothing.
void RequireResistances(const ProjectState& s)
{
    const Actions& takes = Traits(s).carries.loads;
    const double mz = takes.z ? Largest(s.mzsec, s.npts) : 0;
    const double vy = takes.z ? Largest(s.vysec, s.npts) : 0;
    const double n = takes.n ? s.ned : 0;
    for (const Resistance& resistance :
         {Resistance{"Nt,Rd", std::min(n, 0.0), s.nplrd, "kN"},
          Resistance{"Nc,Rd", std::max(n, 0.0), s.ncrd, "kN"},
          Resistance{"My,Rd", Largest(s.mysec, s.npts), s.myrd, "kNm"},
          Resistance{"Mz,Rd", mz, s.mzrd, "kNm"},
          Resistance{"Vz,Rd", Largest(s.vzsec, s.npts), s.vbrd, "kN"},
          Resistance{"Vy,Rd", vy, s.vcyrd, "kN"}}) {
        if (resistance.force != 0 && !(resistance.value > 0)) {
            throw CalculationStop{{.cause = Cause::no_resistance,
                                   .quantity = resistance.name,
                                   .value = resistance.value,
                                   .unit = resistance.unit}};
        }
    }
}

}  // namespace

void ClearControl(ProjectState& s)
{
    ClearSectionRows(s);
    ClearBucklingRows(s, s);
    s.maxirbuckling = 0;
    s.ltc1 = 0;
    s.ltc2 = 0;
    s.ltc3 = 0;
}

void CalcSectionControl(ProjectState& s)
{
    const FamilyRoutines* routines = FindRoutines(s.family);
    if (routines == nullptr) {
        return;
    }
    if (Is(s, Kind::tee)) {
        ClearInvalidLoads(s, s, s.dropped);  // end forces do not pass the clearing of the analysis
    }
    if (routines->control_without_n) {
        s.ned = 0;
    }
    s.failure.stage = Stage::section_control;
    routines->control(s, s, s, s, s, s);
    if (s.flangeoverload) {
        SettleFlangeLoading(s);
    }
    CheckTrap();
    RequireResistances(s);
}

void CalcBucklingControl(ProjectState& s)
{
    const FamilyRoutines* routines = FindRoutines(s.family);
    if (routines == nullptr) {
        return;
    }
    s.failure.stage = Stage::buckling_control;
    if (routines->buckling != nullptr && (!routines->compressed_only || s.ned > 0)) {
        SettleLoadLevel(s, s);
        routines->buckling(s, s, s, s, s, s, s, s);
    }
}

void CalcControl(ProjectState& s)
{
    ClearControl(s);
    CalcSectionControl(s);
    CalcBucklingControl(s);
}

}  // namespace kestrum
