#pragma once

// Conditions of design notes on sections of plates whose flanges differ (22, 24, 25, 27, 51 to 56).

#include "core/project_state.h"

namespace kestrum {

// The compressed share of the web decides between plastic and elastic resistance: by the clear web
// height it is plastic, by the straight part not.
bool PlasticByClearHeight(const ProjectState& s);

// The axial force and a moment, or the flanges in shear, are taken as in a doubly symmetric I, on
// the unsafe side.
bool TakenAsDoublySymmetric(const ProjectState& s);

// Class 3 of a flange under N and Mz rests on the stress ratio of the whole flange, and not on that
// of the outstand. b, c, t: width, outstand and thickness, mm.
bool ClassThreeOfWholeFlange(const ProjectState& s, double b, double c, double t);

}  // namespace kestrum
