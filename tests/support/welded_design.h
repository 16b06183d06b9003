#pragma once

// The design routines of the welded families, chosen by the family of the state.

#include "core/project_state.h"
#include "design/box_section.h"
#include "design/hat_beam_section.h"
#include "design/single_symmetric_i_section.h"
#include "design/stiffened_plate_section.h"
#include "design/tee_section.h"
#include "support/welded.h"

namespace welded {

// Properties, effective section and resistances.
inline void Prepare(kestrum::ProjectState& s)
{
    Properties(s);
    switch (s.family) {
    case 22:
        CalcEffectiveSingleI(s, s);
        return CalcResistanceSingleI(s, s, s, s);
    case 24:
    case 25:
        CalcEffectiveHsq(s, s);
        return CalcResistanceHsq(s, s, s, s);
    case 26:
        CalcEffectiveT(s, s);
        return CalcResistanceT(s, s, s, s);
    case 27:
        CalcEffectiveBox(s, s);
        return CalcResistanceBox(s, s, s, s);
    default:
        CalcEffectivePlate(s, s);
        return CalcResistancePlate(s, s, s, s);
    }
}

inline kestrum::ProjectState Prepared(int family)
{
    kestrum::ProjectState s = Default(family);
    Prepare(s);
    return s;
}

// One check section at x = 0; kN, kNm.
struct SectionForces {
    double n, my, mz, vz, vy;
};

inline void SetForces(kestrum::ProjectState& s, const SectionForces& f)
{
    s.ned = f.n;
    s.npts = 0;
    s.xi[0] = 0;
    s.mysec[0] = f.my;
    s.mzsec[0] = static_cast<float>(f.mz);
    s.vzsec[0] = f.vz;
    s.vysec[0] = f.vy;
}

inline void Control(kestrum::ProjectState& s, const SectionForces& f)
{
    SetForces(s, f);
    switch (s.family) {
    case 22:
        return ControlSingleI(s, s, s, s, s, s);
    case 24:
    case 25:
    case 27:
        return ControlHsq(s, s, s, s, s, s);
    case 26:
        return ControlT(s, s, s, s, s, s);
    default:
        return ControlPlate(s, s, s, s, s, s);
    }
}

}  // namespace welded
