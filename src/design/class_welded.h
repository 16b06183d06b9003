#pragma once

// Section class of the plates of welded sections, EN 1993-1-1, 5.5.2 and Table 5.2. The record
// gives eps, d and tw; c and t in mm.

#include "design/welded_side.h"

namespace kestrum {

// Outstand and internal part in uniform compression, their limits not included: 9, 10, 14 eps and
// 33, 38, 42 eps.
i16 ClassOutstand(const SectionRecord& section, double c, double t);
i16 ClassInternal(const SectionRecord& section, double c, double t);

// The web in uniform compression, as an internal part.
i16 ClassWebCompressed(const SectionRecord& section);

// The web in bending with the compressed share alpha of the plastic state and the ratio psi of the
// elastic stresses at its ends; limits included.
i16 ClassWebBent(const SectionRecord& section, double alpha, double psi);

// The same from the geometry, for bending alone; 1 when nothing of the web is compressed.
i16 ClassWebBent(const SectionRecord& section, const WeldedSide& side);

// Both flanges and the web in uniform compression.
i16 ClassCompressed(const Inputs& in, const SectionRecord& section);

// All parts of one flange in uniform compression.
i16 ClassFlange(const SectionRecord& section, const Flange& flange);

}  // namespace kestrum
