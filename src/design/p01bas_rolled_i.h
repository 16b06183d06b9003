#pragma once

// Cross-section design of doubly symmetric I and H sections, rolled and welded (families 1 to 4,
// 15, 21, 101, 102), EN 1993-1-1, 6.2 and EN 1993-1-5. Channels share all but the effective
// section, the single symmetric I its shear and axial formulas.

#include "core/project_state.h"

namespace kestrum {

// Effective section of class 4, EN 1993-1-5, 4.4: aeff, weffy, weffz.
void CalcEffectiveI(ProjectState& s);

// Classes of N, My and Mz alone and all resistances that do not depend on the loads.
void CalcResistanceI(ProjectState& s);

// Shear resistances of the ratios: vbrd, vcyrd, shearnote, avz, avy.
void CalcShearZ(ProjectState& s);

// Moment resistances reduced for the shear of the section in hand, 6.2.8: myrdv, mzrdv from
// classmyuse.
void ReduceMy(ProjectState& s);
void ReduceMz(ProjectState& s);

// Moment resistances reduced for the axial force, 6.2.9.1: mnyrd, mnzrd from myrdv, mzrdv.
void CalcMNy(ProjectState& s);
void CalcMNz(ProjectState& s);

// alfaexp and betaexp of I and H sections, 6.2.9.1 (6).
void ExponentsI(ProjectState& s);

void ControlRolledI(ProjectState& s);

// --- Shared with the families that borrow from this one

// rho of the outstands with the buckling factor k, and of the web in uniform compression.
double OutstandRho(const ProjectState& s, double k);
double WebRho(const ProjectState& s);

// Weff about y when `lost`, mm2, is taken from the compressed flange, then what buckles from the
// web.
double EffectiveModulusY(const ProjectState& s, double lost);

// The modulus by class: plastic for 1 and 2 unless checkelastic, effective for 4, else elastic.
double ModulusByClass(const ProjectState& s, i16 cls, double wpl, double wel, double weff);

// avz, vzrd and vplzrd of one web; `area`, mm2, is the shear area of a web that does not buckle.
void CalcVzrd(ProjectState& s, double area);

// vbrd, shearnote and avz of one web.
void CalcVbrd(ProjectState& s);

}  // namespace kestrum
