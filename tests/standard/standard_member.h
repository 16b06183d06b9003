#pragma once

// Members for the tests of the standard basis, and their results by it.

#include "standard/member.h"
#include "standard/standard.h"
#include "support/members.h"

#include <cmath>

namespace kestrum {

// A strength as typed, the factors on loads 1, no loads, held against lateral torsional buckling;
// loads act in the shear centre.
inline Member Unloaded(float length, float fy)
{
    Member m = Member().Unloaded().Length(length).Steel(fy);
    m.ltb = 0;
    m.loadlevel = 2;
    return m;
}

inline standard::StandardResult Rated(const ProjectState& s)
{
    return standard::CalculateStandard(Delivered(), s);
}

inline double Ratio(const standard::StandardResult& result, standard::CheckId id)
{
    return result.checks[id].present ? result.checks[id].ir : -1;
}

inline double Ratio(const ProjectState& s, standard::CheckId id)
{
    return Ratio(Rated(s), id);
}

// With one deviation switched back to the program's rule; -1 without the check.
inline double Back(const ProjectState& s, Dev deviation, standard::CheckId id)
{
    ProjectState program = s;
    const bool well = Calculate(Delivered(), program);
    return Ratio(standard::CalculateStandard(Delivered(), s, Basis::StandardBut(deviation),
                                             well ? &program : nullptr),
                 id);
}

// Terms of the interaction in the only combination.
inline standard::MemberTerms TermsOf(const ProjectState& s, const Basis& basis = Basis::Standard())
{
    ProjectState program = s;
    const bool well = Calculate(Delivered(), program);
    standard::MemberTerms terms{};
    standard::WithMember(
        Delivered(), s, basis, well ? &program : nullptr, [&](const standard::Member& member) {
            const LoadCases cases = StrengthCases(member.s, member.loads.present, basis);
            const standard::CombinedLines lines =
                LinesOf(member.s, member.loads, cases.at[0].factors, basis);
            terms = MemberTermsOf(member, cases.at[0], lines, standard::CheckId::eq661);
        });
    return terms;
}

inline const double kRoot3 = std::sqrt(3.0);

}  // namespace kestrum
