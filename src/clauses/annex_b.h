#pragma once

// Interaction factors, EN 1993-1-1, Annex B.

#include "clauses/interaction.h"

namespace kestrum::clauses {

// Table B.3, moments of one axis on a length. Mh is the larger end moment, psi the smaller end
// moment over it, Ms the moment in the span; the column is that of a uniform or of a point load.
double EquivalentMomentStraight(double psi);
double EquivalentMomentLoaded(double mh, double ms, double psi, bool point_load);
// Its two halves: alpha_s = Ms/Mh where an end moment is the largest, alpha_h = Mh/Ms where not.
double EquivalentMomentOfEnds(double alpha_s, double psi, bool point_load);
double EquivalentMomentOfSpan(double alpha_h, double psi, bool point_load);

struct AnnexBInputs {
    bool plastic;  // class 1 or 2
    bool hollow;   // rectangular hollow section: the other column of kzz
    bool twists;   // susceptible to torsional deformations: Table B.2
    double cmy, cmz, cmlt;
    double lamy, lamz;            // slendernesses
    double ny, nz;                // NEd/(chi NRk/gammaM1) about each axis
    bool low_slenderness = true;  // kzy has its branch below a slenderness of 0.4
};
InteractionFactors FactorsOfAnnexB(const AnnexBInputs& in);

}  // namespace kestrum::clauses
