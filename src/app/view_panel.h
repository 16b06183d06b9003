#pragma once

// The utilisation behind a line of the result panel, for the bar beside its ratio.

#include <optional>

namespace kestrum {

struct PanelLine;
struct ProjectState;

// The ratio of the line's row over its limit; nothing for heads and remarks.
std::optional<double> UtilisationOf(const ProjectState& s, const PanelLine& line);

}  // namespace kestrum
