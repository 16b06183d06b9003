#include "library/forces.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace kestrum::library {

namespace {

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

Station StationOf(const kestrum_forces& forces, std::size_t row)
{
    const auto at = [row](const double* column) { return column == nullptr ? 0 : column[row]; };
    return {at(forces.x),  at(forces.n),  at(forces.vy), at(forces.vz),
            at(forces.my), at(forces.mz), at(forces.mx)};
}

}  // namespace

// Counts the rows of each member, puts them into their places, then each member's cases together.
ForceOrder::ForceOrder(const kestrum_forces& forces, std::size_t members) : forces_(forces)
{
    if (forces.rows > 0) {
        Required(forces.x, "x");
    }
    std::vector<std::size_t> begin(members, 0);
    begin.push_back(0);
    for (std::size_t row = 0; row < forces.rows; ++row) {
        ++begin[MemberOf(forces, row, members) + 1];
    }
    std::partial_sum(begin.begin(), begin.end(), begin.begin());
    rows_.resize(forces.rows);
    std::vector<std::size_t> next = begin;
    for (std::size_t row = 0; row < forces.rows; ++row) {
        rows_[next[MemberOf(forces, row, members)]++] = row;
    }
    const auto case_of = [&](std::size_t row) {
        return forces.load_case == nullptr ? 0 : forces.load_case[row];
    };
    for (std::size_t member = 0; member < members; ++member) {
        const std::size_t end = begin[member + 1];
        std::stable_sort(rows_.data() + begin[member], rows_.data() + end,
                         [&](std::size_t a, std::size_t b) { return case_of(a) < case_of(b); });
        std::size_t first = begin[member];
        for (std::size_t i = first; i < end; ++i) {
            if (case_of(rows_[i]) != case_of(rows_[first])) {
                cases_.push_back({member, first, i});
                first = i;
            }
        }
        cases_.push_back({member, first, end});
    }
}

void ForceOrder::Read(const Case& at, CaseRows& rows) const
{
    rows.Clear();
    rows.line = at.begin < at.end ? rows_[at.begin] : 0;
    for (std::size_t i = at.begin; i < at.end; ++i) {
        rows.stations.push_back(StationOf(forces_, rows_[i]));
        rows.lines.push_back(rows_[i]);
    }
}

Bases BasesOf(unsigned basis)
{
    return basis == KESTRUM_BASIS_PROGRAM    ? Bases::program
           : basis == KESTRUM_BASIS_STANDARD ? Bases::standard
                                             : Bases::both;
}

Worst WorstOf(const MemberAnswer& from, Bases basis, std::size_t rows)
{
    const bool standard = basis == Bases::standard;
    const WorstCase& worst = standard ? from.standard : from.program;
    const Verdict verdict = from.VerdictIn(basis);
    const bool any = worst.any && from.refusal.empty();
    Worst to;
    to.answer.status = StatusOf(verdict);
    to.answer.verdict = VerdictWord(verdict);
    if (from.RatedIn(basis)) {
        to.answer.ratio = worst.ir;
    }
    to.answer.governing = worst.control;
    to.answer.clause = worst.clause;
    to.answer.message = from.refusal.empty() ? worst.message : from.refusal;
    for (const std::string& note : NotesOf(from, basis)) {
        to.notes.append(to.notes.empty() ? "" : "; ").append(note);
    }
    to.x = any ? worst.x : kNowhere;
    to.row = any ? worst.line : rows;
    to.above = standard ? from.counts.above_standard : from.counts.above;
    to.cases = from.counts.cases;
    to.failed = standard ? from.counts.failed_standard : from.counts.failed;
    return to;
}

kestrum_worst Shown(const Worst& worst)
{
    return {worst.answer.status,
            worst.answer.ratio,
            worst.x,
            worst.row,
            worst.cases,
            worst.above,
            worst.failed,
            worst.answer.verdict.c_str(),
            worst.answer.governing.c_str(),
            worst.answer.clause.c_str(),
            worst.answer.message.c_str(),
            worst.notes.c_str()};
}

constexpr std::size_t kMostFaults = 1000;

void Faults::Add(Fault fault)
{
    list_.push_back(std::move(fault));
    if (list_.size() >= 2 * kMostFaults) {
        Cut();
    }
}

std::vector<Fault> Faults::Take()
{
    Cut();
    return std::move(list_);
}

void Faults::Cut()
{
    std::sort(list_.begin(), list_.end(), [](const Fault& a, const Fault& b) {
        return std::pair(a.row, a.member) < std::pair(b.row, b.member);
    });
    if (list_.size() > kMostFaults) {
        list_.resize(kMostFaults);
    }
}

kestrum_fault Shown(const std::vector<Fault>& faults, std::size_t index, std::size_t rows)
{
    if (index >= faults.size()) {
        throw Refusal{KESTRUM_UNKNOWN_NAME,
                      "index " + std::to_string(index) + " of " + std::to_string(faults.size()),
                      "index"};
    }
    const Fault& fault = faults[index];
    return {fault.member, fault.column, fault.row > 0 ? fault.row - 1 : rows, fault.text.c_str()};
}

}  // namespace kestrum::library
