#pragma once

// What the user should know about the current result: a note for every deviation from the standard
// on the unsafe side (docs/deviations.md) that acts in it. A note changes no number.

#include <array>
#include <span>
#include <string_view>
#include <vector>

namespace kestrum {

struct ProjectState;

struct DesignNote {
    std::string_view id;    // number of the deviation, "D201"
    std::string_view text;  // one sentence
};

// A deviation, and whether it acts in a state after a pass.
struct NoteRule {
    std::string_view id;
    bool (*acts)(const ProjectState& s);

    std::string_view Text() const;  // of the list of deviations (core/deviation_list.inc)
};

// All rules, in the order in which their notes are shown: by groups, from loads to wind.
std::span<const NoteRule> LoadNoteRules();       // load factors, self-weight
std::span<const NoteRule> GeneralNoteRules();    // material, analysis
std::span<const NoteRule> SectionNoteRules();    // properties and resistance of sections
std::span<const NoteRule> LateralNoteRules();    // lateral torsional buckling
std::span<const NoteRule> StabilityNoteRules();  // the rest of stability

std::span<const NoteRule> ServiceNoteRules();  // modal analysis, vortex shedding

// These groups in their order.
std::array<std::span<const NoteRule>, 6> NoteGroups();

// The notes of the current result; none after a pass that failed.
std::vector<DesignNote> DesignNotes(const ProjectState& s);

}  // namespace kestrum
