// Members of a frame under the forces of another program, as columns: the worst case of each.

#include "library/forces.h"
#include "library/rows.h"

#include <algorithm>
#include <array>
#include <mutex>

struct kestrum_envelope {
    std::size_t members = 0, rows = 0;                       // rows of the forces
    std::array<std::vector<kestrum::library::Worst>, 2> of;  // program, standard
    std::vector<kestrum::library::Fault> faults;
};

namespace {

using kestrum::Bases;
using kestrum::CaseFault;
using kestrum::CaseRows;
using kestrum::MemberAnswer;
using kestrum::library::Answered;
using kestrum::library::Case;
using kestrum::library::Fault;
using kestrum::library::ForceOrder;
using kestrum::library::Guarded;
using kestrum::library::MemberRows;
using kestrum::library::Refusal;
using kestrum::library::Required;
using kestrum::library::RequiredOut;
using kestrum::library::Worst;

// What all threads add to.
class Answers {
public:
    explicit Answers(std::size_t members) : of_(members) {}

    void Add(std::size_t member, MemberAnswer answer, std::size_t refused_column)
    {
        const std::lock_guard lock(mutex_);
        if (!answer.refusal.empty() && answer.refused == kestrum::Verdict::bad &&
            of_[member].refusal.empty()) {
            faults_.Add({member, refused_column, 0, answer.refusal});
        }
        of_[member].Add(std::move(answer));
    }
    void Add(Fault fault)
    {
        const std::lock_guard lock(mutex_);
        faults_.Add(std::move(fault));
    }

    const std::vector<MemberAnswer>& members() const { return of_; }
    std::vector<Fault> TakeFaults() { return faults_.Take(); }

private:
    std::mutex mutex_;
    std::vector<MemberAnswer> of_;
    kestrum::library::Faults faults_;
};

struct Plan {
    MemberRows members;
    ForceOrder order;
    unsigned basis;
};

class Worker {
public:
    Worker(const Plan& plan, Answers& answers)
        : plan_(plan), answers_(answers),
          cases_(plan.members.library(), kestrum::library::BasesOf(plan.basis), false)
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
    kestrum::HeldState s_;
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
    plan_.order.Read(at, rows_);
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
        const Case& at = plan_.order.cases()[i];
        Open(at.member);
        MemberAnswer answer = AnswerOf(at);
        if (worst_) {
            worst_->Add(std::move(answer));
        } else {
            worst_ = std::move(answer);
        }
        if (i + 1 == to || plan_.order.cases()[i + 1].member != at.member) {
            cases_.Measure(worst_->program);
            answers_.Add(at.member, std::move(*worst_), refused_);
            worst_.reset();
        }
    }
}

kestrum_envelope Run(const Plan& plan, std::size_t members, unsigned threads)
{
    const std::size_t cases = plan.order.cases().size();
    const std::size_t crew = kestrum::library::ThreadsFor(threads, cases);
    Answers answers(members);
    // Of a long run of cases most need no words: they are below the worst so far.
    const std::size_t at_a_time = std::clamp<std::size_t>(cases / (8 * crew), 1, 1024);
    kestrum::library::ShareOut(crew, cases, at_a_time, [&](std::size_t) {
        return [worker = std::make_shared<Worker>(plan, answers)](
                   std::size_t from, std::size_t to) { worker->Work(from, to); };
    });
    kestrum_envelope envelope;
    envelope.rows = plan.order.forces().rows;
    envelope.faults = answers.TakeFaults();
    envelope.members = members;
    for (const MemberAnswer& answer : answers.members()) {
        for (const std::size_t basis : {0U, 1U}) {
            if ((plan.basis & (1U << basis)) != 0) {
                envelope.of[basis].push_back(
                    kestrum::library::WorstOf(answer, basis == 0 ? Bases::program : Bases::standard,
                                              plan.order.forces().rows));
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
        const Plan plan{std::move(rows), ForceOrder(Required(forces, "forces"), members), basis};
        return Run(plan, members, threads);
    });
}

void kestrum_envelope_free(kestrum_envelope* envelope)
{
    delete envelope;
}

size_t kestrum_envelope_members(const kestrum_envelope* envelope)
{
    return envelope == nullptr ? 0 : envelope->members;
}

kestrum_code kestrum_envelope_worst(const kestrum_envelope* envelope, size_t member, unsigned basis,
                                    kestrum_worst* out, kestrum_error** error)
{
    return Guarded(error, [&] {
        RequiredOut(out, "out") =
            kestrum::library::Shown(WorstAt(Required(envelope, "envelope"), member, basis));
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
        RequiredOut(out, "out") = kestrum::library::Shown(of.faults, index, of.rows);
    });
}
