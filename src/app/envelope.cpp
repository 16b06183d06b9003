#include "app/envelope.h"

#include "app/answer_line.h"
#include "core/held_state.h"
#include "report/outcome.h"

#include <cmath>
#include <iterator>
#include <utility>

namespace kestrum {

// --- The lines -----------------------------------------------------------------------------------

namespace {

std::string MessageOf(const WorstCase& worst)
{
    return worst.message.empty() ? std::string{} : "case " + worst.load_case + ": " + worst.message;
}

}  // namespace

std::string EnvelopeForm::Header() const
{
    if (form() == TableForm::ndjson) {
        return {};
    }
    std::string line = "member,verdict,ir,control,clause,case,x";
    if (bases_ == Bases::both) {
        line += ",verdict_standard,ir_standard,standard_check,standard_clause,case_standard,"
                "x_standard";
    }
    line += ",cases,above,failed";
    if (bases_ == Bases::both) {
        line += ",above_standard,failed_standard";
    }
    return CsvNames(line + ",notes,message\n", csv_);
}

void EnvelopeForm::AppendLine(std::string& out, std::string_view member,
                              const MemberAnswer& answer) const
{
    const bool by_standard = bases_ == Bases::standard;
    const WorstCase& worst = by_standard ? answer.standard : answer.program;
    const EnvelopeCounts& n = answer.counts;
    AnswerLine line(out, form(), csv_);
    line.Text("member", member);
    line.Text("verdict", VerdictWord(answer.VerdictIn(bases_)));
    line.Number("ir", worst.ir, answer.RatedIn(bases_) && std::isfinite(worst.ir));
    line.Text("control", worst.control);
    line.Text("clause", worst.clause);
    line.Text("case", worst.load_case);
    line.Number("x", static_cast<float>(worst.x), std::isfinite(worst.x));
    if (bases_ == Bases::both) {
        const WorstCase& other = answer.standard;
        const bool rated = other.any && !other.failed && answer.refusal.empty();
        line.Text("verdict_standard", other.any ? VerdictWord(other.verdict) : std::string_view{});
        line.Number("ir_standard", other.ir, rated && std::isfinite(other.ir));
        line.Text("standard_check", other.control);
        line.Text("standard_clause", other.clause);
        line.Text("case_standard", other.load_case);
        line.Number("x_standard", static_cast<float>(other.x), std::isfinite(other.x));
    }
    line.Number("cases", n.cases);
    line.Number("above", by_standard ? n.above_standard : n.above);
    line.Number("failed", by_standard ? n.failed_standard : n.failed);
    if (bases_ == Bases::both) {
        line.Number("above_standard", n.above_standard);
        line.Number("failed_standard", n.failed_standard);
    }
    line.List("notes", NotesOf(answer, bases_));
    std::string message = answer.refusal.empty() ? MessageOf(worst) : answer.refusal;
    const std::string other = bases_ == Bases::both ? MessageOf(answer.standard) : std::string{};
    if (!other.empty() && other != message) {
        message += (message.empty() ? "standard: " : "; standard: ") + other;
    }
    line.Text("message", message);
    line.End();
}

// --- The work ------------------------------------------------------------------------------------

EnvelopeWorker::EnvelopeWorker(const EnvelopePlan& plan, ForceColumns columns, std::string table)
    : CaseReader(plan.members, std::move(columns), std::move(table)), plan_(plan),
      cases_(plan.library, plan.bases, plan.all || plan.top > 0)
{
}

void EnvelopeWorker::Open(std::size_t member)
{
    if (prepared_ == member) {
        return;
    }
    prepared_ = member;
    HeldState s = plan_.base;
    std::string refusal = plan_.members.Apply(member, plan_.library, s, plan_.manner);
    if (refusal.empty()) {
        cases_.Prepare(s);
    } else {
        cases_.Refuse(std::move(refusal));
    }
}

std::string EnvelopeWorker::RefusalOf(std::size_t member)
{
    Open(member);
    return cases_.refusal();
}

void EnvelopeWorker::Work(ForcePiece& piece)
{
    piece.answers.clear();
    kept_.clear();
    Read(piece);
}

void EnvelopeWorker::Keep(MemberAnswer answer)
{
    if (kept_.empty() || plan_.all) {
        kept_.push_back(std::move(answer));
        return;
    }
    if (plan_.top == 0) {
        kept_.front().Add(std::move(answer));
        return;
    }
    kept_.push_back(std::move(answer));
}

void EnvelopeWorker::Take(ForcePiece& piece, CaseRows& rows)
{
    CaseFault fault;
    MemberAnswer answer = cases_.Answer(rows, kept_.empty() ? nullptr : &kept_.front(), fault);
    answer.member = member();
    if (!fault.what.empty()) {
        Fault(piece, rows, fault);
    }
    Keep(std::move(answer));
}

void EnvelopeWorker::Close(ForcePiece& piece)
{
    for (MemberAnswer& answer : kept_) {
        cases_.Measure(answer.program);
    }
    std::move(kept_.begin(), kept_.end(), std::back_inserter(piece.answers));
    kept_.clear();
}

}  // namespace kestrum
