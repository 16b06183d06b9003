#include "stability/buckling_control.h"

#include "core/arithmetic_trap.h"
#include "core/member_choices.h"
#include "sections/families.h"
#include "stability/buckling_curves.h"
#include "stability/buckling_resistance.h"
#include "stability/buckling_rows.h"
#include "stability/critical_force.h"
#include "stability/cvipping.h"
#include "stability/interaction_angle.h"
#include "stability/interaction_annex_a.h"
#include "stability/interaction_annex_b.h"

#include <algorithm>
#include <cmath>

namespace kestrum {
namespace {

// Head of every stage: what a check leaves out must not carry a value of an earlier run.
void StartStage(ProjectState& s)
{
    ClearBucklingRows(s);
    s.mydesignf = F32(s.mydesign);
    s.xlt = 1.0;
    s.xlt0 = 1.0;
    s.ffactor = 1.0f;
    s.kc = 1.0f;
    s.ltc1 = 0.0;
    s.ltc2 = 0.0;
    s.ltc3 = 0.0;
}

void CloseStage(ProjectState& s)
{
    s.maxirbuckling = std::max({s.irrow4, s.irrow5, s.irrow6});
}

void ControlLateralTorsional(ProjectState& s)
{
    if (s.ltb != 1) {
        return;
    }
    LateralTorsionalBuckling(s);
    if (s.mydesignf != 0) {
        LateralTorsionalRow(s);
    }
}

// No length factor asks for buckling: the remark, and nothing else of the axial force.
bool NoBucklingAtAll(ProjectState& s)
{
    if (BucklesAboutY(s) || BucklesAboutZ(s)) {
        return false;
    }
    s.yline.label[0] = "No Buckling";
    return true;
}

bool HasMoment(const ProjectState& s)
{
    return s.mydesign != 0 || s.mzdesign != 0;
}

// EN 1993-1-1, 6.3.1.2 (4), about y and z together.
// Deviation D232: asked for a member without moments only; the standard leaves buckling out of the
// interaction as well.
bool MayIgnoreBuckling(const ProjectState& s)
{
    const bool stocky = s.lamy <= 0.2 && s.lamz <= 0.2;
    const bool light = std::abs(s.ned / s.ncry) <= 0.04 && std::abs(s.ned / s.ncrz) <= 0.04;
    return !HasMoment(s) && s.ned > 0 && (stocky || light);
}

bool MayIgnoreBucklingAboutV(const ProjectState& s)
{
    return s.lamv <= 0.2 || std::abs(s.ned / s.ncrv) <= 0.04;
}

// The factors of unequal flanges take the class of the compressed side; without a moment no side is
// compressed, and the larger class stays.
void TakeClassOfSide(ProjectState& s)
{
    if (Is(s, Kind::i_single) && s.mydesign != 0) {
        s.classmy = s.mydesign > 0 ? s.classmytop : s.classmybot;
    }
}

// kyy .. kzz; false when the axial force is above an elastic critical force.
bool InteractionFactors(ProjectState& s, bool lateral)
{
    TakeClassOfSide(s);
    if (s.method != Method::annex_a) {
        if (s.loadmode == 1) {
            CmAnnexBLoads(s);
        } else {
            CmAnnexBForces(s);
        }
        KFactorsAnnexB(s);
        return true;
    }
    if (s.loadmode == 1) {
        CmAnnexALoads(s);
    } else {
        CmAnnexAForces(s);
    }
    if (lateral) {
        LtUniformMcr(s);
    }
    KFactorsAnnexA(s);
    return s.errorflag != -1;
}

// kyy .. kzz and kvv, kvu of an angle.
bool AngleFactors(ProjectState& s)
{
    if (s.method == Method::annex_a) {
        s.lam0 = 1.0f;  // D226
    }
    if (!InteractionFactors(s, false)) {
        return false;
    }
    if (s.loadmode == 1) {
        CmAngleLoads(s);
    } else {
        CmAngleForces(s);
    }
    if (s.method == Method::annex_a) {
        KAngleAnnexA(s);
    } else {
        KAngleAnnexB(s);
    }
    return true;
}

// The stage of sections that bend about both axes.
//
// Deviation D230: the terms have no additional moment NEd eN of class 4; Eq (6.61) and (6.62) add
// it where the effective section shifts the centroid.
void BeamColumn(ProjectState& s, bool lateral, const MomentResistances& resistance)
{
    StartStage(s);
    if (lateral) {
        ControlLateralTorsional(s);
    }
    BucklingCurves(s);
    BucklingResistance(s);
    if (s.ned > 0 && !NoBucklingAtAll(s)) {
        AxialRows(s);
        if (HasMoment(s)) {
            if (!InteractionFactors(s, lateral)) {
                return;
            }
            AddMomentTerms(s, resistance, false);
        } else if (MayIgnoreBuckling(s)) {
            IgnoreBuckling(s);
        }
    } else if (s.ned == 0 && s.mydesign != 0 && s.mzdesign != 0) {
        if (!InteractionFactors(s, lateral)) {
            return;
        }
        BendingRows(s, resistance);
    }
    CloseStage(s);
}

}  // namespace

void ClearBucklingRows(ProjectState& s)
{
    for (ResultRow* row : {&s.yline, &s.zline, &s.ltline}) {
        *row = {};
        row->status = kWithin;
    }
    s.irrow4 = 0.0;
    s.irrow5 = 0.0;
    s.irrow6 = 0.0;
    s.maxirbuckling = 0.0;
}

// EN 1993-1-1, 6.3.1 to 6.3.3.
//   in   ned [kN], mydesign, mzdesign [kNm], ly, lz, ltb, method, loadmode, section, resistances
//   out  rows, irrow4..6, maxirbuckling, errorflag, all values of the stability stage
// Deviations D230, D232: see above.
void BucklingControlRolledI(ProjectState& s)
{
    BeamColumn(s, true, {s.myrdm1, s.mzrdm1});
}

// The same without lateral torsional buckling.
void BucklingControlHollow(ProjectState& s)
{
    BeamColumn(s, false, {s.myrdm1, s.mzrdm1});
}

// The same with class and resistance of the compressed side.
void BucklingControlWeldedI(ProjectState& s)
{
    BeamColumn(s, true, {s.mydesign > 0 ? s.mytoprd : s.mybotrd, s.mzrdm1});
}

// EN 1993-1-1, 6.3.1 to 6.3.3 for bending about y.
//
// Deviation D229: lateral torsional buckling is controlled beside an axial compression only; 6.3.2
// asks for it in any case.
void BucklingControlFlatBar(ProjectState& s)
{
    StartStage(s);
    ControlLateralTorsional(s);
    BucklingCurves(s);
    BucklingResistance(s);
    if (!NoBucklingAtAll(s)) {
        if (s.mydesign != 0) {
            if (!InteractionFactors(s, true)) {
                return;
            }
            FlatBarRows(s);
        } else if (MayIgnoreBuckling(s)) {
            IgnoreBuckling(s);
        } else {
            AxialRows(s);
        }
    }
    CloseStage(s);
}

// EN 1993-1-1, 6.3.1, 6.3.3: about y and z, and about v with the moments of the principal axes. The
// axial force must not exceed the critical forces of the principal axes, with or without moments.
void BucklingControlAngle(ProjectState& s)
{
    StartStage(s);
    BucklingCurves(s);
    BucklingResistance(s);
    if (ExceedsCriticalForce(s, {{"Ncr,v", s.ncrv}, {"Ncr,u", s.ncru}})) {
        return;
    }
    if (!NoBucklingAtAll(s)) {
        AxialRows(s);
        if (HasMoment(s)) {
            if (!AngleFactors(s)) {
                return;
            }
            s.myaxrd = std::min(s.mry1, s.mry2) * s.gammam0 / s.gammam1;
            s.mzaxrd = std::min(s.mrz1, s.mrz2) * s.gammam0 / s.gammam1;
            AddMomentTerms(s, {s.myaxrd, s.mzaxrd}, true);
        }
        if (BucklesAboutZ(s)) {
            AngleRow(s, HasMoment(s));
        }
        if (MayIgnoreBuckling(s) && MayIgnoreBucklingAboutV(s)) {
            IgnoreBuckling(s);
            IgnoreBucklingAboutV(s);
        }
    }
    CloseStage(s);
}

// EN 1993-1-1, 6.3.1.
//
// Deviation D231: moments of the self-weight are not combined with the axial force; 6.3.3 combines
// them.
void BucklingControlT(ProjectState& s)
{
    StartStage(s);
    BucklingCurves(s);
    BucklingResistance(s);
    if (!NoBucklingAtAll(s)) {
        AxialRows(s);
        if (MayIgnoreBuckling(s)) {
            IgnoreBuckling(s);
        }
    }
    CloseStage(s);
}

// EN 1993-1-1, 6.3.2.
void BucklingControlPlate(ProjectState& s)
{
    StartStage(s);
    ControlLateralTorsional(s);
    CloseStage(s);
}

}  // namespace kestrum
