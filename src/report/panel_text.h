#pragma once

// The result panel as plain text of fixed pitch, one line a row, the ratios of a block in one
// column.

#include "core/project_state.h"

#include <string>

namespace kestrum {

// With a line end after each line. `page` as in DrawSectionBlock.
std::string PanelText(const ProjectState& s, bool page = false);

}  // namespace kestrum
