#pragma once

// The effective section of class 4, EN 1993-1-5, 4.4.

#include "standard/section_class.h"

#include <vector>

namespace kestrum::standard {

// Class of the flanges about Mf,Rd is not asked for: their effective area is, EN 1993-1-5, 5.4 (2).
Flange EffectiveFlange(const StandardSection& q, bool top);

// Effective section for one force alone.
struct EffectiveSection {
    double a;
    double yc, zc;  // shift of the centroid
    double iy, iz;  // about its own centroid
};
// `lost`, where it is asked for, takes the parts that do not count.
EffectiveSection EffectiveInCompression(const StandardSection& q,
                                        std::vector<LostPart>* lost = nullptr);
EffectiveSection EffectiveAboutY(const StandardSection& q, bool sagging, const Basis& basis,
                                 std::vector<LostPart>* lost = nullptr);
EffectiveSection EffectiveAboutZ(const StandardSection& q, bool right_compressed);

// All of class 4, once for a member. Moduli are of the edges of the gross section, also where the
// plate that reaches the edge loses its tip, as the stem of a T does under hogging: EN
// 1993-1-5, 4.3 leaves it open, and the strain of the strip that buckles is so limited too (safe
// side). Angles are measured to the ends of their effective legs.
struct EffectiveValues {
    double a, eny, enz;  // Aeff and the shifts of its centroid along z (My) and y (Mz), sizes
    double wy_sagging, wy_hogging;  // edge furthest from the axis, 6.2.5 (2)
    double wy_compressed_sagging, wy_compressed_hogging;
    double wy3_sagging, wy3_hogging;  // class 3: elastic, or plastic with upgraded webs
    double wz;
};
// Deviations D160, D162, D183, D200.
EffectiveValues EffectiveValuesOf(const StandardSection& q, const Basis& basis);

}  // namespace kestrum::standard
