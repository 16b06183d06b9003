// Multiples of a moment line are solved once.

#include "standard/solved_lines.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>

namespace kestrum {
namespace {

using standard::SolvedLines;

constexpr LateralSection kSection{2e12, 1e17, 1e10, 0};
constexpr LateralSupports kForks{LateralEnd::fork, LateralEnd::fork, {}};

// Uniform load over 6 m with a torque at mid-span, `times` as large.
double FactorOf(SolvedLines& lines, double times, double torque = 1, double zj = 0)
{
    const std::array<MomentPiece, 1> pieces = {
        {{0, 6000, {0, 3e4 * times, -5 * times, 0}, 100 * times, 100 * times}}};
    const std::array<PointTorque, 1> points = {{{3000, 1e6 * times * torque}}};
    LateralSection section = kSection;
    section.zj = zj;
    return lines.Factor(section, kForks, {6000, pieces, points});
}

TEST(SolvedLines, MultiplesAreSolvedOnce)
{
    SolvedLines lines;
    const double one = FactorOf(lines, 1);
    EXPECT_DOUBLE_EQ(FactorOf(lines, 1.35), one / 1.35);
    EXPECT_DOUBLE_EQ(FactorOf(lines, 0.25), one * 4);
    EXPECT_EQ(lines.Solved(), 1U);
}

// What was solved before is of no account, not to the last bit: an envelope does not depend on the
// order of its cases.
TEST(SolvedLines, FactorDependsOnItsLineOnly)
{
    for (const double times : {1.35, 0.25, 1.5 * 0.7, 1.0 / 3, 40.0, 1e-3}) {
        SolvedLines used, afresh;
        FactorOf(used, 1);
        EXPECT_EQ(FactorOf(used, times), FactorOf(afresh, times)) << times;
        EXPECT_EQ(used.Solved(), 1U) << times;
    }
}

// Without a moment nothing buckles.
TEST(SolvedLines, LineWithoutAMoment)
{
    SolvedLines lines;
    EXPECT_TRUE(std::isinf(FactorOf(lines, 0)));
}

TEST(SolvedLines, OtherLinesAreNot)
{
    SolvedLines lines;
    const double one = FactorOf(lines, 1);
    EXPECT_NE(FactorOf(lines, -1), one);       // loads from below
    EXPECT_NE(FactorOf(lines, 1, 2), one);     // more of them above
    EXPECT_NE(FactorOf(lines, 1, 1, 5), one);  // another section
    EXPECT_EQ(lines.Solved(), 4U);
    for (int i = 2; i < 9; ++i) {  // more than are kept
        FactorOf(lines, 1, i);
    }
    EXPECT_DOUBLE_EQ(FactorOf(lines, 1), one);
}

// The passes for the costs of deviations ask for the line of the member again and again, and for
// many others once.
TEST(SolvedLines, LineOfEveryPassIsKept)
{
    SolvedLines lines;
    FactorOf(lines, 1);
    constexpr int kOthers = 20;
    for (int i = 2; i < kOthers + 2; ++i) {
        FactorOf(lines, 1, i);
        FactorOf(lines, 1);
    }
    EXPECT_EQ(lines.Solved(), kOthers + 1U);
}

}  // namespace
}  // namespace kestrum
