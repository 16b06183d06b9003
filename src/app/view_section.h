#pragma once

// What a section form shows: which options the family has, which values of the section and its
// resistance, as text.

#include "app/section_commands.h"
#include "core/library.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace kestrum {

struct ShownValue {
    std::string_view id;  // name of the output in the form
    std::string_view label, unit;
    std::string value;  // point as decimal separator
};

std::vector<ShownValue> SectionDimensions(const ProjectState& s);  // of tables; else entered
std::vector<ShownValue> SectionProperties(const ProjectState& s);
std::vector<ShownValue> SectionCapacities(const ProjectState& s);
std::string SectionClassText(const ProjectState& s);  // osectionclass, "1/1/1" of N, My, Mz

// Choices beside the dimensions.
bool HasOption(int family, SectionOption option);

// "Note: Local buckling not taken into account (Section Class 4)" of tubes; else empty.
std::string_view SectionWarning(const ProjectState& s);

// Outer corner radius of hollow sections, which the tables do not give; one line per range of
// thickness.
std::span<const std::string_view> CornerNotes(int family);

// Title of the form, such as "HEA" or "Plate + T-girder".
std::string_view SectionTitle(int family);

// Name of the chosen section, "HEA 200" or "I 400x200"; for the main window and its title line.
std::string SectionName(const Library& library, const ProjectState& s);

// Numeric boxes of the family's form, in their order.
std::vector<const Box*> SectionBoxes(int family);

}  // namespace kestrum
