#pragma once

// The lightest section that passes, for a member or for several that shall have one section.
//
//   LoadRater member(library, project);                 // under its own loads, or
//   CaseRater member(library, project, cases);          // under cases of internal forces
//   Optimizer optimizer(library, pool, wishes);         // one for each thread
//   SectionRater* group[] = {&member};
//   const OptimizeAnswer answer = optimizer.Choose(group);
//   if (!answer.found.empty()) { optimizer.Give(project, answer.found.front()); }
//
// Every section of the pool is a candidate. They are rated in the order of what they are chosen by,
// and the search ends with the first that passes (of `top`, with that many): all that are smaller
// have failed, so that nothing is assumed about how ratios fall with size.
//
// A section passes where the verdict of each basis asked is "within limits" and no ratio is above
// `max_ir`. A pass that failed, an instability, a load that the family does not carry, a member on
// which nothing acts and a result that the standard basis does not cover are no ratios: such a
// section never passes.

#include "app/member_cases.h"
#include "app/section_pool.h"
#include "app/section_rater.h"
#include "core/held_state.h"
#include "core/library.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <limits>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace kestrum {

// What a section is chosen by, the smallest first. Of sections with one value the steel that is
// named first, then the smaller ratio.
enum class Objective : std::uint8_t {
    mass,    // kg/m
    depth,   // mm
    price,   // for a metre
    surface  // to be painted, m2/m
};

struct OptimizeWishes {
    Objective by = Objective::mass;
    Bases bases = Bases::both;
    std::vector<i16> steels = {};  // rows of the material list; the member's own without any
    double max_ir = std::numeric_limits<double>::infinity();
    double max_h = std::numeric_limits<double>::infinity();  // mm
    double max_b = std::numeric_limits<double>::infinity();  // mm, of the widest part
    std::size_t top = 1;                                     // how many that pass are wanted
};

// A section with what it gives.
struct RatedCandidate {
    Candidate candidate{};
    std::optional<i16> steel{};  // one of the wishes
    std::string name{};          // "IPE 300"
    std::string steelname{};     // "S355"
    SectionFigures figures{};
    bool passes = false;
    double ir = 0;           // the larger of the bases asked; infinite where there is none
    std::size_t member = 0;  // of the group, the one that governs
    std::vector<MemberAnswer> answers{};  // the worst case of each member that was rated

    const MemberAnswer& answer() const { return answers[member]; }
};

struct OptimizeAnswer {
    std::vector<RatedCandidate> found{};      // that pass, the lightest first
    std::optional<RatedCandidate> lighter{};  // behind which the first of them comes; it fails
    std::optional<RatedCandidate> best{};     // where none passes: the smallest ratio
    std::string message{};                    // where none passes: why
    std::size_t offered = 0;                  // sections of the pool with their steels
    std::size_t beyond = 0;                   // of these, larger than max_h or max_b
    std::size_t impossible = 0;               // dimensions that do not fit together
};

// "ratio 1.234 (My,Ed/Mc,Rd, 6.2.5)", of cases with the case; the verdict where there is no ratio.
std::string WhyText(const RatedCandidate& rated, Bases bases);

class Optimizer {
public:
    // Library and pool must last. The pool is finished.
    Optimizer(const Library& library, const SectionPool& pool, OptimizeWishes wishes);

    // Why nothing can be chosen, such as a section without a price; or nothing.
    const std::string& refusal() const { return refusal_; }

    // One section for all members of the group.
    OptimizeAnswer Choose(std::span<SectionRater* const> group);

    // What the member gives with the section that it has now.
    RatedCandidate Present(SectionRater& member) const;

    // Gives the member the section and steel, as `kestrum set` would.
    void Give(ProjectState& s, const RatedCandidate& rated) const;

    const OptimizeWishes& wishes() const { return wishes_; }

    // Asked for every section; true ends the search, which has found nothing then.
    std::function<bool()> stopped = [] { return false; };

private:
    struct Ranked {
        double value;
        std::uint32_t candidate;
        std::uint16_t steel;
        bool hopeless;  // known to fail without a rating
    };
    void TakeMembers(std::span<SectionRater* const> group);
    ProjectState& With(std::size_t member, const Ranked& ranked);
    bool Fits(const SectionFigures& figures) const;
    bool MayPass(const Candidate& candidate, std::size_t steel,
                 const SectionFigures& figures) const;
    std::optional<double> PriceOf(std::size_t candidate, int steel, double mass);
    void Rank(OptimizeAnswer& answer);
    std::optional<double> ValueOf(std::size_t candidate, int steel, const SectionFigures& figures);
    RatedCandidate Rate(const Ranked& ranked, bool thorough);
    RatedCandidate Named(const Ranked& ranked, RatedCandidate rated);
    void Search(OptimizeAnswer& answer);
    void FindBest(OptimizeAnswer& answer);

    const Library& library_;
    const SectionPool& pool_;
    OptimizeWishes wishes_;
    std::string refusal_;
    std::vector<std::vector<std::optional<Price>>> prices_;  // by steel, of each candidate
    std::span<SectionRater* const> group_;
    std::vector<HeldState> states_;  // of each member with each steel
    std::vector<HeldState> probes_;  // of each member, to look at sections
    std::vector<Ranked> ranked_;
    HeldState work_;
};

}  // namespace kestrum
