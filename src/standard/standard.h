#pragma once

// Basis "standard": the member by EN 1993-1-1 and EN 1993-1-5 as written, apart from the program's
// own rules. Every load arrangement of EN 1990 is calculated whole and each check keeps its largest
// ratio. Nothing of an earlier pass takes part.

#include "core/basis.h"
#include "core/library.h"
#include "standard/result.h"
#include "standard/vibration.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kestrum {
struct ProjectState;
}

namespace kestrum::standard {

class SolvedLines;

// What a deviation of the program costs: the standard against the standard with it switched back.
struct DeviationCost {
    Dev deviation;
    double without;  // largest ratio with the program's rule; NaN where there is no result
    double cost;     // the standard's largest ratio less that; NaN where one of both is missing
    double rise;     // of the ratio of some check from the program's rule to the standard, largest
                     // of all, as a share of the first; infinite where a check is missing
    std::array<double, kCheckIds> ratios;  // of each check with the program's rule; 0 without it
    CheckId most{};     // the check whose ratio changes most, whether it governs or not
    double change = 0;  // the standard's ratio of it less that with the program's rule; never
                        // smaller than `cost`; infinite where one of both is. 0: the deviation
                        // acts only together with another one. NaN as `cost`
    bool unsafe() const { return rise > 0; }
};

// The deviations that a pass came across, by what they change.
struct Reached {
    Deviations member;  // section, loads, combinations, classes: all that follows
    Deviations sections, buckling, service;
};

struct StandardResult {
    bool rated = false;  // there is a result; else `outside` says why not
    Checks checks{};
    double ir = 0;                            // largest of all checks that count
    CheckId governing{};                      // its check
    bool above = false;                       // the limit
    std::vector<std::string> outside{};       // what the standard basis does not cover here
    Deviations met{};                         // that the pass came across
    Reached reached{};                        // the same by stages
    std::optional<Vibration> vibration{};     // with modal analysis
    std::vector<DeviationCost> deviations{};  // that act, largest cost first; see CalculateCosts
};

// `s` as read; it is not changed. `program`, for a basis with deviations switched back: the record
// after the program's own pass, or null where that pass failed.
StandardResult CalculateStandard(const Library& library, const ProjectState& s,
                                 const Basis& basis = Basis::Standard(),
                                 const ProjectState* program = nullptr);
// The same; what `solved` has of like members, such as those of other bases, is not solved again,
// and checks that no deviation switched back reaches are those of `alike`, the member's result by
// another basis, or null.
StandardResult CalculateStandard(const Library& library, const ProjectState& s, const Basis& basis,
                                 const ProjectState* program, SolvedLines& solved,
                                 const StandardResult* alike);

// "within limits", "above limit", "not covered".
std::string_view VerdictOf(const StandardResult& result);

}  // namespace kestrum::standard
