#pragma once

// The result by EN 1993-1-1 as written for the project, for all windows: calculated behind every
// pass, at once. What the deviations cost follows from a thread of its own.

#include "core/held_state.h"
#include "report/utilisation_figure.h"
#include "standard/standard.h"
#include "ui/latest_job.h"

#include <functional>
#include <vector>

namespace kestrum {

class Session;

class StandardDesk {
public:
    explicit StandardDesk(Session& session) : session_(session) {}

    // After every change of the session, before windows are refreshed.
    void Follow();

    // With its deviations as soon as they are costed.
    const standard::StandardResult& result() const { return result_; }
    bool costed() const { return costed_; }
    // That of the last project whose pass ended well, for what is drawn from Session::shown.
    const standard::StandardResult& shown() const { return shown_; }
    // Utilisation along the member of that project, by both bases.
    const Utilisation& along() const { return along_; }
    // The project that it is of, as the pass was given it.
    const ProjectState& given() const { return given_; }
    // The record after the program's pass; null where that failed.
    const ProjectState* program() const;

    // Shows the costs, and the notes of the session, which have come in.
    std::vector<std::function<void()>> costs{};

    // The deviation that the user wants to have explained.
    std::optional<Dev> chosen{};

private:
    void AskForCosts();

    Session& session_;
    HeldState given_{};
    standard::StandardResult result_{}, shown_{};
    Utilisation along_{};
    bool calculated_ = false, costed_ = false, failed_ = false;
    LatestJob job_;
};

}  // namespace kestrum
