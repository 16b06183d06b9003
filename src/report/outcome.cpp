#include "report/outcome.h"

#include "engine/calculate.h"
#include "engine/family_routines.h"
#include "engine/validate.h"
#include "report/design_notes.h"

#include <algorithm>
#include <array>

namespace kestrum {

namespace {

constexpr std::string_view kNoControl = "nothing checked: no section control for this family";
constexpr std::string_view kNothingActs = "no load acts on the member";
constexpr std::string_view kNoRow = "forces act, and no check applies to them";
constexpr std::string_view kDeflectionClause = "7.2";

// The larger of two rows; an empty one has no ratio.
const ResultRow* Worse(const ResultRow* a, const ResultRow* b)
{
    if (b->empty() || !b->judged) {
        return a;
    }
    return a == nullptr || b->ir > a->ir ? b : a;
}

// Given end forces have no deflection: the rows are those of the last calculation with loads.
bool DeflectionCounts(const ProjectState& s)
{
    return s.checksls != kFalse && s.loadmode == 1;
}

const ResultRow* GoverningRow(const ProjectState& s)
{
    const ResultRow* row = nullptr;
    for (std::size_t i = 1; i <= 3; ++i) {
        row = Worse(row, &s.secline[i]);
    }
    for (const ResultRow* other : {&s.yline, &s.zline, &s.ltline}) {
        row = Worse(row, other);
    }
    if (DeflectionCounts(s)) {
        row = Worse(Worse(row, &s.deflinez), &s.defliney);
    }
    return row;
}

double GoverningRatio(const ProjectState& s)
{
    return std::max({s.irsection, s.maxirbuckling, DeflectionRatio(s)});
}

// "NEd/NRd" of a row that begins with "IR = NEd/NRd = ".
std::string ControlOf(const ResultRow& row)
{
    constexpr std::string_view kHead = "IR = ", kTail = "= ";
    std::string text;
    for (const Literal& piece : row.label) {
        text.append(piece.text());
    }
    text.erase(0, text.starts_with(kHead) ? kHead.size() : 0);
    text.erase(text.find_last_not_of(kTail) + 1);
    return text;
}

// "6.2.4" of a limit that ends in "(Ch 6.2.4)"; deflections name none.
std::string_view ClauseOf(const ResultRow& row)
{
    for (const Literal& piece : row.limit) {
        const std::size_t at = piece.text().find("Ch ");
        if (at != std::string_view::npos) {
            const std::string_view clause = piece.text().substr(at + 3);
            return clause.substr(0, clause.find_first_not_of("0123456789./"));
        }
    }
    return kDeflectionClause;
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
    const ResultRow* const row = GoverningRow(s);
    if (row == nullptr) {
        const bool acts = ForcesAct(s);
        outcome.verdict = acts ? Verdict::not_checked : Verdict::nothing_acts;
        outcome.message = acts ? kNoRow : kNothingActs;
        return outcome;
    }
    outcome.ir = GoverningRatio(s);
    outcome.verdict = outcome.ir > s.irlimit ? Verdict::above : Verdict::within;
    outcome.control = ControlOf(*row);
    outcome.clause = ClauseOf(*row);
    for (const DesignNote& note : DesignNotes(s)) {
        outcome.notes.push_back(note.id);
    }
    return outcome;
}

void AddDropped(const ProjectState& s, bool well, Outcome& outcome)
{
    for (const DroppedLoad& load : DroppedNow(s, s)) {
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

double DeflectionRatio(const ProjectState& s)
{
    if (!DeflectionCounts(s)) {
        return 0;
    }
    return std::max(s.deflinez.empty() ? 0.0 : s.deflinez.ir,
                    s.defliney.empty() ? 0.0 : s.defliney.ir);
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
