#pragma once

// The section as a picture: to scale with its figures, or a typical one of the family with the
// letters of its dimensions; and the small pictures of the choice of family.

#include "report/section_outline.h"

namespace kestrum {

constexpr double kSectionPicture = 100;  // width and height of both figures
constexpr double kIcon = 24;             // of a small picture

Drawing DrawSection(const ProjectState& s);

// With the text "Figure not to scale".
Drawing DrawSectionLetters(int family);

Drawing SectionIcon(int family);

}  // namespace kestrum
