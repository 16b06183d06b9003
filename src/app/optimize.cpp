#include "app/optimize.h"

#include "app/assign_run.h"
#include "app/choices.h"
#include "app/view_section.h"
#include "core/material.h"
#include "core/number_format.h"
#include "core/project_state.h"
#include "report/outcome.h"

#include <algorithm>
#include <cmath>
#include <tuple>
#include <utility>

namespace kestrum {

namespace {

std::string WhyOf(const WorstCase& worst)
{
    std::string text = worst.failed ? std::string(VerdictWord(worst.verdict))
                                    : "ratio " + FormatNum(worst.ir, "0.000") + " (" +
                                          worst.control + ", " + worst.clause + ")";
    text += worst.load_case.empty() ? "" : ", case " + worst.load_case;
    return text + (worst.message.empty() ? "" : ": " + worst.message);
}

// As `kestrum set FILE steel=..`.
void GiveSteel(const Library& library, ProjectState& s, i16 steel)
{
    static const AssignTarget kGrade = [] {
        AssignTarget target;
        FindTarget(kSteel, target);
        return target;
    }();
    AssignRun run(library, s, Assignment::checked);
    run.Assign(kGrade, std::to_string(steel));
    run.Finish();
}

std::string SteelName(const Library& library, const ProjectState& s)
{
    return NameOfValue(library, *FindChoice("fykindex"), s.fykindex);
}

}  // namespace

std::string WhyText(const RatedCandidate& rated, Bases bases)
{
    const MemberAnswer& answer = rated.answer();
    if (!answer.refusal.empty()) {
        return std::string(VerdictWord(answer.refused)) + ": " + answer.refusal;
    }
    if (bases == Bases::both && answer.standard.any) {
        // The program keeps single precision: ratios that differ by that are one.
        constexpr double kSingle = 2e-6;
        const bool governs =
            RatioIn(answer, Bases::standard) > (1 + kSingle) * RatioIn(answer, Bases::program);
        return governs ? "standard: " + WhyOf(answer.standard) : WhyOf(answer.program);
    }
    return WhyOf(bases == Bases::standard ? answer.standard : answer.program);
}

// --- The search ----------------------------------------------------------------------------------

Optimizer::Optimizer(const Library& library, const SectionPool& pool, OptimizeWishes wishes)
    : library_(library), pool_(pool), wishes_(std::move(wishes)), work_{}
{
    prices_.resize(library.materials.size() + 1);
    if (pool.candidates().empty()) {
        refusal_ = "the pool is empty";
    } else if (wishes_.by == Objective::price && !pool.priced()) {
        refusal_ = "a section can be chosen by its price only from a pool with prices";
    }
}

// For a metre. Looked up once for each candidate and steel.
std::optional<double> Optimizer::PriceOf(std::size_t candidate, int steel, double mass)
{
    if (!pool_.priced()) {
        return std::nullopt;
    }
    const bool listed = IsListedGrade(library_, steel);
    auto& prices = prices_[listed ? static_cast<std::size_t>(steel) : prices_.size() - 1];
    if (prices.empty()) {
        for (const Candidate& each : pool_.candidates()) {
            prices.push_back(pool_.PriceOf(each, listed ? steel : -1));
        }
    }
    const std::optional<Price>& price = prices[candidate];
    return price ? std::optional(price->per_metre ? price->value : price->value * mass)
                 : std::nullopt;
}

// The members as they are and with each steel.
void Optimizer::TakeMembers(std::span<SectionRater* const> group)
{
    group_ = group;
    states_.clear();
    probes_.clear();
    for (const SectionRater* member : group) {
        probes_.push_back(member->member());
        if (wishes_.steels.empty()) {
            states_.push_back(member->member());
        }
        for (const i16 steel : wishes_.steels) {
            states_.push_back(member->member());
            GiveSteel(library_, states_.back(), steel);
        }
    }
}

ProjectState& Optimizer::With(std::size_t member, const Ranked& ranked)
{
    const std::size_t steels = std::max<std::size_t>(wishes_.steels.size(), 1);
    work_ = states_[member * steels + ranked.steel];
    pool_.Apply(library_, work_, pool_.candidates()[ranked.candidate]);
    return work_;
}

bool Optimizer::Fits(const SectionFigures& figures) const
{
    return figures.h <= wishes_.max_h && figures.b <= wishes_.max_b;
}

// By bounds alone. Figures of tables are left to the ratings: the standard basis corrects some.
bool Optimizer::MayPass(const Candidate& candidate, std::size_t steel,
                        const SectionFigures& figures) const
{
    if (pool_.HasRow(candidate)) {
        return true;
    }
    const std::size_t steels = std::max<std::size_t>(wishes_.steels.size(), 1);
    for (std::size_t i = 0; i < group_.size(); ++i) {
        const ProjectState& s = states_[i * steels + steel];
        const bool listed = IsListedGrade(library_, s.fykindex);
        const auto grade = static_cast<std::size_t>(s.fykindex);
        const double fy =
            listed ? std::max(library_.materials[grade].fy40, library_.materials[grade].fyover)
                   : s.fyk;
        const double limit = std::min<double>(s.irlimit, wishes_.max_ir);
        const double gammam0 = std::min(s.gammam0, 1.0);  // a pass takes that of the annex, no less
        if (!group_[i]->MayPass(figures, fy / gammam0, limit)) {
            return false;
        }
    }
    return true;
}

// The candidates in the order of the objective. Members of a group may differ in what turns or
// weighs a section: the first one orders, each has to be within the sizes.
void Optimizer::Rank(OptimizeAnswer& answer)
{
    ranked_.clear();
    const std::size_t steels = std::max<std::size_t>(wishes_.steels.size(), 1);
    const auto& candidates = pool_.candidates();
    answer.offered = candidates.size() * steels;
    for (std::uint32_t i = 0; i < candidates.size() && !stopped(); ++i) {
        std::optional<SectionFigures> first;
        bool whole = true, fits = true;
        for (std::size_t member = 0; member < group_.size() && whole && fits; ++member) {
            ProjectState& probe = probes_[member];
            if (pool_.LeavesTraces(candidates[i])) {
                probe = states_[member * steels];
            }
            const bool applied = pool_.Apply(library_, probe, candidates[i]);
            const auto figures = applied ? FiguresOf(library_, probe) : std::nullopt;
            whole = figures.has_value();
            fits = !whole || Fits(*figures);
            first = member == 0 ? figures : first;
        }
        answer.impossible += whole ? 0 : steels;
        answer.beyond += fits ? 0 : steels;
        for (std::uint16_t k = 0; k < steels && whole && fits; ++k) {
            const auto value = ValueOf(i, states_[k]->fykindex, *first);
            if (!value) {
                answer.message =
                    pool_.NameOf(library_, probes_[0], candidates[i]) + " has no price";
                return ranked_.clear();
            }
            ranked_.push_back({*value, i, k, !MayPass(candidates[i], k, *first)});
        }
    }
    std::stable_sort(ranked_.begin(), ranked_.end(), [](const Ranked& a, const Ranked& b) {
        return std::tie(a.value, a.steel) < std::tie(b.value, b.steel);
    });
}

std::optional<double> Optimizer::ValueOf(std::size_t candidate, int steel,
                                         const SectionFigures& figures)
{
    switch (wishes_.by) {
    case Objective::mass:
        return figures.mass;
    case Objective::depth:
        return figures.h;
    case Objective::surface:
        return figures.surface;
    case Objective::price:
        return PriceOf(candidate, steel, figures.mass);
    }
    return std::nullopt;
}

// The worst member of the group; not thorough: the first that fails.
RatedCandidate Optimizer::Rate(const Ranked& ranked, bool thorough)
{
    RatedCandidate rated{.candidate = pool_.candidates()[ranked.candidate]};
    rated.passes = true;
    for (std::size_t member = 0; member < group_.size() && (thorough || rated.passes); ++member) {
        ProjectState& s = With(member, ranked);
        MemberAnswer answer = group_[member]->Rate(s, wishes_.bases, wishes_.max_ir, thorough);
        const double ir = RatioIn(answer, wishes_.bases);
        rated.passes = rated.passes && Passes(answer, wishes_.bases, wishes_.max_ir);
        if (member == 0 || ir > rated.ir) {
            rated.ir = ir;
            rated.member = member;
        }
        rated.answers.push_back(std::move(answer));
    }
    return rated;
}

// Names and figures, of those that are handed out.
RatedCandidate Optimizer::Named(const Ranked& ranked, RatedCandidate rated)
{
    const ProjectState& s = With(0, ranked);
    if (!wishes_.steels.empty()) {
        rated.steel = wishes_.steels[ranked.steel];
    }
    rated.name = pool_.NameOf(library_, s, rated.candidate);
    rated.steelname = SteelName(library_, s);
    rated.figures = FiguresOf(library_, s).value_or(SectionFigures{});
    rated.figures.price = PriceOf(ranked.candidate, s.fykindex, rated.figures.mass);
    return rated;
}

// The first that pass. Of sections with one value and steel the smallest ratio comes first.
void Optimizer::Search(OptimizeAnswer& answer)
{
    std::size_t before = ranked_.size();  // the last one ahead of the first value that passes
    for (std::size_t i = 0; i < ranked_.size() && answer.found.size() < wishes_.top;) {
        std::vector<RatedCandidate> passing;
        std::size_t next = i;
        for (; next < ranked_.size() && ranked_[next].value == ranked_[i].value &&
               ranked_[next].steel == ranked_[i].steel;
             ++next) {
            if (ranked_[next].hopeless || stopped()) {
                continue;
            }
            RatedCandidate rated = Rate(ranked_[next], false);
            if (rated.passes) {
                passing.push_back(Named(ranked_[next], std::move(rated)));
            }
        }
        std::stable_sort(
            passing.begin(), passing.end(),
            [](const RatedCandidate& a, const RatedCandidate& b) { return a.ir < b.ir; });
        if (answer.found.empty() && !passing.empty()) {
            const auto lighter = [&](const Ranked& r) { return r.value < ranked_[i].value; };
            before = static_cast<std::size_t>(
                std::partition_point(ranked_.begin(), ranked_.end(), lighter) - ranked_.begin());
        }
        for (RatedCandidate& rated : passing) {
            if (answer.found.size() < wishes_.top) {
                answer.found.push_back(std::move(rated));
            }
        }
        i = next;
    }
    if (!answer.found.empty() && before > 0) {
        const Ranked& last = ranked_[before - 1];
        answer.lighter = Named(last, Rate(last, true));
    }
}

// Where none passes, the one that comes nearest.
void Optimizer::FindBest(OptimizeAnswer& answer)
{
    const Ranked* best = nullptr;
    RatedCandidate kept;
    for (const Ranked& ranked : ranked_) {
        if (best != nullptr && stopped()) {
            break;
        }
        RatedCandidate rated = Rate(ranked, true);
        if (best == nullptr || rated.ir < kept.ir) {
            best = &ranked;
            kept = std::move(rated);
        }
    }
    answer.best = Named(*best, std::move(kept));
    const std::string name =
        answer.best->name + (answer.best->steel ? " " + answer.best->steelname : "");
    answer.message = "no section passes; " +
                     (std::isfinite(answer.best->ir) ? name + " comes nearest: "
                                                     : "none has a ratio; " + name + ": ") +
                     WhyText(*answer.best, wishes_.bases);
}

OptimizeAnswer Optimizer::Choose(std::span<SectionRater* const> group)
{
    OptimizeAnswer answer;
    answer.message = refusal_;
    if (group.empty() || !refusal_.empty()) {
        return answer;
    }
    TakeMembers(group);
    Rank(answer);
    if (ranked_.empty()) {
        const std::string_view why =
            answer.beyond > 0 ? "no section is within the sizes asked" : "no section is possible";
        answer.message = answer.message.empty() ? why : answer.message;
    } else {
        Search(answer);
        if (answer.found.empty()) {
            FindBest(answer);
        }
    }
    if (stopped()) {
        answer = {};
        answer.message = "the search was stopped";
    }
    return answer;
}

RatedCandidate Optimizer::Present(SectionRater& member) const
{
    RatedCandidate rated;
    ProjectState s = member.member();
    rated.name = SectionName(library_, s);
    rated.steelname = SteelName(library_, s);
    rated.figures = FiguresOf(library_, s).value_or(SectionFigures{});
    rated.answers.push_back(member.Rate(s, wishes_.bases, wishes_.max_ir, true));
    rated.passes = Passes(rated.answer(), wishes_.bases, wishes_.max_ir);
    rated.ir = RatioIn(rated.answer(), wishes_.bases);
    return rated;
}

void Optimizer::Give(ProjectState& s, const RatedCandidate& rated) const
{
    if (rated.steel) {
        GiveSteel(library_, s, *rated.steel);
    }
    pool_.Apply(library_, s, rated.candidate);
}

}  // namespace kestrum
