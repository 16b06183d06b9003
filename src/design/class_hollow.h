#pragma once

// Section class of rectangular hollow sections and boxes in compression and bending, EN 1993-1-1,
// 5.5.2 and Table 5.2, internal parts. The case is told by n and m: tension, compression, bending,
// and both together.

#include "core/state/inputs.h"
#include "core/state/section_checks.h"
#include "core/state/section_record.h"

namespace kestrum {

// Class with n and bending about y, in which the webs are bent and a flange is compressed. Sets
// classflange and classweb, returns the larger.
//   in   n [kN], positive in compression; m [kNm], its size
i16 CalcClassHollowY(const Inputs& in, SectionRecord& section, const SectionChecks& checks, float n,
                     float m);

// Class with n and bending about z: the flanges are bent, a web is compressed.
i16 CalcClassHollowZ(const Inputs& in, SectionRecord& section, const SectionChecks& checks, float n,
                     float m);

}  // namespace kestrum
