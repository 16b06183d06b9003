#pragma once

// A record held by value where the header that holds it need not know what is in one: it is copied,
// moved and deleted with its holder.

#include <memory>

namespace kestrum {

struct ProjectState;

class HeldState {
public:
    HeldState();  // value-initialised
    HeldState(const ProjectState& state);
    HeldState(const HeldState& other);
    HeldState(HeldState&& other) noexcept;
    HeldState& operator=(const HeldState& other);
    HeldState& operator=(HeldState&& other) noexcept;
    HeldState& operator=(const ProjectState& state);
    ~HeldState();

    ProjectState& operator*() { return *state_; }
    const ProjectState& operator*() const { return *state_; }
    ProjectState* operator->() { return state_.get(); }
    const ProjectState* operator->() const { return state_.get(); }
    operator ProjectState&() { return *state_; }
    operator const ProjectState&() const { return *state_; }

private:
    std::unique_ptr<ProjectState> state_;
};

}  // namespace kestrum
