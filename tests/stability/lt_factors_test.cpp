#include "stability/lt_factors.h"

#include "core/project_state.h"
#include "stability/test_members.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>

namespace kestrum {
namespace {

Member Span(int supportcase, bool curved, float k, int spring = 0)
{
    Member s = Member::Bare().Supports(supportcase);
    s.mycurved = curved ? kTrue : kFalse;
    s.ltbk = k;
    s.spring = static_cast<i16>(spring);
    return s;
}

struct FactorCase {
    const char* name;
    int supportcase;
    bool curved;
    float k;
    int spring;
    double c1, c2, c3;
};

// A number that is none of the list, from a damaged file, holds nothing.
TEST(NoSupport, ThereAreNoFactorsOfASupportThatIsNone)
{
    for (const int none : {-1, 6, 100}) {
        Member s = Span(none, true, 1);
        const CFactors f = LtCFactors(s, s);
        EXPECT_EQ(f.c1, 0) << none;
        EXPECT_EQ(f.c2, 0) << none;
        EXPECT_EQ(f.c3, 0) << none;
    }
}

class SupportFactors : public testing::TestWithParam<FactorCase> {};

TEST_P(SupportFactors, FollowTheTable)
{
    const FactorCase& c = GetParam();
    const CFactors f = [&] {
        Member s = Span(c.supportcase, c.curved, c.k, c.spring);
        return LtCFactors(s, s);
    }();
    EXPECT_NEAR(f.c1, c.c1, 1e-6);
    EXPECT_NEAR(f.c2, c.c2, 1e-6);
    EXPECT_NEAR(f.c3, c.c3, 1e-6);
}

// By hand from the rows pinned and fixed, uniform and point load, at k = 1 and 0.5; means and
// shares of them.
INSTANTIATE_TEST_SUITE_P(
    Table, SupportFactors,
    testing::Values(
        FactorCase{"pinned_q", 0, true, 1.0f, 0, 1.12, 0.45, 0.525},
        FactorCase{"pinned_q_half", 0, true, 0.5f, 0, 0.97, 0.36, 0.478},
        // t = (1 - 0.7)/0.5 = 0.6: 1.12 - 0.6 0.15, 0.45 - 0.6 0.09, 0.525 - 0.6 0.047
        FactorCase{"pinned_q_07", 0, true, 0.7f, 0, 1.03, 0.396, 0.4968},
        FactorCase{"pinned_p", 0, false, 1.0f, 0, 1.35, 0.59, 0.411},
        FactorCase{"pinned_p_half", 0, false, 0.5f, 0, 1.05, 0.48, 0.338},
        FactorCase{"fixed_q", 2, true, 1.0f, 0, 2.578, 1.562, 0.753},
        FactorCase{"fixed_q_half", 2, true, 0.5f, 0, 0.712, 0.652, 1.07},
        FactorCase{"fixed_p", 2, false, 1.0f, 0, 1.565, 1.267, 2.645},
        FactorCase{"fixed_p_half", 2, false, 0.5f, 0, 0.938, 0.715, 4.805},
        // (1.12 + 2.578)/2, (0.45 + 1.562)/2, (0.525 + 0.753)/2
        FactorCase{"pinned_fixed_q", 1, true, 1.0f, 0, 1.849, 1.006, 0.639},
        FactorCase{"pinned_fixed_p", 1, false, 1.0f, 0, 1.4575, 0.9285, 1.528},
        // 0.4 fixed + 0.6 pinned
        FactorCase{"springs_q", 3, true, 1.0f, 40, 1.7032, 0.8948, 0.6162},
        // at k = 0.5: 0.4 0.938 + 0.6 1.07, 0.4 0.715 + 0.6 0.432, 0.4 4.805 + 0.6 0.338
        FactorCase{"springs_p_half", 3, false, 0.5f, 40, 1.0172, 0.5452, 2.1248},
        // 0.4 (0.938 + 1.05)/2 + 0.6 1.07; 0.4 (0.715 + 0.48)/2 + 0.6 0.432; 0.4 2.5715 + 0.6 0.338
        FactorCase{"pinned_spring_p_half", 5, false, 0.5f, 40, 1.0396, 0.4982, 1.2314},
        FactorCase{"pinned_spring_q", 5, true, 1.0f, 40, 1.4116, 0.6724, 0.5706}),
    [](const testing::TestParamInfo<FactorCase>& c) { return c.param.name; });

TEST(LtCFactors, D210FixedEndsUnderUniformLoadHave2578)
{
    const CFactors c = [&] {
        Member s = Span(2, true, 1.0f);
        return LtCFactors(s, s);
    }();
    EXPECT_EQ(c.c1, 2.578);
    EXPECT_NEAR(1.0 / std::sqrt(c.c1), 0.6228, 5e-5);
}

// k = 2: t = -2, C1 = 2.578 + 2 (2.578 - 0.712) = 6.310.
TEST(LtCFactors, D211ValuesRunOnBeyondKOne)
{
    EXPECT_NEAR(
        [&] {
            Member s = Span(2, true, 2.0f);
            return LtCFactors(s, s);
        }()
            .c1,
        6.310, 1e-9);
    EXPECT_NEAR(
        [&] {
            Member s = Span(0, true, 2.0f);
            return LtCFactors(s, s);
        }()
            .c1,
        1.12 + 2 * 0.15, 1e-9);
}

// Moments 100 and 90 on the ends: r = 0.9, C1 1 + 0.4 0.14 = 1.056 as a segment; the row of the
// straight line has 1.35, that of a level line, which counts as curved, 1.12 instead of 1.
TEST(LtCFactors, D234MomentsOnPinnedEndsKeepTheRowOfTheSupport)
{
    Member s = Span(0, false, 1.0f);
    members::EndMoments(s, 100, 90);
    EXPECT_EQ(LtCFactors(s, s).c1, 1.35);
    EXPECT_NEAR(SegmentC1(0.9, 1.0), 1.056, 1e-9);
    s.mycurved = kTrue;
    members::EndMoments(s, 100, 100);
    EXPECT_EQ(LtCFactors(s, s).c1, 1.12);
    EXPECT_EQ(SegmentC1(1.0, 1.0), 1.0);
}

// A cantilever with k = 1 looks up with k = 0.5.
TEST(LtCFactors, CantileverLooksUpWithHalfTheFactor)
{
    Member s = Span(4, true, 1.0f);
    s.my0 = -100;
    s.mymid = -25;  // q: a quarter of the end moment at the middle
    EXPECT_NEAR(LtCFactors(s, s).c1, 1.05, 1e-9);
    EXPECT_EQ(s.ltbk, 1.0f);
    s.ltbk = 2.0f;
    EXPECT_NEAR(LtCFactors(s, s).c1, 1.35, 1e-9);
}

TEST(LtCFactors, CantileverTakesTheUniformRowForASwollenMiddleOnly)
{
    Member s = Span(4, false, 2.0f);
    s.my0 = -100;
    s.mymid = -60;  // exactly 1.2 times the mean
    EXPECT_NEAR(LtCFactors(s, s).c1, 1.35, 1e-9);
    s.mymid = -60.001;
    EXPECT_NEAR(LtCFactors(s, s).c1, 1.12, 1e-9);
    s.myl = 40;  // the mean is 30
    s.mymid = -36;
    EXPECT_NEAR(LtCFactors(s, s).c1, 1.35, 1e-9);
    s.mymid = -36.001;
    EXPECT_NEAR(LtCFactors(s, s).c1, 1.12, 1e-9);
}

TEST(LtCFactors, TakesManualValues)
{
    Member s = Span(0, true, 1.0f);
    s.cmanual = kTrue;
    s.c1 = 1.5;
    s.c2 = 0.7;
    s.c3 = 0.3;
    const CFactors c = LtCFactors(s, s);
    EXPECT_EQ(c.c1, 1.5);
    EXPECT_EQ(c.c2, 0.7);
    EXPECT_EQ(c.c3, 0.3);
}

TEST(LtCFactors, ClosedFormReplacesC1Only)
{
    Member s = Span(0, true, 1.0f);
    s.c1alt = kTrue;
    EXPECT_NEAR(LtCFactors(s, s).c1, 1.12, 1e-9);  // no moment: the table
    s.mymaxabs = s.mymax = 10;
    s.mydiag.fill(10.0f);
    const CFactors c = LtCFactors(s, s);
    EXPECT_NEAR(c.c1, 1.0, 1e-9);
    EXPECT_EQ(c.c2, 0.45);
}

// k = 1: a = 0, 5, 10, 5, 0; A1 = (1 + 5 m2 + 10 m3 + 5 m4)/21 with m = (M/Mm)^2; C1 = sqrt(A1)/A1.
// Parabola sampled at 0, 12, 25, 38, 50 of 50: M2 = M4 = 4 0.24 0.76 = 0.7296.
TEST(LtAlternativeC1, GivesTheHandValues)
{
    Member s = members::Heb200();
    members::UniformLoad(s, 8);
    const double m = 0.7296 * 0.7296;
    EXPECT_NEAR(LtAlternativeC1(s, s), std::sqrt(21.0 / (1 + 10 * m + 10)), 1e-6);

    // Triangle of end moments 1 to 0: 0.76, 0.5, 0.24.
    members::EndMoments(s, 10, 0);
    EXPECT_NEAR(LtAlternativeC1(s, s),
                std::sqrt(21.0 / (1 + 5 * 0.76 * 0.76 + 10 * 0.25 + 5 * 0.24 * 0.24)), 1e-6);
}

// k = 0.5: a = 0.5, 2.5, 20, 2.5, 0.5; uniform moment: A1 = A2 = 1, w = 0.7071,
// C1 = sqrt(w + ((1 - w)/2)^2) + (1 - w)/2.
TEST(LtAlternativeC1, UsesTheLengthFactor)
{
    Member s = members::Heb200();
    members::EndMoments(s, 10, 10);
    s.ltbk = 0.5f;
    const double w = std::sqrt(0.5);
    const double part = (1 - w) / 2;
    EXPECT_NEAR(LtAlternativeC1(s, s), std::sqrt(w + part * part) + part, 1e-12);
}

// Triangle 1 to 0 with the same weights: A1 = (1 + 0.5 + 2.5 0.76^2 + 20 0.25 + 2.5 0.24^2)/27
// = 0.29956, A2 = (1 + 2 0.76 + 3 0.5 + 2 0.24)/9 = 0.5, C1 = (sqrt(w A1 + p^2) + p)/A1 with
// p = (1 - w)/2 A2 = 0.07322: 1.8002.
TEST(LtAlternativeC1, WeighsAnyLineByTheLengthFactor)
{
    Member s = members::Heb200();
    members::EndMoments(s, 10, 0);
    s.ltbk = 0.5f;
    EXPECT_NEAR(LtAlternativeC1(s, s), 1.8002, 1e-4);
}

TEST(LtAlternativeC1, DoesNotDependOnTheSignOfTheMoments)
{
    Member s = members::Heb200();
    members::UniformLoad(s, 8);
    Member up = members::Heb200();
    members::UniformLoad(up, -8);
    EXPECT_DOUBLE_EQ(LtAlternativeC1(s, s), LtAlternativeC1(up, up));
}

// The table points themselves, k = 0.5 and k = 1.
TEST(SegmentC1, HoldsTheTable)
{
    const std::array<double, 9> half{1.05, 1.19, 1.37, 1.6, 1.86, 2.15, 2.42, 2.45, 2.45};
    const std::array<double, 9> full{1.0, 1.14, 1.31, 1.52, 1.77, 2.06, 2.35, 2.6, 2.6};
    for (std::size_t i = 0; i < 9; ++i) {
        const double r = 1.0 - 0.25 * static_cast<double>(i);
        EXPECT_NEAR(SegmentC1(r, 0.5), half[i], 1e-12) << r;
        EXPECT_NEAR(SegmentC1(r, 1.0), full[i], 1e-12) << r;
    }
}

// r = 0.3: A 1.6 - 0.2 0.23 = 1.554, B 1.52 - 0.2 0.21 = 1.478; k = 2: 1.554 + 3 (-0.076) = 1.326.
TEST(SegmentC1, RunsStraightBetweenPointsAndBeyondKOne)
{
    EXPECT_NEAR(SegmentC1(0.3, 1.0), 1.478, 1e-9);
    EXPECT_NEAR(SegmentC1(0.3, 0.5), 1.554, 1e-9);
    EXPECT_NEAR(SegmentC1(0.3, 2.0), 1.326, 1e-9);
    EXPECT_NEAR(SegmentC1(0.3, 0.7), 1.554 - 0.4 * 0.076, 1e-9);
}

// A uniform and a point load give the same row of a pinned beam, k = 2 that of k = 1. In theory a
// load at the tip has M = 4.013 sqrt(E Iz G It)/L without warping, 2.55 of pi/(2 L), a uniform one
// 6.43, 4.09 of it.
TEST(LtCFactors, D238CantileverTakesAPinnedBeamOfHalfItsFactor)
{
    ProjectState s{};
    s.supportcase = 4;
    s.ltbk = 2;
    s.my0 = -20;                              // at the support
    for (const double mid : {-10.0, -5.0}) {  // tip load, uniform load
        s.mymid = mid;
        EXPECT_EQ(LtCFactors(s, s).c1, 1.35);
        EXPECT_EQ(LtCFactors(s, s).c2, 0.59);
    }
    s.ltbk = 1;  // as after the choice of the support: the row of k = 0.5
    EXPECT_NEAR(LtCFactors(s, s).c1, 1.05, 1e-12);
}

struct C3Case {
    double r, psif, half, full;
};

// By hand with the parameter of each range; psif 0.5 unless 0 or below.
TEST(SegmentC3, FollowsEachRange)
{
    const C3Case kCases[] = {
        {1.0, 0.5, 1.019, 1.0},     {0.75, 0.5, 1.017, 1.0},
        {0.625, 0.5, 1.0085, 1.0},  {0.5, 0.5, 1.0, 1.0},
        {0.25, 0.5, 1.0, 1.0},      {0.0, 0.5, 1.0, 1.0},
        {-0.125, 0.0, 1.0, 1.0},    {-0.125, 0.5, 0.65 + 0.35 * 1.5, 0.85 + 0.15 * 1.5},
        {-0.25, 0.5, 1.0, 1.0},     {-0.375, 0.0, 0.975, 1.0},
        {-0.375, 0.5, 0.46, 0.775},  // 0.27 + 0.5 0.38; 0.7 + 0.5 0.15
        {-0.5, 0.5, 0.27, 0.7},     {-0.5, -0.5, 0.95, 1.0},
        {-0.625, 0.0, 0.90, 1.0},   {-0.625, 0.5, 0.06, 0.375},  // -0.15 + 0.21; 0.05 + 0.325
        {-0.75, -0.5, 0.85, 1.0},   {-0.75, 0.5, -0.15, 0.05},
    };
    for (const C3Case& c : kCases) {
        EXPECT_NEAR(SegmentC3(c.r, 0.5, c.psif), c.half, 1e-9) << c.r << ' ' << c.psif;
        EXPECT_NEAR(SegmentC3(c.r, 1.0, c.psif), c.full, 1e-9) << c.r << ' ' << c.psif;
    }
}

// r = -1: t = (-1 + 0.75)/0.25 = -1. psif 0: A 0.125 - 0.725 = -0.6, B -1; psif 0.5: A -0.5 -
// (-0.15 + 0.475) = -0.825, B -0.5 - 0.55 = -1.05. Between -0.25 and 0 the value at the upper end
// is 0.65 + 0.35 2 = 1.35, beside 1 above it.
TEST(SegmentC3, D212StepsAtTheBordersOfTheLowerRanges)
{
    EXPECT_NEAR(SegmentC3(-1.0, 0.5, 0.0), -0.6, 1e-9);
    EXPECT_NEAR(SegmentC3(-1.0, 1.0, 0.0), -1.0, 1e-9);
    EXPECT_NEAR(SegmentC3(-1.0, 0.5, 0.5), -0.825, 1e-9);
    EXPECT_NEAR(SegmentC3(-1.0, 1.0, 0.5), -1.05, 1e-9);
    EXPECT_NEAR(SegmentC3(-1e-9, 0.5, 0.5), 1.35, 1e-6);
    // psif -0.5: A 0.475 - (0.85 - 0.475), B 0.5 - 0.5. Just below -0.75 t = -0.008: -0.5 - 0.008
    // 0.55.
    EXPECT_NEAR(SegmentC3(-1.0, 0.5, -0.5), 0.1, 1e-9);
    EXPECT_NEAR(SegmentC3(-1.0, 1.0, -0.5), 0, 1e-9);
    EXPECT_NEAR(SegmentC3(-0.8, 1.0, -0.5), 0.4, 1e-9);  // 0.5 - 0.2 0.5
    EXPECT_NEAR(SegmentC3(-0.752, 1.0, 0.5), -0.5044, 1e-9);
    // Just below -0.25 the lower range, t = 0.996: 0.27 + 0.996 0.38 and 0.7 + 0.996 0.15.
    EXPECT_NEAR(SegmentC3(0.502, 0.5, 0.5), 1.000136, 1e-9);  // 1 + 0.017 0.008
    EXPECT_NEAR(SegmentC3(0.755, 0.5, 0.5), 1.01704, 1e-9);   // 1.017 + 0.002 0.02
    EXPECT_NEAR(SegmentC3(-0.502, 1.0, 0.5), 0.6948, 1e-9);   // t = 0.992: 0.05 + 0.992 0.65
    EXPECT_NEAR(SegmentC3(-0.251, 0.5, 0.5), 0.64848, 1e-9);
    EXPECT_NEAR(SegmentC3(-0.251, 1.0, 0.5), 0.8494, 1e-9);
    EXPECT_NEAR(SegmentC3(0.0, 0.5, 0.5), 1.0, 1e-9);
}

}  // namespace
}  // namespace kestrum
