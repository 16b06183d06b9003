#include "app/session.h"

#include "analysis/load_model.h"
#include "core/annexes.h"
#include "design/p24bas_hsq.h"
#include "engine/calculate.h"
#include "engine/new_project.h"

namespace kestrum {

namespace {

// Boxes after whose change the loads may no longer fit the member.
bool ChecksLoads(const Box& box)
{
    return box.form == "kestrum" && (box.id == "il" || box.id == "ibly" || box.id == "iblz");
}

bool IsTrapezoidPosition(const Box& box)
{
    return box.form == "Loading" && box.id.starts_with("iqt");
}

}  // namespace

Session::Session(const Library& library, Surroundings& surroundings, bool decimalcomma)
    : library_(library), surroundings_(surroundings), decimalcomma_(decimalcomma)
{
    StartUp(library_, state_);
    shown_ = state_;
    title_ = TitleStem() + ": " + state_.filename;
}

void Session::Calculate()
{
    if (calculating_) {
        return;
    }
    calculating_ = true;
    failed_ = !kestrum::Calculate(library_, state_);
    if (!failed_) {
        shown_ = state_;
    }
    const bool tell = state_.flangeoverload && !overload_told_;
    overload_told_ = state_.flangeoverload;
    calculating_ = false;
    changed();
    if (tell) {
        surroundings_.Warn(kFlangeOverload);
    }
}

Outcome Session::CommitBox(const Box& box, int index, std::string_view text)
{
    const Outcome outcome = Commit(state_, box, index, text, decimalcomma_);
    if (!outcome.message.empty()) {
        surroundings_.Warn(outcome.message);
    }
    if (!outcome.taken) {
        changed();
        return outcome;
    }
    if (ChecksLoads(box) || IsTrapezoidPosition(box)) {
        const LoadCheck check =
            ChecksLoads(box) ? ValidateLoads(state_) : CheckLoadPositions(state_);
        if (!check.message.empty()) {
            surroundings_.Warn(check.message.text());
        }
    }
    Calculate();
    return outcome;
}

std::string Session::TitleStem() const
{
    return "Kestrum EC3" + std::string(AnnexSuffix(state_.annexindex));
}

}  // namespace kestrum
