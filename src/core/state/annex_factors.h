#pragma once

// Load factors of the annex in force, EN 1990.

#include "core/state/types.h"

namespace kestrum {

struct AnnexFactors {
    bool operator==(const AnnexFactors&) const = default;

    float g610g, g610q1, g610q2;
    float g610ag, g610aq1, g610aq2;
    float g610bg;
    float xi610b;  // reduction of G in Eq 6.10b
    double kfig;   // class factor on G
    float kfiq;    // class factor on Q
};

}  // namespace kestrum
