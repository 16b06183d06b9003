#include "design/tee_section.h"

#include "core/project_state.h"
#include "support/rows.h"
#include "support/welded.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace kestrum;

namespace {

// eps = 1; web hw thick 10, flange outstand c by 10.
Member Of(double hw, double c)
{
    // weld leg 5 on both sides of the web of 10
    return welded::Default(26).Section(FormP26{hw + 10, 2 * c + 20, 10, 10}).Steel(235).Designed();
}

}  // namespace

// 200/200/10/10 in S355, by hand: web 19 > 15 eps, class 4, lambda 19/(28.4*0.8136*0.6557) = 1.254,
// rho 0.6779, aeff = 3900 - 1900*0.3221 = 3288; flange 90/10 = 9 class 3.
TEST(TSection, DefaultResistances)
{
    const Member s = welded::Default(26).Designed();
    EXPECT_EQ(s.classn, 4);
    EXPECT_EQ(s.classmytop, 3);
    EXPECT_EQ(s.classmybot, 4);
    EXPECT_NEAR(s.aeff, 3288, 1);
    EXPECT_NEAR(s.ncrd, 1167, 0.5);
    EXPECT_NEAR(s.nplrd, 3900 * 0.355, 1e-3);
    EXPECT_NEAR(s.nrdm1, s.ncrd, 1e-6);
    EXPECT_NEAR(s.weffy, s.wely * s.aeff / s.a, 1e-6 * s.weffy);
    EXPECT_FLOAT_EQ(s.wytop, s.wely);
    EXPECT_FLOAT_EQ(s.wybot, s.weffy);
    EXPECT_NEAR(s.avz, 1.2 * 1900, 1e-3);
    EXPECT_EQ(s.mfrd, 0);
}

// The standard's limits are 9, 10 and 14 eps (Table 5.2, sheet 2).
TEST(TSection, D192LimitsOfWebAndFlange)
{
    struct Case {
        double ratio;
        int cls;
    };
    for (const Case c :
         {Case{10, 1}, Case{10.01, 2}, Case{11, 2}, Case{11.01, 3}, Case{15, 3}, Case{15.01, 4}}) {
        EXPECT_EQ(Of(c.ratio * 10, 50).classmybot, c.cls) << c.ratio;
        EXPECT_EQ(Of(c.ratio * 10, 50).classmytop, 1) << c.ratio;
        EXPECT_EQ(Of(50, c.ratio * 10).classmytop, c.cls) << c.ratio;
        EXPECT_EQ(Of(50, c.ratio * 10).classmybot, 1) << c.ratio;
        EXPECT_EQ(Of(50, c.ratio * 10).classn, c.cls) << c.ratio;
    }
}

// S355: eps = 0.81362, the limits 8.136, 8.950 and 12.204.
TEST(TSection, LimitsFallWithTheStrength)
{
    const auto class_of_web = [](double ratio) {
        return welded::Default(26)
            .Section(FormP26{ratio * 10 + 10, 120, 10, 10})
            .Steel(355)
            .Designed()
            .classmybot;
    };
    EXPECT_EQ(class_of_web(8.13), 1);
    EXPECT_EQ(class_of_web(8.14), 2);
    EXPECT_EQ(class_of_web(8.94), 2);
    EXPECT_EQ(class_of_web(8.96), 3);
    EXPECT_EQ(class_of_web(12.20), 3);
    EXPECT_EQ(class_of_web(12.21), 4);
}

// Flange 20: lambda 20/(28.4*0.6557) = 1.0740, rho = 0.8860/1.1535 = 0.7681, on both sides.
TEST(TSection, SlenderFlangeLosesAreaOnBothSides)
{
    const ProjectState s = Of(50, 200);
    ASSERT_EQ(s.classn, 4);
    EXPECT_NEAR(s.a - s.aeff, 2 * 2000 * (1 - 0.7681), 0.5);
}

// Web 14.5: class 3, lambda 14.5/(28.4*0.6557) = 0.7786, rho = 0.5906/0.6062 = 0.9742.
TEST(TSection, D193CompressionTakesTheEffectiveAreaInClass3)
{
    const ProjectState s = Of(145, 50);
    ASSERT_EQ(s.classn, 3);
    EXPECT_NEAR(s.ncrd, (s.a - 1450 * (1 - 0.9742)) * 0.235, 0.1);
    EXPECT_LT(s.ncrd, s.nplrd);
}

TEST(TSection, SwitchesKeepTheGrossArea)
{
    Member s = welded::Default(26);
    s.p26 = {300, 400, 8, 8};
    Design(s);
    const float reduced = s.aeff;
    s.checkwebbuck = kTrue;
    Design(s);
    EXPECT_GT(s.aeff, reduced);
    EXPECT_LT(s.aeff, s.a);
    s.checkflangebuck = kTrue;
    Design(s);
    EXPECT_EQ(s.aeff, s.a);
}

TEST(TSection, AxialRowNamesThePlaceAndTheClause)
{
    Member s = welded::Default(26).Designed();
    Control(s, {500, 0, 0, 0, 0});
    EXPECT_NEAR(s.irrow1, 500 / s.ncrd, 1e-9);
    EXPECT_EQ(LabelOf(SectionRow(s, 1)), "IR = NEd/NRd = ");
    EXPECT_EQ(LimitOf(SectionRow(s, 1)), " (0.00L; Ch 6.2.4)");
    Control(s, {-500, 0, 0, 0, 0});
    EXPECT_NEAR(s.irrow1, 500 / s.nplrd, 1e-9);
    EXPECT_EQ(LimitOf(SectionRow(s, 1)), " (0.00L; Ch 6.2.3)");
}

// Self-weight bends the T: a sagging moment asks the flange, a hogging one the web.
TEST(TSection, MomentTakesTheClassOfItsCompressedPart)
{
    ProjectState s = Of(160, 50);
    ASSERT_EQ(s.classmytop, 1);
    ASSERT_EQ(s.classmybot, 4);
    Control(s, {0, 2, 0, 1, 0});
    EXPECT_NEAR(s.irrow1, 2 / (s.wply * 235e-6), 1e-6);
    EXPECT_NEAR(s.irrow3, 1 / s.vbrd, 1e-9);
    Control(s, {0, -2, 0, 1, 0});
    EXPECT_NEAR(s.irrow1, 2 / (s.weffy * 235e-6), 1e-5);
    s.checkelastic = kTrue;
    Design(s);
    Control(s, {0, 2, 0, 1, 0});
    EXPECT_NEAR(s.irrow1, 2 / (s.wely * 235e-6), 1e-6);
    EXPECT_EQ(s.classmy, 4);
}

// Class 1 throughout: the linear sum stands where 6.2.9.1 would allow a reduced moment.
TEST(TSection, D194AxialForceAndMomentAreSummed)
{
    ProjectState s = Of(90, 50);
    ASSERT_EQ(s.classn, 1);
    Control(s, {100, 3, 0, 1, 0});
    EXPECT_NEAR(s.irrow2, 100 / s.ncrd + 3 / (s.wply * 235e-6), 1e-6);
    EXPECT_EQ(LabelOf(SectionRow(s, 2)), "IR = NEd/NRd+My,Ed/My,Rd = ");
    EXPECT_EQ(LimitOf(SectionRow(s, 2)), " (0.00L; Ch 6.2.1/6.2.9)");
}

// 200/200/10/10: the standard has 10*(200 - 5) = 1950.
TEST(TSection, D32ShearAreaTakesEta)
{
    EXPECT_NEAR(welded::Default(26).Designed().avz, 1.2 * 1900, 1e-3);
    EXPECT_NEAR(welded::Default(51).Designed().avz, 1.2 * 2000, 1e-3);  // 10*(210 - 5) = 2050
}

TEST(TSection, SlenderWebHasNoFlangePart)
{
    Member s = welded::Default(26);
    s.p26.isth = 900;
    Design(s);
    Control(s, {0, 0, 0, 10, 0});
    EXPECT_EQ(s.vbrd, s.vzrd);
    EXPECT_EQ(SectionRow(s, 3).note.text(), " Support stiffener recommended)");
}
