// The section checks at every point of the diagrams.

#include "engine/utilisation.h"

#include "core/arithmetic_trap.h"
#include "engine/calculate.h"
#include "engine/section_dispatch.h"
#include "sections/families.h"
#include "sections/read_profiles.h"
#include "support/members.h"

#include <gtest/gtest.h>

#include <cmath>

namespace kestrum {
namespace {

// A simple beam under q: at x the larger of M(x)/MRd and, where V(x) <= VRd/2, V(x)/VRd. The two
// ratios of the whole member are those in the middle, q l^2/8, and at the support, q l/2.
TEST(SectionUtilisation, FollowsMomentAndShearOfASimpleBeam)
{
    Member s = Member().Section("IPE 300").Length(6).BasicLoads().Load(20);
    ASSERT_TRUE(Calculate(Delivered(), s));
    const auto along = SectionUtilisation(Delivered(), s);
    ASSERT_TRUE(along);
    for (std::size_t j = 0; j <= 50; ++j) {
        EXPECT_NEAR((*along)[j], (*along)[50 - j], 1e-5) << j;
    }
    // The moment governs the inner part: a parabola.
    for (std::size_t j = 15; j <= 25; ++j) {
        const double x = static_cast<double>(j) / 50;
        EXPECT_NEAR((*along)[j], (*along)[25] * 4 * x * (1 - x), 1e-4) << j;
    }
    // The shear governs at the supports: a straight line.
    EXPECT_NEAR((*along)[1], (*along)[0] * 0.96, 1e-4);
}

TEST(SectionUtilisation, ThereIsNoneWithoutASection)
{
    Member s = Member().Section("IPE 300").Length(6).Load(20);
    ASSERT_TRUE(Calculate(Delivered(), s));
    ProjectState other = s;
    other.family = 99;
    EXPECT_FALSE(SectionUtilisation(Delivered(), other));
    Library empty;
    EXPECT_FALSE(SectionUtilisation(empty, s));
}

// A plate that reaches less than nothing beyond the webs cannot be made.
TEST(SectionDispatch, AnOverhangBelowZeroIsImpossible)
{
    Member s =
        Member().Section(FormP23{.isth = 400, .istb1 = 300, .isttw = 10, .isttf = 15, .ista = -20});
    try {
        CalcSection(Delivered(), s);
        ADD_FAILURE() << "no stop";
    } catch (const CalculationStop& stop) {
        EXPECT_EQ(stop.failure.cause, Cause::impossible_section);
        EXPECT_EQ(stop.failure.quantity, "flange overhang a");
        EXPECT_EQ(stop.failure.value, -20);
        EXPECT_EQ(stop.failure.unit, "mm");
    }
}

}  // namespace
}  // namespace kestrum
