#include "app/envelope.h"

#include "app/answer_line.h"
#include "core/utf8_text.h"
#include "report/outcome.h"

#include <algorithm>
#include <cmath>
#include <memory>
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
    return line + ",notes,message\n";
}

void EnvelopeForm::AppendLine(std::string& out, std::string_view member,
                              const MemberAnswer& answer) const
{
    const bool by_standard = bases_ == Bases::standard;
    const WorstCase& worst = by_standard ? answer.standard : answer.program;
    const EnvelopeCounts& n = answer.counts;
    AnswerLine line(out, form(), texts_);
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
    : plan_(plan), columns_(std::move(columns)), table_(std::move(table)),
      cases_(plan.library, plan.bases, plan.all || plan.top > 0)
{
}

void EnvelopeWorker::Fault(ForcePiece& piece, std::size_t line, const std::string& what) const
{
    constexpr std::size_t kMost = 1000;  // of a piece; the rest is counted
    if (++piece.faults <= kMost) {
        piece.fault += Printable(table_ + ":" + std::to_string(line) + ": " + what) + "\n";
    }
}

void EnvelopeWorker::Prepare(std::size_t member)
{
    if (prepared_ == member) {
        return;
    }
    prepared_ = member;
    ProjectState s = plan_.base;
    std::string refusal = plan_.members.Apply(member, plan_.library, s, plan_.manner);
    if (refusal.empty()) {
        cases_.Prepare(s);
    } else {
        cases_.Refuse(std::move(refusal));
    }
}

std::string EnvelopeWorker::RefusalOf(std::size_t member)
{
    Prepare(member);
    return cases_.refusal();
}

void EnvelopeWorker::Work(ForcePiece& piece)
{
    piece.answers.clear();
    piece.fault.clear();
    piece.faults = piece.rows = piece.cases = 0;
    open_ = false;
    std::string_view rest = piece.lines;
    std::size_t line = piece.line;
    for (std::size_t i = 0; !rest.empty(); ++i) {
        const char* const before = rest.data();
        const std::string_view record = TakeRecord(rest, columns_.separator());
        const std::size_t number = i < piece.numbers.size() ? piece.numbers[i] : line;
        if (!record.empty()) {
            Record(piece, record, number);
        }
        const bool several = record.find('\n') != std::string_view::npos;
        line += several ? static_cast<std::size_t>(std::count(before, rest.data(), '\n')) : 1;
    }
    CloseMember(piece);
}

void EnvelopeWorker::Record(ForcePiece& piece, std::string_view record, std::size_t line)
{
    ++piece.rows;
    std::string_view fault =
        record.size() > kLongestLine ? "the line is too long" : columns_.Parse(record, row_);
    if (row_.member.empty()) {
        return Fault(piece, line, std::string(fault));  // of nobody
    }
    if (!open_ || row_.member != key_) {
        OpenMember(piece, row_.member, line);
    }
    if (member_ == MemberList::kNone) {
        return;
    }
    if (row_.load_case.empty()) {
        return Fault(piece, line, std::string(fault));
    }
    if (case_.empty() || row_.load_case != case_.name) {
        CloseCase(piece);
        case_.name = row_.load_case;
        case_.line = line;
    }
    if (!fault.empty()) {
        Fault(piece, line, std::string(fault));
        if (case_.fault.empty()) {
            case_.fault = "line " + std::to_string(line) + ": " + std::string(fault);
        }
    }
    case_.stations.push_back(row_.at);
    case_.lines.push_back(line);
}

void EnvelopeWorker::OpenMember(ForcePiece& piece, std::string_view key, std::size_t line)
{
    CloseMember(piece);
    open_ = true;
    key_ = key;
    member_ = plan_.members.Find(key_);
    if (member_ == MemberList::kNone) {
        return Fault(piece, line, "member \"" + key_ + "\" is not in the table of members");
    }
    Prepare(member_);
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

void EnvelopeWorker::CloseCase(ForcePiece& piece)
{
    if (case_.empty()) {
        return;
    }
    ++piece.cases;
    CaseFault fault;
    MemberAnswer answer = cases_.Answer(case_, kept_.empty() ? nullptr : &kept_.front(), fault);
    answer.member = member_;
    if (!fault.what.empty()) {
        Fault(piece, fault.line,
              "member \"" + key_ + "\", case \"" + case_.name + "\": " + fault.what);
    }
    Keep(std::move(answer));
    case_.Clear();
}

void EnvelopeWorker::CloseMember(ForcePiece& piece)
{
    if (open_ && member_ != MemberList::kNone) {
        CloseCase(piece);
        std::move(kept_.begin(), kept_.end(), std::back_inserter(piece.answers));
    }
    case_.Clear();
    kept_.clear();
    open_ = false;
}

}  // namespace kestrum
