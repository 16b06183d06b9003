#pragma once

// The member: length, supports, buckling, lateral restraint, check points, wind.

#include "core/state/types.h"

namespace kestrum {

struct MemberInputs {
    bool operator==(const MemberInputs&) const = default;

    // Supports and buckling lengths
    float l;          // member length, m
    i16 supportcase;  // 0 pinned-pinned, 1 pinned-fixed, 2 fixed-fixed, 3 springs, 4 cantilever, 5
                      // pinned-spring
    i16 spring;       // end restraint, percent
    i16 endstiff;     // 1 rigid end post
    i16 webstiff;     // 1 transverse web stiffeners at webstiffa
    float webstiffa;  // stiffener spacing, mm
    i16 bcy, bcz;     // buckling curve: 0 automatic, 1 a0, 2 a, 3 b, 4 c, 5 d
    i16 bucklingcasey, bucklingcasez;  // 1..4 picture, 5 and up own factor
    float ly, lz;   // buckling length factors; below 0.002 no buckling about the axis
    float density;  // kg/m3
    i16 modal;      // 1 modal analysis runs

    // Lateral torsional buckling
    i16 ltb;         // 1 controlled
    i16 ltbavail;    // bool: the family can have it
    i16 ltbcase;     // 1..4
    float ltbk;      // length factor k (kz = kw)
    i16 restraints;  // number of lateral restraints of the compression flange
    i16 cmanual;     // bool: C factors c1..c3 are used
    i16 c1alt;       // bool: alternative calculation of C1
    i16 ltbcurve;    // 2 general case 6.3.2.2, 3 rolled or welded 6.3.2.3
    double c1, c2, c3;
    i16 loadlevel;  // 1 top flange, 2 centroid, 3 bottom flange, 4 za
    double za;      // load above the centroid, mm

    // Check points
    i16 cpmode;  // 0 eleven even points and pairs at point loads, 1 cp[1..cpcount]
    i16 cpcount;
    Rows<float, 3> cp;  // m
    i16 cprelative;

    // Vortex shedding
    i16 terrain;     // 0..4: categories 0, I, II, III, IV
    i16 vortexcase;  // 0..4
    i16 spare1;      // kept for the file's sake
    float vb;        // m/s
    float zh;        // m
    float spare2;    // kept for the file's sake
};

}  // namespace kestrum
