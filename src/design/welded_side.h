#pragma once

// Sections of plates seen from the side that a moment compresses: a positive moment compresses the
// top, a negative one the bottom. The top is the upper flange of families 22, 24, 25 and 27, the
// flange of the T (26) and the plate of the stiffened plates (51 to 56).

#include "core/state/inputs.h"
#include "core/state/section_record.h"

namespace kestrum {

struct WeldedSide {
    bool top;
    double edge, opposite;  // compressed and opposite edge from the centroid, mm
    double t;               // thickness of the compressed flange, mm
    double webin, webout;   // web ends from the centroid: towards the compressed edge, and away, mm
    double alpha;           // compressed share of the web in the plastic state
};

WeldedSide TopSide(const Inputs& in, const SectionRecord& section);
WeldedSide BottomSide(const Inputs& in, const SectionRecord& section);

// Webs of the section in hand: two in families 24, 25 and 27.
int Webs(const Inputs& in);

// A flange by the parts that buckle: between the webs and the two beyond them, mm. Parts that the
// flange has not are 0.
struct Flange {
    double t;
    double inner;
    double left, right;
};

Flange TopFlange(const Inputs& in, const SectionRecord& section);
Flange BottomFlange(const Inputs& in, const SectionRecord& section);

}  // namespace kestrum
