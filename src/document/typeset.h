#pragma once

// Names of quantities and units in running text, as they stand in the formulas: "My" with its
// index lowered, "eta" as its letter, "m/s2" with its digit raised. A text that is also shown
// where no letter can be lowered, in a tooltip or in the answer of a command, is so written once.

#include "document/document.h"

namespace kestrum {

Line Typeset(const Line& line);

}  // namespace kestrum
