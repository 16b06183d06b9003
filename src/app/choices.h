#pragma once

// The inputs that are chosen from a list or an option instead of typed: which values each can have.

#include "core/library.h"
#include "core/project_state.h"

#include <string_view>

namespace kestrum {

struct Choice {
    std::string_view field;
    i16 lowest, highest;
    bool truth = false;  // kept as 0 and -1, written #TRUE# and #FALSE#
};

// The list of values of a field, or null when it is typed.
const Choice* FindChoice(std::string_view field);

// Whether the list offers this value; families, table rows and materials as far as the library has
// them.
bool Offers(const Library& library, const Choice& choice, int value);

}  // namespace kestrum
