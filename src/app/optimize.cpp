#include "app/optimize.h"

#include "app/assign_run.h"
#include "app/choices.h"
#include "app/view_section.h"
#include "core/arithmetic_trap.h"
#include "core/material.h"
#include "core/number_format.h"
#include "engine/calculate.h"
#include "engine/prepared.h"
#include "report/outcome.h"
#include "sections/families.h"
#include "sections/whole_section.h"
#include "standard/standard.h"

#include <algorithm>
#include <cmath>
#include <tuple>
#include <utility>

namespace kestrum {

namespace {

constexpr double kInfinite = std::numeric_limits<double>::infinity();

bool AsksProgram(Bases bases)
{
    return bases != Bases::standard;
}

bool AsksStandard(Bases bases)
{
    return bases != Bases::program;
}

bool Passes(const WorstCase& worst, double max_ir)
{
    return worst.any && !worst.failed && worst.verdict == Verdict::within && worst.ir <= max_ir;
}

bool Passes(const MemberAnswer& answer, Bases bases, double max_ir)
{
    return answer.refusal.empty() && (!AsksProgram(bases) || Passes(answer.program, max_ir)) &&
           (!AsksStandard(bases) || Passes(answer.standard, max_ir));
}

double RatioOf(const WorstCase& worst)
{
    return worst.any && !worst.failed ? worst.ir : kInfinite;
}

double RatioOf(const MemberAnswer& answer, Bases bases)
{
    if (!answer.refusal.empty()) {
        return kInfinite;
    }
    return std::max(AsksProgram(bases) ? RatioOf(answer.program) : 0,
                    AsksStandard(bases) ? RatioOf(answer.standard) : 0);
}

WorstCase WorstOf(Outcome outcome)
{
    WorstCase worst{.any = true, .verdict = outcome.verdict};
    worst.failed = outcome.verdict != Verdict::within && outcome.verdict != Verdict::above;
    worst.ir = outcome.rated() ? outcome.ir : 0;
    worst.control = std::move(outcome.control);
    worst.clause = std::move(outcome.clause);
    worst.message = std::move(outcome.message);
    worst.notes.assign(outcome.notes.begin(), outcome.notes.end());
    return worst;
}

WorstCase WorstOf(const standard::StandardResult& result)
{
    WorstCase worst{.any = true, .failed = !result.rated};
    if (worst.failed) {
        worst.message = result.outside.empty() ? "not covered" : result.outside.front();
        return worst;
    }
    const standard::Check& check = result.checks[result.governing];
    worst.verdict = result.above ? Verdict::above : Verdict::within;
    worst.ir = result.ir;
    worst.control = standard::NameOf(result.governing);
    worst.clause = check.clause;
    worst.notes = result.outside;
    return worst;
}

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

std::optional<SectionFigures> FiguresOf(const Library& library, const ProjectState& s)
{
    SectionRecord section = s;
    const FamilyTraits& family = Traits(s);
    if (family.properties == nullptr) {
        return std::nullopt;
    }
    bool whole = true;
    try {
        ArmTrap();
        family.properties(library, s, section);
        RequireWholeSection(s, section);
        CheckTrap();
    } catch (const CalculationStop&) {
        whole = false;
    }
    ArmTrap();
    if (!whole) {
        return std::nullopt;
    }
    SectionFigures figures;
    figures.mass = section.weight;
    // The height of a hat beam leaves its bottom flange out.
    figures.h = section.h + (family.kind == Kind::hat ? 1.0 * section.tbot : 0);
    figures.b = std::max({section.b, section.btop, section.bbot});
    figures.surface = section.surface;
    figures.area = section.a;
    return figures;
}

std::string WhyText(const RatedCandidate& rated, Bases bases)
{
    const MemberAnswer& answer = rated.answer();
    if (!answer.refusal.empty()) {
        return std::string(VerdictWord(answer.refused)) + ": " + answer.refusal;
    }
    if (bases == Bases::both && answer.standard.any) {
        // The program keeps single precision: ratios that differ by that are one.
        constexpr double kSingle = 2e-6;
        const bool governs = RatioOf(answer.standard) > (1 + kSingle) * RatioOf(answer.program);
        return governs ? "standard: " + WhyOf(answer.standard) : WhyOf(answer.program);
    }
    return WhyOf(bases == Bases::standard ? answer.standard : answer.program);
}

// --- Raters --------------------------------------------------------------------------------------

MemberAnswer LoadRater::Rate(ProjectState& s, Bases bases, double max_ir, bool thorough)
{
    MemberAnswer answer;
    std::optional<ProjectState> read;
    if (bases == Bases::both) {
        read = s;
    }
    if (AsksProgram(bases)) {
        const bool well = Calculate(library_, s);
        const double ratio = well ? std::max(kestrum::RatioOf(s), DeflectionRatio(s)) : 0;
        if (!thorough && (!well || ratio > s.irlimit || ratio > max_ir)) {
            answer.program = {.any = true, .verdict = Verdict::above, .failed = !well, .ir = ratio};
            return answer;
        }
        answer.program = WorstOf(OutcomeOf(s, well));
        if (!thorough && !Passes(answer.program, max_ir)) {
            return answer;
        }
    }
    if (AsksStandard(bases)) {
        answer.standard = WorstOf(standard::CalculateStandard(library_, read ? *read : s));
    }
    return answer;
}

CaseRater::CaseRater(const Library& library, const ProjectState& member, std::span<CaseRows> cases)
    : SectionRater(member), cases_(cases), program_(library, Bases::program, false),
      standard_(library, Bases::standard, false)
{
    constexpr double kN = 1e3, kNmm = 1e6;
    for (const CaseRows& rows : cases) {
        for (const Station& at : rows.stations) {
            n_ = std::max(n_, std::abs(at.n) * kN);
            my_ = std::max(my_, std::abs(at.my) * kNmm);
            mz_ = std::max(mz_, std::abs(at.mz) * kNmm);
        }
    }
}

// Both bases check every station (of a member with check points of its own the program does not).
// There
//   N/NRd <= limit needs A fy/gammaM0 >= N/limit, since no resistance to an axial force exceeds
//   that
//     of the whole section in tension, EN 1993-1-1, 6.2.3 and 6.2.4;
//   M/Mc,Rd <= limit needs Wpl fy/gammaM0 >= M/limit, since Wel and Weff do not exceed Wpl, 6.2.5.
// Wpl is the integral of |z - m| over the area, m the axis that halves it. Such an m makes the
// integral least, so that it is no larger about the middle of the height, where |z - m| <= h/2:
//   Wpl,y <= A h/2, and likewise Wpl,z <= A b/2.
// A moment that the family does not carry fails the section too, unless it is a hundredth of the
// elastic resistance, far below the bound.
bool CaseRater::MayPass(const SectionFigures& figures, double strength, double limit) const
{
    if (member().cpmode == 1) {
        return true;
    }
    constexpr double kSingle = 1 + 1e-5;  // the record keeps single precision
    const double most = figures.area * strength * limit * kSingle;
    return n_ <= most && my_ <= most * figures.h / 2 && mz_ <= most * figures.b / 2;
}

// False when the section fails and that was enough to know.
bool CaseRater::Run(MemberCases& member, const ProjectState& s, Bases bases, double max_ir,
                    bool thorough, MemberAnswer& answer)
{
    member.Prepare(s);
    MemberAnswer all;
    all.refusal = member.refusal();
    all.refused = Verdict::not_checked;
    for (std::size_t i = 0; i < cases_.size() && all.refusal.empty(); ++i) {
        // The case in which the section before has failed comes first.
        const std::size_t at = thorough || i > first_ ? i : i == 0 ? first_ : i - 1;
        CaseFault fault;
        MemberAnswer one = member.Answer(cases_[at], i == 0 ? nullptr : &all, fault);
        all.Add(std::move(one));
        if (!thorough && !Passes(all, bases, max_ir)) {
            first_ = at;
            break;
        }
    }
    const bool passes = Passes(all, bases, max_ir);
    const std::size_t cases = std::max(answer.counts.cases, all.counts.cases);
    answer.Add(std::move(all));
    answer.counts.cases = cases;
    return thorough || passes;
}

MemberAnswer CaseRater::Rate(ProjectState& s, Bases bases, double max_ir, bool thorough)
{
    MemberAnswer answer;
    const bool goes_on =
        !AsksProgram(bases) || Run(program_, s, Bases::program, max_ir, thorough, answer);
    if (goes_on && AsksStandard(bases)) {
        Run(standard_, s, Bases::standard, max_ir, thorough, answer);
    }
    return answer;
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
    const bool listed = steel >= 0 && steel < LastMaterial(library_);
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
        const bool listed = s.fykindex >= 0 && s.fykindex < LastMaterial(library_);
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
    for (std::uint32_t i = 0; i < candidates.size(); ++i) {
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
            const auto value = ValueOf(i, states_[k].fykindex, *first);
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
        const double ir = RatioOf(answer, wishes_.bases);
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
            if (ranked_[next].hopeless) {
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
        return answer;
    }
    Search(answer);
    if (answer.found.empty()) {
        FindBest(answer);
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
    rated.ir = RatioOf(rated.answer(), wishes_.bases);
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
