#pragma once

// Values that a pass takes over from an earlier one and that the input in force does not give. They
// stand beside results of this pass; a window marks them as older than the input. A project that
// has just been opened has none but a deflection block of no calculation.

#include <string_view>
#include <vector>

namespace kestrum {

struct ProjectState;

struct KeptValue {
    std::string_view field;  // of the record, "ncrtf"
    std::string_view text;   // one sentence
};

// Those that are in use in the current result; none after a pass that failed, whose results are
// older as a whole.
std::vector<KeptValue> KeptValues(const ProjectState& s);

}  // namespace kestrum
