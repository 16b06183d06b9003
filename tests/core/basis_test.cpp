// The basis of a pass: which value counts, and which deviations it came across.

#include "core/basis.h"

#include <gtest/gtest.h>

namespace kestrum {
namespace {

TEST(Basis, PicksTheStandardsValueAndRemembersWhereBothDiffer)
{
    const Basis basis = Basis::Standard();
    EXPECT_EQ(basis.pick(Dev::d161, 1.0, 2.0), 2.0);
    EXPECT_EQ(basis.pick(Dev::d103, 3.0, 3.0), 3.0);
    EXPECT_TRUE(basis.met()[IndexOf(Dev::d161)]);
    EXPECT_EQ(basis.met().count(), 1U);
}

TEST(Basis, OneDeviationCanBeSwitchedBack)
{
    const Basis basis = Basis::StandardBut(Dev::d161);
    EXPECT_EQ(basis.pick(Dev::d161, 1.0F, 2.0), 1.0);
    EXPECT_EQ(basis.pick(Dev::d160, 1, 2), 2);
    EXPECT_FALSE(basis.departs(Dev::d161));
    EXPECT_TRUE(basis.departs(Dev::d201));
}

// A formula that could fail is formed only where it counts.
TEST(Basis, FormsOneOfTwoFormulas)
{
    int formed = 0;
    const auto program = [&] { return formed += 1; };
    const auto standard = [&] { return formed += 10; };
    EXPECT_EQ(Basis::Standard().pick(Dev::d217, program, standard), 10);
    EXPECT_EQ(Basis::StandardBut(Dev::d217).pick(Dev::d217, program, standard), 11);
}

TEST(Basis, NamesAndSentences)
{
    EXPECT_EQ(NameOf(Dev::d20), "D20");
    EXPECT_EQ(NameOf(Dev::d259), "D259");
    EXPECT_EQ(DeviationOf("D161"), Dev::d161);
    EXPECT_FALSE(DeviationOf("D1"));
    for (std::size_t i = 0; i < kDeviations; ++i) {
        EXPECT_TRUE(TextOf(static_cast<Dev>(i)).ends_with(".")) << i;
    }
}

}  // namespace
}  // namespace kestrum
