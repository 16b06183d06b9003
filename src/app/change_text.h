#pragma once

// What a step has changed, in words for the menu: "length of the member: 5 to 6 m", "section
// IPE 300".

#include "core/field_table.h"
#include "core/library.h"

#include <string>
#include <vector>

namespace kestrum {

struct ProjectState;

// Whether the user has changed an input.
bool InputsDiffer(const ProjectState& before, const ProjectState& after);

// The inputs and settings that differ, in the order of the record.
std::vector<FieldRef> ChangedInputs(const ProjectState& before, const ProjectState& after);

// The one text that alone has changed, such as the project's name, which is typed letter by letter;
// empty when there is more or nothing of the kind.
std::string_view TypedText(const ProjectState& before, const ProjectState& after);

// Names the choice when there is one, else the first number that has changed.
std::string ChangeText(const Library& library, const ProjectState& before,
                       const ProjectState& after);

}  // namespace kestrum
