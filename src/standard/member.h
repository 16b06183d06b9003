#pragma once

// A member in the standard basis: made once, checked under any number of combinations or cases.

#include "analysis/member_forces.h"
#include "core/arithmetic_trap.h"
#include "core/library.h"
#include "core/project_state.h"
#include "standard/effective.h"
#include "standard/lines.h"
#include "standard/member_checks.h"
#include "standard/resistance.h"
#include "standard/result.h"
#include "standard/section.h"
#include "standard/section_checks.h"
#include "standard/solved_lines.h"

#include <span>
#include <string>
#include <vector>

namespace kestrum::standard {

struct Member {
    const Library& library;
    const ProjectState& s;
    const Basis& basis;
    const ProjectState* program;  // the record after the program's pass, or null
    SolvedLines& solved;          // not for two threads at once
    PreparedSection section;
    MemberLoads loads;
    std::span<const float> places;  // the program's check sections, x/L
};

// The program's section step, for the section record and the switches of the family. The reason
// where the standard basis has no result for the member.
std::string PrepareState(const Library& library, ProjectState& s, const Basis& basis);

// Calls `use` with the member, unless there is a reason why the standard basis has no result for
// it. `solved`: of this and other passes of like members.
template <class Use>
std::string WithMember(const Library& library, const ProjectState& project, const Basis& basis,
                       const ProjectState* program, SolvedLines& solved, const Use& use)
{
    ProjectState s = project;
    std::string reason = PrepareState(library, s, basis);
    if (reason.empty()) {
        MakeCheckSections(s, s);
        use(Member{library,
                   s,
                   basis,
                   program,
                   solved,
                   Prepare(SectionOf(library, s, basis), basis),
                   LoadsOf(s, basis),
                   {s.xi.data(), static_cast<std::size_t>(s.npts) + 1}});
        ArmTrap();
    }
    return reason;
}
template <class Use>
std::string WithMember(const Library& library, const ProjectState& project, const Basis& basis,
                       const ProjectState* program, const Use& use)
{
    SolvedLines solved;
    return WithMember(library, project, basis, program, solved, use);
}

// What acts somewhere on the member.
ActingForces ActingIn(const CombinedLines& lines);

// Section and member checks of one combination. False where the numerical solution does not take
// the member.
bool CheckStrength(const Member& m, const LoadCase& load_case, const CombinedLines& lines,
                   Checks& checks);

// What stands behind the ratios of one combination: of a section check at x in m, of the member.
SectionTerms SectionTermsOf(const Member& m, const LoadCase& load_case, const CombinedLines& lines,
                            CheckId id, double x);
MemberTerms MemberTermsOf(const Member& m, const LoadCase& load_case, const CombinedLines& lines,
                          CheckId id);

// The largest section ratio of one combination at even places, kept where it is larger.
void KeepLargestAlong(const Member& m, const LoadCase& load_case, std::span<double> largest);

// The combinations of serviceability; none with given end forces.
LoadCases ServiceCasesOf(const Member& m);
void CheckService(const Member& m, const LoadCase& load_case, Checks& checks);

// The largest deflection with its sign, its limit in mm, and its place x/L.
struct DeflectionTerms {
    double largest, limit, place;
};
DeflectionTerms DeflectionOf(const Member& m, const CombinedLines& lines, Axis axis);

// What takes the program's rule because the standard basis has no other.
void NameOutside(const Library& library, const Member& m, std::vector<std::string>& outside);
// The same of a kind of section, by the checks that were made.
void NameOutsideOfKind(const Library& library, const Member& m, const Checks& checks,
                       std::vector<std::string>& outside);

}  // namespace kestrum::standard
