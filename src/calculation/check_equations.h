#pragma once

// One check with all equations that lead to its ratio: what a window shows for a row of the result,
// and what the report has below the heading of the check.

#include "core/check.h"
#include "core/library.h"
#include "document/document.h"
#include "standard/standard.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace kestrum {

struct ProjectState;

struct CheckNode {
    std::string name{};                 // "Bending about y"
    std::vector<Equation> equations{};  // by the program; the ratio comes last
    std::vector<Equation> standard{};   // by EN 1993-1-1 as written; the ratio comes last
    std::string anchor{};               // of the heading in the theory manual: "bending-with-shear"
};

// The rules of the program. `s`: the record after a pass. Without equations where nothing was
// checked.
CheckNode EquationsOf(const ProjectState& s, CheckId check);

// Both sets of rules. `input`: the project as the passes were given it; `result`: of the standard,
// with the costs of the departures where they are known.
CheckNode EquationsOf(const Library& library, const ProjectState& input, const ProjectState& s,
                      const standard::StandardResult& result, CheckId check);

// Rich text of equations, one paragraph each: <p>, <b>, <sub>, <sup>, clause in brackets.
std::string RichText(std::span<const Equation> equations, char decimal = '.');

// Equations set as on paper below each other, `width` mm wide.
Drawing DrawEquations(std::span<const Equation> equations, double width, char decimal = '.');

}  // namespace kestrum
