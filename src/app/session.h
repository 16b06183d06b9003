#pragma once

// The program without its windows: the one project, its last good result, what the title shows. The
// commands and input handlers (app/*_commands) change the project through it; a window redraws
// itself when `changed` is called.

#include "analysis/load_model.h"
#include "app/disk_file.h"
#include "app/history.h"
#include "app/input_boxes.h"
#include "app/surroundings.h"
#include "core/held_state.h"
#include "core/library.h"
#include "report/outcome.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kestrum {

class Aside;

class Session {
public:
    Session(const Library& library, Surroundings& surroundings, bool decimalcomma);

    const Library& library() const { return library_; }
    Surroundings& surroundings() { return surroundings_; }
    bool decimalcomma() const { return decimalcomma_; }

    // What is wrong with the files that the program found by itself, a damaged setup or table, one
    // a line; empty when all is well.
    std::string DataFaults() const;

    // The project in hand. Handlers write to `edit` and call Calculate; one that runs no pass calls
    // Record and Publish.
    const ProjectState& state() const { return *state_; }
    ProjectState& edit() { return *state_; }
    void Replace(const ProjectState& s) { state_ = s; }

    // The state of the last pass that ended well: panel, diagrams and pages are drawn from it.
    // Before the first one it is the project in hand. The vortex control needs no pass: what it
    // takes from the wind and gives joins by ShowVortex.
    const ProjectState& shown() const { return *shown_; }
    void ShowVortex();

    // True while `txtError` is visible: the last pass could not finish and `shown` is an older one.
    bool failed() const { return failed_; }

    // Verdict on the last pass, also on one that could not finish.
    const Outcome& outcome() const { return outcome_; }

    // The family that has switched lateral torsional buckling off for all that follow; 0: none, it
    // is as the user left it.
    i16 lateraloff() const { return lateraloff_; }

    // What has been changed since the last record becomes a step that Undo takes back. A text that
    // is typed on is one step.
    void Record();
    // The change is complete: it is kept, set aside, and `changed` is called.
    void Publish();

    // One pass between Record and Publish. Not re-entered, also not from `changed`: a list that a
    // refresh sets may raise the event of a choice. A pass that switches the flange loading off
    // says so.
    void Calculate();

    // Which deviations act in the last pass, for its notes: many passes, which a window has made on
    // a thread of its own. Until then the outcome has no notes.
    void TakeNotes(const standard::StandardResult& measured);

    // What leaving a numeric box does: reads the text, stores and checks the value, tells the user
    // when it is refused, otherwise recalculates. The outcome tells the window whether to take the
    // focus back.
    BoxOutcome CommitBox(const Box& box, int index, std::string_view text);

    // A refused value stays in the record until it is corrected; this brings back the one before.
    void TakeBack(const Box& box, int index);

    // The steps of the user, back and forth, as far as the start of the program. A step goes back
    // to what was there bit for bit, across projects, too; only the file name that a project was
    // saved under since stays. With a refused value, Undo takes that back and nothing else.
    const History& history() const { return history_; }
    void Undo();
    void Redo();
    bool CanUndo() const { return refused_ || history_.CanUndo(); }
    // The start is over: there is no way behind it.
    void ForgetSteps() { history_.Forget(); }

    // The design in hand becomes the one that others are compared with.
    void Pin();
    const std::optional<Snapshot>& pinned() const { return pinned_; }

    // Whether there is work that no file holds.
    bool modified() const;
    void MarkSaved();

    // Where unsaved work is set aside; may be none.
    Aside* aside = nullptr;

    // Window title: "Kestrum EC3", the annex, ": ", the file.
    const std::string& title() const { return title_; }
    void SetTitle(std::string title) { title_ = std::move(title); }
    // The title without the file, "Kestrum EC3 + NA/Norway".
    std::string TitleStem() const;

    // Folder of the file dialogs; at first the one the program was started from.
    std::string curdir;

    // Where reading the file stopped and why; empty when all of it was read. What was read of it is
    // the project in hand, results are not its own, and the next Save asks for a name.
    std::string filefault;
    bool halfread() const { return !filefault.empty(); }

    // The project's file as it was read or written last.
    DiskFile disk;

    // Another project, or half of one, takes the place of the one in hand, before its file is
    // known: a step that `what` names. Work that no file holds is `unsaved` from the start.
    void BeginDocument(std::string what, bool unsaved = false);
    // It has come in whole: what was said of the one before holds no longer.
    void BeginProject();

    // Called after every pass and every command that changes what a window shows.
    std::function<void()> changed = [] {};

    // Says what a check of the loads has found; `showrow` then gives the box of that row the focus
    // if the loads are being edited.
    void Tell(const LoadCheck& check);
    std::function<void(std::string_view box, int row)> showrow = [](std::string_view, int) {};

private:
    // What is kept of a project while another one is in hand.
    struct Document {
        std::string name, fault;
        DiskFile disk;
        std::size_t saved = 0;  // the step that its file holds
    };
    struct Refused {
        const Box* box;
        int index;
        double before;
    };
    Snapshot Present() const;
    void Restore(const Snapshot& snapshot);
    void LayDown();

    const Library& library_;
    Surroundings& surroundings_;
    bool decimalcomma_;
    HeldState state_, shown_;
    Outcome outcome_;
    i16 lateraloff_ = 0;
    bool failed_ = false;
    bool calculating_ = false;
    std::string title_;
    History history_;
    std::vector<Document> documents_{1};
    std::size_t document_ = 0;
    std::string arrival_;      // how the document has come in
    bool unsaved_ = false;     // what has come in
    std::string_view typing_;  // field of the text that is being typed
    std::optional<Refused> refused_;
    std::optional<Snapshot> pinned_;
};

}  // namespace kestrum
