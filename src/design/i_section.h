#pragma once

// Cross-section design of doubly symmetric I and H sections, rolled and welded (families 1 to 4,
// 15, 21, 101, 102), EN 1993-1-1, 6.2 and EN 1993-1-5. Channels share all but the effective
// section, the single symmetric I its shear and axial formulas.

#include "core/state/forces.h"
#include "core/state/inputs.h"
#include "core/state/pass_outcome.h"
#include "core/state/resistances.h"
#include "core/state/section_checks.h"
#include "core/state/section_record.h"

namespace kestrum {

// Effective section of class 4, EN 1993-1-5, 4.4: aeff, weffy, weffz.
void CalcEffectiveI(const Inputs& in, SectionRecord& section);

// Classes of N, My and Mz alone and all resistances that do not depend on the loads.
void CalcResistanceI(const Inputs& in, SectionRecord& section, Resistances& resistances,
                     SectionChecks& checks);

// Shear resistances of the ratios: vbrd, vcyrd, shearnote, avz, avy.
void CalcShearZ(const Inputs& in, const SectionRecord& section, Resistances& resistances,
                const Forces& forces, SectionChecks& checks);

// Moment resistances reduced for the shear of the section in hand, 6.2.8: myrdv, mzrdv from
// classmyuse.
void ReduceMy(const Inputs& in, const SectionRecord& section, const Resistances& resistances,
              const Forces& forces, SectionChecks& checks);
void ReduceMz(const Inputs& in, const SectionRecord& section, const Resistances& resistances,
              const Forces& forces, SectionChecks& checks);

// Moment resistances reduced for the axial force, 6.2.9.1: mnyrd, mnzrd from myrdv, mzrdv.
void CalcMNy(const Inputs& in, const SectionRecord& section, const Resistances& resistances,
             const Forces& forces, SectionChecks& checks);
void CalcMNz(const Inputs& in, const SectionRecord& section, const Resistances& resistances,
             const Forces& forces, SectionChecks& checks);

// alfaexp and betaexp of I and H sections, 6.2.9.1 (6).
void ExponentsI(const Resistances& resistances, const Forces& forces, SectionChecks& checks);

void ControlRolledI(const Inputs& in, SectionRecord& section, Resistances& resistances,
                    const Forces& forces, SectionChecks& checks, PassOutcome& outcome);

// --- Shared with the families that borrow from this one

// rho of the outstands with the buckling factor k, and of the web in uniform compression.
double OutstandRho(const Inputs& in, const SectionRecord& section, double k);
double WebRho(const Inputs& in, const SectionRecord& section);

// Weff about y when `lost`, mm2, is taken from the compressed flange, then what buckles from the
// web.
double EffectiveModulusY(const Inputs& in, const SectionRecord& section, double lost);

// The modulus by class: plastic for 1 and 2 unless checkelastic, effective for 4, else elastic.
double ModulusByClass(const Inputs& in, i16 cls, double wpl, double wel, double weff);

// avz, vzrd and vplzrd of one web; `area`, mm2, is the shear area of a web that does not buckle.
void CalcVzrd(const Inputs& in, const SectionRecord& section, Resistances& resistances,
              double area);

// vbrd, shearnote and avz of one web.
void CalcVbrd(const Inputs& in, const SectionRecord& section, Resistances& resistances,
              const Forces& forces, SectionChecks& checks);

}  // namespace kestrum
