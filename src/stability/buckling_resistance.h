#pragma once

// Members in compression, EN 1993-1-1, 6.3.1: elastic critical forces, slenderness, reduction
// factors and buckling resistances about y and z, for angles also about v and u, and the elastic
// critical forces of torsional and torsional-flexural buckling.

#include "core/state/carry.h"
#include "core/state/inputs.h"
#include "core/state/resistances.h"
#include "core/state/section_record.h"
#include "core/state/stability.h"

namespace kestrum {

// chi of Eq (6.49): 1 up to a slenderness of 0.2, never above 1.
double ReductionFactor(double lam, double alpha);

// ncrtf of sections whose shear centre is the centroid.
constexpr double kNeverGoverns = 1e25f;

// Critical forces of torsional and of torsional-flexural buckling, kN, for a torsional length in m.
// Without a length ncrt is undefined (0) where warping takes part.
struct TorsionalForces {
    double ncrt, ncrtf;
};
TorsionalForces TorsionalForcesAt(const Inputs& in, const SectionRecord& section,
                                  const Stability& stability, double length);

// For the torsional length of the member itself, whatever length the record holds: between its
// lateral restraints where lateral torsional buckling is controlled, else the whole member
// (EN 1993-1-1, 6.3.1.4).
TorsionalForces OwnTorsionalForces(const Inputs& in, const SectionRecord& section,
                                   const Stability& stability);

void BucklingResistance(const Inputs& in, const SectionRecord& section,
                        const Resistances& resistances, const Carry& carry, Stability& stability);

}  // namespace kestrum
