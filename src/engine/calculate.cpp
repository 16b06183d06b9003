#include "engine/calculate.h"

#include "core/arithmetic_trap.h"
#include "core/project_state.h"
#include "engine/control_dispatch.h"
#include "engine/member_analysis.h"
#include "engine/section_dispatch.h"
#include "engine/validate.h"
#include "service/deflection_control.h"
#include "service/modal.h"
#include "stability/critical_force.h"

#include <cmath>
#include <initializer_list>
#include <string_view>

namespace kestrum {

namespace {

// A value that a step hands on.
struct Handed {
    std::string_view name;
    double value;
};

// The status flags tell of the operation that failed. A NaN that came in from outside raises none,
// so the values that a step hands on are looked at too.
void RequireFinite(std::initializer_list<Handed> values)
{
    for (const Handed& handed : values) {
        if (!std::isfinite(handed.value)) {
            throw CalculationStop{{.cause = Cause::not_finite, .quantity = handed.name}};
        }
    }
}

// Clears the flags and marks where the pass is.
void Enter(ProjectState& s, Stage stage)
{
    ArmTrap();
    s.failure.stage = stage;
}

void SectionStep(const Library& library, ProjectState& s)
{
    Enter(s, Stage::section);
    CalcSection(library, s);
    CheckTrap();
    RequireFinite({{"a", s.a},
                   {"iy", s.iy},
                   {"iz", s.iz},
                   {"it", s.it},
                   {"iw", s.iw},
                   {"wely", s.wely},
                   {"welz", s.welz},
                   {"weight", s.weight},
                   {"fyk", s.fyk},
                   {"eps", s.eps},
                   {"nplrd", s.nplrd},
                   {"ncrd", s.ncrd},
                   {"myrd", s.myrd},
                   {"mzrd", s.mzrd},
                   {"nrdm1", s.nrdm1},
                   {"myrdm1", s.myrdm1},
                   {"mzrdm1", s.mzrdm1}});
}

// The control as the analysis runs it for each of two combinations: a failure in the first must not
// hide behind the second.
void GuardedControl(ProjectState& s)
{
    CalcControl(s);
    CheckTrap();
    if (s.errorflag != kAxialOverload) {
        s.failure.stage = Stage::forces;  // the analysis goes on
    }
}

void AnalysisStep(ProjectState& s)
{
    Enter(s, Stage::forces);
    CalcMember(s, GuardedControl);
    CheckTrap();
    RequireFinite({{"ned", s.ned},
                   {"mymax", s.mymax},
                   {"mymin", s.mymin},
                   {"mzmax", s.mzmax},
                   {"mzmin", s.mzmin},
                   {"vzmax", s.vzmax},
                   {"vzmin", s.vzmin},
                   {"vymax", s.vymax},
                   {"vymin", s.vymin},
                   {"dzmax", s.dzmax},
                   {"dzmin", s.dzmin},
                   {"dymax", s.dymax},
                   {"dymin", s.dymin}});
}

void ControlStep(ProjectState& s)
{
    Enter(s, Stage::section_control);
    CalcControl(s);
    CheckTrap();
    RequireFinite({{"irsection", s.irsection},
                   {"maxirbuckling", s.maxirbuckling},
                   {"irrow1", s.irrow1},
                   {"irrow2", s.irrow2},
                   {"irrow3", s.irrow3},
                   {"irrow4", s.irrow4},
                   {"irrow5", s.irrow5},
                   {"irrow6", s.irrow6}});
}

void DeflectionStep(ProjectState& s)
{
    if (s.loadmode != 1) {
        return;
    }
    Enter(s, Stage::deflection);
    DeflectionControl(s, s, s);
    CheckTrap();
    RequireFinite({{"deflinez", s.checklist.row(ResultRow::deflection_z).ratio},
                   {"defliney", s.checklist.row(ResultRow::deflection_y).ratio}});
}

void ModalStep(ProjectState& s)
{
    if (s.modal != 1) {
        return;
    }
    Enter(s, Stage::modal);
    CalcModal(s, s, s);
    CheckTrap();
    RequireFinite({{"modalmass", s.modalmass},
                   {"freq[1]", s.freq[1]},
                   {"freq[2]", s.freq[2]},
                   {"freq[3]", s.freq[3]}});
}

void InputStep(const Library& library, const ProjectState& s)
{
    const InputFaults faults = Validate(s, &library);
    if (faults.count > 0) {
        throw CalculationStop{faults.fault[0]};
    }
}

void Pass(const Library& library, ProjectState& s)
{
    Enter(s, Stage::input);
    InputStep(library, s);
    SectionStep(library, s);
    AnalysisStep(s);
    if (s.errorflag == kAxialOverload) {
        return;
    }
    ControlStep(s);
    if (s.errorflag == kAxialOverload) {
        return;
    }
    DeflectionStep(s);
    ModalStep(s);
}

}  // namespace

bool Calculate(const Library& library, ProjectState& s)
{
    s.errorflag = 0;
    s.flangeoverload = false;
    s.calculationerror = false;
    s.failure = {};
    s.acting.reset();
    try {
        Pass(library, s);
        s.calculationerror = s.errorflag == kAxialOverload;
    } catch (const CalculationStop& stop) {
        const Stage stage = s.failure.stage;
        s.failure = stop.failure;
        s.failure.stage = stage;
        s.calculationerror = true;
    }
    if (!s.calculationerror) {
        s.failure = {};
    }
    ArmTrap();  // the flags of this pass are nobody else's
    return !s.calculationerror;
}

HeldState AsGiven(const ProjectState& s)
{
    ProjectState given = s;
    PutDroppedBack(given, given.dropped);
    if (s.flangeoverload) {
        constexpr i16 kConsidered = 0;
        given.hsqopt = kConsidered;
    }
    return given;
}

}  // namespace kestrum
