#pragma once

// The first three natural frequencies of bending about y, by the closed formulas for a beam of even
// mass: f = c sqrt(E I/(m L4)).

#include "core/state/inputs.h"
#include "core/state/section_record.h"
#include "core/state/service.h"

#include <string>

namespace kestrum {

// modalmass [kg/m] and freq[1..3] [Hz] from weight, qload[1..4], iy, e, l and supportcase. Supports
// with springs have no formula: with springs at both ends the mass alone is set, with one spring
// nothing.
//
// Deviation D251: every uniform load counts as mass with its plain value, whatever its category,
// direction or sign, and no other load does; EN 1990, A1.4.4 asks for the masses of the combination
// in question.
// Deviation D252: 1 kN/m counts as 102 kg/m; g = 9.81 m/s2 gives 101.94.
// Deviation D253: c is rounded to two or three digits; beam theory gives lambda2/(2 pi), 0.3 % from
// ours at most.
void CalcModal(const Inputs& in, const SectionRecord& section, Service& service);

// The texts shown; empty as long as the value has not been calculated. mode is 1..3.
std::string MassText(const Service& service);
std::string ModeText(const Service& service, int mode);

}  // namespace kestrum
