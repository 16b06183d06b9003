#include "harness.h"
#include "harness_tools.h"

#include "app/optimize.h"
#include "app/table_record.h"

#include <algorithm>
#include <cmath>
#include <string>

namespace kestrum::fuzz {

namespace {

// Sections of a pool can be named, given and priced.
void RequireSections(const SectionPool& pool)
{
    constexpr std::size_t kLooks = 16;
    const auto& candidates = pool.candidates();
    const std::size_t step = candidates.size() / kLooks + 1;
    for (std::size_t i = 0; i < candidates.size(); i += step) {
        ProjectState s = Default();
        const auto figures =
            pool.Apply(Delivered(), s, candidates[i]) ? FiguresOf(Delivered(), s) : std::nullopt;
        Require(!pool.NameOf(Delivered(), s, candidates[i]).empty(), "a section has no name");
        Require(!figures || (std::isfinite(figures->mass) && std::isfinite(figures->h)),
                "a section has figures that are no numbers");
        const auto price = pool.PriceOf(candidates[i], 3);
        Require(!price || (price->value >= 0 && std::isfinite(price->value)),
                "a price is no number");
    }
}

// What is found passes, and what is lighter does not.
void RequireAnswer(const SectionPool& pool)
{
    OptimizeWishes wishes;
    wishes.bases = Bases::program;
    wishes.by = pool.priced() ? Objective::price : Objective::mass;
    wishes.top = 3;
    Optimizer optimizer(Delivered(), pool, wishes);
    LoadRater member(Delivered(), Default());
    SectionRater* group[] = {&member};
    const OptimizeAnswer answer = optimizer.Choose(group);
    for (const RatedCandidate& rated : answer.found) {
        ProjectState s = Default();
        optimizer.Give(s, rated);
        LoadRater given(Delivered(), s);
        const RatedCandidate present = optimizer.Present(given);
        Require(present.passes && present.ir == rated.ir, "a section that was found does not pass");
    }
    Require(!answer.lighter || !answer.lighter->passes, "a lighter section passes");
    Require(!answer.found.empty() || !answer.message.empty(), "nothing is found without a word");
}

}  // namespace

void SectionPools(std::string_view bytes)
{
    SectionPool pool;
    bool refused = false;
    while (!bytes.empty() && std::string_view("+=-").find(bytes.front()) != bytes.npos) {
        const std::string_view line = TakeLine(bytes);
        const std::string_view word = line.substr(1);
        const std::string refusal = line[0] == '+'   ? pool.Add(Delivered(), word)
                                    : line[0] == '=' ? pool.Range(word)
                                                     : pool.Keep(word);
        refused = refused || !refusal.empty();
    }
    if (!bytes.empty()) {
        refused = !pool.AddPrices(Delivered(), bytes, "prices").empty() || refused;
    }
    if (refused || !pool.Finish(Delivered()).empty()) {
        return;
    }
    Require(!pool.candidates().empty() && pool.candidates().size() <= SectionPool::kMost,
            "a pool of no size");
    RequireSections(pool);
    constexpr std::size_t kFew = 40;  // each costs a pass
    if (pool.candidates().size() <= kFew) {
        RequireAnswer(pool);
    }
}

}  // namespace kestrum::fuzz
