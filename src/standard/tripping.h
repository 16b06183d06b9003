#pragma once

// Lateral torsional buckling of plates with a stiffener: the stiffener trips about its root. The
// standard asks for the critical moment of a section that the strip beside the stiffener holds, for
// which there is no input; the program's tripping stress is taken (D196).

#include "standard/lateral.h"

namespace kestrum::standard {

// For MEd,max of either sign. Deviation D201.
LateralResult TrippingOf(const LateralCase& m);

}  // namespace kestrum::standard
