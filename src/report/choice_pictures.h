#pragma once

// The pictures of the buttons by which supports and buckling lengths are chosen.

#include "report/drawing.h"

#include <string>

namespace kestrum {

Drawing SupportPicture(int supportcase);          // 0..5
Drawing BucklingPicture(int choice);              // 1..5, an upright column
Drawing LateralBucklingPicture(int choice);       // 1..4, a beam seen from above
Drawing LateralRestraintPicture(int restraints);  // of the compression flange, evenly spaced
Drawing VortexSupportPicture(int vortexcase);     // 0..4

// Positive end forces on the member: a sagging moment at each end, the shear forces of its inside
// (up on end 1, down on end 2), compression.
Drawing EndForcePicture(const std::string& moment, const std::string& shear);

// Buckled shape of a column of unit length at x from its foot, the largest ordinate being 1.
double BuckledShape(int choice, double x);

}  // namespace kestrum
