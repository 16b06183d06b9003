#pragma once

// Resistances of welded sections, which exist once for each sign of My, and the control of those
// that carry My and Vz only (24, 25, 27, 51 to 56), EN 1993-1-1, 6.2 and EN 1993-1-5, 5.

#include "core/state/forces.h"
#include "core/state/inputs.h"
#include "core/state/resistances.h"
#include "core/state/section_checks.h"
#include "core/state/section_record.h"

namespace kestrum {

constexpr i16 kUpgraded = 23;  // class 3 web, class 1 or 2 flange, 6.2.2.4

// Resistances to N, My and Mz from the classes (classn, classmytop, classmybot, classmz) and the
// moduli; classmy is the larger of the signs' classes.
void StoreResistances(const Inputs& in, SectionRecord& section, Resistances& resistances);

// Moduli in use and moment resistances per sign, all times `factor`: wytop, wybot, wyused, mytoprd,
// mybotrd, myrd, myrdm1.
void StoreSigns(const Inputs& in, SectionRecord& section, Resistances& resistances, double factor);

// mfrd of flanges alone as the elastic resistance less that of the webs, kNm.
double ElasticFlangeMoment(const Inputs& in, const SectionRecord& section,
                           const Resistances& resistances);

// mfzrd of two flanges of the mean dimensions b and tf, kNm.
double MeanFlangeMomentZ(const Inputs& in, const SectionRecord& section);

// avz, vzrd, vplzrd of all webs; vyrd, vcyrd of the shear area avy, mm2.
void StoreShear(const Inputs& in, const SectionRecord& section, Resistances& resistances,
                double avy);

// My,Rd of the sign of mysigned, reduced for vzed, with the class `cls`, kNm; 6.2.8 (5).
double ReducedMoment(const Inputs& in, const SectionRecord& section, const Resistances& resistances,
                     const SectionChecks& checks, i16 cls);

// vbrd and shearnote of all webs for the section in hand, EN 1993-1-5, 5.2 to 5.4.
void CalcShearWelded(const Inputs& in, const SectionRecord& section, Resistances& resistances,
                     const Forces& forces, SectionChecks& checks);

// Rows 1 and 3 for My and Vz; the moment resistances are multiplied by `factor`.
void ControlBending(const Inputs& in, const SectionRecord& section, Resistances& resistances,
                    const Forces& forces, SectionChecks& checks, double factor);

}  // namespace kestrum
