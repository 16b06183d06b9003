#pragma once

// Resistances of welded sections, which exist once for each sign of My, and the control of those
// that carry My and Vz only (24, 25, 27, 51 to 56), EN 1993-1-1, 6.2 and EN 1993-1-5, 5.

#include "core/project_state.h"

namespace kestrum {

// Resistances to N, My and Mz from the classes (classn, classmytop, classmybot, classmz) and the
// moduli; classmy is the larger of the signs' classes.
void StoreResistances(ProjectState& s);

// Moduli in use and moment resistances per sign, all times `factor`: wytop, wybot, wyused, mytoprd,
// mybotrd, myrd, myrdm1.
void StoreSigns(ProjectState& s, double factor);

// mfrd of flanges alone as the elastic resistance less that of the webs, kNm.
double ElasticFlangeMoment(const ProjectState& s);

// mfzrd of two flanges of the mean dimensions b and tf, kNm.
double MeanFlangeMomentZ(const ProjectState& s);

// avz, vzrd, vplzrd of all webs; vyrd, vcyrd of the shear area avy, mm2.
void StoreShear(ProjectState& s, double avy);

// My,Rd of the sign of mysigned, reduced for vzed, with the class `cls`, kNm; 6.2.8 (5).
double ReducedMoment(const ProjectState& s, i16 cls);

// vbrd and shearnote of all webs for the section in hand, EN 1993-1-5, 5.2 to 5.4.
void CalcShearWelded(ProjectState& s);

// Rows 1 and 3 for My and Vz; the moment resistances are multiplied by `factor`.
void ControlBending(ProjectState& s, double factor);

}  // namespace kestrum
