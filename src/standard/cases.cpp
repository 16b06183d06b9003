#include "standard/cases.h"

#include "standard/member.h"

namespace kestrum::standard {

namespace {

void Govern(CaseResult& result)
{
    for (std::size_t i = 0; i < kCheckIds; ++i) {
        const auto id = static_cast<CheckId>(i);
        const Check& check = result.checks[id];
        if (check.present && (!result.rated || check.ir > result.ir)) {
            result.rated = true;
            result.ir = check.ir;
            result.governing = id;
        }
    }
}

}  // namespace

std::vector<CaseResult> CalculateCases(const Library& library, const ProjectState& s)
{
    std::vector<CaseResult> results;
    const Basis basis = Basis::Standard();
    WithMember(library, s, basis, nullptr, [&](const Member& member) {
        const LoadCases strength = StrengthCases(member.s, member.loads.present, basis);
        const LoadCases service = ServiceCasesOf(member);
        results.reserve(strength.count + service.count);
        for (std::size_t i = 0; i < strength.count; ++i) {
            CaseResult& result = results.emplace_back(CaseResult{.load_case = strength.at[i]});
            const CombinedLines lines =
                LinesOf(member.s, member.loads, strength.at[i].factors, basis);
            if (!CheckStrength(member, strength.at[i], lines, result.checks)) {
                results.clear();
                return;
            }
        }
        for (std::size_t i = 0; i < service.count; ++i) {
            CaseResult& result =
                results.emplace_back(CaseResult{.load_case = service.at[i],
                                                .service = true,
                                                .counts = member.s.checksls != kFalse});
            CheckService(member, service.at[i], result.checks);
        }
    });
    for (CaseResult& result : results) {
        Govern(result);
    }
    return results;
}

std::optional<AlongMember> SectionUtilisation(const Library& library, const ProjectState& s)
{
    AlongMember largest{};
    const Basis basis = Basis::Standard();
    const std::string reason = WithMember(library, s, basis, nullptr, [&](const Member& member) {
        const LoadCases cases = StrengthCases(member.s, member.loads.present, basis);
        for (std::size_t i = 0; i < cases.count; ++i) {
            KeepLargestAlong(member, cases.at[i], largest);
        }
    });
    return reason.empty() ? std::optional(largest) : std::nullopt;
}

}  // namespace kestrum::standard
