#include "stability/buckling_control.h"

#include "core/arithmetic_trap.h"
#include "core/member_choices.h"
#include "sections/families.h"
#include "stability/buckling_curves.h"
#include "stability/buckling_resistance.h"
#include "stability/buckling_rows.h"
#include "stability/critical_force.h"
#include "stability/interaction_angle.h"
#include "stability/interaction_annex_a.h"
#include "stability/interaction_annex_b.h"
#include "stability/lateral_torsional.h"

#include <algorithm>
#include <cmath>

namespace kestrum {
namespace {

// Head of every stage: what a check leaves out must not carry a value of an earlier run.
void StartStage(const Forces& forces, SectionChecks& checks, Stability& stability)
{
    ClearBucklingRows(checks, stability);
    stability.mydesignf = F32(forces.mydesign);
    stability.xlt = 1.0;
    stability.xlt0 = 1.0;
    stability.ffactor = 1.0f;
    stability.kc = 1.0f;
    stability.ltc1 = 0.0;
    stability.ltc2 = 0.0;
    stability.ltc3 = 0.0;
}

void CloseStage(const SectionChecks& checks, Stability& stability)
{
    stability.maxirbuckling = std::max({checks.irrow4, checks.irrow5, checks.irrow6});
}

void ControlLateralTorsional(const Inputs& in, const SectionRecord& section,
                             const Resistances& resistances, const Forces& forces,
                             SectionChecks& checks, Stability& stability, Carry& carry)
{
    if (in.ltb != 1) {
        return;
    }
    LateralTorsionalBuckling(in, section, resistances, forces, stability, carry);
    if (stability.mydesignf != 0) {
        LateralTorsionalRow(in, checks, stability, carry);
    }
}

// No length factor asks for buckling: the remark, and nothing else of the axial force.
bool NoBucklingAtAll(const Inputs& in, SectionChecks& checks)
{
    if (BucklesAboutY(in) || BucklesAboutZ(in)) {
        return false;
    }
    NoBuckling(checks);
    return true;
}

bool HasMoment(const Forces& forces)
{
    return forces.mydesign != 0 || forces.mzdesign != 0;
}

// EN 1993-1-1, 6.3.1.2 (4), about y and z together.
// Deviation D232: asked for a member without moments only; the standard leaves buckling out of the
// interaction as well.
bool MayIgnoreBuckling(const Forces& forces, const Stability& stability)
{
    const bool stocky = stability.lamy <= 0.2 && stability.lamz <= 0.2;
    const bool light = std::abs(forces.ned / stability.ncry) <= 0.04 &&
                       std::abs(forces.ned / stability.ncrz) <= 0.04;
    return !HasMoment(forces) && forces.ned > 0 && (stocky || light);
}

bool MayIgnoreBucklingAboutV(const Forces& forces, const Stability& stability)
{
    return stability.lamv <= 0.2 || std::abs(forces.ned / stability.ncrv) <= 0.04;
}

// The factors of unequal flanges take the class of the compressed side; without a moment no side is
// compressed, and the larger class stays.
void TakeClassOfSide(const Inputs& in, SectionRecord& section, const Forces& forces)
{
    if (Is(in, Kind::i_single) && forces.mydesign != 0) {
        section.classmy = forces.mydesign > 0 ? section.classmytop : section.classmybot;
    }
}

// kyy .. kzz; false when the axial force is above an elastic critical force.
bool InteractionFactors(const Inputs& in, SectionRecord& section, const Resistances& resistances,
                        Forces& forces, Stability& stability, Carry& carry, PassOutcome& outcome,
                        bool lateral)
{
    TakeClassOfSide(in, section, forces);
    if (in.method != Method::annex_a) {
        if (in.loadmode == 1) {
            CmAnnexBLoads(section, forces, stability);
        } else {
            CmAnnexBForces(stability);
        }
        KFactorsAnnexB(in, section, forces, stability, carry);
        return true;
    }
    if (in.loadmode == 1) {
        CmAnnexALoads(in, section, forces, stability);
    } else {
        CmAnnexAForces(forces, stability);
    }
    if (lateral) {
        LtUniformMcr(in, section, resistances, forces, stability, carry);
    }
    KFactorsAnnexA(in, section, resistances, forces, stability, carry, outcome);
    return outcome.errorflag != -1;
}

// kyy .. kzz and kvv, kvu of an angle.
bool AngleFactors(const Inputs& in, SectionRecord& section, const Resistances& resistances,
                  Forces& forces, Stability& stability, Carry& carry, PassOutcome& outcome)
{
    if (in.method == Method::annex_a) {
        stability.lam0 = 1.0f;  // D226
    }
    if (!InteractionFactors(in, section, resistances, forces, stability, carry, outcome, false)) {
        return false;
    }
    if (in.loadmode == 1) {
        CmAngleLoads(in, section, forces, stability);
    } else {
        CmAngleForces(forces, stability);
    }
    if (in.method == Method::annex_a) {
        KAngleAnnexA(forces, stability);
    } else {
        KAngleAnnexB(forces, stability);
    }
    return true;
}

// The stage of sections that bend about both axes.
//
// Deviation D230: the terms have no additional moment NEd eN of class 4; Eq (6.61) and (6.62) add
// it where the effective section shifts the centroid.
void BeamColumn(const Inputs& in, SectionRecord& section, const Resistances& resistances,
                Forces& forces, SectionChecks& checks, Stability& stability, Carry& carry,
                PassOutcome& outcome, bool lateral, const MomentResistances& resistance)
{
    StartStage(forces, checks, stability);
    if (lateral) {
        ControlLateralTorsional(in, section, resistances, forces, checks, stability, carry);
    }
    BucklingCurves(in, section, carry);
    BucklingResistance(in, section, resistances, carry, stability);
    if (forces.ned > 0 && !NoBucklingAtAll(in, checks)) {
        AxialRows(in, forces, checks, stability, carry);
        if (HasMoment(forces)) {
            if (!InteractionFactors(in, section, resistances, forces, stability, carry, outcome,
                                    lateral)) {
                return;
            }
            AddMomentTerms(in, forces, checks, stability, carry, resistance, false);
        } else if (MayIgnoreBuckling(forces, stability)) {
            IgnoreBuckling(checks);
        }
    } else if (forces.ned == 0 && forces.mydesign != 0 && forces.mzdesign != 0) {
        if (!InteractionFactors(in, section, resistances, forces, stability, carry, outcome,
                                lateral)) {
            return;
        }
        BendingRows(in, forces, checks, stability, carry, resistance);
    }
    CloseStage(checks, stability);
}

}  // namespace

void ClearBucklingRows(SectionChecks& checks, Stability& stability)
{
    checks.checklist.Clear<ResultRow::buckling_y, ResultRow::lateral>();
    checks.irrow4 = 0.0;
    checks.irrow5 = 0.0;
    checks.irrow6 = 0.0;
    stability.maxirbuckling = 0.0;
}

// EN 1993-1-1, 6.3.1 to 6.3.3.
//   in   ned [kN], mydesign, mzdesign [kNm], ly, lz, ltb, method, loadmode, section, resistances
//   out  rows, irrow4..6, maxirbuckling, errorflag, all values of the stability stage
// Deviations D230, D232: see above.
void BucklingControlRolledI(const Inputs& in, SectionRecord& section,
                            const Resistances& resistances, Forces& forces, SectionChecks& checks,
                            Stability& stability, Carry& carry, PassOutcome& outcome)
{
    BeamColumn(in, section, resistances, forces, checks, stability, carry, outcome, true,
               {resistances.myrdm1, resistances.mzrdm1});
}

// The same without lateral torsional buckling.
void BucklingControlHollow(const Inputs& in, SectionRecord& section, const Resistances& resistances,
                           Forces& forces, SectionChecks& checks, Stability& stability,
                           Carry& carry, PassOutcome& outcome)
{
    BeamColumn(in, section, resistances, forces, checks, stability, carry, outcome, false,
               {resistances.myrdm1, resistances.mzrdm1});
}

// The same with class and resistance of the compressed side.
void BucklingControlWeldedI(const Inputs& in, SectionRecord& section,
                            const Resistances& resistances, Forces& forces, SectionChecks& checks,
                            Stability& stability, Carry& carry, PassOutcome& outcome)
{
    BeamColumn(
        in, section, resistances, forces, checks, stability, carry, outcome, true,
        {forces.mydesign > 0 ? resistances.mytoprd : resistances.mybotrd, resistances.mzrdm1});
}

// EN 1993-1-1, 6.3.1 to 6.3.3 for bending about y.
//
// Deviation D229: lateral torsional buckling is checked beside an axial compression only; 6.3.2
// asks for it in any case.
void BucklingControlFlatBar(const Inputs& in, SectionRecord& section,
                            const Resistances& resistances, Forces& forces, SectionChecks& checks,
                            Stability& stability, Carry& carry, PassOutcome& outcome)
{
    StartStage(forces, checks, stability);
    ControlLateralTorsional(in, section, resistances, forces, checks, stability, carry);
    BucklingCurves(in, section, carry);
    BucklingResistance(in, section, resistances, carry, stability);
    if (!NoBucklingAtAll(in, checks)) {
        if (forces.mydesign != 0) {
            if (!InteractionFactors(in, section, resistances, forces, stability, carry, outcome,
                                    true)) {
                return;
            }
            FlatBarRows(in, resistances, forces, checks, stability, carry);
        } else if (MayIgnoreBuckling(forces, stability)) {
            IgnoreBuckling(checks);
        } else {
            AxialRows(in, forces, checks, stability, carry);
        }
    }
    CloseStage(checks, stability);
}

// EN 1993-1-1, 6.3.1, 6.3.3: about y and z, and about v with the moments of the principal axes. The
// axial force must not exceed the critical forces of the principal axes, with or without moments.
void BucklingControlAngle(const Inputs& in, SectionRecord& section, const Resistances& resistances,
                          Forces& forces, SectionChecks& checks, Stability& stability, Carry& carry,
                          PassOutcome& outcome)
{
    StartStage(forces, checks, stability);
    BucklingCurves(in, section, carry);
    BucklingResistance(in, section, resistances, carry, stability);
    if (ExceedsCriticalForce(forces, outcome,
                             {{"Ncr,v", stability.ncrv}, {"Ncr,u", stability.ncru}})) {
        return;
    }
    if (!NoBucklingAtAll(in, checks)) {
        AxialRows(in, forces, checks, stability, carry);
        if (HasMoment(forces)) {
            if (!AngleFactors(in, section, resistances, forces, stability, carry, outcome)) {
                return;
            }
            stability.myaxrd =
                std::min(resistances.mry1, resistances.mry2) * in.gammam0 / in.gammam1;
            stability.mzaxrd =
                std::min(resistances.mrz1, resistances.mrz2) * in.gammam0 / in.gammam1;
            AddMomentTerms(in, forces, checks, stability, carry,
                           {stability.myaxrd, stability.mzaxrd}, true);
        }
        if (BucklesAboutZ(in)) {
            AngleRow(in, section, resistances, forces, checks, stability, HasMoment(forces));
        }
        if (MayIgnoreBuckling(forces, stability) && MayIgnoreBucklingAboutV(forces, stability)) {
            IgnoreBuckling(checks);
            IgnoreBucklingAboutV(checks);
        }
    }
    CloseStage(checks, stability);
}

// EN 1993-1-1, 6.3.1.
//
// Deviation D231: moments of the self-weight are not combined with the axial force; 6.3.3 combines
// them.
void BucklingControlT(const Inputs& in, SectionRecord& section, const Resistances& resistances,
                      Forces& forces, SectionChecks& checks, Stability& stability, Carry& carry,
                      PassOutcome&)
{
    StartStage(forces, checks, stability);
    BucklingCurves(in, section, carry);
    BucklingResistance(in, section, resistances, carry, stability);
    if (!NoBucklingAtAll(in, checks)) {
        AxialRows(in, forces, checks, stability, carry);
        if (MayIgnoreBuckling(forces, stability)) {
            IgnoreBuckling(checks);
        }
    }
    CloseStage(checks, stability);
}

// EN 1993-1-1, 6.3.2.
void BucklingControlPlate(const Inputs& in, SectionRecord& section, const Resistances& resistances,
                          Forces& forces, SectionChecks& checks, Stability& stability, Carry& carry,
                          PassOutcome&)
{
    StartStage(forces, checks, stability);
    ControlLateralTorsional(in, section, resistances, forces, checks, stability, carry);
    CloseStage(checks, stability);
}

}  // namespace kestrum
