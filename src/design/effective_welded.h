#pragma once

// Effective section of welded sections in class 4, EN 1993-1-5, 4.4: what the flanges lose in
// uniform compression, and the moduli with one side compressed, from an iteration of one step for
// the neutral axis. checkflangebuck and checkwebbuck switch the reductions off.

#include "design/welded_side.h"

namespace kestrum {

// Area that buckling takes from a flange in uniform compression, mm2.
double FlangeLoss(const Inputs& in, const SectionRecord& section, const Flange& flange);

// Area that buckling takes from all webs in uniform compression, as internal parts, mm2.
double WebLoss(const Inputs& in, const SectionRecord& section);

// How the families differ in the one scheme.
struct EffectiveScheme {
    double leg;        // taken off between flange and compressed web: the weld leg or nothing, mm
    bool webbuckles;   // false: the web beside the compressed flange is not reduced
    bool netcentroid;  // the centroid divides by the area less all losses; else less the flange's
};

// Weff about the compressed and the opposite edge, mm3.
struct EffectiveModuli {
    double compressed, opposite;
};

EffectiveModuli EffectiveBending(const Inputs& in, const SectionRecord& section,
                                 const WeldedSide& side, const Flange& flange,
                                 const EffectiveScheme& scheme);

// The same for a web without flange whose tip is compressed, EN 1993-1-5, Table 4.2.
EffectiveModuli EffectiveTip(const Inputs& in, const SectionRecord& section,
                             const WeldedSide& side);

// Stores both sides' moduli and the smallest of them, weffy.
void StoreEffective(SectionRecord& section, const EffectiveModuli& top,
                    const EffectiveModuli& bottom);

// aeff and both sides of the sections with two webs (24, 25, 27).
void CalcEffectiveTwoWebs(const Inputs& in, SectionRecord& section);

}  // namespace kestrum
