#include "engine/calculate.h"

#include "analysis/cmoment.h"
#include "core/arithmetic_trap.h"
#include "engine/ccontrol.h"
#include "engine/csection.h"
#include "service/deflection_control.h"
#include "service/modal.h"

#include <cmath>
#include <initializer_list>

namespace kestrum {

namespace {

constexpr i16 kAxialOverload = -1;  // errorflag

// The status flags tell of the operation that failed. A NaN that came in from outside raises none,
// so the values that a step hands on are looked at too.
void RequireFinite(std::initializer_list<double> values)
{
    for (const double value : values) {
        if (!std::isfinite(value)) {
            throw CalculationStop{};
        }
    }
}

void SectionStep(const Library& library, ProjectState& s)
{
    ArmTrap();
    CalcSection(library, s);
    CheckTrap();
    RequireFinite({s.a, s.iy, s.iz, s.it, s.iw, s.wely, s.welz, s.weight, s.fyk, s.eps, s.nplrd,
                   s.ncrd, s.myrd, s.mzrd, s.nrdm1, s.myrdm1, s.mzrdm1});
}

// The control as the analysis runs it for each of two combinations: a failure in the first must not
// hide behind the second.
void GuardedControl(ProjectState& s)
{
    CalcControl(s);
    CheckTrap();
}

void AnalysisStep(ProjectState& s)
{
    ArmTrap();
    CalcMember(s, GuardedControl);
    CheckTrap();
    RequireFinite({s.ned, s.mymax, s.mymin, s.mzmax, s.mzmin, s.vzmax, s.vzmin, s.vymax, s.vymin,
                   s.dzmax, s.dzmin, s.dymax, s.dymin});
}

void ControlStep(ProjectState& s)
{
    ArmTrap();
    CalcControl(s);
    CheckTrap();
    RequireFinite(
        {s.irsection, s.maxirbuckling, s.irrow1, s.irrow2, s.irrow3, s.irrow4, s.irrow5, s.irrow6});
}

void DeflectionStep(ProjectState& s)
{
    if (s.loadmode != 1) {
        return;
    }
    ArmTrap();
    DeflectionControl(s);
    CheckTrap();
    RequireFinite({s.deflinez.ir, s.defliney.ir});
}

void ModalStep(ProjectState& s)
{
    if (s.modal != 1) {
        return;
    }
    ArmTrap();
    CalcModal(s);
    CheckTrap();
    RequireFinite({s.modalmass, s.freq[1], s.freq[2], s.freq[3]});
}

void Pass(const Library& library, ProjectState& s)
{
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
    try {
        Pass(library, s);
        s.calculationerror = s.errorflag == kAxialOverload;
    } catch (const CalculationStop&) {
        s.calculationerror = true;
    }
    ArmTrap();  // the flags of this pass are nobody else's
    return !s.calculationerror;
}

}  // namespace kestrum
