#include "app/optimize_table.h"

#include "app/choices.h"
#include "app/view_section.h"
#include "core/held_state.h"
#include "core/project_inputs.h"
#include "core/utf8_text.h"

#include <algorithm>
#include <memory>
#include <unordered_map>
#include <utility>

namespace kestrum {

CaseStore::CaseStore(const MemberList& members, ForceColumns columns, std::string table)
    : CaseReader(members, std::move(columns), std::move(table)), cases_(members.size())
{
}

void CaseStore::Take(ForcePiece&, CaseRows& rows)
{
    cases_[member()].push_back(rows);
}

std::vector<MemberGroup> GroupsOf(const MemberList& members, std::size_t column)
{
    std::vector<MemberGroup> groups;
    std::unordered_map<std::string, std::size_t> places;
    for (std::size_t member = 0; member < members.size(); ++member) {
        std::string name =
            column == MemberList::kNone ? std::string{} : members.CellOf(member, column);
        const auto [at, fresh] =
            name.empty() ? std::pair(places.end(), true) : places.try_emplace(name, groups.size());
        if (fresh) {
            groups.push_back({std::move(name), {}});
        }
        groups[fresh ? groups.size() - 1 : at->second].members.push_back(member);
    }
    return groups;
}

// A member of a group as it was read.
struct OptimizeWorker::Taken {
    std::size_t member;
    HeldState s;
    std::string refusal;
    std::unique_ptr<SectionRater> rater{};
    std::size_t place = 0;  // among those of the group that can be calculated
    bool unloaded = false;
};

OptimizeWorker::OptimizeWorker(const OptimizePlan& plan, const OptimizeForm& form,
                               const std::vector<MemberGroup>& groups)
    : plan_(plan), form_(form), groups_(groups), optimizer_(plan.library, plan.pool, plan.wishes)
{
}

void OptimizeWorker::Work(OptimizePiece& piece)
{
    piece.answers.clear();
    piece.fault.clear();
    piece.words.clear();
    for (std::size_t i = piece.first; i < piece.behind; ++i) {
        Group(piece, groups_[i]);
    }
}

void OptimizeWorker::Take(OptimizePiece& piece, Taken& taken) const
{
    const std::string place =
        plan_.members.table() + ":" + std::to_string(plan_.members.LineOf(taken.member)) + ": ";
    LineExtras extras;
    taken.refusal =
        plan_.members.Apply(taken.member, plan_.library, taken.s, plan_.manner, &extras);
    if (!taken.refusal.empty()) {
        piece.fault += Printable(place + taken.refusal) + "\n";
        return;
    }
    RememberRemarks(piece.words, extras, plan_.members.table(), place);
    if (plan_.forces == nullptr) {
        taken.rater = std::make_unique<LoadRater>(plan_.library, taken.s, plan_.notes);
        return;
    }
    std::vector<CaseRows>& cases = plan_.forces->CasesOf(taken.member);
    if (cases.empty()) {
        taken.unloaded = true;
        taken.refusal = "no forces";
        return;
    }
    taken.rater = std::make_unique<CaseRater>(plan_.library, taken.s, cases, plan_.notes);
}

void OptimizeWorker::Group(OptimizePiece& piece, const MemberGroup& group)
{
    std::vector<Taken> members;
    std::vector<SectionRater*> raters;
    members.reserve(group.members.size());
    for (const std::size_t member : group.members) {
        members.push_back({member, plan_.base, {}});
        Taken& taken = members.back();
        Take(piece, taken);
        if (taken.rater) {
            taken.place = raters.size();
            raters.push_back(taken.rater.get());
        }
    }
    OptimizeAnswer answer;
    const auto missing = std::find_if(members.begin(), members.end(),
                                      [](const Taken& taken) { return !taken.rater; });
    if (missing == members.end()) {
        answer = optimizer_.Choose(raters);
    } else {
        answer.message = "member \"" + plan_.members.Key(missing->member) +
                         "\" of its group: " + missing->refusal;
    }
    for (const Taken& taken : members) {
        Answer(piece, group, taken, taken.rater ? &answer : nullptr);
    }
}

void OptimizeWorker::Answer(OptimizePiece& piece, const MemberGroup& group, const Taken& taken,
                            const OptimizeAnswer* answer) const
{
    OptimizePiece::Answer one{.member = taken.member};
    const std::string section = SectionName(plan_.library, taken.s);
    const std::string steel =
        NameOfValue(plan_.library, *FindChoice("fykindex"), InputsOf(taken.s).fykindex);
    OptimizedMember of{.key = plan_.members.Key(taken.member),
                       .group = group.name,
                       .member = taken.place,
                       .refusal = taken.refusal,
                       .refused = taken.unloaded ? Verdict::not_checked : Verdict::bad};
    if (taken.rater) {
        of.section = section;
        of.steel = steel;
        of.figures = FiguresOf(plan_.library, taken.s);
    }
    form_.AppendLines(one.lines, of, answer);
    one.verdict = form_.VerdictFor(of, answer);
    const RatedCandidate* const chosen =
        answer != nullptr && !answer->found.empty() ? &answer->found.front() : nullptr;
    HeldState s = taken.s;
    if (chosen != nullptr) {
        optimizer_.Give(s, *chosen);
        const double length = InputsOf(s).l;
        one.ir = form_.RatioOf(chosen->answers[taken.place]);
        one.after = chosen->figures.mass * length;
        one.before = of.figures ? of.figures->mass * length : 0;
    }
    if (plan_.chosen != nullptr) {
        plan_.chosen->AppendLine(one.chosen, taken.member, chosen, s);
    }
    piece.answers.push_back(std::move(one));
}

}  // namespace kestrum
