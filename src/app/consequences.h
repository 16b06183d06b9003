#pragma once

// What a choice changes beside its own field, for the handlers of the windows and for assignments
// by name. Each looks at the choice in the record and stores what goes with it.

#include <cstdint>

namespace kestrum {

struct ProjectState;

enum class Axis : std::uint8_t { y, z };

// A length factor that switches a buckling off.
constexpr float kBucklingOff = 0.001F;

// Buckling cases from here on have the user's own factor.
constexpr int kOwnFactor = 5;

// Length factor of buckling that a case stands for, 1 to 5.
float BucklingFactor(int bucklingcase);

void FollowSupport(ProjectState& s);  // buckling lengths, unless they are the user's own
void FollowBucklingCase(ProjectState& s, Axis axis);
void FollowLateralTick(ProjectState& s);  // ltb
void FollowLateralCase(ProjectState& s);
void FollowWebStiffeners(ProjectState& s);

}  // namespace kestrum
