#pragma once

// What the user should know about the current result: a note for every deviation from the standard
// (docs/deviations.md) that makes it unconservative. Whether one acts is measured: the member is
// calculated by the standard, and again with the one rule of the program in place. A note changes
// no number.

#include <string>
#include <string_view>
#include <vector>

namespace kestrum {

struct Library;
struct ProjectState;
namespace standard {
struct StandardResult;
}

struct DesignNote {
    std::string_view id;    // number of the deviation, "D201"
    std::string_view text;  // one sentence
};

// Measures which deviations act in the record after a pass, and keeps them there.
void MeasureNotes(const Library& library, ProjectState& s);

// The same from a result of the standard whose costs are calculated already.
void KeepNotes(const standard::StandardResult& measured, ProjectState& s);

// The notes of the current result; none where nobody has measured and after a pass that failed.
std::vector<DesignNote> DesignNotes(const ProjectState& s);

// "D201 D233"
std::string NumbersOf(const std::vector<DesignNote>& notes);

// Those on vortex shedding alone, which need no measurement.
std::vector<DesignNote> VortexNotes(const ProjectState& s);

}  // namespace kestrum
