#pragma once

// The result panel as plain text of fixed pitch, one line a row, the ratios of a block in one
// column; those above the limit say so in words.

#include "core/state/types.h"

#include <string>
#include <string_view>

namespace kestrum {

struct ProjectState;

// How a ratio is set off, by its status: with the codes of a terminal. Null: not at all.
using PanelPaint = std::string (*)(std::string_view ratio, i16 status);

// With a line end after each line. `page` as in DrawSectionBlock.
std::string PanelText(const ProjectState& s, bool page = false, PanelPaint paint = nullptr);

}  // namespace kestrum
