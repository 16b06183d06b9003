#include "compare_bases.h"

#include "engine/calculate.h"
#include "random_member.h"

#include <cmath>

namespace kestrum {

namespace {

constexpr double kExact = 1e-9;
constexpr double kNothing = 1e-9;  // loads that cancel but for a rounding
constexpr double kSingle = 2e-6;   // of several values in single precision

void Scale(ProjectState& s, float factor)
{
    for (auto* rows : {&s.nload, &s.qt1, &s.qt2}) {
        for (float& load : *rows) {
            load *= factor;
        }
    }
    for (float& load : s.qload) {
        load *= factor;
    }
    for (float& load : s.pm) {
        load *= factor;
    }
    for (float* force : {&s.ne, &s.my1, &s.my2, &s.vz1, &s.vz2, &s.mz1, &s.mz2, &s.vy1, &s.vy2}) {
        *force *= factor;
    }
}

bool Same(double a, double b)
{
    return a == b || std::abs(a / b - 1) <= kExact;
}

// Whether the deviations change the largest ratio neither all together nor those that the pass came
// across by themselves.
bool NoneActs(const Library& library, const ProjectState& s, const ProjectState* program,
              const standard::StandardResult& result)
{
    const standard::StandardResult back =
        standard::CalculateStandard(library, s, EveryRuleBack(), program);
    if (!back.rated || !Same(back.ir, result.ir)) {
        return false;
    }
    for (std::size_t i = 0; i < kDeviations; ++i) {
        if (!result.met[i]) {
            continue;
        }
        Basis basis = Basis::StandardBut(Dev::d202);
        basis.SwitchBack(static_cast<Dev>(i));
        const standard::StandardResult other =
            standard::CalculateStandard(library, s, basis, program);
        if (!other.rated || !Same(other.ir, result.ir)) {
            return false;
        }
    }
    return true;
}

}  // namespace

Basis EveryRuleBack()
{
    Basis all = Basis::Standard();
    for (std::size_t i = 0; i < kDeviations; ++i) {
        all.SwitchBack(static_cast<Dev>(i));
    }
    return all;
}

ProjectState RolledMember(const Library& library, std::size_t number, int family)
{
    ProjectState s = RandomMember(library, number);
    s.family = static_cast<i16>(family);
    if (number % 2 == 1) {
        MakePlain(s, number / 2);
    }
    return s;
}

void LoadFully(const Library& library, ProjectState& s, std::size_t number)
{
    ProjectState tried = s;
    const bool passed = Calculate(library, tried);
    const Outcome outcome = OutcomeOf(tried, passed);
    const double target = 0.6 + 0.5 * static_cast<double>(number % 101) / 100;
    if (outcome.rated() && outcome.ir > 0 && std::isfinite(outcome.ir)) {
        Scale(s, static_cast<float>(target / outcome.ir));
    }
}

void CompareBases(const Library& library, std::size_t number, int family,
                  const Disagreement& disagreement, BothBases& sum)
{
    ProjectState s = RolledMember(library, number, family);
    LoadFully(library, s, number);
    ++sum.members;
    ProjectState designed = s;
    const bool passed = Calculate(library, designed);
    const Outcome program = OutcomeOf(designed, passed);
    const standard::StandardResult result =
        standard::CalculateStandard(library, s, Basis::StandardBut(Dev::d202));
    if (!result.rated || !program.rated() || program.verdict == Verdict::unstable) {
        return;
    }
    ++sum.rated;
    sum.differ += result.above != (program.verdict != Verdict::within);
    if (result.ir < kNothing || !NoneActs(library, s, passed ? &designed : nullptr, result)) {
        return;
    }
    ++sum.same_rules;
    const double off = std::abs(program.ir / result.ir - 1);
    sum.largest = std::fmax(sum.largest, off);
    if (off > kSingle) {
        ++sum.disagree;
        disagreement(number, designed, program, result);
    }
}

}  // namespace kestrum
