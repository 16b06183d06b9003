// Result rows of closed sections, tube, flat bar, general profile and angles as the user reads
// them. S355 (flat bar S235), gammaM0 = gammaM1 = 1; numbers worked by hand as in the tests of the
// modules.

#include "core/check_text.h"
#include "core/project_state.h"
#include "design/angle_section.h"
#include "design/flat_bar_section.h"
#include "design/general_section.h"
#include "design/hollow_section.h"
#include "design/tube_section.h"
#include "support/members.h"
#include "support/rows.h"

#include <gtest/gtest.h>

#include <vector>

namespace kestrum {
namespace {

void ExpectTexts(const Check& row, const RowText& expected)
{
    const RowText texts = TextOf(row);
    EXPECT_EQ(texts.label, expected.label);
    EXPECT_EQ(texts.calculation, expected.calculation);
    EXPECT_EQ(texts.result, expected.result);
    EXPECT_EQ(texts.limit, expected.limit);
}

TEST(SectionTexts, Hollow)
{
    ProjectState s = Member::Bare().Section("SHS 300x6.3").Steel(355).Designed();
    Control(s, {500, 50, 30, 100, 50});
    ExpectTexts(SectionRow(s, 1),
                {"IR = NEd/NRd = ", "500.0/2151.6 = ", "0.23", " < 1.0 (0.00L; Ch 6.2.4)"});

    s = Member::Bare().Section("RHS 200x100x8").Steel(355).Designed();
    Control(s, {0, 40, 10, 100, 20});
    ExpectTexts(SectionRow(s, 2), {"IR = [My,Ed/My,Rd]^alfa + [Mz,Ed/Mz,Rd]^beta = ",
                                   "[40.0/100.1]^1.66+(10.0/61.0)^1.66 = ", "0.27",
                                   " < 1.0 (0.00L; Ch 6.2.5/6.2.9)"});
    ExpectTexts(SectionRow(s, 3),
                {"IR = Vz,Ed/Vz,Rd = ", "100.0/611.5 = ", "0.16", " < 1.0 (0.00L; Ch 6.2.6)"});

    s = Member::Bare(8).Row("100x5").Steel(355).Designed();
    Control(s, {-150, 15, 15, 0, 0});
    ExpectTexts(SectionRow(s, 2),
                {"IR = (My,Ed/MN,y,Rd)^alfa  + (Mz,Ed/MN,z,Rd)^beta = ",
                 "(15.0/22.9)^1.77+(15.0/22.9)^1.77 = ", "0.95", " < 1.0 (0.00L; Ch 6.2.9)"});

    s = Member::Bare().Section("RHS 400x120x6.3").Steel(355).Designed();
    Control(s, {0, 0, 0, 100, 0});
    EXPECT_EQ(TextOf(SectionRow(s, 3)).limit,
              " < 1.0 (0.00L; Ch 6.2.6 Support stiffener recommended)");
}

TEST(SectionTexts, Tube)
{
    ProjectState s =
        Member::Bare().Section(FormP31{.istd = 300, .isttw = 10}).Steel(355).Designed();
    Control(s, {500, 200, 200, 0, 0});
    ExpectTexts(SectionRow(s, 2),
                {"IR = (My,Ed/MN,y,Rd)^alfa  + (Mz,Ed/MN,z,Rd)^beta = ",
                 "(200.0/286.2)^2.0+(200.0/286.2)^2.0 = ", "0.98", " < 1.0 (0.00L; Ch 6.2.9)"});
    Control(s, {0, 200, 200, 0, 0});
    ExpectTexts(SectionRow(s, 2), {"IR = [My,Ed/My,Rd]^alfa + [Mz,Ed/Mz,Rd]^beta = ",
                                   "[200.0/298.7]^2.00+(200.0/298.7)^2.00 = ", "0.90",
                                   " < 1.0 (0.00L; Ch 6.2.5/6.2.9)"});
    Control(s, {-500, 0, 0, 0, 0});
    ExpectTexts(SectionRow(s, 1),
                {"IR = NEd/NRd = ", "-500.0/3234.3 = ", "0.15", " < 1.0 (0.00L; Ch 6.2.3)"});
}

TEST(SectionTexts, FlatBar)
{
    ProjectState s =
        Member::Bare().Section(FormP28{.isth = 150, .isttw = 12}).Steel(235).Designed();
    Control(s, {0, 8, 0, 100, 0});
    ExpectTexts(SectionRow(s, 1),
                {"IR = My,Ed/MV,y,Rd = ", "8.0/15.0 = ", "0.53", " < 1.0 (0.00L; Ch 6.2.8)"});
    ExpectTexts(SectionRow(s, 2), {});
    Control(s, {100, 0, 0, 0, 0});
    ExpectTexts(SectionRow(s, 1),
                {"IR = NEd/NRd = ", "100.0/423.0 = ", "0.24", " < 1.0 (Ch 6.2.4)"});
}

TEST(SectionTexts, General)
{
    ProjectState s = Member::Bare()
                         .Section(FormP41{.opn = 1,
                                          .opmy = 1,
                                          .opmz = 1,
                                          .istax = 18720,
                                          .istay = 12000,
                                          .istaz = 6720,
                                          .istix = 1.923e6f,
                                          .istiy = 1.185e9f,
                                          .istiz = 9.008e7f,
                                          .istiw = 7.569e12f,
                                          .istwely = 3.951e6f,
                                          .istwelz = 6.005e5f,
                                          .istwply = 4.421e6f,
                                          .istwplz = 9.202e5f})
                         .Steel(355)
                         .Designed();
    Control(s, {2000, 600, 200, 500, 400});
    ExpectTexts(SectionRow(s, 2),
                {"IR = (My,Ed/MN,y,Rd)^alfa  + (Mz,Ed/MN,z,Rd)^beta = ",
                 "(600.0/1337.1)^2.00+(200.0/326.7)^1.50 = ", "0.68", " < 1.0 (0.00L; Ch 6.2.9)"});
    ExpectTexts(SectionRow(s, 3),
                {"IR = Vz,Ed/Vz,Rd = ", "500.0/1377.3 = ", "0.36", " < 1.0 (0.00L; Ch 6.2.6)"});
}

TEST(SectionTexts, Angle)
{
    ProjectState s = Member::Bare().Section("L 100x10").Steel(355).Designed();
    Control(s, {100, 3, 1, 30, 40});
    ExpectTexts(SectionRow(s, 1),
                {"IR = NEd/NRd+My,Ed/My,Rd+Mz,Ed/Mz,Rd = ", "100.0/679.8+3.0/22.2+1.0/22.2 = ",
                 "0.33", " < 1.0 (0.00L, point: 2, Ch 6.2.1)"});
    ExpectTexts(SectionRow(s, 2),
                {"IR = NEd/NRd+Mu,Ed/Mu,Rd+Mv,Ed/Mv,Rd = ", "100.0/679.8+2.8/14.8+-1.4/7.6 = ",
                 "0.53", " < 1.0 (0.00L, point: 1, Ch 6.2.1)"});
    ExpectTexts(SectionRow(s, 3),
                {"IR = Vy,Ed/Vy,Rd = ", "40.0/123.0 = ", "0.33", " < 1.0 (0.00L; Ch 6.2.6)"});

    // The heel of equal legs has no term of Mu.
    Control(s, {100, -2, 2, 0, 0});
    ExpectTexts(SectionRow(s, 2),
                {"IR = NEd/NRd+Mu,Ed/Mu,Rd+Mv,Ed/Mv,Rd = ", "100.0/679.8+2.8/6.5 = ", "0.58",
                 " < 1.0 (0.00L, point: 2, Ch 6.2.1)"});
}

}  // namespace
}  // namespace kestrum
