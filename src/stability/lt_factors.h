#pragma once

// Factors of the elastic critical moment: C1, C2, C3 of a loaded member by support case and shape
// of the moment diagram, the closed form of C1 for any diagram, and C1, C3 of a segment between
// lateral restraints by the ratio of its end moments. k is the effective length factor of lateral
// bending and warping.

#include "core/state/forces.h"
#include "core/state/inputs.h"

namespace kestrum {

struct CFactors {
    double c1, c2, c3;
};

// The factors in use: table, manual values, or table with the closed form of C1.
CFactors LtCFactors(const Inputs& in, const Forces& forces);

double LtAlternativeC1(const Inputs& in, const Forces& forces);

// r: smaller end moment over the larger, -1 .. 1.
double SegmentC1(double r, double k);
double SegmentC3(double r, double k, double psif);

}  // namespace kestrum
