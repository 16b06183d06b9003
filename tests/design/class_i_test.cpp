// Class limits of I sections and channels, EN 1993-1-1, Table 5.2, each below, at and above. With
// fyk = 235 eps is 1, so that the limits are the table's numbers.

#include "core/project_state.h"
#include "design/class_i.h"

#include "support/members.h"

#include <cfenv>
#include <cmath>
#include <gtest/gtest.h>

namespace kestrum {
namespace {

constexpr float kJustBelow = 1 - 1e-6F;
constexpr float kJustAbove = 1 + 1e-6F;

// Both thicknesses are 1, so that d and cflange are the slendernesses. A kN of n is 1 MPa; the
// second moments are so large that moments give no stress, unless a test sets others.
ProjectState Section(float web, float flange)
{
    ProjectState s = Member::Bare().Steel(235);
    s.h = 102;
    s.b = 100;
    s.tf = 1;
    s.tw = 1;
    s.hw = 100;
    s.d = web;
    s.cflange = flange;
    s.a = 1000;
    s.iy = 1e30F;
    s.iz = 1e30F;
    return s;
}

struct Limits {
    const char* name;
    float n, m;
    float limit[3];
    bool included;
};

// 23.5 kN yields the web: nn = 1, alpha 1, 396/12 = 33 and 456/12 = 38; psi = 1: 42.
const Limits kWeb[] = {
    {"compression", 10, 0, {33, 38, 42}, false},
    {"bending", 0, 10, {72, 83, 124}, false},
    {"compression of all the web with bending", 23.5F, 10, {33, 38, 42}, true},
    {"compression beyond the web with bending", 100, 10, {33, 38, 42}, true},
};

TEST(CalcClassY, WebAtTheLimits)
{
    for (const Limits& c : kWeb) {
        for (int i = 0; i < 3; ++i) {
            const int better = i + 1, worse = i + 2;
            const float at = c.limit[i];
            ProjectState s = Section(at * kJustBelow, 1);
            EXPECT_EQ(CalcClassY(s, s, s, c.n, c.m), better) << c.name << " below " << at;
            s.d = at;
            EXPECT_EQ(CalcClassY(s, s, s, c.n, c.m), c.included ? better : worse)
                << c.name << " at " << at;
            s.d = at * kJustAbove;
            EXPECT_EQ(CalcClassY(s, s, s, c.n, c.m), worse) << c.name << " above " << at;
            EXPECT_EQ(s.classweb, worse);
            EXPECT_EQ(s.classflange, 1);
        }
    }
}

// n = -11.75 kN: nn 0.5, alpha 0.25: 36/0.25 = 144, 41.5/0.25 = 166.
TEST(CalcClassY, TensionWithBendingAtTheLimits)
{
    ProjectState s = Section(144, 1);
    s.iy = 5e4F;  // 50*10e6/5e4 = 10000 MPa against 11.75 MPa of tension
    EXPECT_EQ(CalcClassY(s, s, s, -11.75F, 10), 1);
    s.d = 144 * kJustAbove;
    EXPECT_EQ(CalcClassY(s, s, s, -11.75F, 10), 2);
    s.d = 166;
    EXPECT_EQ(CalcClassY(s, s, s, -11.75F, 10), 2);
    s.d = 166 * kJustAbove;  // psi = -10011.75/9988.25: limit 3 is 42/(0.67 - 0.33078) = 123.8
    EXPECT_EQ(CalcClassY(s, s, s, -11.75F, 10), 4);
}

// A web of 2 mm, 47 kN: -23.5 kN is half of it again. Without N a moment of the other sign has the
// limits of alpha 0.5: 396/5.5 = 72 and 456/5.5 = 82.91.
TEST(CalcClassY, ThickerWebsAndMomentsOfTheOtherSign)
{
    ProjectState s = Section(2 * 144 * kJustBelow, 1);
    s.tw = 2;
    s.iy = 5e4F;
    EXPECT_EQ(CalcClassY(s, s, s, -23.5F, 10), 1);
    s.d = 2 * 144 * kJustAbove;
    EXPECT_EQ(CalcClassY(s, s, s, -23.5F, 10), 2);
    for (const auto& [d, cls] : {std::pair{71.9F, 1}, {82.9F, 2}, {82.95F, 3}}) {
        s = Section(d, 1);
        s.iy = 5e4F;
        EXPECT_EQ(CalcClassY(s, s, s, 0, -10), cls) << d;
    }
}

// 11.75 MPa of compression and 23.5 MPa of bending: psi -1/3, class 3 up to 42/(0.67 - 0.11) = 75.
// At yield psi is 2 x 11.75/235 - 1 = -0.9, 112.6.
TEST(CalcClassY, D42StressRatioOfTheStressesThatAct)
{
    ProjectState s = Section(75 * kJustBelow, 1);
    s.iy = 5e4F;
    EXPECT_EQ(CalcClassY(s, s, s, 11.75F, 0.0235F), 3);
    s.d = 75 * kJustAbove;
    EXPECT_EQ(CalcClassY(s, s, s, 11.75F, 0.0235F), 4);
}

// Slenderness upon eps decides: at half the eps half as slender parts are of one class.
TEST(ClassOfI, GoesWithSlendernessUponEps)
{
    for (const float n : {0.0F, 10.0F, 11.75F, -5.0F, -11.75F}) {
        for (const float m : {0.0F, 0.01F, 10.0F}) {
            for (float slender = 3; slender < 260; slender += 0.5F) {
                ProjectState whole = Section(slender, slender),
                             half = Section(slender / 2, slender / 2);
                half.eps = whole.eps / 2;
                whole.iy = half.iy = whole.iz = half.iz = 1e5F;
                EXPECT_EQ(CalcClassY(whole, whole, whole, n, m), CalcClassY(half, half, half, n, m))
                    << slender << ' ' << n << ' ' << m;
                EXPECT_EQ(whole.classflange, half.classflange);
                EXPECT_EQ(whole.classweb, half.classweb);
                EXPECT_EQ(CalcClassZ(whole, whole, n, m, slender, 1, 100),
                          CalcClassZ(half, half, n, m, slender / 2, 1, 100))
                    << slender << ' ' << n << ' ' << m;
            }
        }
    }
}

TEST(CalcClassY, TensionOfTheWholeWebIsClass1)
{
    ProjectState s = Section(1000, 1);
    std::feclearexcept(FE_ALL_EXCEPT);
    EXPECT_EQ(CalcClassY(s, s, s, -23.5F, 10),
              1);  // nn = 1, alpha = 0, by which nothing is divided
    EXPECT_EQ(std::fetestexcept(FE_DIVBYZERO | FE_INVALID), 0);
    EXPECT_EQ(CalcClassY(s, s, s, -30, 10), 1);
    EXPECT_EQ(CalcClassY(s, s, s, -10, 0), 1);
}

TEST(CalcClassY, TensileEdgeKeepsTheFlangeInClass1)
{
    ProjectState s = Section(10, 30);
    EXPECT_EQ(CalcClassY(s, s, s, -10, 10), 1);  // 10 MPa tension, no bending stress
    s.iy = 5e4F;
    EXPECT_EQ(CalcClassY(s, s, s, -10, 10), 4);
    EXPECT_EQ(s.classflange, 4);
    EXPECT_EQ(s.classweb, 1);
}

TEST(CalcClassY, ZeroStressAtTheEdgeIsClass1)
{
    ProjectState s = Section(1000, 30);
    s.iy = 5e9F;  // 50 * 1e6/5e9 = 0.01 MPa per kNm
    EXPECT_EQ(CalcClassY(s, s, s, -1, 100), 1);
}

// Deviation D155.
TEST(CalcClassY, D155OneElasticLimitForEveryStressRatio)
{
    // psi = -1.5, 42/(0.67 - 0.495) = 240; the standard's 62 * 2.5 * sqrt(1.5) = 189.8 is lower.
    // n = -2 kN: nn = 0.0851, alpha = 0.4574: limits of class 1 and 2 are 78.7 and 90.7.
    ProjectState s = Section(239.9F, 1);
    s.iy = 5e8F;  // 0.1 MPa per kNm; 10 MPa against 2: psi = -12/8
    EXPECT_EQ(CalcClassY(s, s, s, -2, 100), 3);
    s.d = 240.1F;
    EXPECT_EQ(CalcClassY(s, s, s, -2, 100), 4);
    // psi = -2.2: the formula has no positive limit left, whatever the web
    s.d = 100;
    s.a = 2000 / 3.75F;  // 10 MPa against 3.75: psi = -13.75/6.25
    EXPECT_EQ(CalcClassY(s, s, s, -2, 100), 4);
}

// Deviation D165.
TEST(CalcClassY, D165AlphaRefersToTheClearWeb)
{
    // 11.75 kN on hw tw fyk = 23.5 kN: alpha 0.75, 396/8.75 = 45.26. On d = 45 mm it would be 1.
    ProjectState s = Section(45.2F, 1);
    EXPECT_EQ(CalcClassY(s, s, s, 11.75F, 10), 1);
    s.d = 45.3F;
    EXPECT_EQ(CalcClassY(s, s, s, 11.75F, 10), 2);
}

// Deviation D156.
TEST(CalcClassY, D156FlangeLimitsAreNotIncluded)
{
    const float limits[] = {9, 10, 14};
    for (int i = 0; i < 3; ++i) {
        ProjectState s = Section(10, limits[i] * kJustBelow);
        EXPECT_EQ(CalcClassY(s, s, s, 10, 0), i + 1);
        s.cflange = limits[i];
        EXPECT_EQ(CalcClassY(s, s, s, 10, 0), i + 2);
        s.cflange = limits[i] * kJustAbove;
        EXPECT_EQ(CalcClassY(s, s, s, 10, 10), i + 2);
        EXPECT_EQ(s.classflange, i + 2);
    }
}

TEST(ClassOfI, IsOneWhereNothingIsCompressed)
{
    ProjectState s = Section(1000, 1000);
    EXPECT_EQ(CalcClassY(s, s, s, 0, 0), 1);
    EXPECT_EQ(CalcClassZ(s, s, s, 0, 0), 1);
    EXPECT_EQ(CalcClassZ(s, s, s, -10, 0), 1);
}

TEST(CalcClassZ, CompressionAtTheLimits)
{
    const float flange[] = {9, 10, 14};
    const float web[] = {33, 38, 42};
    for (int i = 0; i < 3; ++i) {
        ProjectState s = Section(10, flange[i] * kJustBelow);
        EXPECT_EQ(CalcClassZ(s, s, s, 10, 0), i + 1);
        s.cflange = flange[i];
        EXPECT_EQ(CalcClassZ(s, s, s, 10, 0), i + 2);
        s.cflange = flange[i] * kJustAbove;
        EXPECT_EQ(CalcClassZ(s, s, s, 10, 0), i + 2);
        for (const float m : {0.0F, 10.0F}) {
            s = Section(web[i] * kJustBelow, 1);
            EXPECT_EQ(CalcClassZ(s, s, s, 10, m), i + 1);
            s.d = web[i];
            EXPECT_EQ(CalcClassZ(s, s, s, 10, m), i + 2);
            s.d = web[i] * kJustAbove;
            EXPECT_EQ(CalcClassZ(s, s, s, 10, m), i + 2);
        }
    }
}

TEST(CalcClassZ, BendingAtTheLimitsLeavesTheWebInClass1)
{
    ProjectState s = Section(1000, 1);
    const double limit3 = 21 * std::sqrt(0.57);
    EXPECT_EQ(CalcClassZ(s, s, 0, 10, 9 * 0.999999, 1, 100), 1);
    EXPECT_EQ(CalcClassZ(s, s, 0, 10, 9, 1, 100), 2);
    EXPECT_EQ(CalcClassZ(s, s, 0, 10, 10 * 0.999999, 1, 100), 2);
    EXPECT_EQ(CalcClassZ(s, s, 0, 10, 10, 1, 100), 3);
    EXPECT_EQ(CalcClassZ(s, s, 0, 10, limit3, 1, 100), 3);
    EXPECT_EQ(CalcClassZ(s, s, 0, 10, limit3 * 1.000001, 1, 100), 4);
    EXPECT_EQ(s.classweb, 1);
}

TEST(CalcClassZ, CompressionWithBendingAtTheLimits)
{
    ProjectState s = Section(10, 1);
    EXPECT_EQ(CalcClassZ(s, s, 10, 10, 9 * 0.999999, 1, 100), 1);
    EXPECT_EQ(CalcClassZ(s, s, 10, 10, 9, 1, 100), 2);
    EXPECT_EQ(CalcClassZ(s, s, 10, 10, 10, 1, 100), 3);
    const double limit3 = 21 * std::sqrt(0.43);  // psi = 1
    EXPECT_EQ(CalcClassZ(s, s, 10, 10, limit3 * 0.999999, 1, 100), 3);
    EXPECT_EQ(CalcClassZ(s, s, 10, 10, limit3 * 1.000001, 1, 100), 4);
}

// Deviation D157.
TEST(CalcClassZ, D157StressRatioOfTheWholeFlange)
{
    // 10 MPa of n, 10 of m: psi = 0 from tip to tip, k = 0.57. From tip to web it is 0.5, k 0.4825.
    ProjectState s = Section(10, 1);
    s.iz = 5e8F;  // 50 * 1e6/5e8 = 0.1 MPa per kNm
    const double limit3 = 21 * std::sqrt(0.57);
    EXPECT_EQ(CalcClassZ(s, s, 10, 100, limit3 * 0.999999, 1, 100), 3);
    EXPECT_EQ(CalcClassZ(s, s, 10, 100, limit3 * 1.000001, 1, 100), 4);
}

// The web takes 23.5 kN of tension; the rest x lies in the flange tips that are in tension.
TEST(CalcClassZ, TensionBeyondTheWebRelievesTheFlange)
{
    ProjectState s = Section(1000, 1);
    s.iz = 5e4F;  // bending stress governs: psi close to -1, elastic limit 21 sqrt(0.85) = 19.4
    // x = 23.5 kN, t = 1: 23500/(1*235*4) = 25 mm; c = 40: alpha 0.625, limits 14.4 and 16
    EXPECT_EQ(CalcClassZ(s, s, -47, 10, 40, 1, 100), 4);
    // t = 2: 12.5 mm; c = 32: alpha = 37.5/32 counts as 1; c/t = 16
    EXPECT_EQ(CalcClassZ(s, s, -47, 10, 32, 2, 100), 3);
    // x = 75.2 kN, t = 2: 40 mm; c = 45: alpha 0.2222, limit 40.5 over c/t = 22.5
    EXPECT_EQ(CalcClassZ(s, s, -98.7F, 10, 45, 2, 100), 1);
    // x = 37.6 kN, t = 2: 20 mm; c = 45: alpha 0.6667, limits 13.5 and 15
    EXPECT_EQ(CalcClassZ(s, s, -61.1F, 10, 45, 2, 100), 4);
    // x = 60.16 kN, t = 2: 32 mm; c = 45: alpha 0.4, limits 22.5 and 25
    EXPECT_EQ(CalcClassZ(s, s, -83.6F, 10, 45, 2, 100), 2);
    EXPECT_EQ(CalcClassZ(s, s, -83.7F, 10, 45, 2, 100), 1);
    EXPECT_EQ(s.classweb, 1);
}

// Web of 2 mm: 100*2*235 = 47 kN. x = 94 - 47 = 47 kN, t = 2: 25 mm of each tip; c = 24: alpha
// (50 - 25)/24 counts as 1, the limits stay 9 and 10. At x = 94 kN, 50 mm, it is 0.
TEST(CalcClassZ, OutstandIsCompressedByNoMoreThanAllOfIt)
{
    ProjectState s = Section(1000, 1);
    s.tw = 2;
    s.iz = 5e4F;
    const double c = 24;
    EXPECT_EQ(CalcClassZ(s, s, -94, 10, c, c / 8.95, 100), 1);
    EXPECT_EQ(CalcClassZ(s, s, -94, 10, c, c / 9.05, 100), 2);
    EXPECT_EQ(CalcClassZ(s, s, -141, 10, 30, 2, 100), 3);
}

TEST(CalcClassZ, TensionUpToTheWebKeepsTheLimitsOfBending)
{
    ProjectState s = Section(1000, 1);
    s.iz = 5e4F;
    EXPECT_EQ(CalcClassZ(s, s, -23, 10, 9 * 0.999999, 1, 100), 1);
    EXPECT_EQ(CalcClassZ(s, s, -23, 10, 9, 1, 100), 2);
    EXPECT_EQ(CalcClassZ(s, s, -23, 10, 10, 1, 100), 3);
}

TEST(CalcClassZ, TensionThatLeavesNoCompressionTakesTheElasticTest)
{
    // x/(t fyk 4) = 60 mm is more than b/2: alpha negative, neither class 1 nor 2.
    ProjectState s = Section(10, 1);
    s.iz = 5e4F;
    EXPECT_EQ(CalcClassZ(s, s, -79.9F, 10, 5, 1, 100), 3);
}

}  // namespace
}  // namespace kestrum
