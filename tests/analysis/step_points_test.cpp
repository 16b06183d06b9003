#include "analysis/step_points.h"

#include "core/project_state.h"
#include "member.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace kestrum {
namespace {

using ::testing::IsEmpty;
using ::testing::SizeIs;

// P = 10 kN at 1.25 m of 5 m: R0 = 10 3.75/5 = 7.5 kN, RL = 2.5 kN, M = 7.5 1.25 = 9.375 kNm.
TEST(StepPoints, HoldBothSidesOfAForce)
{
    Member s = test::Beam(0, 5);
    test::AddForce(s, 1, 10, 1.25F);
    const std::vector<StepPoint> points = StepPoints(s, s, s, s, BendingAxis::y);
    ASSERT_THAT(points, SizeIs(2));
    EXPECT_NEAR(points[0].at, 0.25, 1e-8);
    EXPECT_LT(points[0].at, 0.25);
    EXPECT_GT(points[1].at, 0.25);
    EXPECT_NEAR(points[0].v, 7.5, 1e-6);
    EXPECT_NEAR(points[1].v, -2.5, 1e-6);
    EXPECT_NEAR(points[0].m, 9.375, 1e-5);
    EXPECT_NEAR(points[1].m, 9.375, 1e-5);
    EXPECT_THAT(StepPoints(s, s, s, s, BendingAxis::z), IsEmpty());
}

// M = 8 kNm at 2 m of 5 m: V = -8/5, M = -1.6 2 = -3.2 before and 4.8 kNm behind it.
TEST(StepPoints, JumpAtAMoment)
{
    Member s = test::Beam(0, 5);
    test::AddMoment(s, 1, 8, 2);
    const std::vector<StepPoint> points = StepPoints(s, s, s, s, BendingAxis::y);
    ASSERT_THAT(points, SizeIs(2));
    EXPECT_NEAR(points[0].m, -3.2, 1e-5);
    EXPECT_NEAR(points[1].m, 4.8, 1e-5);
    EXPECT_NEAR(points[0].v, -1.6, 1e-6);
    EXPECT_NEAR(points[1].v, -1.6, 1e-6);
}

// 20 strips: each lowers the shear by its force, q dx = 6 (4 - 1)/20 = 0.9 kN.
TEST(StepPoints, GoDownByTheForceOfEachStrip)
{
    Member s = test::Beam(2, 5);
    test::AddTrapezoid(s, 1, 6, 6, 1, 4);
    const std::vector<StepPoint> points = StepPoints(s, s, s, s, BendingAxis::y);
    ASSERT_THAT(points, SizeIs(40));
    for (std::size_t i = 0; i < points.size(); i += 2) {
        const double strip = static_cast<double>(i) / 2;
        EXPECT_NEAR(points[i].at * 5, 1 + 0.15 * (strip + 0.5), 1e-6);
        EXPECT_NEAR(points[i].v - points[i + 1].v, 0.9, 1e-5);
        if (i > 0) {
            EXPECT_NEAR(points[i].v, points[i - 1].v, 1e-5);  // level between two strips
        }
    }
}

// A load that begins or ends with nothing acts as any other: 0.5 * 6 (4 - 1) = 9 kN in all.
TEST(StepPoints, TrianglesHaveStripsToo)
{
    for (const bool rising : {true, false}) {
        Member s = test::Beam(2, 5);
        test::AddTrapezoid(s, 1, rising ? 0 : 6, rising ? 6 : 0, 1, 4);
        const std::vector<StepPoint> points = StepPoints(s, s, s, s, BendingAxis::y);
        ASSERT_THAT(points, SizeIs(40));
        double all = 0;
        for (std::size_t i = 0; i < points.size(); i += 2) {
            all += points[i].v - points[i + 1].v;
        }
        EXPECT_NEAR(all, 9, 1e-4) << rising;
    }
}

// More places than one round of the check sections takes: 8 forces and 3 trapezoids.
TEST(StepPoints, CoverEveryRowInAscendingOrder)
{
    Member s = test::Beam(1, 9);
    for (std::size_t k = 1; k <= 8; ++k) {
        test::AddForce(s, k, 1, static_cast<float>(k));
    }
    for (std::size_t k = 1; k <= 3; ++k) {
        test::AddTrapezoid(s, k, 1, 2, 0, 8.9F);
    }
    const std::vector<StepPoint> points = StepPoints(s, s, s, s, BendingAxis::y);
    EXPECT_THAT(points, SizeIs(2 * (8 + 60)));
    EXPECT_TRUE(std::is_sorted(
        points.begin(), points.end(),
        [](const StepPoint& one, const StepPoint& other) { return one.at < other.at; }));
}

// All lines of such a member: V falls by each force, M goes on; between two places both are those
// of the uniform load alone.
TEST(StepPoints, LieOnTheLinesBetweenTheForces)
{
    constexpr double kLength = 9, kUniform = 3;
    Member s = test::Beam(1, kLength);
    s.qload[1] = kUniform;
    for (std::size_t k = 1; k <= 8; ++k) {
        test::AddForce(s, k, 5, k < 7 ? static_cast<float>(k) : 6);  // three at one place
    }
    for (std::size_t k = 1; k <= 3; ++k) {
        test::AddTrapezoid(s, k, 1, 2, 0.1F * static_cast<float>(k), 8.9F);
    }
    const std::vector<StepPoint> points = StepPoints(s, s, s, s, BendingAxis::y);
    ASSERT_THAT(points, SizeIs(2 * (8 + 60)));
    double falls = 0;
    for (std::size_t i = 1; i < points.size(); ++i) {
        const double dx = (points[i].at - points[i - 1].at) * kLength;
        const StepPoint &one = points[i - 1], &other = points[i];
        const bool between = dx > 3e-9 * kLength;
        EXPECT_NEAR(other.m, one.m + dx * (one.v - kUniform * dx / 2), 2e-4) << i;
        if (between) {
            EXPECT_NEAR(other.v, one.v - kUniform * dx, 1e-4) << i;
        }
        falls += between ? 0 : one.v - other.v;
    }
    double all = 8 * 5;
    for (const double from : {0.1, 0.2, 0.3}) {
        all += 1.5 * (8.9 - from);
    }
    EXPECT_NEAR(falls, all, 1e-3);
}

// 8 kN and the 60 strips of three loads that end where they begin: all at 3 m.
TEST(StepPoints, MayAllLieAtOnePlace)
{
    Member s = test::Beam(0, 6);
    for (std::size_t k = 1; k <= 8; ++k) {
        test::AddForce(s, k, 1, 3);
    }
    for (std::size_t k = 1; k <= 3; ++k) {
        test::AddTrapezoid(s, k, 1, 2, 3, 3);
    }
    const std::vector<StepPoint> points = StepPoints(s, s, s, s, BendingAxis::y);
    ASSERT_THAT(points, SizeIs(2 * (8 + 60)));
    for (std::size_t i = 0; i < points.size(); ++i) {
        EXPECT_NEAR(points[i].v, i < 68 ? 4 : -4, 1e-5) << i;
        EXPECT_NEAR(points[i].m, 12, 1e-4) << i;
    }
}

TEST(StepPoints, KeepTheAxesApart)
{
    Member s = test::Beam(0, 5);
    test::AddForce(s, 1, 10, 1.25F);
    s.qload[1] = 4;
    s.qdir[1] = 0;
    EXPECT_NEAR(StepPoints(s, s, s, s, BendingAxis::y)[0].v, 7.5, 1e-6);
    EXPECT_THAT(StepPoints(s, s, s, s, BendingAxis::z), IsEmpty());  // no force in y
}

// On a support only the side on the member counts; off the member there is none.
TEST(StepPoints, LieOnTheMember)
{
    Member s = test::Beam(0, 5);
    test::AddForce(s, 1, 10, 0);
    test::AddForce(s, 2, 10, 5);
    test::AddForce(s, 3, 10, 7);
    const std::vector<StepPoint> points = StepPoints(s, s, s, s, BendingAxis::y);
    ASSERT_THAT(points, SizeIs(2));
    EXPECT_GT(points[0].at, 0);
    EXPECT_LT(points[1].at, 1);
}

// The factor of G: 1.35 in Eq 6.10a, 0.85 1.35 in Eq 6.10b; V = P/2.
TEST(StepPoints, FollowTheCombination)
{
    Member s = test::Beam(0, 4);
    test::AddForce(s, 1, 10, 2);
    s.loadcomb = kEq610ab;
    s.g610ag = 1.35F;
    s.g610bg = 1.35F;
    s.xi610b = 0.85F;
    s.kfig = 1;
    s.governing = 1;
    EXPECT_NEAR(StepPoints(s, s, s, s, BendingAxis::y)[0].v, 1.35 * 5, 1e-5);
    s.governing = 2;
    EXPECT_NEAR(StepPoints(s, s, s, s, BendingAxis::y)[0].v, 0.85 * 1.35 * 5, 1e-5);
    s.loadcomb = kBasicLoads;
    EXPECT_THAT(StepPoints(s, s, s, s, BendingAxis::y), IsEmpty());
    s.pmchecked[1] = kTrue;
    EXPECT_NEAR(StepPoints(s, s, s, s, BendingAxis::y)[0].v, 5, 1e-5);
    s.loadmode = 0;
    EXPECT_THAT(StepPoints(s, s, s, s, BendingAxis::y), IsEmpty());
}

TEST(StepPoints, MeetTheStoredLinesInEverySupportCase)
{
    for (int supportcase = 0; supportcase < test::kSupportCases; ++supportcase) {
        SCOPED_TRACE(supportcase);
        Member s = test::Beam(supportcase, 5);
        test::AddForce(s, 1, 10, 1.23F);
        test::AddMoment(s, 2, -6, 3.35F);
        CalcMember(s, nullptr);
        const std::vector<StepPoint> points = StepPoints(s, s, s, s, BendingAxis::y);
        ASSERT_THAT(points, SizeIs(4));
        for (std::size_t i = 0; i < points.size(); ++i) {
            // Straight lines between the loads: from the next point of the diagram on that side.
            const double j = 50 * points[i].at;
            const auto next = static_cast<std::size_t>(i % 2 == 0 ? std::floor(j) : std::ceil(j));
            const double v = points[i].v;
            const double slope = supportcase == 4 ? -v : v;  // D105
            const double x = 5 * (points[i].at - static_cast<double>(next) / 50);
            EXPECT_NEAR(s.mydiag[next] + slope * x, points[i].m, 1e-4);
            EXPECT_NEAR(s.vzdiag[next], v, 1e-5);
        }
    }
}

}  // namespace
}  // namespace kestrum
