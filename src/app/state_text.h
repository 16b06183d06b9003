#pragma once

// All fields of the record as text, a line each, and back without loss. Unlike a project file it
// holds what no family or mode of loading in hand needs; it is read by the program that wrote it.

#include <string>
#include <string_view>

namespace kestrum {

struct ProjectState;

// "l 5", "qload[2] 12.5", "projname Hall%0A2": numbers as the shortest text that reads back to
// them, control characters and % of texts by their number. Literals, which a pass sets, are left
// out.
std::string StateText(const ProjectState& s);

// Stores what it knows the field of; the first line that it cannot read, or an empty text.
std::string ReadStateText(ProjectState& s, std::string_view text);

}  // namespace kestrum
