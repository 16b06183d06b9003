#pragma once

// Load pictures and diagrams of both axes on the page of the control.

#include "report/pages.h"

namespace kestrum {

// Below the row in hand, with `below` mm left for what has to follow; moves below. What the page
// cannot hold in a legible size is told as missing. False where more height would make the pictures
// better to read.
bool PrintDiagrams(PageWriter& page, const ProjectState& s, double below);

}  // namespace kestrum
