// Members of a frame under the forces of another program, as columns: the worst case of each.

#include "app/member_cases.h"
#include "library/rows.h"

#include <algorithm>
#include <array>
#include <mutex>
#include <numeric>

struct kestrum_envelope {
    // Of a member in one basis.
    struct Worst {
        kestrum::library::Answer answer;
        std::string notes;
        double x = kestrum::kNowhere;
        std::size_t row = 0, above = 0, failed = 0;
    };
    struct Fault {
        std::size_t member, column;
        std::size_t row;  // from 1; 0 for one of the member itself
        std::string text;
    };
    std::size_t rows = 0;                  // of the forces
    std::vector<std::size_t> cases;        // of each member
    std::array<std::vector<Worst>, 2> of;  // program, standard
    std::vector<Fault> faults;
};

namespace {

using kestrum::Bases;
using kestrum::CaseFault;
using kestrum::CaseRows;
using kestrum::MemberAnswer;
using kestrum::WorstCase;
using kestrum::library::Answered;
using kestrum::library::Guarded;
using kestrum::library::MemberRows;
using kestrum::library::Refusal;
using kestrum::library::Required;
using kestrum::library::RequiredOut;
using Fault = kestrum_envelope::Fault;
using Worst = kestrum_envelope::Worst;

// Rows of one case, places in ForceOrder::rows; none of a member without forces.
struct Case {
    std::size_t member, begin, end;
};

struct ForceOrder {
    std::vector<std::size_t> rows;  // by member, case and place in the table
    std::vector<Case> cases;
};

std::size_t MemberOf(const kestrum_forces& forces, std::size_t row, std::size_t members)
{
    const std::size_t member = forces.member == nullptr ? 0 : forces.member[row];
    if (member >= members) {
        throw Refusal{KESTRUM_UNKNOWN_NAME,
                      "row " + std::to_string(row) + ": member " + std::to_string(member) + " of " +
                          std::to_string(members),
                      "member"};
    }
    return member;
}

// Counts the rows of each member, puts them into their places, and each member's cases together.
ForceOrder OrderOf(const kestrum_forces& forces, std::size_t members)
{
    std::vector<std::size_t> begin(members, 0);
    begin.push_back(0);
    for (std::size_t row = 0; row < forces.rows; ++row) {
        ++begin[MemberOf(forces, row, members) + 1];
    }
    std::partial_sum(begin.begin(), begin.end(), begin.begin());
    ForceOrder order;
    order.rows.resize(forces.rows);
    std::vector<std::size_t> next = begin;
    for (std::size_t row = 0; row < forces.rows; ++row) {
        order.rows[next[MemberOf(forces, row, members)]++] = row;
    }
    const auto case_of = [&](std::size_t row) {
        return forces.load_case == nullptr ? 0 : forces.load_case[row];
    };
    for (std::size_t member = 0; member < members; ++member) {
        const auto at = order.rows.begin();
        const auto from = static_cast<std::ptrdiff_t>(begin[member]);
        const auto to = static_cast<std::ptrdiff_t>(begin[member + 1]);
        std::stable_sort(at + from, at + to,
                         [&](std::size_t a, std::size_t b) { return case_of(a) < case_of(b); });
        std::size_t first = begin[member];
        for (std::size_t i = first; i < begin[member + 1]; ++i) {
            if (case_of(order.rows[i]) != case_of(order.rows[first])) {
                order.cases.push_back({member, first, i});
                first = i;
            }
        }
        order.cases.push_back({member, first, begin[member + 1]});
    }
    return order;
}

kestrum::Station StationOf(const kestrum_forces& forces, std::size_t row)
{
    const auto at = [row](const double* column) { return column == nullptr ? 0 : column[row]; };
    return {at(forces.x),  at(forces.n),  at(forces.vy), at(forces.vz),
            at(forces.my), at(forces.mz), at(forces.mx)};
}

Bases BasesOf(unsigned basis)
{
    return basis == KESTRUM_BASIS_PROGRAM    ? Bases::program
           : basis == KESTRUM_BASIS_STANDARD ? Bases::standard
                                             : Bases::both;
}

// What all threads add to.
class Answers {
public:
    explicit Answers(std::size_t members) : of_(members) {}

    void Add(std::size_t member, MemberAnswer answer, std::size_t refused_column)
    {
        const std::lock_guard lock(mutex_);
        if (!answer.refusal.empty() && answer.refused == kestrum::Verdict::bad &&
            of_[member].refusal.empty()) {
            Keep({member, refused_column, 0, answer.refusal});
        }
        of_[member].Add(std::move(answer));
    }
    void Add(Fault fault)
    {
        const std::lock_guard lock(mutex_);
        Keep(std::move(fault));
    }

    std::vector<MemberAnswer>& members() { return of_; }
    // The first ones in the order of the tables.
    std::vector<Fault> TakeFaults()
    {
        Cut();
        return std::move(faults_);
    }

private:
    static constexpr std::size_t kMost = 1000;

    void Keep(Fault fault)
    {
        faults_.push_back(std::move(fault));
        if (faults_.size() >= 2 * kMost) {
            Cut();
        }
    }
    void Cut()
    {
        std::sort(faults_.begin(), faults_.end(), [](const Fault& a, const Fault& b) {
            return std::pair(a.row, a.member) < std::pair(b.row, b.member);
        });
        faults_.resize(std::min(faults_.size(), kMost));
    }

    std::mutex mutex_;
    std::vector<MemberAnswer> of_;
    std::vector<Fault> faults_;
};

struct Plan {
    MemberRows members;
    const kestrum_forces& forces;
    ForceOrder order;
    unsigned basis;
};

class Worker {
public:
    Worker(const Plan& plan, Answers& answers)
        : plan_(plan), answers_(answers), cases_(plan.members.library(), BasesOf(plan.basis), false)
    {
    }
    void Work(std::size_t from, std::size_t to);

private:
    void Open(std::size_t member);
    MemberAnswer AnswerOf(const Case& at);

    const Plan& plan_;
    Answers& answers_;
    kestrum::MemberCases cases_;
    std::size_t member_ = static_cast<std::size_t>(-1);  // that cases_ are of
    std::size_t refused_ = 0;                            // its column
    std::optional<MemberAnswer> worst_;                  // of its cases so far
    CaseRows rows_;
    kestrum::ProjectState s_;
};

void Worker::Open(std::size_t member)
{
    if (member_ == member) {
        return;
    }
    member_ = member;
    refused_ = plan_.members.columns();
    if (auto refused = plan_.members.Fill(member, s_)) {
        refused_ = refused->column;
        cases_.Refuse(std::move(refused->why));
    } else {
        cases_.Prepare(s_);
    }
}

MemberAnswer Worker::AnswerOf(const Case& at)
{
    if (at.begin == at.end) {
        MemberAnswer answer;
        answer.refusal = cases_.refusal().empty() ? "no forces" : cases_.refusal();
        answer.refused =
            cases_.refusal().empty() ? kestrum::Verdict::not_checked : kestrum::Verdict::bad;
        return answer;
    }
    rows_.Clear();
    rows_.line = plan_.order.rows[at.begin];
    for (std::size_t i = at.begin; i < at.end; ++i) {
        rows_.stations.push_back(StationOf(plan_.forces, plan_.order.rows[i]));
        rows_.lines.push_back(plan_.order.rows[i]);
    }
    CaseFault fault;
    MemberAnswer answer = cases_.Answer(rows_, worst_ ? &*worst_ : nullptr, fault);
    if (!fault.what.empty()) {
        answers_.Add({at.member, plan_.members.columns(), fault.line + 1, std::move(fault.what)});
    }
    return answer;
}

void Worker::Work(std::size_t from, std::size_t to)
{
    for (std::size_t i = from; i < to; ++i) {
        const Case& at = plan_.order.cases[i];
        Open(at.member);
        MemberAnswer answer = AnswerOf(at);
        if (worst_) {
            worst_->Add(std::move(answer));
        } else {
            worst_ = std::move(answer);
        }
        if (i + 1 == to || plan_.order.cases[i + 1].member != at.member) {
            answers_.Add(at.member, std::move(*worst_), refused_);
            worst_.reset();
        }
    }
}

Worst WorstOf(const MemberAnswer& from, Bases basis, std::size_t rows)
{
    const bool standard = basis == Bases::standard;
    const WorstCase& worst = standard ? from.standard : from.program;
    const kestrum::Verdict verdict = from.VerdictIn(basis);
    const bool any = worst.any && from.refusal.empty();
    Worst to;
    to.answer.status = kestrum::library::StatusOf(verdict);
    to.answer.verdict = kestrum::VerdictWord(verdict);
    if (from.RatedIn(basis)) {
        to.answer.ratio = worst.ir;
    }
    to.answer.governing = worst.control;
    to.answer.clause = worst.clause;
    to.answer.message = from.refusal.empty() ? worst.message : from.refusal;
    for (const std::string& note : NotesOf(from, basis)) {
        to.notes.append(to.notes.empty() ? "" : "; ").append(note);
    }
    to.x = any ? worst.x : kestrum::kNowhere;
    to.row = any ? worst.line : rows;
    to.above = standard ? from.counts.above_standard : from.counts.above;
    to.failed = standard ? from.counts.failed_standard : from.counts.failed;
    return to;
}

kestrum_envelope Run(const Plan& plan, std::size_t members, unsigned threads)
{
    const std::size_t cases = plan.order.cases.size();
    const std::size_t crew = kestrum::library::ThreadsFor(threads, cases);
    Answers answers(members);
    // Of a long run of cases most need no words: they are below the worst so far.
    const std::size_t at_a_time = std::clamp<std::size_t>(cases / (8 * crew), 1, 1024);
    kestrum::library::ShareOut(crew, cases, at_a_time, [&](std::size_t) {
        return [worker = std::make_shared<Worker>(plan, answers)](
                   std::size_t from, std::size_t to) { worker->Work(from, to); };
    });
    kestrum_envelope envelope;
    envelope.rows = plan.forces.rows;
    envelope.faults = answers.TakeFaults();
    for (const MemberAnswer& answer : answers.members()) {
        envelope.cases.push_back(answer.counts.cases);
        for (const std::size_t basis : {0U, 1U}) {
            if ((plan.basis & (1U << basis)) != 0) {
                envelope.of[basis].push_back(WorstOf(
                    answer, basis == 0 ? Bases::program : Bases::standard, plan.forces.rows));
            }
        }
    }
    return envelope;
}

const Worst& WorstAt(const kestrum_envelope& envelope, std::size_t member, unsigned basis)
{
    const bool known = basis == KESTRUM_BASIS_PROGRAM || basis == KESTRUM_BASIS_STANDARD;
    if (!known || envelope.of.at(basis - 1).empty()) {
        throw Refusal{KESTRUM_REFUSED, "basis: one that was asked for is expected", "basis"};
    }
    const std::vector<Worst>& list = envelope.of.at(basis - 1);
    if (member >= list.size()) {
        throw Refusal{KESTRUM_UNKNOWN_NAME,
                      "member " + std::to_string(member) + " of " + std::to_string(list.size()),
                      "member"};
    }
    return list[member];
}

}  // namespace

kestrum_code kestrum_envelope_check(const kestrum_member* base, const kestrum_column* columns,
                                    size_t column_count, size_t members,
                                    const kestrum_forces* forces, unsigned basis, unsigned threads,
                                    kestrum_envelope** out, kestrum_error** error)
{
    return Answered(out, error, [&] {
        kestrum::library::RequireBasis(basis);
        MemberRows rows(Required(base, "base"), columns, column_count, members);
        const kestrum_forces& given = Required(forces, "forces");
        if (given.rows > 0) {
            Required(given.x, "x");
        }
        const Plan plan{std::move(rows), given, OrderOf(given, members), basis};
        return Run(plan, members, threads);
    });
}

void kestrum_envelope_free(kestrum_envelope* envelope)
{
    delete envelope;
}

size_t kestrum_envelope_members(const kestrum_envelope* envelope)
{
    return envelope == nullptr ? 0 : envelope->cases.size();
}

kestrum_code kestrum_envelope_worst(const kestrum_envelope* envelope, size_t member, unsigned basis,
                                    kestrum_worst* out, kestrum_error** error)
{
    return Guarded(error, [&] {
        const kestrum_envelope& of = Required(envelope, "envelope");
        const Worst& worst = WorstAt(of, member, basis);
        RequiredOut(out, "out") = {worst.answer.status,
                                   worst.answer.ratio,
                                   worst.x,
                                   worst.row,
                                   of.cases[member],
                                   worst.above,
                                   worst.failed,
                                   worst.answer.verdict.c_str(),
                                   worst.answer.governing.c_str(),
                                   worst.answer.clause.c_str(),
                                   worst.answer.message.c_str(),
                                   worst.notes.c_str()};
    });
}

size_t kestrum_envelope_faults(const kestrum_envelope* envelope)
{
    return envelope == nullptr ? 0 : envelope->faults.size();
}

kestrum_code kestrum_envelope_fault(const kestrum_envelope* envelope, size_t index,
                                    kestrum_fault* out, kestrum_error** error)
{
    return Guarded(error, [&] {
        const kestrum_envelope& of = Required(envelope, "envelope");
        const auto& faults = of.faults;
        if (index >= faults.size()) {
            throw Refusal{KESTRUM_UNKNOWN_NAME,
                          "index " + std::to_string(index) + " of " + std::to_string(faults.size()),
                          "index"};
        }
        const Fault& fault = faults[index];
        RequiredOut(out, "out") = {fault.member, fault.column,
                                   fault.row > 0 ? fault.row - 1 : of.rows, fault.text.c_str()};
    });
}
