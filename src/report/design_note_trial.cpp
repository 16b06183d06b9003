#include "report/design_note_trial.h"

#include "core/arithmetic_trap.h"
#include "core/project_state.h"
#include "engine/control_dispatch.h"
#include "engine/member_analysis.h"
#include "report/design_note_facts.h"
#include "service/deflection_control.h"
#include "stability/interaction_annex_a.h"

#include <algorithm>
#include <limits>

namespace kestrum {

namespace {

constexpr double kUnbounded = std::numeric_limits<double>::max();
constexpr TrialRatios kNoEnd{{kUnbounded, kUnbounded, kUnbounded},
                             {kUnbounded, kUnbounded, kUnbounded, kUnbounded},
                             {kUnbounded, kUnbounded}};

TrialRatios RatiosOf(const ProjectState& s)
{
    const auto deflection = [&s](ResultRow row) {
        return s.checksls != kFalse && s.loadmode == 1 ? s.checklist.row(row).ratio : 0;
    };
    return {{s.irrow1, s.irrow2, s.irrow3},
            {s.irrow4, s.irrow5, s.irrow6, s.maxirbuckling},
            {deflection(ResultRow::deflection_z), deflection(ResultRow::deflection_y)}};
}

// Runs `work` under the arithmetic trap; a failure, or an axial force above an elastic critical
// force, has no ratios.
template <class Work> TrialRatios Guarded(ProjectState& copy, Work work)
{
    TrialRatios ratios = kNoEnd;
    copy.errorflag = 0;
    ArmTrap();
    try {
        work(copy);
        CheckTrap();
        ratios = copy.errorflag == 0 ? RatiosOf(copy) : kNoEnd;
    } catch (const CalculationStop&) {
        ratios = kNoEnd;
    }
    ArmTrap();  // the flags of a trial are nobody else's
    return ratios;
}

void Analyse(ProjectState& s)
{
    CalcMember(s, CalcControl);
    CalcControl(s);
    DeflectionControl(s, s, s);
}

}  // namespace

TrialRatios ControlledRatios(ProjectState& copy)
{
    return Guarded(copy, CalcControl);
}

TrialRatios AnalysedRatios(ProjectState& copy)
{
    return Guarded(copy, Analyse);
}

TrialRatios CombinedRatios(ProjectState copy, const LoadFactors& strength,
                           const LoadFactors& service)
{
    copy.loadcomb = kUserFactors;
    copy.lfulsg = static_cast<float>(strength.g);
    copy.lfulsq1 = static_cast<float>(strength.q1);
    copy.lfulsq2 = static_cast<float>(strength.q2);
    copy.lfslsg = static_cast<float>(service.g);
    copy.lfslsq1 = static_cast<float>(service.q1);
    copy.lfslsq2 = static_cast<float>(service.q2);
    return AnalysedRatios(copy);
}

bool Above(double trial, double result)
{
    constexpr double kRounding = 1e-5;  // forces and factors are kept in single precision
    return trial > result * (1 + kRounding) && trial > result + 1e-9;
}

bool AnyAbove(std::span<const double> trial, std::span<const double> result)
{
    return !std::equal(trial.begin(), trial.end(), result.begin(),
                       [](double a, double b) { return !Above(a, b); });
}

Trial TryFactors(const ProjectState& s, const LoadFactors& strength, const LoadFactors& service)
{
    return {CombinedRatios(s, strength, service),
            CombinedRatios(s, StrengthFactors(s, s, StrengthCombination(s)),
                           ServiceFactors(s, s.loadcomb))};
}

bool TorsionRaisesAnnexA(const ProjectState& s, double ncrtf)
{
    ProjectState with = s, without = s;
    with.ncrtf = ncrtf;
    if (Guarded(with, [](ProjectState& copy) {
            KFactorsAnnexA(copy, copy, copy, copy, copy, copy, copy);
        }).section[0] == kUnbounded) {
        return true;
    }
    Guarded(without,
            [](ProjectState& copy) { KFactorsAnnexA(copy, copy, copy, copy, copy, copy, copy); });
    return Above(with.kyy, without.kyy) || Above(with.kzy, without.kzy) ||
           Above(with.kyz, without.kyz) || Above(with.kzz, without.kzz);
}

}  // namespace kestrum
