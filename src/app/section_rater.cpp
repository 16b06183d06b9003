#include "app/section_rater.h"

#include "core/arithmetic_trap.h"
#include "core/project_state.h"
#include "engine/calculate.h"
#include "engine/prepared.h"
#include "report/outcome.h"
#include "sections/families.h"
#include "sections/whole_section.h"
#include "standard/standard.h"

#include <algorithm>
#include <cmath>
#include <limits>
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

double RatioOf(const WorstCase& worst)
{
    return worst.any && !worst.failed ? worst.ir : kInfinite;
}

WorstCase WorstOf(Outcome outcome)
{
    WorstCase worst{.any = true, .verdict = outcome.verdict};
    worst.failed = outcome.verdict != Verdict::within && outcome.verdict != Verdict::above;
    worst.ir = outcome.rated() ? outcome.ir : 0;
    worst.control = std::move(outcome.control);
    worst.clause = std::move(outcome.clause);
    worst.message = std::move(outcome.message);
    for (const DesignNote& note : outcome.notes) {
        worst.notes.emplace_back(note.id);
    }
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

}  // namespace

bool Passes(const MemberAnswer& answer, Bases bases, double max_ir)
{
    return answer.refusal.empty() && (!AsksProgram(bases) || Passes(answer.program, max_ir)) &&
           (!AsksStandard(bases) || Passes(answer.standard, max_ir));
}

double RatioIn(const MemberAnswer& answer, Bases bases)
{
    if (!answer.refusal.empty()) {
        return kInfinite;
    }
    return std::max(AsksProgram(bases) ? RatioOf(answer.program) : 0,
                    AsksStandard(bases) ? RatioOf(answer.standard) : 0);
}

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
        if (notes()) {
            MeasureNotes(library_, s);
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

CaseRater::CaseRater(const Library& library, const ProjectState& member, std::span<CaseRows> cases,
                     bool notes)
    : SectionRater(member, notes), cases_(cases), program_(library, Bases::program, false),
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
    if (notes() && (thorough || passes)) {
        member.Measure(all.program);
    }
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

}  // namespace kestrum
