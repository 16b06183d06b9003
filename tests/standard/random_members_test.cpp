// Random members of every family: an answer that makes sense, whatever they are.

#include "core/project_state.h"
#include "engine/calculate.h"
#include "standard/cases.h"
#include "support/random_project.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace kestrum {
namespace {

using standard::CheckId;
using standard::kCheckIds;

// A ratio or the reason why there is none; the largest one governs and decides on the verdict.
TEST(RandomMembers, EveryMemberHasARatioOrAReason)
{
    constexpr int kMembers = 1500;
    int rated = 0;
    for (int seed = 0; seed < kMembers; ++seed) {
        SCOPED_TRACE(seed);
        const ProjectState s = RandomProject(FirstSeed() + static_cast<std::uint64_t>(seed));
        const standard::StandardResult result = standard::CalculateStandard(DeliveredTables(), s);
        EXPECT_TRUE(result.rated || !result.outside.empty());
        double largest = 0;
        for (std::size_t i = 0; i < kCheckIds; ++i) {
            const standard::Check& check = result.checks.best[i];
            if (!check.present) {
                continue;
            }
            EXPECT_GE(check.ir, 0);
            EXPECT_FALSE(check.clause.empty());
            EXPECT_TRUE(std::isnan(check.place) || (check.place >= 0 && check.place <= 1 + 1e-6));
            if (s.checksls != kFalse || !standard::IsDeflection(static_cast<CheckId>(i))) {
                largest = std::max(largest, check.ir);
            }
        }
        if (result.rated) {
            ++rated;
            EXPECT_EQ(result.ir, largest);
            EXPECT_TRUE(result.above || largest <= s.irlimit);
        }
    }
    EXPECT_GT(rated, kMembers / 3);
}

// The pass empties the rows that a section cannot take; what it was given can be had from it.
TEST(RandomMembers, TheProjectThatAPassWasGivenHasTheSameResultBehindIt)
{
    constexpr int kMembers = 600;
    int dropped = 0;
    for (int seed = 0; seed < kMembers; ++seed) {
        SCOPED_TRACE(seed);
        const ProjectState read = RandomProject(FirstSeed() + static_cast<std::uint64_t>(seed));
        ProjectState s = read;
        Calculate(DeliveredTables(), s);
        dropped += s.dropped.count > 0 ? 1 : 0;
        const auto before = standard::CalculateStandard(DeliveredTables(), read);
        const auto behind = standard::CalculateStandard(DeliveredTables(), AsGiven(s));
        EXPECT_EQ(before.rated, behind.rated);
        EXPECT_EQ(before.ir, behind.ir);
        EXPECT_EQ(before.governing, behind.governing);
        EXPECT_EQ(before.outside, behind.outside);
    }
    EXPECT_GT(dropped, kMembers / 20);
}

// The result is the envelope of its combinations.
TEST(RandomMembers, NoCombinationByItselfIsAboveTheResult)
{
    constexpr int kMembers = 300;
    int several = 0;
    for (int seed = 0; seed < kMembers; ++seed) {
        SCOPED_TRACE(seed);
        const ProjectState s = RandomProject(FirstSeed() + static_cast<std::uint64_t>(seed));
        const auto result = standard::CalculateStandard(DeliveredTables(), s);
        const auto cases = standard::CalculateCases(DeliveredTables(), s);
        several += cases.size() > 2 ? 1 : 0;
        double largest = 0;
        for (const standard::CaseResult& at : cases) {
            largest = std::max(largest, at.counts ? at.ir : 0);
        }
        EXPECT_EQ(largest, result.rated ? result.ir : 0);
    }
    EXPECT_GT(several, kMembers / 10);
}

}  // namespace
}  // namespace kestrum
