#pragma once

// The utilisation behind each line of the result panel, for the bars beside the ratios.

#include <optional>
#include <vector>

namespace kestrum {

struct ProjectState;

// One entry a line of ShowResults, in its order: the ratio over its limit; nothing for heads and
// remarks.
std::vector<std::optional<double>> PanelUtilisation(const ProjectState& s);

// The largest of them; nothing when no row is judged.
std::optional<double> LargestUtilisation(const ProjectState& s);

}  // namespace kestrum
