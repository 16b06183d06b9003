#pragma once

// Interaction factors, EN 1993-1-1, Annex A.

#include "clauses/interaction.h"

namespace kestrum::clauses {

// Table A.2, equivalent moment factors for uniform torsion-free buckling about one axis; n =
// NEd/Ncr.
double CmStraight(double psi, double n);
double CmUniformLoad(double n);
double CmPointLoad(double n);
// General line: pi^2 E I delta/(L^2 MEd) with the deflection delta and the largest moment of one
// combination.
double CmGeneral(double euler, double delta, double moment, double n);

struct AnnexAInputs {
    bool plastic;             // class 1 or 2
    bool twists;              // susceptible to torsional deformations
    bool bends_only;          // epsilon_y without an axial force is beyond bounds
    double ned;               // compression, N
    double ncry, ncrz, ncrt;  // critical forces, N; ncrt torsional
    double ncrtf;             // torsional-flexural, of double-symmetric sections that of torsion
    double nrk;               // NRk/gammaM1, N
    double my, mz;            // largest moments, sizes, Nmm
    double a, it, iy;         // mm2, mm4
    double w_elastic_y;       // of epsy: Weff,y in class 4, mm3
    double wely, wply, welz, wplz;  // mm3
    double a_epsy;                  // of epsy: Aeff in class 4, mm2
    double mply, mplz;              // resistances of Table A.1's auxiliary terms, Nmm
    double cmy0, cmz0;
    double chiy, chiz, chilt;
    double lamy, lamz;
    double lam0;  // slenderness for lateral torsional buckling under uniform moment
    double c1;
};

// Table A.1 with its auxiliary terms and Table A.2's Cm.
struct AnnexAFactors {
    InteractionFactors k;
    double cmy, cmz, cmlt;
};
AnnexAFactors FactorsOfAnnexA(const AnnexAInputs& in);

}  // namespace kestrum::clauses
