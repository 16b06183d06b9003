#include "app/consequences.h"

#include "analysis/load_model.h"
#include "core/project_inputs.h"

#include <array>
#include <cstddef>
#include <span>

namespace kestrum {

namespace {

// Length factors of the pictures 1 to 5; the last one means no buckling and opens the box.
constexpr std::array<float, 6> kBucklingFactor{0, 2.0F, 1.0F, 0.7F, 0.5F, kBucklingOff};
constexpr i16 kPinnedCase = 2;

// Length factors of lateral torsional buckling by ltbcase; 5 comes from files only.
constexpr std::array<float, 6> kLateralFactor{0, 2.0F, 1.0F, 0.7F, 0.5F, 1.0F};

// A file may hold a case that no picture has; it brings nothing.
bool IsCase(std::span<const float> factors, int chosen)
{
    return chosen >= 1 && chosen < static_cast<int>(factors.size());
}

void ResetBucklingCase(i16& chosen, float& factor)
{
    if (chosen < kOwnFactor) {
        chosen = kPinnedCase;
        factor = BucklingFactor(kPinnedCase);
    }
}

}  // namespace

float BucklingFactor(int bucklingcase)
{
    return kBucklingFactor.at(static_cast<std::size_t>(bucklingcase));
}

void FollowSupport(ProjectState& member)
{
    ProjectInputs& s = InputsOf(member);
    ResetBucklingCase(s.bucklingcasey, s.ly);
    ResetBucklingCase(s.bucklingcasez, s.lz);
}

void FollowBucklingCase(ProjectState& member, Axis axis)
{
    ProjectInputs& s = InputsOf(member);
    const i16 chosen = axis == Axis::y ? s.bucklingcasey : s.bucklingcasez;
    if (IsCase(kBucklingFactor, chosen)) {
        (axis == Axis::y ? s.ly : s.lz) = BucklingFactor(chosen);
    }
}

void FollowLateralTick(ProjectState& member)
{
    ProjectInputs& s = InputsOf(member);
    if (s.ltb == 0) {
        s.restraints = 0;
        s.ltbk = kBucklingOff;
    } else {
        FollowLateralCase(member);
    }
}

void FollowLateralCase(ProjectState& member)
{
    ProjectInputs& s = InputsOf(member);
    if (IsCase(kLateralFactor, s.ltbcase)) {
        s.ltbk = kLateralFactor.at(static_cast<std::size_t>(s.ltbcase));
    }
}

void FollowWebStiffeners(ProjectState& member)
{
    ProjectInputs& s = InputsOf(member);
    if (s.webstiff == 0) {
        s.webstiffa = LengthInMm(s);
    } else {
        s.endstiff = 1;  // stiffeners make a rigid end post
    }
}

}  // namespace kestrum
