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
        const standard::StandardResult result = standard::CalculateStandard(Delivered(), s);
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
        Calculate(Delivered(), s);
        dropped += s.dropped.count > 0 ? 1 : 0;
        const auto before = standard::CalculateStandard(Delivered(), read);
        const auto behind = standard::CalculateStandard(Delivered(), AsGiven(s));
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
        const auto result = standard::CalculateStandard(Delivered(), s);
        const auto cases = standard::CalculateCases(Delivered(), s);
        several += cases.size() > 2 ? 1 : 0;
        double largest = 0;
        for (const standard::CaseResult& at : cases) {
            largest = std::max(largest, at.counts ? at.ir : 0);
        }
        EXPECT_EQ(largest, result.rated ? result.ir : 0);
    }
    EXPECT_GT(several, kMembers / 10);
}

// Along the member no section is used more than the largest of the section checks, and that is
// reached where no force peaks between the points. Both bases.
TEST(Utilisation, NeverExceedsTheSectionControl)
{
    constexpr int kMembers = 150;
    int reached = 0, drawn = 0;
    for (int seed = 0; seed < kMembers; ++seed) {
        SCOPED_TRACE(seed);
        ProjectState s = RandomProject(FirstSeed() + static_cast<std::uint64_t>(seed));
        const auto result = standard::CalculateStandard(Delivered(), s);
        const auto along = standard::SectionUtilisation(Delivered(), s);
        EXPECT_EQ(along.has_value(), result.rated || result.outside.back() == "no load acts" ||
                                         result.outside.back().starts_with("lateral"));
        double largest = 0;
        for (std::size_t i = 0; i < standard::kSectionChecks; ++i) {
            largest = std::max(largest, result.checks.best[i].ir);
        }
        if (result.rated) {
            const double most = *std::max_element(along->begin(), along->end());
            EXPECT_LE(most, largest * (1 + 1e-9) + 1e-9);
            reached += most > 0.9 * largest ? 1 : 0;
            ++drawn;
        }
    }
    EXPECT_GT(reached, drawn / 2);
}

// A beam under a uniform load: the ratio of the moment is a parabola, w(x) = 4 x (1 - x) of its
// middle; the shear of a short beam takes over at the supports.
TEST(Utilisation, OfAUniformLoadFollowsTheMoment)
{
    ProjectState s = Member();
    s.nload = {};
    s.qload[1] = 10;
    s.ltb = 0;
    ASSERT_TRUE(Calculate(Delivered(), s));
    const auto along = SectionUtilisation(Delivered(), s);
    const auto written = standard::SectionUtilisation(Delivered(), s);
    ASSERT_TRUE(along && written);
    EXPECT_NEAR((*along)[25], s.irsection, 1e-6);
    for (const std::size_t j : {10U, 15U, 20U, 30U}) {
        const double x = static_cast<double>(j) / 50;
        EXPECT_NEAR((*along)[j] / (*along)[25], 4 * x * (1 - x), 1e-5);
        EXPECT_NEAR((*written)[j] / (*written)[25], 4 * x * (1 - x), 1e-9);
        EXPECT_NEAR((*along)[j], (*along)[50 - j], 1e-9);
    }
    EXPECT_GT((*along)[0], 0);  // shear
    EXPECT_NEAR((*along)[0], (*along)[50], 1e-6);
}

}  // namespace
}  // namespace kestrum
