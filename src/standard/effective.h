#pragma once

// Class of the section under the forces of one combination and the effective section of class 4,
// EN 1993-1-1, 5.5 and EN 1993-1-5, 4.4.

#include "standard/section.h"

#include <vector>

namespace kestrum::standard {

// What acts somewhere on the member in a combination.
struct ActingForces {
    double n;               // compression positive, N
    bool sagging, hogging;  // My of either sign
    bool mz;                // Mz; of channels in the unfavourable sense
};

// 5.5.2: one class of the combination, so that it never jumps where a moment passes zero.
// Deviations D34, D155 to D157, D165, D166, D168, D187, D188.
int ClassOf(const StandardSection& q, const ActingForces& forces, const Basis& basis);
// In uniform compression.
int ClassInCompression(const StandardSection& q, const Basis& basis);
// Of the flange that My compresses, without the webs.
int ClassOfPressedFlange(const StandardSection& q, bool sagging, const Basis& basis);
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

// All of class 4, once for a member.
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
