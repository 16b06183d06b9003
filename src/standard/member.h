#pragma once

// A member in the standard basis: made once, checked under any number of combinations or cases.

#include "core/library.h"
#include "standard/lines.h"
#include "standard/resistance.h"
#include "standard/result.h"

#include <span>
#include <string>
#include <vector>

namespace kestrum::standard {

struct Member {
    const Library& library;
    const ProjectState& s;
    const Basis& basis;
    const ProjectState* program;  // the record after the program's pass, or null
    PreparedSection section;
    MemberLoads loads;
    std::span<const float> places;  // the program's check sections, x/L
};

// The program's section step, for the section record and the switches of the family. The reason
// where the standard basis has no result for the member.
std::string PrepareState(const Library& library, ProjectState& s, const Basis& basis);

// Section and member checks of one combination. False where the numerical solution does not take
// the member.
bool CheckStrength(const Member& m, const LoadCase& load_case, const CombinedLines& lines,
                   Checks& checks);

// What takes the program's rule because the standard basis has no other.
void NameOutside(const Library& library, const Member& m, std::vector<std::string>& outside);
// The same of a kind of section, by the checks that were made.
void NameOutsideOfKind(const Library& library, const Member& m, const Checks& checks,
                       std::vector<std::string>& outside);

}  // namespace kestrum::standard
