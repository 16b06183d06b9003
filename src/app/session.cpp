#include "app/session.h"

#include "app/member_commands.h"
#include "core/annexes.h"
#include "core/utf8_path.h"
#include "design/hat_beam_section.h"
#include "engine/calculate.h"
#include "engine/new_project.h"

#include <cstddef>
#include <filesystem>
#include <system_error>

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
    const LoadCheck check = CheckLoadPositions(s, s, s);
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
    StartUp(library_, state_);
    shown_ = state_;
    title_ = TitleStem() + ": " + state_.filename;
    std::error_code unknown;
    curdir = Utf8Name(std::filesystem::current_path(unknown));
}

void Session::Calculate()
{
    if (calculating_) {
        return;
    }
    calculating_ = true;
    const i16 lateral = state_.ltb;
    failed_ = !kestrum::Calculate(library_, state_);
    outcome_ = OutcomeOf(state_, !failed_);
    lateraloff_ = state_.ltb != 0 ? i16{0} : lateral != 0 ? state_.family : lateraloff_;
    if (!failed_) {
        shown_ = state_;
    }
    const bool overloaded = state_.flangeoverload;
    changed();
    calculating_ = false;
    if (overloaded) {
        surroundings_.Warn(kFlangeOverload);
    }
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
    shown_.vortexcase = state_.vortexcase;
    shown_.terrain = state_.terrain;
    shown_.vb = state_.vb;
    shown_.zh = state_.zh;
    shown_.stb = state_.stb;
    shown_.st = state_.st;
    shown_.vcrit = state_.vcrit;
    shown_.vm = state_.vm;
}

BoxOutcome Session::CommitBox(const Box& box, int index, std::string_view text)
{
    const BoxOutcome outcome = Commit(state_, box, index, text, decimalcomma_);
    if (!outcome.message.empty()) {
        surroundings_.Warn(outcome.message);
    }
    if (!outcome.taken) {
        changed();
        return outcome;
    }
    if (ChecksLoads(box) || IsTrapezoid(box)) {
        Tell(ChecksLoads(box) ? ValidateLoads(state_, state_, state_, state_)
                              : CheckFinishedRows(state_));
    }
    Calculate();
    if (box.form == "frmVortex") {
        RefreshVortex(*this);
    }
    return outcome;
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
    return "Kestrum EC3" + std::string(AnnexSuffix(state_.annexindex));
}

}  // namespace kestrum
