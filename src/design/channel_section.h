#pragma once

// Cross-section design of rolled channels (families 5, 16, 103). Resistances and control are those
// of the I sections (i_section.h); only the effective section differs.

#include "core/state/inputs.h"
#include "core/state/section_record.h"

namespace kestrum {

// Effective section of class 4, EN 1993-1-5, 4.4: aeff, weffy, weffz.
//
// Deviation D163: moments with axial force and biaxial bending take the formulas of doubly
// symmetric I sections, EN 1993-1-1, 6.2.9.1 (4) to (6), which do not cover channels: the standard
// leaves 6.2.1 (7), the sum of the ratios.
// Deviation D164: the centroid of the effective section of class 4 is taken where that of the gross
// section is; by EN 1993-1-1, 6.2.9.3 (2) its shift times the axial force is a moment about z.
void CalcEffectiveChannel(const Inputs& in, SectionRecord& section);

}  // namespace kestrum
