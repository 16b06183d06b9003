#pragma once

// The chosen section: family, rows of the profile tables, boxes of the section forms, mm.

#include "core/state/types.h"

#include <array>
#include <string>

namespace kestrum {

// Input blocks of the parametric section forms; the names are those of the forms' boxes, mm.
struct FormP21 {
    float isth, istb1, isttw, isttf;
    bool operator==(const FormP21&) const = default;
};
struct FormP22 {
    float isth, istb1, istb2, isttw, isttf1, isttf2;  // 1 top flange, 2 bottom flange
    bool operator==(const FormP22&) const = default;
};
struct FormP23 {
    float isth, istb1, isttw, isttf, ista;  // ista: overhang of a flange beyond the web
    bool operator==(const FormP23&) const = default;
};
struct FormP24 {
    float isth, istb1, istb2, isttw, isttf1, isttf2, hsqc;  // isth without the bottom flange
    bool operator==(const FormP24&) const = default;
};
struct FormP25 {
    float isth, istb1, istb2, isttw, isttf1, isttf2, istc;  // istc: overhang at the closed side
    bool operator==(const FormP25&) const = default;
};
struct FormP26 {
    double isth, istb1, isttw;
    float isttf1;
    bool operator==(const FormP26&) const = default;
};
struct FormP27 {
    double isth, istb1, istb2, isttw, isttf1, isttf2;
    float istc;  // top flange beyond the web
    bool operator==(const FormP27&) const = default;
};
struct FormP28 {
    float isth, isttw;
    bool operator==(const FormP28&) const = default;
};
struct FormP31 {
    float istd, isttw;  // outer diameter, wall
    bool operator==(const FormP31&) const = default;
};
struct FormP41 {
    i16 opn, opmy, opmz;        // section class of N, My, Mz as chosen: 1 or 3
    float istax, istay, istaz;  // A, area for shear in y (flanges), area for shear in z (web), mm2
    float istix, istiy, istiz;  // torsion constant, second moments, mm4
    float istiw;                // mm6
    float istwely, istwelz, istwply, istwplz;  // mm3
    bool operator==(const FormP41&) const = default;
};
struct FormP51 {
    double isth, istb1, isttw;  // stiffener height, plate width, stiffener thickness
    float isttf1;               // plate thickness
    bool operator==(const FormP51&) const = default;
};
struct FormPlateRolled {  // 52 and 54: stiffener from a table
    double istb1;         // plate width
    float istt1;          // plate thickness
    bool operator==(const FormPlateRolled&) const = default;
};
struct FormP53 {
    double isth, istb1, istb2, isttw, isttf1;  // 1 plate, 2 stiffener flange
    float isttf2;
    bool operator==(const FormP53&) const = default;
};
struct FormP55 {  // kept for the file's sake; the family has no section
    double value1, value2, value3;
    float value4;
    double value5, value6;
    bool operator==(const FormP55&) const = default;
};
struct FormP56 {
    double isth, istb1, istb2, isttw, isttf1;
    float isttf2;
    bool operator==(const FormP56&) const = default;
};

struct SectionForms {
    bool operator==(const SectionForms&) const = default;

    i16 family;
    std::array<i16, kTables> row;  // row index per table
    i16 series101;                 // 1 UB, 2 UC, 3 UBP
    i16 series103;                 // 1 CH, 2 PFC
    i16 rectaxis;      // 1 strong axis is y; otherwise the axes of 7 and 9 are exchanged
    i16 hsqopt;        // 0 flange loading considered, 1 not
    i16 lopt;          // angles: 1 one bolt, 2 two bolts
    i16 weldopt;       // box: 1 thick welds
    i16 tubehot;       // 1 hot finished
    i16 class23;       // 0 upgrade of class 3 webs, 6.2.2.4; 1 none
    float flangeload;  // percent of the load on one flange, family 24
    FormP21 p21;
    FormP22 p22;
    FormP23 p23;
    FormP24 p24;
    FormP25 p25;
    FormP26 p26;
    FormP27 p27;
    FormP28 p28;
    FormP31 p31;
    std::string p41ident;
    FormP41 p41;
    FormP51 p51;
    FormPlateRolled p52;
    FormP53 p53;
    FormPlateRolled p54;
    FormP55 p55;
    FormP56 p56;
};

}  // namespace kestrum
