#pragma once

// Load pictures and diagrams of both axes on the page of the control.

#include "report/pages.h"

#include <cstdint>

namespace kestrum {

enum class Figures : std::uint8_t { none, loads, diagrams, all };

// How the texts of the figures come out: of 7 points or more; of 6; smaller, which is not printed.
enum class Legibility : std::uint8_t { good, small, none };

// Below the current row, with `below` mm left for what has to follow; moves below. Prints nothing
// where the figures would not be legible.
Legibility PrintFigures(PageWriter& page, const ProjectState& s, Figures figures, double below);

}  // namespace kestrum
