#pragma once

// Lateral torsional buckling, EN 1993-1-1, 6.3.2: elastic critical moment, reduction factor, and
// the moment and resistance they belong to. A loaded member without lateral restraints is one piece
// with C factors by support case; any other is cut into segments at its restraints, and the segment
// with the highest ratio supplies all values.

#include "core/state/carry.h"
#include "core/state/forces.h"
#include "core/state/inputs.h"
#include "core/state/resistances.h"
#include "core/state/section_record.h"
#include "core/state/stability.h"

namespace kestrum {

struct LtReduction {
    float lamlt;
    double xlt0, xlt;  // before and after the division by f
    float ffactor;
};

// Imperfection factor of Table 6.4 or 6.5, by the curve in use. `top`: the top flange is
// compressed.
double LtImperfection(const Inputs& in, const SectionRecord& section, bool top);

// 6.3.2.2 and 6.3.2.3 for the critical moment mcr, Nmm. `top`: the top flange is compressed.
LtReduction LtCurveGeneral(const Inputs& in, const SectionRecord& section,
                           const Resistances& resistances, double mcr, bool top);
LtReduction LtCurveRolled(const Inputs& in, const SectionRecord& section,
                          const Resistances& resistances, const Stability& stability, double mcr,
                          float kc, bool top);

void LateralTorsionalBuckling(const Inputs& in, const SectionRecord& section,
                              const Resistances& resistances, const Forces& forces,
                              Stability& stability, Carry& carry);

// mcr0 and lam0 of EN 1993-1-1, Annex A: the member under uniform moment.
void LtUniformMcr(const Inputs& in, const SectionRecord& section, const Resistances& resistances,
                  const Forces& forces, Stability& stability, Carry& carry);

}  // namespace kestrum
