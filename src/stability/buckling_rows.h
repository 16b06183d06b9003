#pragma once

// The three rows of the member control: texts, numbers, ratios. Rows 1 and 2 stand for the axes y
// and z (yline, zline with irrow4, irrow5), row 3 for lateral torsional buckling or, in angles, for
// the axis v (ltline with irrow6). The factors must be in the record before a row is written.

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
void LateralTorsionalRow(const Inputs& in, SectionChecks& checks, Stability& stability);

// NEd/Nb,Rd of the axes that buckle, 6.3.1.
void AxialRows(const Inputs& in, const Forces& forces, SectionChecks& checks, Stability& stability);

// The moment terms of 6.3.3 behind the axial ones. `equals`: the calculation ends in "=".
// Deviation D236: an axis without buckling has no row here either; Eq (6.61) and (6.62) still hold
// for it with chi = 1 and combine the axial force with lateral torsional buckling.
void AddMomentTerms(const Inputs& in, const Forces& forces, SectionChecks& checks,
                    Stability& stability, const MomentResistances& resistance, bool equals);

// Bending about both axes without axial force; the length factors are not asked.
void BendingRows(const Inputs& in, const Forces& forces, SectionChecks& checks,
                 Stability& stability, const MomentResistances& resistance);

// Axial force and My of a flat bar, Eq (6.61), (6.62).
void FlatBarRows(const Inputs& in, const Resistances& resistances, const Forces& forces,
                 SectionChecks& checks, Stability& stability);

// Buckling of an angle about v, with the moments of the principal axes or without.
void AngleRow(const Inputs& in, const SectionRecord& section, const Resistances& resistances,
              const Forces& forces, SectionChecks& checks, Stability& stability, bool moments);

// 6.3.1.2 (4) holds: a remark in place of rows 1 and 2, whose status stays, and ratios of zero.
void IgnoreBuckling(SectionChecks& checks, Stability& stability);
void IgnoreBucklingAboutV(SectionChecks& checks, Stability& stability);

}  // namespace kestrum
