#pragma once

// The checks of both sets of rules under common names, so that they stand side by side.

#include "core/check.h"
#include "core/load_cases.h"
#include "document/document.h"
#include "standard/result.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kestrum {

struct ProjectState;

struct CheckPair {
    std::string name;
    std::vector<CheckId> program;  // the largest of them counts
    std::optional<standard::CheckId> standard;
};
// Of angles the standard's buckling across y is that about the principal axis v; without an axial
// force no name speaks of one.
const std::vector<CheckPair>& CheckPairs(const ProjectState& s);

// "flexural buckling about y": the check of the standard in running text.
std::string NameInText(const ProjectState& s, standard::CheckId id);
// The same of a title.
std::string InText(std::string_view title);

// "6.10 G sup + Q1 + ψ0 Q2".
Line LineOf(const LoadCase& load_case);

// A ratio with four digits: "0.7158", "1.640", "infinite".
std::string WrittenRatio(double ratio);
// The clause as a report cites it. The result rows of the program name 6.3.1 where 6.3.3 holds
// without an axial force; the sum of sections outside 6.3.3 is that of 6.2.1 (7).
std::string ClauseOf(const Check& check);
std::string ClauseOf(const standard::Check& check);

// Whether both sets of rules give the check the same ratio, as it is written.
bool GiveTheSame(const Check& program, const standard::Check& other);

// The judged check of the pair with the largest ratio, null without one.
const Check* LargestOf(const CheckPair& pair, const CheckList& list);

}  // namespace kestrum
