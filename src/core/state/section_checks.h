#pragma once

// Section control: the section in work and the three rows.

#include "core/result_row.h"
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
    Rows<ResultRow, 3> secline;
    double irrow1, irrow2, irrow3;
    double irrow4, irrow5,
        irrow6;  // y sum, z sum and lateral torsional buckling of the stability stage
    double irsection;
};

}  // namespace kestrum
