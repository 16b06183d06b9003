#pragma once

// What a pass leaves for the next one: the only values of an earlier pass that a pass reads (the
// first five), and those that stay as they are when a pass does not find them anew. A project that
// is opened starts with none of them but the segment of its file.

#include "core/dropped_loads.h"
#include "core/literal.h"
#include "core/state/types.h"

namespace kestrum {

struct Carry {
    bool operator==(const Carry&) const = default;

    float lt;       // lateral torsional buckling length, m: of the torsional critical force, D228
    double alphay;  // imperfection factors: a family without a row of Table 6.2 has none, D205
    float alphaz;
    double kzz;  // unequal flanges have none in class 1 and 2, D224
    Literal curvey, curvez;

    i16 beampart;          // governing segment, 1..restraints + 1
    i16 governing;         // of selector 3: 1 Eq 6.10a, 2 Eq 6.10b
    DroppedLoads dropped;  // loads that were emptied
};

}  // namespace kestrum
