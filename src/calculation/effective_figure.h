#pragma once

// The effective section of class 4 as a picture: the parts that count, those that are lost, and how
// far the centroid moves.

#include "calculation/chapters.h"

namespace kestrum {

// In compression, and under each sign of My that acts; nothing where the standard basis does not
// take the section.
void AddEffectiveFigures(const CalculatedMember& m, Document& d);

}  // namespace kestrum
