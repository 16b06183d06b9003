#pragma once

// What the checks read from the moment, shear and deflection lines: extremes, quarter points, zero
// crossings, end moment ratios and the shape of the moment line (EN 1993-1-1, Tables A.2 and B.3
// distinguish such shapes; EN 1993-1-1, 6.3.3).

#include "core/state/forces.h"
#include "core/state/inputs.h"

namespace kestrum {

constexpr int kLastPoint = kDiagramPoints - 1;  // of a diagram

// All of them, for a member with loads. From the diagrams, the check sections and supportcase.
//
// Deviation D107: a moment line counts as curved (mycurved, mzcurved) by its right half alone and
// as straight (mylinear, mzlinear) by its middle; EN 1993-1-1, Tables A.2 and B.3 and the factors
// C1 look at the whole line.
void FindExtremes(const Inputs& in, Forces& forces);

// mydesign: the extreme of My that is larger in size, with its sign (a tie gives the lowest).
// mzdesign: the size of the larger extreme of Mz.
void SetDesignMoments(Forces& forces);

// The parts of FindExtremes that need the diagrams of the moments only.
void SetQuarterPoints(Forces& forces);
void SetZeroCrossings(const Inputs& in, Forces& forces);
void SetEndRatios(Forces& forces);
void SetLargestMoments(Forces& forces);

// Whether half of a moment line (to the left or to the right of its peak in the middle) is curved:
// the moment half-way lies off the chord by a fifth of its rise or more.
enum class Half { left, right };
bool CurvedHalf(const std::array<float, kDiagramPoints>& m, Half half);

}  // namespace kestrum
