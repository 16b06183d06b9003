#pragma once

// Text and JSON of the result by the standard as written.

#include "report/outcome.h"
#include "standard/standard.h"

#include <string>

namespace kestrum::cli {

// One line for each basis, the largest ratio and what governs, and the deviations that act with
// what each alone costs, largest first; `program` as it was shown.
std::string StandardText(const standard::StandardResult& result, const Outcome& program);
std::string StandardJson(const standard::StandardResult& result);

// Beside the answer of `vortex`.
std::string VortexStandardText(const standard::VortexShedding& v);
std::string VortexStandardJson(const standard::VortexShedding& v);

// 0 within, 1 above, 2 not covered.
int StandardExit(const standard::StandardResult& result);

}  // namespace kestrum::cli
