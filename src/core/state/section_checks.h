#pragma once

// What was checked: the section in work, the list of all checks with the ratios of its rows.

#include "core/check.h"
#include "core/state/types.h"

namespace kestrum {

struct SectionChecks {
    bool operator==(const SectionChecks&) const = default;

    double myed, mzed, vyed, vzed;  // at the section in work, sizes (angles: moments signed)
    double mysigned;                // My of the section in work with its sign
    i16 classmyuse;
    double myrdv, mzrdv, mnyrd, mnzrd;
    double alfaexp, betaexp;
    double nrdint;
    Literal shearnote;
    CheckList checklist;
    double irrow1, irrow2, irrow3;
    double irrow4, irrow5,
        irrow6;  // y sum, z sum and lateral torsional buckling of the stability stage
    double irsection;
};

}  // namespace kestrum
