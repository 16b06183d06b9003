#pragma once

// Section class of I sections and channels in compression and bending, EN 1993-1-1, 5.5.2 and
// Table 5.2. The case is told by n and m: tension, compression, bending, and both together.

#include "core/state/inputs.h"
#include "core/state/section_checks.h"
#include "core/state/section_record.h"

namespace kestrum {

// Class with n and bending about y. Sets classflange and classweb, returns the larger.
//   in   n [kN], positive in compression; m [kNm], its size
i16 CalcClassY(const Inputs& in, SectionRecord& section, const SectionChecks& checks, float n,
               float m);

// Class with n and bending about z; arguments as CalcClassY.
i16 CalcClassZ(const Inputs& in, SectionRecord& section, const SectionChecks& checks, float n,
               float m);

// The same with the outstand c, thickness t and width b of one flange, mm, for sections with two
// unlike flanges.
i16 CalcClassZ(const Inputs& in, SectionRecord& section, float n, float m, double c, double t,
               double b);

}  // namespace kestrum
