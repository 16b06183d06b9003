#pragma once

// Lateral torsional buckling, EN 1993-1-1, 6.3.2: elastic critical moment, reduction factor, and
// the moment and resistance they belong to. A loaded member without lateral restraints is one piece
// with C factors by support case; any other is cut into segments at its restraints, and the segment
// with the highest ratio supplies all values.

#include "core/project_state.h"

namespace kestrum {

struct LtReduction {
    float lamlt;
    double xlt0, xlt;  // before and after the division by f
    float ffactor;
};

// 6.3.2.2 and 6.3.2.3 for the critical moment mcr, Nmm. `top`: the top flange is compressed.
LtReduction LtCurveGeneral(const ProjectState& s, double mcr, bool top);
LtReduction LtCurveRolled(const ProjectState& s, double mcr, float kc, bool top);

void LateralTorsionalBuckling(ProjectState& s);

// mcr0 and lam0 of EN 1993-1-1, Annex A: the member under uniform moment.
void LtUniformMcr(ProjectState& s);

}  // namespace kestrum
