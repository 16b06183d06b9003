#pragma once

// The checks of the member control, one for each of its rows, and the ratios of these: irrow4 and
// irrow5 of the axes y and z, irrow6 of lateral torsional buckling or, in angles, of the axis v.
// The factors must be in the record before a check is taken.

#include "core/state/carry.h"
#include "core/state/forces.h"
#include "core/state/inputs.h"
#include "core/state/resistances.h"
#include "core/state/section_checks.h"
#include "core/state/section_record.h"
#include "core/state/stability.h"

namespace kestrum {

// Resistances of the moment terms, kNm, with gammaM1.
struct MomentResistances {
    double my, mz;
};

// Length factors of 0.002 and below mean no buckling about the axis.
bool BucklesAboutY(const Inputs& in);
bool BucklesAboutZ(const Inputs& in);

// Lateral torsional buckling, 6.3.2, with the place of the governing segment.
void LateralTorsionalRow(const Inputs& in, SectionChecks& checks, const Stability& stability,
                         const Carry& carry);

// NEd/Nb,Rd of the axes that buckle, 6.3.1.
void AxialRows(const Inputs& in, const Forces& forces, SectionChecks& checks,
               const Stability& stability, const Carry& carry);

// The moment terms of 6.3.3 behind the axial ones. `angle`: in the form of angles, which ends in
// "=". Deviation D236: an axis without buckling has no row here either; Eq (6.61) and (6.62) still
// hold for it with chi = 1 and combine the axial force with lateral torsional buckling.
void AddMomentTerms(const Inputs& in, const Forces& forces, SectionChecks& checks,
                    const Stability& stability, const Carry& carry,
                    const MomentResistances& resistance, bool angle);

// Bending about both axes without axial force; the length factors are not asked.
void BendingRows(const Inputs& in, const Forces& forces, SectionChecks& checks,
                 const Stability& stability, const Carry& carry,
                 const MomentResistances& resistance);

// Axial force and My of a flat bar, Eq (6.61), (6.62).
void FlatBarRows(const Inputs& in, const Resistances& resistances, const Forces& forces,
                 SectionChecks& checks, const Stability& stability, const Carry& carry);

// Buckling of an angle about v, with the moments of the principal axes or without.
void AngleRow(const Inputs& in, const SectionRecord& section, const Resistances& resistances,
              const Forces& forces, SectionChecks& checks, const Stability& stability,
              bool moments);

// No length factor asks for buckling: a remark in the row of y.
void NoBuckling(SectionChecks& checks);

// 6.3.1.2 (4) holds: a remark in place of the checks about y and z, with the status that y had, and
// ratios of zero.
void IgnoreBuckling(SectionChecks& checks);
void IgnoreBucklingAboutV(SectionChecks& checks);

}  // namespace kestrum
