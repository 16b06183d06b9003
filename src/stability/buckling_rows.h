#pragma once

// The three rows of the member control: texts, numbers, ratios. Rows 1 and 2 stand for the axes y
// and z (yline, zline with irrow4, irrow5), row 3 for lateral torsional buckling or, in angles, for
// the axis v (ltline with irrow6). The factors must be in the record before a row is written.

#include "core/project_state.h"

namespace kestrum {

// Resistances of the moment terms, kNm, with gammaM1.
struct MomentResistances {
    double my, mz;
};

// Length factors of 0.002 and below mean no buckling about the axis.
bool BucklesAboutY(const ProjectState& s);
bool BucklesAboutZ(const ProjectState& s);

// Lateral torsional buckling, 6.3.2, with the place of the governing segment.
void LateralTorsionalRow(ProjectState& s);

// NEd/Nb,Rd of the axes that buckle, 6.3.1.
void AxialRows(ProjectState& s);

// The moment terms of 6.3.3 behind the axial ones. `equals`: the calculation ends in "=".
// Deviation D236: an axis without buckling has no row here either; Eq (6.61) and (6.62) still hold
// for it with chi = 1 and combine the axial force with lateral torsional buckling.
void AddMomentTerms(ProjectState& s, const MomentResistances& resistance, bool equals);

// Bending about both axes without axial force; the length factors are not asked.
void BendingRows(ProjectState& s, const MomentResistances& resistance);

// Axial force and My of a flat bar, Eq (6.61), (6.62).
void FlatBarRows(ProjectState& s);

// Buckling of an angle about v, with the moments of the principal axes or without.
void AngleRow(ProjectState& s, bool moments);

// 6.3.1.2 (4) holds: a remark in place of rows 1 and 2, whose status stays, and ratios of zero.
void IgnoreBuckling(ProjectState& s);
void IgnoreBucklingAboutV(ProjectState& s);

}  // namespace kestrum
