#include "engine/member_analysis.h"

#include "analysis/end_forces.h"
#include "analysis/load_table.h"
#include "analysis/member_forces.h"
#include "core/arithmetic_trap.h"
#include "core/load_combination.h"
#include "core/project_state.h"
#include "engine/settle_inputs.h"

#include <algorithm>

namespace kestrum {

namespace {

void Analyse(ProjectState& s, const LoadTable& table, int loadcomb)
{
    AnalyseCombination(s, s, s, table, loadcomb, s);
    HandOnDesignMoment(s, s);
}

// The largest utilisation of section and member in a combination.
double UtilisationOf(ProjectState& s, const LoadTable& table, int loadcomb,
                     void (*control)(ProjectState&))
{
    Analyse(s, table, loadcomb);
    s.irsection = 0;
    s.maxirbuckling = 0;
    CheckTrap();
    control(s);
    CheckTrap();
    return std::max(s.irsection, s.maxirbuckling);
}

// Eq 6.10a or 6.10b, whichever uses the member more; a tie gives 6.10b. An overload of the flange
// in 6.10b takes the flange loading (hsqopt) from 6.10a as well.
void AnalyseGoverning(ProjectState& s, const LoadTable& table, void (*control)(ProjectState&))
{
    double ir610a = UtilisationOf(s, table, kEq610a, control);
    if (s.errorflag != 0) {
        return;
    }
    const i16 option = s.hsqopt;
    const double ir610b = UtilisationOf(s, table, kEq610b, control);
    if (s.errorflag != 0) {
        return;
    }
    if (s.hsqopt != option) {
        ir610a = UtilisationOf(s, table, kEq610a, control);
    }
    s.governing = ir610a > ir610b ? 1 : 2;
    Analyse(s, table, s.governing == 1 ? kEq610a : kEq610b);
}

}  // namespace

void HandOnDesignMoment(const Forces& forces, Stability& stability)
{
    stability.mydesignf = F32(forces.mydesign);
}

void CalcMember(ProjectState& s, void (*control)(ProjectState&))
{
    MakeCheckSections(s, s);  // before the loads are settled: an emptied row keeps its pair
    SettleLoads(s, s, s, s.dropped);
    if (s.loadmode != 1) {
        CalcEndForceMode(s, s);
        HandOnDesignMoment(s, s);
        return;
    }
    LoadTable table;
    FillTable(s, SpanOf(s, s), table);
    MarkLoadedAxes(s, table, s);
    if (s.loadcomb == kEq610ab) {
        AnalyseGoverning(s, table, control);
    } else {
        Analyse(s, table, s.loadcomb);
    }
}

}  // namespace kestrum
