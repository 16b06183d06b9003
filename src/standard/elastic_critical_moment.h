#pragma once

// The elastic critical moment of EN 1993-1-1, 6.3.2.2 (2): solved numerically under the real moment
// line, by a closed formula with the user's C factors, or as the program has it.

#include "core/basis.h"
#include "standard/lateral.h"

namespace kestrum::standard {

// The program's formula for the elastic critical moment that takes the place of the numerical one.
Dev FormulaOf(const ProjectState& s);

// Mcr of the moment line whose largest moment is `most`, Nmm.
double CriticalMomentOf(const LateralCase& m, const LineExtreme& most, CriticalTerms& terms);

// Of a piece alone, x0 to x1 in m: loads in the shear centre, zj 0, forks; the member's own ends
// without restraints.
PieceTerms PieceAlone(const LateralCase& m, double x0, double x1);

}  // namespace kestrum::standard
