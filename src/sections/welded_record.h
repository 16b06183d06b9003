#pragma once

// What the property routines of sections of plates share: the record's values that follow from the
// list of plates and the dimensions already set.

#include "core/state/inputs.h"
#include "core/state/section_record.h"
#include "sections/plate_summation.h"

#include <span>

namespace kestrum {

// hw and, from tw, the assumed weld leg r = 0.5 tw, at least 4 mm, with d = hw - 2 r.
void SetWeldedWeb(SectionRecord& section, double hw);

// Sections counted from the lower edge (22, 24, 25, 27). Reads btop .. tbot, tw, hw; sets b and tf
// as means of the flanges, areas, moments, moduli about y, welz, the stepped plastic axis, tmax and
// weight.
//
// Deviation D186: the plastic axis is found in steps of 0.1 mm; the standard has the exact axis.
void StoreFromBelow(const Inputs& in, SectionRecord& section, std::span<const Plate> plates);

// Sections counted from the face of flange or plate, which is their top (26, 51 to 56): the same
// with b and tf of that plate and the exact plastic axis.
void StoreFromFace(const Inputs& in, SectionRecord& section, std::span<const Plate> plates);

}  // namespace kestrum
