#pragma once

// National annexes to EN 1993-1-1: codes, names, and the parameters each of them sets (partial
// factors 6.1 (1), shear area factor EN 1993-1-5, 5.1 (2), lateral torsional buckling curve 6.3.2.3
// (1)). The load factors of the annexes to EN 1990 stand in core/load_combination.
//
// Deviation D24: the German annex takes gammaM1 1.0; DIN EN 1993-1-1/NA gives 1.1 for 6.1 (1).

#include "core/state/settings.h"

#include <string_view>

namespace kestrum {

// In the order of the list. A new annex comes in front of the last, whose parameters are the
// user's.
enum : int {
    kAnnexEu,
    kAnnexNo,
    kAnnexSw,
    kAnnexDk,
    kAnnexUk,
    kAnnexFi,
    kAnnexGe,
    kAnnexNk,
    kAnnexUd,
    kAnnexes,  // how many there are
};

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
