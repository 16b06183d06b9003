#pragma once

// Section class of a plate part from its slenderness and the limits of classes 1 to 3,
// EN 1993-1-1, Table 5.2. Whether a limit itself still belongs to its class differs from case to
// case, so that there are two forms.

#include "core/state/types.h"

namespace kestrum {

// The limit itself belongs to the worse class.
inline i16 ClassBelow(double ratio, double limit1, double limit2, double limit3)
{
    if (ratio < limit1) {
        return 1;
    }
    if (ratio < limit2) {
        return 2;
    }
    return ratio < limit3 ? i16{3} : i16{4};
}

// The limit itself belongs to the better class.
inline i16 ClassAtMost(double ratio, double limit1, double limit2, double limit3)
{
    if (ratio <= limit1) {
        return 1;
    }
    if (ratio <= limit2) {
        return 2;
    }
    return ratio <= limit3 ? i16{3} : i16{4};
}

}  // namespace kestrum
