#pragma once

// The checks by EN 1993-1-1 as written with their terms, as the pass of the standard found them.

#include "core/library.h"
#include "document/document.h"
#include "standard/standard.h"

#include <string>

namespace kestrum {

struct ProjectState;

// "0.0409": the size of what a departure changes in a ratio.
std::string CostText(double size);

// What leads to the ratio of the check, and the ratio with the departures of the program that
// change it. `input`: as read.
void AddStandardCheck(const Library& library, const ProjectState& input,
                      const standard::StandardResult& result, standard::CheckId id, Document& d);

}  // namespace kestrum
