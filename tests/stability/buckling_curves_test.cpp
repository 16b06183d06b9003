#include "stability/buckling_curves.h"

#include "core/project_state.h"
#include "stability/test_members.h"

#include <gtest/gtest.h>

namespace kestrum {
namespace {

struct CurveCase {
    const char* name;
    int family;
    float fyk, h, b, tf;
    const char* y;
    const char* z;
};

class AutomaticCurve : public testing::TestWithParam<CurveCase> {};

// EN 1993-1-1, Table 6.2, row by row; thresholds below, at, above.
TEST_P(AutomaticCurve, FollowsTable62)
{
    const CurveCase& c = GetParam();
    ProjectState s{};
    s.family = static_cast<i16>(c.family);
    s.fyk = c.fyk;
    s.h = c.h;
    s.b = c.b;
    s.tf = c.tf;
    s.tw = 10;
    s.tmax = c.tf;
    s.tubehot = 1;
    BucklingCurves(s, s, s);
    EXPECT_EQ(s.curvey.text(), c.y);
    EXPECT_EQ(s.curvez.text(), c.z);
}

INSTANTIATE_TEST_SUITE_P(
    Table62, AutomaticCurve,
    testing::Values(CurveCase{"slender", 4, 355, 600, 220, 19, "a", "b"},
                    CurveCase{"at_ratio_1_2", 1, 355, 120, 100, 8, "b", "c"},
                    CurveCase{"above_ratio_1_2", 1, 355, 120.1f, 100, 8, "a", "b"},
                    CurveCase{"at_40_mm", 3, 355, 600, 305, 40, "a", "b"},
                    CurveCase{"just_above_40_mm", 3, 355, 600, 305, 40.1f, "b", "c"},
                    CurveCase{"above_40_mm", 3, 355, 600, 305, 40.5f, "b", "c"},
                    CurveCase{"stocky_at_100_mm", 101, 355, 500, 450, 100, "b", "c"},
                    CurveCase{"stocky_above_100_mm", 101, 355, 500, 450, 101, "d", "d"},
                    CurveCase{"s460_slender", 4, 460, 600, 220, 19, "a0", "a0"},
                    CurveCase{"s460_slender_thick", 3, 460, 600, 305, 41, "a", "a"},
                    CurveCase{"s460_stocky", 2, 460, 200, 200, 15, "a", "a"},
                    CurveCase{"s460_stocky_thick", 2, 460, 500, 450, 101, "c", "c"},
                    CurveCase{"inp", 15, 235, 240, 106, 13.1f, "a", "b"},
                    CurveCase{"joist", 102, 275, 76, 76, 8, "b", "c"},
                    CurveCase{"upe", 5, 460, 300, 100, 15, "c", "c"},
                    CurveCase{"unp", 16, 235, 240, 85, 13, "c", "c"},
                    CurveCase{"t", 26, 355, 200, 200, 10, "c", "c"},
                    CurveCase{"flat_bar", 28, 355, 150, 12, 0, "c", "c"},
                    CurveCase{"hot_square", 6, 355, 150, 150, 6, "a", "a"},
                    CurveCase{"hot_rectangle_s460", 7, 460, 150, 100, 6, "a0", "a0"},
                    CurveCase{"cold_square", 8, 460, 100, 100, 5, "c", "c"},
                    CurveCase{"cold_rectangle", 9, 355, 100, 50, 5, "c", "c"},
                    CurveCase{"equal_angle", 10, 460, 100, 100, 10, "b", "b"},
                    CurveCase{"unequal_angle", 11, 355, 100, 50, 10, "b", "b"},
                    CurveCase{"welded", 21, 355, 600, 300, 40, "b", "c"},
                    CurveCase{"welded_thick", 21, 355, 600, 300, 41, "c", "d"},
                    CurveCase{"single_symmetric", 22, 460, 600, 300, 20, "b", "c"},
                    CurveCase{"general", 41, 460, 1000, 300, 40, "b", "c"},
                    CurveCase{"hot_tube", 31, 355, 300, 300, 10, "a", "a"},
                    CurveCase{"hot_tube_s460", 31, 460, 300, 300, 10, "a0", "a0"}),
    [](const testing::TestParamInfo<CurveCase>& c) { return c.param.name; });

TEST(BucklingCurves, TakesTheChosenCurve)
{
    const struct {
        i16 choice;
        const char* name;
        double alpha;
    } kCases[] = {{1, "a0", 0.13}, {2, "a", 0.21}, {3, "b", 0.34}, {4, "c", 0.49},
                  {5, "d", 0.76},  {9, "d", 0.76}, {-1, "d", 0.76}};
    for (const auto& c : kCases) {
        Member s = members::Heb200();
        s.bcy = c.choice;
        s.bcz = c.choice;
        BucklingCurves(s, s, s);
        EXPECT_EQ(s.curvey.text(), c.name);
        EXPECT_EQ(s.curvez.text(), c.name);
        EXPECT_EQ(s.alphay, c.alpha);
        EXPECT_EQ(s.alphaz, static_cast<float>(c.alpha));
    }
}

TEST(BucklingCurves, ChoosesEachAxisForItself)
{
    Member s = members::Heb200();
    s.bcy = 1;
    BucklingCurves(s, s, s);
    EXPECT_EQ(s.curvey.text(), "a0");
    EXPECT_EQ(s.curvez.text(), "c");
}

TEST(BucklingCurves, ColdTubeTakesC)
{
    ProjectState s{};
    s.family = 31;
    s.fyk = 460;
    BucklingCurves(s, s, s);
    EXPECT_EQ(s.curvey.text(), "c");
    EXPECT_EQ(s.curvez.text(), "c");
}

// D203: S460 whose strength is 440 after the reduction for thickness counts as the lower steel.
TEST(BucklingCurves, D203HighStrengthBeginsAbove440)
{
    for (const int family : {2, 6, 31}) {
        Member s = members::Heb200();
        s.family = static_cast<i16>(family);
        s.tubehot = 1;
        s.fyk = 440;
        BucklingCurves(s, s, s);
        const double lower = s.alphay;
        s.fyk = 441;
        BucklingCurves(s, s, s);
        EXPECT_LT(s.alphay, lower) << family;
    }
}

TEST(BucklingCurves, D204BoxTakesBWithThickWeldsOrSlenderPlates)
{
    ProjectState s{};
    s.family = 23;
    s.b = 299;
    s.h = 299;
    s.tf = 10;
    s.tw = 10;
    BucklingCurves(s, s, s);
    EXPECT_EQ(s.curvey.text(), "c");
    s.b = 300;
    BucklingCurves(s, s, s);
    EXPECT_EQ(s.curvey.text(), "b");
    s.b = 299;
    s.h = 300;
    BucklingCurves(s, s, s);
    EXPECT_EQ(s.curvez.text(), "b");
    s.h = 299;
    s.weldopt = 1;
    BucklingCurves(s, s, s);
    EXPECT_EQ(s.curvez.text(), "b");
}

TEST(BucklingCurves, D205BritishChannelKeepsTheCurveOfTheRunBefore)
{
    Member s = members::Upe300();
    BucklingCurves(s, s, s);
    s.family = 103;
    BucklingCurves(s, s, s);
    EXPECT_EQ(s.curvey.text(), "c");
    EXPECT_EQ(s.alphay, 0.49);
    EXPECT_EQ(s.alphaz, 0.49f);

    ProjectState fresh{};
    fresh.family = 103;
    BucklingCurves(fresh, fresh, fresh);
    EXPECT_TRUE(fresh.curvey.empty());
    EXPECT_EQ(fresh.alphay, 0.0);
}

}  // namespace
}  // namespace kestrum
