#include "report/outcome.h"

#include "core/check_text.h"
#include "core/project_state.h"
#include "engine/calculate.h"
#include "engine/family_routines.h"
#include "engine/validate.h"
#include "report/check_key.h"

#include <algorithm>
#include <array>

namespace kestrum {

namespace {

constexpr std::string_view kNoControl = "nothing checked: no section control for this family";
constexpr std::string_view kNothingActs = "no load acts on the member";
constexpr std::string_view kNoRow = "forces act, and no check applies to them";
constexpr auto kStrengthRows = static_cast<std::size_t>(ResultRow::deflection_z);

// The check with the largest ratio of all rows, the first of several; `none` where there is none.
CheckId LargestCheck(const ProjectState& s)
{
    const std::size_t rows = DeflectionCounts(s) ? kResultRows : kStrengthRows;
    CheckId most = CheckId::none;
    for (std::size_t row = 0; row < rows; ++row) {
        const CheckId id = s.checklist.governs(static_cast<ResultRow>(row));
        const Check& check = s.checklist[id];
        if (IsJudged(check) && (most == CheckId::none || check.ratio > s.checklist[most].ratio)) {
            most = id;
        }
    }
    return most;
}

double GoverningRatio(const ProjectState& s)
{
    return std::max({s.irsection, s.maxirbuckling, DeflectionRatio(s)});
}

// The forces of the strength combination.
bool ForcesAct(const ProjectState& s)
{
    const auto acts = [](auto force) { return force != 0; };
    return s.ned != 0 || std::any_of(s.mydiag.begin(), s.mydiag.end(), acts) ||
           std::any_of(s.mzdiag.begin(), s.mzdiag.end(), acts) ||
           std::any_of(s.vzdiag.begin(), s.vzdiag.end(), acts) ||
           std::any_of(s.vydiag.begin(), s.vydiag.end(), acts);
}

Outcome Stopped(const ProjectState& s)
{
    const Failure& failure = s.failure;
    std::string why = FailureText(failure);
    if (failure.stage == Stage::input) {
        const InputFaults faults = Validate(s, nullptr);
        for (int i = 0; i < faults.count; ++i) {
            const Failure& other = faults.fault[static_cast<std::size_t>(i)];
            const bool told = other.quantity == failure.quantity && other.row == failure.row;
            why += told ? "" : "; " + FailureText(other);
        }
    }
    if (failure.stage == Stage::input || failure.cause == Cause::impossible_section) {
        return {.verdict = Verdict::not_checked, .message = why};
    }
    Outcome outcome{.verdict = Verdict::failed,
                    .message = std::string(kCalculationError) + "(" + why + ")"};
    if (failure.cause == Cause::critical_force) {
        outcome.verdict = Verdict::unstable;
        outcome.ir = failure.value / failure.limit;
    }
    return outcome;
}

Outcome Finished(const ProjectState& s)
{
    Outcome outcome;
    if (const InputFaults rows = Unfinished(s); rows.count > 0) {
        outcome.verdict = Verdict::not_checked;
        outcome.message = FailureText(rows.fault[0]);
        return outcome;
    }
    const CheckId id = LargestCheck(s);
    if (id == CheckId::none) {
        const bool acts = ForcesAct(s);
        outcome.verdict = acts ? Verdict::not_checked : Verdict::nothing_acts;
        outcome.message = acts ? kNoRow : kNothingActs;
        return outcome;
    }
    outcome.ir = GoverningRatio(s);
    outcome.verdict = outcome.ir > s.irlimit ? Verdict::above : Verdict::within;
    const Check& check = s.checklist[id];
    outcome.control = FormulaOf(check);
    outcome.clause = TextsOf(check.form).clause;
    outcome.notes = DesignNotes(s);
    return outcome;
}

void AddDropped(const ProjectState& s, bool well, Outcome& outcome)
{
    for (const DroppedLoad& load : DroppedNow(s, s.dropped)) {
        outcome.dropped.push_back(DroppedText(load));
    }
    if (!well || outcome.dropped.empty()) {
        return;
    }
    outcome.verdict = Verdict::loads_dropped;
    outcome.message.clear();
    for (const std::string& text : outcome.dropped) {
        outcome.message += (outcome.message.empty() ? "" : "; ") + text;
    }
}

}  // namespace

std::string_view VerdictWord(Verdict verdict)
{
    constexpr std::array<std::string_view, kVerdicts> kWords = {
        "within limits", "above limit",   "unstable",     "calculation error",
        "not checked",   "loads dropped", "nothing acts", "bad input"};
    return kWords[static_cast<std::size_t>(verdict)];
}

std::optional<Verdict> VerdictOf(std::string_view written)
{
    for (std::size_t i = 0; i < kVerdicts; ++i) {
        const auto verdict = static_cast<Verdict>(i);
        const std::string_view word = VerdictWord(verdict);
        if (written.starts_with(word) &&
            (written.size() == word.size() || written[word.size()] == ',')) {
            return verdict;
        }
    }
    return std::nullopt;
}

int ExitCode(Verdict verdict)
{
    switch (verdict) {
    case Verdict::within:
        return 0;
    case Verdict::above:
        return 1;
    case Verdict::unstable:
    case Verdict::failed:
        return 3;
    default:
        return 2;
    }
}

int GraverExit(int one, int other)
{
    constexpr std::array kGravity = {0, 1, 3, 2};  // of the codes 0, 1, 2, 3
    return kGravity[static_cast<std::size_t>(one)] < kGravity[static_cast<std::size_t>(other)]
               ? other
               : one;
}

std::optional<CheckId> GoverningCheckId(const ProjectState& s)
{
    const CheckId id = LargestCheck(s);
    return id == CheckId::none ? std::nullopt : std::optional(id);
}

// Given end forces have no deflection: the rows are those of the last calculation with loads.
bool DeflectionCounts(const ProjectState& s)
{
    return s.checksls != kFalse && s.loadmode == 1;
}

double DeflectionRatio(const ProjectState& s)
{
    if (!DeflectionCounts(s)) {
        return 0;
    }
    return std::max(s.checklist.row(ResultRow::deflection_z).ratio,
                    s.checklist.row(ResultRow::deflection_y).ratio);
}

std::vector<CheckId> RatedChecks(const ProjectState& s)
{
    std::vector<CheckId> ids;
    for (std::size_t i = 1; i < kChecks; ++i) {
        const auto id = static_cast<CheckId>(i);
        const bool deflection = RowOf(id) >= ResultRow::deflection_z;
        if (IsJudged(s.checklist[id]) && (!deflection || DeflectionCounts(s))) {
            ids.push_back(id);
        }
    }
    return ids;
}

Outcome OutcomeOf(const ProjectState& s, bool well)
{
    if (FindRoutines(s.family) == nullptr) {
        return {.verdict = Verdict::not_checked, .message = std::string(kNoControl)};
    }
    Outcome outcome = well ? Finished(s) : Stopped(s);
    AddDropped(s, well, outcome);
    return outcome;
}

std::string VerdictText(const Outcome& outcome)
{
    std::string text(VerdictWord(outcome.verdict));
    if (outcome.verdict == Verdict::within && !outcome.notes.empty()) {
        const std::size_t count = outcome.notes.size();
        text += ", " + std::to_string(count) + (count == 1 ? " note" : " notes") +
                " on the unsafe side";
    }
    return text;
}

}  // namespace kestrum
