// Multiples of a moment line are solved once.

#include "standard/solved_lines.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstddef>
#include <limits>
#include <vector>

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

// Two pieces with a torque at their border, held there, and what else there is of a member.
struct Case {
    LateralSection section = kSection;
    LateralEnd start = LateralEnd::clamped, end = LateralEnd::fork;
    double length = 6000, border = 2000, held = 4000, torque = 3000, pz = 1e6;
    std::array<double, 4> first{1e8, 0, 0, 0}, second{2e8, 0, 0, 0};
    double qz0 = 0, qz1 = 0;

    double Factor(SolvedLines& lines) const
    {
        const std::array<MomentPiece, 2> pieces = {
            {{0, border, first, qz0, qz1}, {border, length, second, 0, 0}}};
        const std::array<PointTorque, 1> points = {{{torque, pz}}};
        const std::array<double, 1> places = {held};
        return lines.Factor(section, {start, end, places}, {length, pieces, points});
    }
};

// Each part by itself makes another line, whose factor is not that of the first.
TEST(SolvedLines, EveryPartOfTheMemberCounts)
{
    std::array<Case, 16> others;
    others[0].section.eiz *= 2;
    others[1].section.eiw *= 2;
    others[2].section.git *= 2;
    others[3].section.zj = 10;
    others[4].start = LateralEnd::fork;
    others[5].end = LateralEnd::clamped;
    others[6].length = 6500;
    others[7].border = 3000;
    others[8].held = 3500;
    others[9].torque = 2500;
    others[10].pz = 2e6;
    others[11].first = {-1e8, 0, 0, 0};
    others[12].first = {1e8, 1e4, 0, 0};
    others[13].second = {2e8, 0, -1, 0};
    others[14].qz0 = 1000;
    others[15].qz1 = 1000;
    for (std::size_t i = 0; i < others.size(); ++i) {
        SCOPED_TRACE(i);
        SolvedLines lines, afresh;
        const double one = Case{}.Factor(lines);
        const double other = others[i].Factor(lines);
        EXPECT_EQ(lines.Solved(), 2U);
        EXPECT_EQ(other, others[i].Factor(afresh));
        EXPECT_GT(std::abs(other / one - 1), 1e-6);
    }
}

// Pieces of one length under an even moment, and torques and restraints at even places.
SolvedLines Asked(std::size_t pieces, std::size_t points, std::size_t held, double moment)
{
    constexpr double kLength = 6000;
    const auto place = [](std::size_t i, std::size_t count) {
        return kLength * static_cast<double>(i + 1) / static_cast<double>(count + 1);
    };
    std::vector<MomentPiece> line(pieces);
    for (std::size_t i = 0; i < pieces; ++i) {
        line[i] = {kLength * static_cast<double>(i) / static_cast<double>(pieces),
                   kLength * static_cast<double>(i + 1) / static_cast<double>(pieces),
                   {moment, 0, 0, 0},
                   0,
                   0};
    }
    std::vector<PointTorque> torques(points);
    for (std::size_t i = 0; i < points; ++i) {
        torques[i] = {place(i, points), moment / 1000};
    }
    std::vector<double> places(held);
    for (std::size_t i = 0; i < held; ++i) {
        places[i] = place(i, held);
    }
    SolvedLines lines;
    for (int again = 0; again < 2; ++again) {
        lines.Factor(kSection, {LateralEnd::fork, LateralEnd::fork, places},
                     {kLength, line, torques});
    }
    return lines;
}

// As many parts as there is room for are kept; one more, and lines without a size, are not.
TEST(SolvedLines, WhatIsKept)
{
    constexpr std::size_t kPieces = kMaxLinePieces, kPoints = standard::kMaxLoads;
    EXPECT_EQ(Asked(kPieces, 1, 1, 1e8).Solved(), 1U);
    EXPECT_EQ(Asked(1, kPoints, 1, 1e8).Solved(), 1U);
    EXPECT_EQ(Asked(1, 1, kMaxHeld, 1e8).Solved(), 1U);
    EXPECT_EQ(Asked(kPieces + 1, 1, 1, 1e8).Solved(), 0U);
    EXPECT_EQ(Asked(1, kPoints + 1, 1, 1e8).Solved(), 0U);
    EXPECT_EQ(Asked(1, 1, kMaxHeld + 1, 1e8).Solved(), 0U);
    EXPECT_EQ(Asked(1, 0, 0, 0).Solved(), 0U);
    EXPECT_EQ(Asked(1, 0, 0, std::numeric_limits<double>::infinity()).Solved(), 0U);
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
