#include "engine/settle_inputs.h"

#include "core/arithmetic_trap.h"
#include "core/dropped_loads.h"
#include "core/material.h"
#include "core/member_choices.h"
#include "core/state/section_record.h"
#include "design/hat_beam_section.h"
#include "sections/families.h"

#include <algorithm>
#include <cstddef>

namespace kestrum {

namespace {

void ClearTransverseLoads(LoadInputs& loads)
{
    std::fill(loads.qload.begin() + 1, loads.qload.end(), 0.0F);
    loads.qt1 = loads.qt2 = loads.qtx1 = loads.qtx2 = {};
    loads.pm = loads.pmx = {};
}

void ClearLoadsAboutZ(LoadInputs& loads)
{
    for (std::size_t k = 1; k <= 4; ++k) {
        if (loads.qdir[k] == 0) {
            loads.qload[k] = 0;
        }
        loads.qdir[k] = 1;
    }
    for (std::size_t k = 1; k <= 3; ++k) {
        if (loads.qtdir[k] == 0) {
            loads.qt1[k] = loads.qt2[k] = 0;
            loads.qtdir[k] = 1;
        }
    }
    for (std::size_t k = 1; k <= 8; ++k) {
        if (loads.pmdir[k] == 0) {
            loads.pm[k] = loads.pmx[k] = 0;
            loads.pmtype[k] = 0;
            loads.pmdir[k] = 1;
        }
    }
}

void ClearInvalidEndForces(const Inputs& in, LoadInputs& loads, DroppedLoads& dropped)
{
    const Actions& takes = Traits(in).carries.loads;
    const Actions& carried = Traits(in).carries.ends;
    OpenDropped(in, dropped);
    NoteDroppedEndForces(in, dropped, !takes.n, !takes.y, !takes.z);
    if (!carried.y) {
        loads.my1 = loads.my2 = loads.vz1 = loads.vz2 = 0;
    }
    if (!carried.z) {
        loads.mz1 = loads.mz2 = loads.vy1 = loads.vy2 = 0;
    }
    CloseDropped(in, dropped);
}

}  // namespace

void SettleMaterial(const Library& library, const Inputs& in, Settings& settings,
                    SectionRecord& section)
{
    SetMaterial(library, settings, section, in.fykindex);
    if (Is(in, Kind::hat) && UpgradeNeedsWebBuckling(in, section)) {
        settings.checkwebbuck = kFalse;
    }
}

void SettleLateralBuckling(const Inputs& in, MemberInputs& member)
{
    const LateralBuckling lateral = Traits(in).design.lateral;
    if (lateral == LateralBuckling::off) {
        member.ltb = 0;
        member.restraints = 0;
        member.ltbavail = kFalse;
        return;
    }
    if (lateral != LateralBuckling::unchanged) {
        member.ltbavail = kTrue;
    }
    if (lateral != LateralBuckling::on) {
        member.ltbcurve = LtbCurve::general;
    }
}

void SettleLoads(const Inputs& in, LoadInputs& loads, const SectionRecord& section,
                 DroppedLoads& dropped)
{
    if (in.loadmode != 1) {
        ClearInvalidEndForces(in, loads, dropped);
        return;
    }
    ClearInvalidLoads(in, loads, dropped);
    SetSelfweight(loads, section);
}

void ClearInvalidLoads(const Inputs& in, LoadInputs& loads, DroppedLoads& dropped)
{
    const Actions& carried = Traits(in).carries.loads;
    OpenDropped(in, dropped);
    NoteDroppedLoads(in, dropped, !carried.n, !carried.y, !carried.z);
    if (!carried.n) {
        loads.nload = {};
    }
    if (!carried.y) {
        ClearTransverseLoads(loads);
    } else if (!carried.z) {
        ClearLoadsAboutZ(loads);
    }
    CloseDropped(in, dropped);
}

void SetSelfweight(LoadInputs& loads, const SectionRecord& section)
{
    constexpr double kWeightOfMass = 0.01;  // kN per kg, D103
    const bool included = loads.selfweight == 1;
    loads.qload[0] = included ? F32(section.weight * kWeightOfMass) : 0;
    loads.qchecked[0] = included ? kTrue : kFalse;
    if (included) {
        loads.qdir[0] = 1;
        loads.qtype[0] = 0;
    }
}

void SettleFlangeLoading(SectionForms& forms)
{
    constexpr i16 kNotConsidered = 1;
    forms.hsqopt = kNotConsidered;
}

void SettleLoadLevel(const Inputs& in, MemberInputs& member)
{
    constexpr i16 kCentroid = 2;
    if (Is(in, Kind::general) && in.ltb == 1) {
        member.loadlevel = kCentroid;
    }
}

}  // namespace kestrum
