#include "app/session.h"

#include "app/aside.h"
#include "app/box_help.h"
#include "app/change_text.h"
#include "app/locale_text.h"
#include "app/member_commands.h"
#include "core/annexes.h"
#include "core/field_table.h"
#include "core/project_state.h"
#include "core/utf8_path.h"
#include "design/hat_beam_section.h"
#include "engine/calculate.h"
#include "engine/new_project.h"

#include <cstddef>
#include <filesystem>
#include <system_error>
#include <utility>

namespace kestrum {

namespace {

// Boxes after whose change the loads may no longer fit the member.
bool ChecksLoads(const Box& box)
{
    return box.form == "kestrum" && (box.id == "il" || box.id == "ibly" || box.id == "iblz");
}

bool IsTrapezoid(const Box& box)
{
    return box.form == "Loading" && box.id.starts_with("iqt");
}

// The check of the trapezoidal rows, except that a row still being typed, with values but no
// place or a place but no values, stays as it is.
LoadCheck CheckFinishedRows(ProjectState& s)
{
    const ProjectState before = s;
    const LoadCheck check = CheckLoadPositions(s, s, s.dropped);
    for (std::size_t k = 1; k <= 3; ++k) {
        const bool loaded = before.qt1[k] != 0 || before.qt2[k] != 0;
        const bool placed = before.qtx1[k] != 0 || before.qtx2[k] != 0;
        if (loaded != placed) {
            s.qt1[k] = before.qt1[k];
            s.qt2[k] = before.qt2[k];
            s.qtx1[k] = before.qtx1[k];
            s.qtx2[k] = before.qtx2[k];
        }
    }
    return check;
}

}  // namespace

Session::Session(const Library& library, Surroundings& surroundings, bool decimalcomma)
    : library_(library), surroundings_(surroundings), decimalcomma_(decimalcomma)
{
    StartUp(library_, *state_);
    *shown_ = *state_;
    title_ = TitleStem() + ": " + state_->filename;
    std::error_code unknown;
    curdir = Utf8Name(std::filesystem::current_path(unknown));
    history_.Renew(Present());
}

void Session::Calculate()
{
    if (calculating_) {
        return;
    }
    calculating_ = true;
    Record();
    const i16 lateral = state_->ltb;
    failed_ = !kestrum::Calculate(library_, *state_);
    outcome_ = OutcomeOf(state_, !failed_);
    lateraloff_ = state_->ltb != 0 ? i16{0} : lateral != 0 ? state_->family : lateraloff_;
    if (!failed_) {
        *shown_ = *state_;
    }
    const bool overloaded = state_->flangeoverload;
    Publish();
    calculating_ = false;
    if (overloaded) {
        surroundings_.Warn(kFlangeOverload);
    }
}

void Session::TakeNotes(const standard::StandardResult& measured)
{
    KeepNotes(measured, *state_);
    outcome_ = OutcomeOf(state_, !failed_);
    if (!failed_) {
        shown_->acting = state_->acting;
    }
    if (!refused_) {
        history_.Renew(Present());
    }
}

void Session::Record()
{
    const Snapshot& before = history_.now();
    if (document_ != before.document) {
        typing_ = {};
        history_.Push(arrival_);
        if (!unsaved_) {
            MarkSaved();
        }
    } else if (InputsDiffer(before.state, state_)) {
        const std::string_view typed = TypedText(before.state, state_);
        if (typed.empty() || typed != typing_ || !modified()) {
            history_.Push(ChangeText(library_, before.state, state_));
        } else {
            history_.Continue();
        }
        typing_ = typed;
    }
}

void Session::Publish()
{
    if (!refused_) {
        history_.Renew(Present());
    }
    if (aside != nullptr && modified()) {
        aside->Keep(document_, history_.now().step,
                    {history_.now().state, disk.Digest(), halfread()});
    } else if (aside != nullptr) {
        aside->Drop(document_);
    }
    changed();
}

Snapshot Session::Present() const
{
    return {state_, shown_, outcome_, lateraloff_, failed_, title_, document_};
}

// The file of the project in hand, before another one takes its place.
void Session::LayDown()
{
    Document& document = documents_[document_];
    document.name = state_->filename;
    document.fault = filefault;
    document.disk = disk;
}

void Session::BeginDocument(std::string what, bool unsaved)
{
    LayDown();
    document_ = documents_.size();
    documents_.emplace_back();
    arrival_ = std::move(what);
    unsaved_ = unsaved;
    refused_.reset();
    filefault.clear();
}

void Session::Restore(const Snapshot& snapshot)
{
    std::string name = state_->filename;
    if (snapshot.document != document_) {
        LayDown();
        document_ = snapshot.document;
        const Document& document = documents_[document_];
        filefault = document.fault;
        if (document.name != name) {
            disk = document.disk;  // else what is known of it since
        }
        name = document.name;
    }
    *state_ = *snapshot.state;
    *shown_ = *snapshot.shown;
    outcome_ = snapshot.outcome;
    lateraloff_ = snapshot.lateraloff;
    failed_ = snapshot.failed;
    title_ = snapshot.title;
    if (title_.ends_with(state_->filename)) {
        title_.replace(title_.size() - state_->filename.size(), std::string::npos, name);
    }
    state_->filename = name;
    shown_->filename = name;
    typing_ = {};
    refused_.reset();
    Publish();
}

void Session::Undo()
{
    if (refused_) {
        const Refused refused = *refused_;
        TakeBack(*refused.box, refused.index);
        return;
    }
    Record();
    if (history_.CanUndo() && !calculating_) {
        Restore(history_.Undo());
    }
}

void Session::Redo()
{
    if (history_.CanRedo() && !calculating_ && !refused_) {
        Restore(history_.Redo());
    }
}

void Session::Pin()
{
    pinned_ = history_.now();
    Publish();
}

bool Session::modified() const
{
    return history_.now().step != documents_[document_].saved;
}

void Session::MarkSaved()
{
    documents_[document_].saved = history_.now().step;
    typing_ = {};
}

void Session::BeginProject()
{
    filefault.clear();
    lateraloff_ = 0;
}

void Session::Tell(const LoadCheck& check)
{
    if (!check.message.empty()) {
        surroundings_.Warn(check.message.text());
        showrow(check.box.text(), check.row);
    }
}

void Session::ShowVortex()
{
    shown_->vortexcase = state_->vortexcase;
    shown_->terrain = state_->terrain;
    shown_->vb = state_->vb;
    shown_->zh = state_->zh;
    shown_->stb = state_->stb;
    shown_->st = state_->st;
    shown_->vcrit = state_->vcrit;
    shown_->vm = state_->vm;
}

BoxOutcome Session::CommitBox(const Box& box, int index, std::string_view text)
{
    const Field& field = *FindField(box.field);
    const double before = NumberOf(state_, field, index);
    const BoxOutcome outcome = Commit(*state_, box, index, text, decimalcomma_);
    if (!outcome.taken) {
        surroundings_.Refuse(outcome.message, ForLocale(AllowedText(state_, box), decimalcomma_));
        if (!refused_ || refused_->box != &box || refused_->index != index) {
            refused_ = Refused{&box, index, before};
        }
        Publish();
        return outcome;
    }
    refused_.reset();
    if (!outcome.message.empty()) {
        surroundings_.Warn(outcome.message);
    }
    if (ChecksLoads(box) || IsTrapezoid(box)) {
        Tell(ChecksLoads(box) ? ValidateLoads(*state_, *state_, *state_, state_->dropped)
                              : CheckFinishedRows(*state_));
    }
    Calculate();
    if (box.form == "frmVortex") {
        RefreshVortex(*this);
    }
    return outcome;
}

void Session::TakeBack(const Box& box, int index)
{
    if (!refused_ || refused_->box != &box || refused_->index != index) {
        return;
    }
    PutNumber(*state_, *FindField(box.field), index, refused_->before);
    refused_.reset();
    if (InputsDiffer(history_.now().state, state_)) {
        Calculate();  // something else has run a pass with the refused value
    } else {
        Publish();
    }
}

std::string Session::DataFaults() const
{
    std::string text;
    for (const std::string& fault : library_.faults) {
        text += (text.empty() ? "" : "\n") + fault;
    }
    return text;
}

std::string Session::TitleStem() const
{
    return "Kestrum EC3" + std::string(AnnexSuffix(state_->annexindex));
}

}  // namespace kestrum
