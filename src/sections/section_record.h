#pragma once

// What the property routines of all families share: they start from an empty record, so that no
// value of another family is left in a field that theirs does not have, and end with the values
// that follow from the ones already set.

#include "core/state/inputs.h"
#include "core/state/section_record.h"

namespace kestrum {

// Zeroes geometry and properties of the section record.
void ClearSection(SectionRecord& section);

// tmax, the larger of tf and tw, which selects the yield strength.
void SetThickness(SectionRecord& section);

// Areas of the flanges, 2 b tf, and of the web, hw tw, mm2.
void SetPartAreas(SectionRecord& section);

// Mass per metre from density and area, kg/m.
void SetWeight(const Inputs& in, SectionRecord& section);

// Elastic moduli of a section symmetric about both axes: iy/(h/2), iz/(b/2).
void SetSymmetricModuli(SectionRecord& section);

}  // namespace kestrum
