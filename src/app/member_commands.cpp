#include "app/member_commands.h"

#include "analysis/load_model.h"
#include "core/annexes.h"
#include "core/arithmetic_trap.h"
#include "core/load_combination.h"
#include "core/material.h"
#include "core/member_choices.h"
#include "core/project_state.h"
#include "sections/families.h"
#include "service/vortex.h"

namespace kestrum {

namespace {

i16 Number(int value)
{
    return static_cast<i16>(value);
}

}  // namespace

void SetProjectName(Session& session, std::string_view text)
{
    session.edit().projname = text;
    session.Record();
    session.Publish();
}

void SetIdent(Session& session, std::string_view text)
{
    session.edit().ident = text;
    session.Record();
    session.Publish();
}

void ChooseSupport(Session& session, int supportcase)
{
    ProjectState& s = session.edit();
    s.supportcase = Number(supportcase);
    FollowSupport(s);
    session.Tell(ValidateLoads(s, s, s, s.dropped));
    session.Calculate();
}

bool SpringShown(const ProjectState& s)
{
    return s.supportcase == SupportCase::springs || s.supportcase == SupportCase::pinned_spring;
}

void ChooseBucklingCase(Session& session, Axis axis, int choice)
{
    ProjectState& s = session.edit();
    (axis == Axis::y ? s.bucklingcasey : s.bucklingcasez) = Number(choice);
    FollowBucklingCase(s, axis);
    session.Calculate();
}

void ChooseBucklingCurve(Session& session, Axis axis, int index)
{
    ProjectState& s = session.edit();
    (axis == Axis::y ? s.bcy : s.bcz) = Number(index);
    session.Calculate();
}

bool BucklingLengthOpen(const ProjectState& s, Axis axis)
{
    return (axis == Axis::y ? s.bucklingcasey : s.bucklingcasez) >= kOwnFactor;
}

// The pass runs before the annex step, so that neta follows a change across 460 MPa one pass later.
void ChooseMaterial(Session& session, int index)
{
    session.edit().fykindex = Number(index);
    SetMaterial(session.library(), session.edit(), session.edit(), index);
    session.Calculate();
    ApplyAnnexMaterial(session.edit(), session.state().annexindex);
    session.Publish();
}

bool StrengthOpen(const Library& library, const ProjectState& s)
{
    return !IsListedGrade(library, s.fykindex);
}

void ChooseLoadCombination(Session& session, int index)
{
    ProjectState& s = session.edit();
    s.loadcomb = Number(index);
    ApplyAnnexLoads(s, s, s.annexindex);
    session.Calculate();
}

void TickDeflections(Session& session, bool on)
{
    session.edit().checksls = on ? kTrue : kFalse;
    session.Calculate();
}

void TickModal(Session& session, bool on)
{
    const bool refused = on && SpringShown(session.state());
    if (refused) {
        session.surroundings().Warn(kNoModal);
    }
    session.edit().modal = on && !refused ? 1 : 0;
    session.Calculate();
}

bool ModalResultShown(const ProjectState& s)
{
    return s.modal == 1;
}

void TickLateralBuckling(Session& session, bool on)
{
    ProjectState& s = session.edit();
    s.ltb = on ? 1 : 0;
    FollowLateralTick(s);
    session.Calculate();
}

void ChooseLateralCase(Session& session, int ltbcase)
{
    ProjectState& s = session.edit();
    s.ltbcase = Number(ltbcase);
    FollowLateralCase(s);
    session.Calculate();
}

bool LateralCaseOffered(const ProjectState& s, int ltbcase)
{
    constexpr int kHeldEnd = 2;
    return s.supportcase != SupportCase::cantilever || ltbcase <= kHeldEnd || ltbcase == s.ltbcase;
}

void ChooseRestraints(Session& session, int restraints)
{
    session.edit().restraints = Number(restraints);
    session.Calculate();
}

void ChooseLateralCurve(Session& session, int ltbcurve)
{
    session.edit().ltbcurve = Number(ltbcurve);
    session.Calculate();
}

void ChooseLoadLevel(Session& session, int loadlevel)
{
    session.edit().loadlevel = Number(loadlevel);
    session.Calculate();
}

void TickManualFactors(Session& session, bool on)
{
    session.edit().cmanual = on ? kTrue : kFalse;
    session.Calculate();
}

void TickAlternativeC1(Session& session, bool on)
{
    session.edit().c1alt = on ? kTrue : kFalse;
    session.Calculate();
}

bool ManualFactorsOffered(const ProjectState& s)
{
    return s.loadmode == 1 && s.restraints == 0;
}

bool LateralCurveForced(const ProjectState& s)
{
    const LateralBuckling lateral = Traits(s).design.lateral;
    return lateral == LateralBuckling::general || lateral == LateralBuckling::unchanged;
}

void OpenVipping(Session& session)
{
    if (LateralCurveForced(session.state())) {
        session.edit().ltbcurve = LtbCurve::general;
    }
    session.Calculate();
}

void ChooseCheckMode(Session& session, int cpmode)
{
    session.edit().cpmode = Number(cpmode);
    session.Calculate();
}

void ChooseCheckCount(Session& session, int cpcount)
{
    session.edit().cpcount = Number(cpcount);
    session.Calculate();
}

void ChooseCheckRelative(Session& session, bool relative)
{
    session.edit().cprelative = relative ? 1 : 0;
    session.Publish();  // display only
}

void ChooseEndPost(Session& session, int endstiff)
{
    session.edit().endstiff = Number(endstiff);
    session.Calculate();
}

void ChooseWebStiffeners(Session& session, int webstiff)
{
    ProjectState& s = session.edit();
    s.webstiff = Number(webstiff);
    FollowWebStiffeners(s);
    session.Calculate();
}

void TellVortexRefusal(Session& session, int family)
{
    if (const std::string_view refusal = VortexRefusal(family); !refusal.empty()) {
        session.surroundings().Warn(refusal);
    }
}

bool OpenVortex(Session& session)
{
    if (!VortexFamily(session.state().family)) {
        TellVortexRefusal(session, session.state().family);
        return false;
    }
    RefreshVortex(session);
    return true;
}

void ChooseVortexSupport(Session& session, int vortexcase)
{
    session.edit().vortexcase = Number(vortexcase);
    RefreshVortex(session);
}

void ChooseTerrain(Session& session, int terrain)
{
    session.edit().terrain = Number(terrain);
    RefreshVortex(session);
}

void RefreshVortex(Session& session)
{
    session.Record();
    ProjectState& s = session.edit();
    ControlVortices(s, s, s);  // what cannot be calculated keeps its values
    session.ShowVortex();
    session.Publish();
}

}  // namespace kestrum
