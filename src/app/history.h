#pragma once

// The way back: every step of the user with the whole project before it, across forms, files and
// kinds of loading. A step goes back to exactly what was there, results included; nothing is
// calculated again.

#include "core/held_state.h"
#include "core/state/types.h"
#include "report/outcome.h"

#include <cstddef>
#include <deque>
#include <string>
#include <string_view>

namespace kestrum {

// The project at one moment with all that a window shows of it.
struct Snapshot {
    HeldState state{}, shown{};  // in hand; of the last pass that ended well
    Outcome outcome{};
    i16 lateraloff = 0;
    bool failed = false;
    std::string title{};
    std::size_t document = 0;  // which project, counted as they came in
    std::size_t step = 0;      // the step that led here; the same number is the same input
};

class History {
public:
    // Older steps are forgotten.
    static constexpr std::size_t kMostSteps = 1000;

    // What stands at present, as it was told last.
    const Snapshot& now() const { return now_; }

    // The user has done something: the present joins the way back under this name, another way
    // forward is forgotten. Renew follows when the new state is complete.
    void Push(std::string what);

    // He goes on with the last step.
    void Continue() { now_.step = ++steps_; }

    // The same step with what a pass has made of it.
    void Renew(Snapshot now);

    bool CanUndo() const { return !back_.empty(); }
    bool CanRedo() const { return !forward_.empty(); }

    // Names of the steps that Undo and Redo take; empty when there is none.
    std::string_view UndoText() const;
    std::string_view RedoText() const;

    // One step; the new present. There must be one.
    const Snapshot& Undo();
    const Snapshot& Redo();

    // The present stays, the ways are forgotten.
    void Forget();

private:
    struct Step {
        Snapshot snapshot;  // before an undone step, after a redone one
        std::string what;
    };
    const Snapshot& Move(std::deque<Step>& from, std::deque<Step>& to);

    Snapshot now_;
    std::deque<Step> back_, forward_;
    std::size_t steps_ = 0;
};

}  // namespace kestrum
