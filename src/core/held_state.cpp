#include "core/held_state.h"

#include "core/project_state.h"

namespace kestrum {

HeldState::HeldState() : state_(std::make_unique<ProjectState>()) {}

HeldState::HeldState(const ProjectState& state) : state_(std::make_unique<ProjectState>(state)) {}

HeldState::HeldState(const HeldState& other) : HeldState(*other) {}

HeldState::HeldState(HeldState&& other) noexcept = default;

HeldState& HeldState::operator=(const HeldState& other)
{
    return *this = *other;
}

HeldState& HeldState::operator=(HeldState&& other) noexcept = default;

HeldState& HeldState::operator=(const ProjectState& state)
{
    if (state_) {
        *state_ = state;
    } else {  // moved from
        state_ = std::make_unique<ProjectState>(state);
    }
    return *this;
}

HeldState::~HeldState() = default;

ProjectInputs& InputsOf(ProjectState& s)
{
    return s;
}

const ProjectInputs& InputsOf(const ProjectState& s)
{
    return s;
}

}  // namespace kestrum
