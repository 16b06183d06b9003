#pragma once

// Conditions of design notes on sections of plates (21, 22, 24 to 27, 51 to 56).

#include "core/state/types.h"

namespace kestrum {

struct ProjectState;

// The compressed share of the web decides between plastic and elastic resistance: by the clear web
// height it is plastic, by the straight part not.
bool PlasticByClearHeight(const ProjectState& s);

// The axial force and a moment, or the flanges in shear, are taken as in a doubly symmetric I, on
// the unsafe side.
bool TakenAsDoublySymmetric(const ProjectState& s);

// Class 3 of a flange under N and Mz rests on the stress ratio of the whole flange, and not on that
// of the outstand. b, c, t: width, outstand and thickness, mm.
bool ClassThreeOfWholeFlange(const ProjectState& s, double b, double c, double t);

// The flanges take part in the shear buckling resistance: the one counted is wider than 15 eps tf
// on a side of a web; the moment of both is above that of the weaker one.
bool FlangeOfShearIsWide(const ProjectState& s);
bool FlangeMomentIsHigh(const ProjectState& s);

// T and plate with flat bar: eta raises the shear area above tw (h - tf/2).
bool ShearAreaOfOneFlange(const ProjectState& s);

// Hat beams: the plastic modulus beside a class 3 web is above that of the effective section.
constexpr i16 kUpgraded = 23;  // class 3 web counted as class 2
bool UpgradeIsHigh(const ProjectState& s);

// z_j of the single-symmetric I about its shear centre, mm, exactly; `top`: of the top flange.
double ExactAsymmetry(const ProjectState& s, bool top);

}  // namespace kestrum
