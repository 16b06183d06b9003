#pragma once

// The loads as they are entered, also those that the program takes off the member: the checks of
// the standard count what a family of sections is said not to take.

#include "calculation/chapters.h"

namespace kestrum {

// A table for each direction, or the end forces, and what the results leave out of them.
void AddGivenLoads(const CalculatedMember& m, Document& d);

}  // namespace kestrum
