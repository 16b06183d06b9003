#pragma once

// The result by EN 1993-1-1 as written as windows show it: next to the groups of the result panel,
// and as the list of deviations with what each costs.

#include "report/panel.h"
#include "standard/standard.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace kestrum {

struct Outcome;
struct ProjectState;

// The largest ratio of the checks of a group.
struct StandardGroup {
    bool present = false;  // the standard has checks of the group here
    bool above = false;    // the limit
    double utilisation = 0;
    std::string ratio{};   // "0.81", "1.18  ABOVE"
    std::string source{};  // what governs the group, clause, combination, place
};
// Section, buckling, deflection.
constexpr std::size_t kStandardGroups = 3;
std::array<StandardGroup, kStandardGroups> StandardGroups(const ProjectState& s,
                                                          const standard::StandardResult& result);

// A block of the result panel with the group of the standard that stands beside it.
struct PanelGroup {
    PanelBlock block;
    std::vector<std::optional<double>> utilisation;  // a line each, see UtilisationOf
    StandardGroup standard;
};

// The blocks of ShowResults; one of which the program has no checks consists of its head.
std::vector<PanelGroup> PanelGroups(const ProjectState& s, const standard::StandardResult& result);

// "EN 1993-1-1: 0.81, buckling about z with bending (...)" of a group.
std::string GroupText(const StandardGroup& group);

struct DeviationRow {
    std::string id;             // "D181"
    std::string cost;           // "+0.075"; empty where it does not change the largest ratio
    std::string text;           // one sentence
    std::optional<Dev> acts{};  // there is more to explain
    std::string change{};       // "section Vz +0.098": the check that it changes most, where the
                                // cost does not say that
};

// Deviations that act, largest cost first, then those that touch other checks, then the design
// notes that are not among them. Without costs, which take a while: the notes.
std::vector<DeviationRow> DeviationRows(const standard::StandardResult& result, bool costed,
                                        const ProjectState* program);

// What a deviation does: every check whose ratio differs, by the standard and with the program's
// rule in this one place.
struct ExplainedCheck {
    std::string what, clause, written, program;
};
struct Explanation {
    std::string head, sentence;
    std::vector<ExplainedCheck> checks{};  // the largest ratio first
};
// `given` as the pass was given it, `program` the record behind it, null where it failed.
Explanation Explain(const Library& library, const ProjectState& given, const ProjectState* program,
                    const standard::StandardResult& result, Dev deviation);

// A combination of the standard with its largest ratio; strength first, then serviceability.
struct CombinationRow {
    std::string name, g, q1, q2;  // with the factors on the actions
    std::string ratio;            // "0.81"; "1.18 ABOVE", "governs" behind the largest of all
    std::string check, clause, place;
    bool governs = false;
};
// Empty where the standard's result does not cover the project.
std::vector<CombinationRow> CombinationRows(const Library& library, const ProjectState& given);

// Both results above the table.
std::string CombinationsHead(const Outcome& outcome, const standard::StandardResult& result);

}  // namespace kestrum
