#pragma once

// Class of the section under the forces of one combination, EN 1993-1-1, 5.5.

#include "standard/section.h"

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

}  // namespace kestrum::standard
