#pragma once

// Buckling of the member, EN 1993-1-1, 6.3: flexural, torsional, lateral torsional, and N with
// bending by 6.3.3.

#include "clauses/annex_a.h"
#include "clauses/annex_b.h"
#include "core/library.h"
#include "standard/column.h"
#include "standard/lateral.h"
#include "standard/lines.h"
#include "standard/moment_shape.h"
#include "standard/resistance.h"
#include "standard/result.h"
#include "standard/section_checks.h"

#include <span>

namespace kestrum::standard {

struct MemberCase {
    const Library& library;
    const ProjectState& s;
    const Basis& basis;
    const ProjectState* program;  // the record after the program's pass, or null
    const PreparedSection& section;
    SolvedLines& solved;
    const MemberLoads& loads;
    const LoadCase& load_case;
    const CombinedLines& lines;
    Classes classes;
    bool my, mz;
    std::span<const float> places;  // the program's check sections, x/L
};

// What stands behind an equivalent moment factor of one axis. kNm, mm.
struct CmTerms {
    SpanMoments span{};
    double deflection = 0, moment = 0;   // Table A.2, general line: both of the same loads
    bool lines = false, points = false;  // Table B.3: the columns that count
    bool sway = false;
};

// What stands behind the ratios of the member. N, Nmm, mm.
struct MemberTerms {
    bool column_only;  // asked for: buckling under NEd alone
    double n, my, mz;  // largest sizes; of angles about u and v
    int cls;           // of the combination
    bool twists;       // torsional buckling takes part
    CriticalForces ncr;
    ColumnCurves curves;
    Reductions column;       // class of N alone
    Reductions interaction;  // class of the combination
    LateralResult lateral;
    std::optional<NumericalStudy> numerical;  // where it gave the critical moment
    TorsionTerms torsion;
    CmTerms cm_y, cm_z, cm_lt;
    UniformMomentTerms uniform;  // of lambda_0, Annex A
    double compressed;           // its modulus, mm3
    double shift_y, shift_z;     // NEd eN
    double wy, wz;               // of the moment resistances
    clauses::InteractionFactors k;
    bool annex_a;
    clauses::AnnexAInputs a;
    clauses::AnnexAFactors found_a;
    clauses::AnnexBInputs b;
};

// Deviations D43, D153, D207, D208, D217 to D219, D221 to D223, D225, D229, D230, D232, D236, D240
// to D247. False where the numerical solution does not take the member (more than 16 restraints).
// `told`, where it is asked for, takes the terms.
bool CheckMember(const MemberCase& member, Checks& checks, MemberTerms* told = nullptr);

}  // namespace kestrum::standard
