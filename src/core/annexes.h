#pragma once

// National annexes to EN 1993-1-1: codes, names, and the parameters each of them sets (partial
// factors 6.1 (1), shear area factor EN 1993-1-5, 5.1 (2), lateral torsional buckling curve 6.3.2.3
// (1)), load factors and the texts that name them (EN 1990, Table A1.2(B), B3.3). One row of
// core/annex_rows.inc for each.
//
// Deviation D24: the German annex takes gammaM1 1.0; DIN EN 1993-1-1/NA gives 1.1 for 6.1 (1).

#include "core/state/settings.h"

#include <array>
#include <cstdint>
#include <string_view>

namespace kestrum {

// Factors of a reliability, safety or consequences class.
struct ClassFactors {
    double g, q;
};

enum class AnnexBasis : std::uint8_t {
    own,              // sets its parameters
    factors_of_user,  // the same, and the user's load factors (loadcomb 4)
    user              // sets load factors only; the other parameters are the user's
};

// How the text of a combination is written.
struct CombinationWriting {
    enum class Class : std::uint8_t { none, on_variable, on_all } factor;  // where it stands
    std::string_view before, after;  // the class factor on the whole, Eq 6.10
    std::string_view variable;       // before the class factor of Q1, Eq 6.10a
    std::string_view star;           // before psi of Q2, Eq 6.10b
    std::string_view leading;        // before the factor of Q2, Eq 6.10b
    std::string_view psi;            // format of psi of Q2, Eq 6.10b
    bool xi;                         // written in Eq 6.10b
};

// All that an annex sets. The members have no defaults: a row that leaves one out does not compile.
struct Annex {
    std::string_view code, name;
    std::string_view classname;  // on which the load factors depend; empty where none is chosen
    double gammam0, gammam1;
    double neta, netahigh;  // up to and above 460 MPa
    double lamdalt0, beta, lamdalt0w, betaw;
    double g610g, g610q1, g610q2;
    double g610ag, g610aq1, g610aq2;
    double g610bg, xi610b;
    double stated610ag;  // factor of G in Eq 6.10a as the annex has it, D26
    double favourable;   // lower factor of G
    std::array<ClassFactors, 3> of_class;
    bool low_class_in_610;  // class 1 counts in Eq 6.10 too
    AnnexBasis basis;
    CombinationWriting writing;
};

#define ANNEX(id, ...) id,
enum : int {
#include "core/annex_rows.inc"
    kAnnexes,  // how many there are
};
#undef ANNEX

// The annex of the list; outside it the first.
const Annex& AnnexAt(int annexindex);

bool AnnexListed(int annexindex);

// Text of the annex list, such as "EC3 + NA/Norway"; empty outside the list.
std::string_view AnnexName(int annexindex);

// The list text without "EC3", " + NA/Norway", which the window title and the page head append.
std::string_view AnnexSuffix(int annexindex);

// "Safety Class" and the like, on which the load factors depend; empty where no class is chosen.
std::string_view AnnexClassName(int annexindex);

// "EU" is 0, "NO" 1 ..; an unknown code is 0.
i16 AnnexIndexFromCode(std::string_view code);

// The reverse; empty outside the list.
std::string_view AnnexCodeFromIndex(int annexindex);

// Sets gammam0, gammam1, neta, lamdalt0, beta, lamdalt0w, betaw; neta follows the fyk of this
// moment [MPa]. NORSOK also sets loadcomb to 4. Does nothing for the user-defined annex.
//
// Deviation D20: a strength typed after this step keeps its neta. EN 1993-1-5, 5.1 (2) has 1.2 up
// to S460 and 1.0 above.
void ApplyAnnexMaterial(Settings& settings, int annexindex);

}  // namespace kestrum
