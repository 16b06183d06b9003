#pragma once

// Interaction factors of members in bending and compression, EN 1993-1-1, 6.3.3 and Annex A.

#include "core/state/carry.h"
#include "core/state/forces.h"
#include "core/state/inputs.h"
#include "core/state/pass_outcome.h"
#include "core/state/resistances.h"
#include "core/state/section_record.h"
#include "core/state/stability.h"

namespace kestrum {

// What Table A.2 asks about a moment diagram.
struct MomentShape {
    double first, last;  // end moments, kNm
    bool curved, linear;
    double psi;
    double deflection, moment;  // largest sizes, mm and kNm
};
MomentShape ShapeY(const Forces& forces);
MomentShape ShapeZ(const Forces& forces);

// Cm,0 of Table A.2 for loads on the member and for end moments; n = NEd/Ncr.
double CmLoads(const Inputs& in, const MomentShape& shape, double inertia, double n);
double CmEndMoments(double psi, double n);

// mu/(1 - n) of the axis itself, mu = (1 - n)/(1 - chi n): finite at n = 1.
double MuOverRest(double chi, double n);
// 1 - n as a divisor: a force that equals a critical force leaves a huge factor, not a fault.
double Rest(double n);

// cmy0, cmz0.
void CmAnnexALoads(const Inputs& in, const SectionRecord& section, const Forces& forces,
                   Stability& stability);
void CmAnnexAForces(const Forces& forces, Stability& stability);

// cmy .. kzz; a force above a critical one sets errorflag and leaves.
void KFactorsAnnexA(const Inputs& in, const SectionRecord& section, const Resistances& resistances,
                    const Forces& forces, Stability& stability, Carry& carry, PassOutcome& outcome);

}  // namespace kestrum
