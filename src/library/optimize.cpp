// The lightest section that passes, of each member or of groups of members.

#include "app/optimize.h"
#include "app/choices.h"
#include "library/forces.h"
#include "library/rows.h"

#include <algorithm>
#include <cmath>
#include <mutex>
#include <unordered_map>

struct kestrum_pool {
    std::shared_ptr<const kestrum::Library> library;
    kestrum::SectionPool pool;
};

struct kestrum_selection {
    struct Choice {
        std::string section, steel, why;
        double mass, h, b, surface, price;
        std::vector<kestrum::library::Worst> worst;  // program, standard
    };
    struct Member {
        std::vector<Choice> found;
        std::optional<Choice> lighter;
        std::string message;
    };
    std::size_t rows = 0;  // of the forces
    unsigned basis = 0;
    std::vector<Member> members;
    std::vector<kestrum::library::Fault> faults;
};

namespace {

using kestrum::MemberAnswer;
using kestrum::OptimizeAnswer;
using kestrum::RatedCandidate;
using kestrum::library::Answered;
using kestrum::library::Guarded;
using kestrum::library::MemberRows;
using kestrum::library::Refusal;
using kestrum::library::Required;
using kestrum::library::RequiredOut;
using kestrum::library::RequiredText;
using Choice = kestrum_selection::Choice;

void Allow(const std::string& refusal, const char* field)
{
    if (!refusal.empty()) {
        throw Refusal{KESTRUM_REFUSED, refusal, field};
    }
}

double Limit(double given, const char* field)
{
    if (std::isnan(given) || given < 0) {
        throw Refusal{KESTRUM_REFUSED, std::string(field) + ": a number above 0 is expected",
                      field};
    }
    return given == 0 ? std::numeric_limits<double>::infinity() : given;
}

kestrum::OptimizeWishes WishesOf(const kestrum::Library& library, const kestrum_wishes& given)
{
    kestrum::library::RequireBasis(given.basis);
    if (given.by > KESTRUM_BY_SURFACE) {
        throw Refusal{KESTRUM_REFUSED, "by: an objective is expected", "by"};
    }
    kestrum::OptimizeWishes wishes;
    wishes.by = static_cast<kestrum::Objective>(given.by);
    wishes.bases = kestrum::library::BasesOf(given.basis);
    wishes.max_ir = Limit(given.max_ir, "max_ir");
    wishes.max_h = Limit(given.max_h, "max_h");
    wishes.max_b = Limit(given.max_b, "max_b");
    wishes.top = std::max<std::size_t>(given.top, 1);
    for (std::size_t i = 0; i < given.steel_count; ++i) {
        const std::string name = RequiredText((&Required(given.steels, "steels"))[i], "steel");
        const std::string refusal = FindSteel(library, name, wishes.steels.emplace_back());
        if (!refusal.empty()) {
            throw Refusal{KESTRUM_UNKNOWN_NAME, "steel " + name + ": " + refusal, "steel"};
        }
    }
    return wishes;
}

// Members that get one section.
using Group = std::vector<std::size_t>;

std::vector<Group> GroupsOf(const std::size_t* group, std::size_t members)
{
    std::vector<Group> groups;
    std::unordered_map<std::size_t, std::size_t> places;
    for (std::size_t i = 0; i < members; ++i) {
        const std::size_t number = group == nullptr ? i : group[i];
        const auto [at, fresh] = places.try_emplace(number, groups.size());
        if (fresh) {
            groups.emplace_back();
        }
        groups[at->second].push_back(i);
    }
    return groups;
}

struct Plan {
    MemberRows members;
    std::optional<kestrum::library::ForceOrder> order;  // none: under their own loads
    const kestrum::SectionPool& pool;
    kestrum::OptimizeWishes wishes;
    std::vector<Group> groups;
    std::vector<std::size_t> first;  // case of each member
};

Choice ChoiceOf(const RatedCandidate& rated, std::size_t member, const Plan& plan)
{
    const kestrum::SectionFigures& f = rated.figures;
    Choice choice{rated.name,
                  rated.steelname,
                  WhyText(rated, plan.wishes.bases),
                  f.mass,
                  f.h,
                  f.b,
                  f.surface,
                  f.price.value_or(std::numeric_limits<double>::quiet_NaN()),
                  {}};
    static const MemberAnswer kNone{};
    const MemberAnswer& answer = member < rated.answers.size() ? rated.answers[member] : kNone;
    const std::size_t rows = plan.order ? plan.order->forces().rows : 0;
    for (const kestrum::Bases basis : {kestrum::Bases::program, kestrum::Bases::standard}) {
        choice.worst.push_back(kestrum::library::WorstOf(answer, basis, rows));
    }
    return choice;
}

class Worker {
public:
    Worker(const Plan& plan, kestrum_selection& out, std::mutex& mutex,
           kestrum::library::Faults& faults)
        : plan_(plan), out_(out), mutex_(mutex), faults_(faults),
          optimizer_(plan.members.library(), plan.pool, plan.wishes)
    {
    }
    void Work(const Group& group);

private:
    // Why the member cannot have a section at all; else it joins the group.
    std::string Join(std::size_t member);
    void Fault(std::size_t member, std::size_t column, const std::string& why);

    const Plan& plan_;
    kestrum_selection& out_;
    std::mutex& mutex_;
    kestrum::library::Faults& faults_;
    kestrum::Optimizer optimizer_;
    kestrum::HeldState s_;
    std::vector<std::vector<kestrum::CaseRows>> cases_;
    std::vector<std::unique_ptr<kestrum::SectionRater>> raters_;
};

void Worker::Fault(std::size_t member, std::size_t column, const std::string& why)
{
    const std::lock_guard lock(mutex_);
    faults_.Add({member, column, 0, why});
}

std::string Worker::Join(std::size_t member)
{
    if (const auto refused = plan_.members.Fill(member, s_)) {
        Fault(member, refused->column, refused->why);
        return refused->why;
    }
    const kestrum::Library& library = plan_.members.library();
    if (!plan_.order) {
        raters_.push_back(std::make_unique<kestrum::LoadRater>(library, s_));
        return {};
    }
    const auto& all = plan_.order->cases();
    std::vector<kestrum::CaseRows> cases;
    for (std::size_t i = plan_.first[member]; i < all.size() && all[i].member == member; ++i) {
        if (all[i].begin < all[i].end) {
            plan_.order->Read(all[i], cases.emplace_back());
        }
    }
    if (cases.empty()) {
        return "no forces";
    }
    cases_.push_back(std::move(cases));
    raters_.push_back(std::make_unique<kestrum::CaseRater>(library, s_, cases_.back()));
    return {};
}

// A member that cannot be calculated leaves its group without a section.
void Worker::Work(const Group& group)
{
    cases_.clear();
    raters_.clear();
    std::string reason;
    std::vector<std::string> own(group.size());
    for (std::size_t i = 0; i < group.size(); ++i) {
        own[i] = Join(group[i]);
        if (reason.empty() && !own[i].empty()) {
            reason = "member " + std::to_string(group[i]) + " of the group: " + own[i];
        }
    }
    OptimizeAnswer answer;
    if (reason.empty()) {
        std::vector<kestrum::SectionRater*> raters;
        for (const auto& rater : raters_) {
            raters.push_back(rater.get());
        }
        answer = optimizer_.Choose(raters);
    }
    for (std::size_t i = 0; i < group.size(); ++i) {
        kestrum_selection::Member& member = out_.members[group[i]];
        member.message = !own[i].empty() ? own[i] : !reason.empty() ? reason : answer.message;
        for (const RatedCandidate& rated : answer.found) {
            member.found.push_back(ChoiceOf(rated, i, plan_));
        }
        if (answer.lighter) {
            member.lighter = ChoiceOf(*answer.lighter, i, plan_);
        }
    }
}

kestrum_selection Run(const Plan& plan, std::size_t members, unsigned basis, unsigned threads)
{
    kestrum_selection selection;
    selection.basis = basis;
    selection.rows = plan.order ? plan.order->forces().rows : 0;
    selection.members.resize(members);
    std::mutex mutex;
    kestrum::library::Faults faults;
    const std::size_t crew = kestrum::library::ThreadsFor(threads, plan.groups.size() * 64);
    kestrum::library::ShareOut(crew, plan.groups.size(), 1, [&](std::size_t) {
        auto worker = std::make_shared<Worker>(plan, selection, mutex, faults);
        return [worker, &plan](std::size_t from, std::size_t to) {
            for (std::size_t i = from; i < to; ++i) {
                worker->Work(plan.groups[i]);
            }
        };
    });
    selection.faults = faults.Take();
    return selection;
}

const kestrum_selection::Member& MemberAt(const kestrum_selection* selection, std::size_t member)
{
    const auto& members = Required(selection, "selection").members;
    if (member >= members.size()) {
        throw Refusal{KESTRUM_UNKNOWN_NAME,
                      "member " + std::to_string(member) + " of " + std::to_string(members.size()),
                      "member"};
    }
    return members[member];
}

const Choice& FoundAt(const kestrum_selection* selection, std::size_t member, std::size_t rank)
{
    const auto& found = MemberAt(selection, member).found;
    if (rank >= found.size()) {
        throw Refusal{KESTRUM_UNKNOWN_NAME,
                      "rank " + std::to_string(rank) + " of " + std::to_string(found.size()),
                      "rank"};
    }
    return found[rank];
}

kestrum_choice Shown(const Choice& choice)
{
    return {choice.section.c_str(),
            choice.steel.c_str(),
            choice.why.c_str(),
            choice.mass,
            choice.h,
            choice.b,
            choice.surface,
            choice.price};
}

}  // namespace

kestrum_code kestrum_pool_new(const kestrum_catalogue* catalogue, kestrum_pool** out,
                              kestrum_error** error)
{
    return Answered(out, error, [&] {
        return kestrum_pool{Required(catalogue, "catalogue").library, {}};
    });
}

void kestrum_pool_free(kestrum_pool* pool)
{
    delete pool;
}

kestrum_code kestrum_pool_add(kestrum_pool* pool, const char* word, kestrum_error** error)
{
    return Guarded(error, [&] {
        kestrum_pool& to = RequiredOut(pool, "pool");
        Allow(to.pool.Add(*to.library, RequiredText(word, "word")), "pool");
    });
}

kestrum_code kestrum_pool_range(kestrum_pool* pool, const char* range, kestrum_error** error)
{
    return Guarded(error, [&] {
        kestrum::SectionPool& to = RequiredOut(pool, "pool").pool;
        const std::string text = RequiredText(range, "range");
        const bool kept = text.find('=') == std::string::npos;
        Allow(kept ? to.Keep(text) : to.Range(text), "range");
    });
}

kestrum_code kestrum_pool_prices(kestrum_pool* pool, const char* table, kestrum_error** error)
{
    return Guarded(error, [&] {
        kestrum_pool& to = RequiredOut(pool, "pool");
        Allow(to.pool.AddPrices(*to.library, RequiredText(table, "table"), "prices"), "prices");
    });
}

kestrum_code kestrum_select(const kestrum_member* base, const kestrum_column* columns,
                            size_t column_count, size_t members, const kestrum_forces* forces,
                            const size_t* group, const kestrum_pool* pool,
                            const kestrum_wishes* wishes, unsigned threads, kestrum_selection** out,
                            kestrum_error** error)
{
    return Answered(out, error, [&] {
        MemberRows rows(Required(base, "base"), columns, column_count, members);
        kestrum::SectionPool sections = Required(pool, "pool").pool;
        const kestrum::Library& library = rows.library();
        Allow(sections.Finish(library), "pool");
        const kestrum_wishes& asked = Required(wishes, "wishes");
        Plan plan{std::move(rows),          {}, sections, WishesOf(library, asked),
                  GroupsOf(group, members), {}};
        if (forces != nullptr) {
            plan.order.emplace(*forces, members);
            const auto& cases = plan.order->cases();
            for (std::size_t i = 0; i < cases.size(); ++i) {
                if (plan.first.size() == cases[i].member) {
                    plan.first.push_back(i);
                }
            }
        }
        Allow(kestrum::Optimizer(library, sections, plan.wishes).refusal(), "by");
        return Run(plan, members, asked.basis, threads);
    });
}

void kestrum_selection_free(kestrum_selection* selection)
{
    delete selection;
}

size_t kestrum_selection_members(const kestrum_selection* selection)
{
    return selection == nullptr ? 0 : selection->members.size();
}

size_t kestrum_selection_found(const kestrum_selection* selection, size_t member)
{
    return member < kestrum_selection_members(selection) ? selection->members[member].found.size()
                                                         : 0;
}

const char* kestrum_selection_message(const kestrum_selection* selection, size_t member)
{
    return member < kestrum_selection_members(selection)
               ? selection->members[member].message.c_str()
               : "";
}

kestrum_code kestrum_selection_choice(const kestrum_selection* selection, size_t member,
                                      size_t rank, kestrum_choice* out, kestrum_error** error)
{
    return Guarded(error,
                   [&] { RequiredOut(out, "out") = Shown(FoundAt(selection, member, rank)); });
}

kestrum_code kestrum_selection_worst(const kestrum_selection* selection, size_t member, size_t rank,
                                     unsigned basis, kestrum_worst* out, kestrum_error** error)
{
    return Guarded(error, [&] {
        const Choice& choice = FoundAt(selection, member, rank);
        if (basis < KESTRUM_BASIS_PROGRAM || basis > KESTRUM_BASIS_STANDARD ||
            (selection->basis & basis) == 0) {
            throw Refusal{KESTRUM_REFUSED, "basis: one that was asked for is expected", "basis"};
        }
        RequiredOut(out, "out") = kestrum::library::Shown(choice.worst[basis - 1]);
    });
}

kestrum_code kestrum_selection_lighter(const kestrum_selection* selection, size_t member,
                                       kestrum_choice* out, kestrum_error** error)
{
    return Guarded(error, [&] {
        const auto& of = MemberAt(selection, member);
        if (!of.lighter) {
            throw Refusal{KESTRUM_UNKNOWN_NAME, "no section of the pool is lighter", "member"};
        }
        RequiredOut(out, "out") = Shown(*of.lighter);
    });
}

size_t kestrum_selection_faults(const kestrum_selection* selection)
{
    return selection == nullptr ? 0 : selection->faults.size();
}

kestrum_code kestrum_selection_fault(const kestrum_selection* selection, size_t index,
                                     kestrum_fault* out, kestrum_error** error)
{
    return Guarded(error, [&] {
        const kestrum_selection& of = Required(selection, "selection");
        RequiredOut(out, "out") = kestrum::library::Shown(of.faults, index, of.rows);
    });
}
