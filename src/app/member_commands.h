#pragma once

// Handlers of the main window and of the small forms about the member: supports, buckling, lateral
// torsional buckling, material, check points, end supports, vortex shedding, modal analysis. Each
// stores the choice, does what goes with it and recalculates, as the control of that name does.

#include "app/consequences.h"
#include "app/session.h"

namespace kestrum {

void SetProjectName(Session& session, std::string_view text);  // iproj; no recalculation
void SetIdent(Session& session, std::string_view text);        // iident; no recalculation

void ChooseSupport(Session& session, int supportcase);  // cbutt0 .. cbutt5
bool SpringShown(const ProjectState& s);                // ispring is there

void ChooseBucklingCase(Session& session, Axis axis, int choice);  // 1 .. 5
void ChooseBucklingCurve(Session& session, Axis axis, int index);  // cbobcy, cbobcz
bool BucklingLengthOpen(const ProjectState& s, Axis axis);         // ibly, iblz may be typed

void ChooseMaterial(Session& session, int index);                  // cbofyk of both windows
bool StrengthOpen(const Library& library, const ProjectState& s);  // ifyk may be typed

void ChooseLoadCombination(Session& session, int index);  // CboLoadComb of all three windows
void TickDeflections(Session& session, bool on);          // CheckSLS

// Modal analysis: with spring supports the tick is refused with its message.
constexpr std::string_view kNoModal = " Modal analysis not possible for spring supports ";
void TickModal(Session& session, bool on);
bool ModalResultShown(const ProjectState& s);  // cmd_modresult is free

// Lateral torsional buckling
void TickLateralBuckling(Session& session, bool on);    // ch_vipp
void ChooseLateralCase(Session& session, int ltbcase);  // latbuckl1 .. latbuckl4
// A cantilever offers a free end and a held one; no end is fixed but the first.
bool LateralCaseOffered(const ProjectState& s, int ltbcase);
void ChooseRestraints(Session& session, int restraints);  // vipping.cbo
void ChooseLateralCurve(Session& session, int ltbcurve);  // Curve2, Curve3
void ChooseLoadLevel(Session& session, int loadlevel);    // loadl1 .. loadl4
void TickManualFactors(Session& session, bool on);        // Cfactor
void TickAlternativeC1(Session& session, bool on);        // C1factor
bool ManualFactorsOffered(const ProjectState& s);         // loaded member without restraints
bool LateralCurveForced(const ProjectState& s);           // the family knows the general case only
void OpenVipping(Session& session);                       // what opening the form does

// Check points
void ChooseCheckMode(Session& session, int cpmode);    // cp_0, cp_1
void ChooseCheckCount(Session& session, int cpcount);  // no_cp1 .. no_cp3
void ChooseCheckRelative(Session& session, bool relative);

// End supports and web stiffeners
void ChooseEndPost(Session& session, int endstiff);        // oendstiff0, oendstiff1
void ChooseWebStiffeners(Session& session, int webstiff);  // cwebstiff0, cwebstiff1

// Vortex shedding.
// "Only valid for boxes and tubes", where there is something to tell.
void TellVortexRefusal(Session& session, int family);
// Opening asks the family first; false when the form stays closed.
bool OpenVortex(Session& session);
void ChooseVortexSupport(Session& session, int vortexcase);
void ChooseTerrain(Session& session, int terrain);
void RefreshVortex(Session& session);  // after ivb and iz

}  // namespace kestrum
