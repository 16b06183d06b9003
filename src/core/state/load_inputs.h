#pragma once

// Loads along the member and given end forces, characteristic values.

#include "core/state/types.h"

namespace kestrum {

struct LoadInputs {
    bool operator==(const LoadInputs&) const = default;

    i16 loadmode;    // 1 loads along the member, 0 given end forces
    i16 selfweight;  // 1 included
    // Categories: 0 G, 1 Q1, 2 Q2. Directions: 1 z (My, Vz, dz), 0 y (Mz, Vy, dy).
    Rows<float, 3> nload, ntype;
    Rows<i16, 3> nchecked;
    Rows<float, 4> qload;  // row 0 is the self-weight, filled by the analysis
    Rows<i16, 4> qtype, qdir, qchecked;
    Rows<float, 3> qt1, qt2, qtx1, qtx2, qttype, qtdir;
    Rows<i16, 3> qtchecked;
    Rows<i16, 8> pmkind;  // 0 force, 1 moment
    Rows<float, 8> pm, pmx;
    Rows<i16, 8> pmtype, pmdir, pmchecked;
    float ne;  // end forces
    float my1, my2, vy1, vy2, mz1, mz2, vz1, vz2;
    i16 pmrelative, qtrelative;  // 1: positions are edited as x/L
};

}  // namespace kestrum
