#pragma once

// The member with the loads of one axis: line loads as bands above the member, forces and moments
// at their place, every one with its value and category; the axial force. With given end forces
// the end moments and shear forces instead.

#include "report/member_drawing.h"

#include <cstdint>

namespace kestrum {

// The axis along which lateral loads act: z loads bend about y (My, Vz, dz), y loads about z.
enum class LoadAxis : std::uint8_t { z, y };

// How much height the loads take: in a low pane they stand closer, with letters of the same size.
enum class LoadRows : std::uint8_t { wide, close };

Drawing DrawLoadZ(const ProjectState& s);
Drawing DrawLoadY(const ProjectState& s);
Drawing DrawLoads(const ProjectState& s, LoadAxis axis, const MemberSpan& span = {},
                  LoadRows rows = LoadRows::wide);

// " (G) ", " (Q1) " or " (Q2) ".
std::string CategoryText(double category);

// "Axial Load: 100.0 (G) +20.0 (Q1) "; empty without axial loads.
std::string AxialLoadText(const ProjectState& s);

}  // namespace kestrum
