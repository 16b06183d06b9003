// Circular tubes. Where nothing else is told, gammaM0 = gammaM1 = eta = 1, and the expected values
// are worked by hand from the clauses named.

#include "core/project_state.h"
#include "design/tube_section.h"

#include "support/members.h"
#include "support/rows.h"
#include "support/worked.h"

#include <cfenv>
#include <cmath>

namespace kestrum {
namespace {

TEST(ControlTube, CompressionAndBothMoments)
{
    ProjectState s = Member::Bare().Section(FormP31{300, 10}).Steel(355).Designed();
    Control(s, {500, 60, 40, 200, 0});
    EXPECT_EQ(s.classn, 1);  // 30 < 50 eps^2 = 33.10
    ExpectDigits(s.nplrd, 3234, "9111*355/1000");
    EXPECT_EQ(s.ncrd, s.nplrd);
    EXPECT_EQ(s.nrdm1, s.nplrd);
    ExpectDigits(s.myrd, 298.7, "8.413e5*355/1e6");
    EXPECT_EQ(s.mzrd, s.myrd);
    ExpectDigits(s.avz, 5800, "2*9111/pi");
    ExpectDigits(s.vzrd, 1189, "5800*355/sqrt(3)/1000");
    ExpectDigits(s.mnyrd, 286.2, "298.7*(1 - 0.1546^1.7)");
    EXPECT_EQ(s.mnzrd, s.mnyrd);
    ExpectRow(SectionRow(s, 1),
              {0.2009, "IR = My,Ed/My,Rd = ", "{F}/{F} = ", {60, 298.7}, " (0.00L; Ch 6.2.5)"});
    ExpectRow(SectionRow(s, 2),
              {0.2097, "IR = My,Ed/MN,y,Rd = ", "{F}/{F} = ", {60, 286.2}, " (0.00L; Ch 6.2.9)"});
    ExpectRow(SectionRow(s, 3),
              {0.1682, "IR = Vz,Ed/Vz,Rd = ", "{F}/{F} = ", {200, 1189}, " (0.00L; Ch 6.2.6)"});
}

TEST(ControlTube, ExponentsAreTwoWithOneDecimalUnderAxialForce)
{
    ProjectState s = Member::Bare().Section(FormP31{300, 10}).Steel(355).Designed();
    Control(s, {500, 200, 200, 0, 0});  // 2*(200/286.2)^2 = 0.9767
    ExpectRow(SectionRow(s, 2),
              {0.977,
               "IR = (My,Ed/MN,y,Rd)^alfa  + (Mz,Ed/MN,z,Rd)^beta = ",
               "({F}/{F})^{F}+({F}/{F})^{F} = ",
               {200, 286.2, 2, 200, 286.2, 2},
               " (0.00L; Ch 6.2.9)"},
              3);
    Control(s, {0, 200, 200, 0, 0});  // 2*(200/298.7)^2 = 0.8967
    ExpectRow(SectionRow(s, 2),
              {0.897,
               "IR = [My,Ed/My,Rd]^alfa + [Mz,Ed/Mz,Rd]^beta = ",
               "[{F}/{F}]^{R}+({F}/{F})^{R} = ",
               {200, 298.7, 2, 200, 298.7, 2},
               " (0.00L; Ch 6.2.5/6.2.9)"},
              3);
}

TEST(ControlTube, ShearReducesTheMoment)
{
    ProjectState s = Member::Bare().Section(FormP31{300, 10}).Steel(355).Designed();
    Control(s, {0, 60, 0, 700, 0});
    ExpectDigits(s.myrdv, 289.2, "298.7*(1 - (2*700/1189 - 1)^2), rho = 0.0316");
    EXPECT_EQ(LabelOf(SectionRow(s, 1)), "IR = My,Ed/MV,y,Rd = ");
    EXPECT_EQ(LimitOf(SectionRow(s, 1)), " (0.00L; Ch 6.2.8)");
}

TEST(ControlTube, AxialForceAloneIsPlacedAtTheFirstSection)
{
    ProjectState s = Member::Bare().Section(FormP31{300, 10}).Steel(355).Designed();
    Control(s, {-500, 0, 0, 0, 0});
    ExpectRow(SectionRow(s, 1),
              {0.1546, "IR = NEd/NRd = ", "{F}/{F} = ", {-500, 3234}, " (0.00L; Ch 6.2.3)"});
    Control(s, {500, 0, 0, 0, 0});
    EXPECT_EQ(LimitOf(SectionRow(s, 1)), " (0.00L; Ch 6.2.4)");
}

TEST(ControlTube, FullShearLeavesNoMomentAndEndsTheCalculation)
{
    ProjectState s = Member::Bare().Section(FormP31{300, 10}).Steel(355).Designed();
    std::feclearexcept(FE_ALL_EXCEPT);
    Control(s, {0, 60, 0, 1.1 * s.vzrd, 0});
    EXPECT_TRUE(std::fetestexcept(FE_DIVBYZERO));
}

// Gardner and Nethercot, Designers' Guide to EN 1993-1-1, example 6.7 (as quoted in public test
// suites): CHS 244.5x10, S355. Published: A 7370 mm2, Wel 415, Wpl 550 cm3, class 1, Nc,Rd 2616 kN
// (2615.3 from the unrounded area).
TEST(CalcResistanceTube, DesignersGuideExample67)
{
    const ProjectState s = Member::Bare().Section(FormP31{244.5f, 10}).Steel(355).Designed();
    EXPECT_NEAR(s.a, 7370, 5);
    EXPECT_NEAR(s.wely, 415e3, 500);
    EXPECT_NEAR(s.wply, 550e3, 500);
    EXPECT_EQ(s.classn, 1);
    EXPECT_NEAR(s.ncrd, 2616, 1);
    EXPECT_NEAR(s.ncrd, 2615.3, 0.05);
}

TEST(CalcResistanceTube, ClassLimitsAreIncluded)
{
    // S235: 50, 70, 90.
    const struct {
        float diameter;
        i16 expected;
    } cases[] = {{500, 1}, {501, 2}, {700, 2}, {701, 3}, {900, 3}, {901, 4}};
    for (const auto& c : cases) {
        const ProjectState s =
            Member::Bare().Section(FormP31{c.diameter, 10}).Steel(235).Designed();
        EXPECT_EQ(s.classn, c.expected) << c.diameter;
        EXPECT_EQ(s.classmy, c.expected);
        EXPECT_EQ(s.classmz, c.expected);
        const bool plastic = c.expected <= 2;
        EXPECT_EQ(s.wyused, plastic ? s.wply : s.wely);
        EXPECT_EQ(s.myrd, plastic ? s.mplyrd : s.melyrd);
    }
}

TEST(CalcResistanceTube, ElasticDesignTakesTheElasticModulus)
{
    ProjectState s = Member::Bare().Section(FormP31{300, 10}).Steel(355).Designed();
    s.checkelastic = kTrue;
    CalcResistanceTube(s, s, s, s);
    EXPECT_EQ(s.wyused, s.wely);
    EXPECT_EQ(s.wzused, s.wely);
    EXPECT_EQ(s.mzrd, s.melyrd);
}

TEST(CalcResistanceTube, PartialFactors)
{
    ProjectState s = Member::Bare().Section(FormP31{300, 10}).Steel(355).Designed();
    const ProjectState one = s;
    s.gammam0 = 1.1;
    s.gammam1 = 1.2f;
    CalcResistanceTube(s, s, s, s);
    EXPECT_NEAR(s.nplrd, one.nplrd / 1.1, 1e-9 * s.nplrd);
    EXPECT_NEAR(s.vzrd, one.vzrd / 1.1, 1e-9 * s.vzrd);
    EXPECT_NEAR(s.nrdm1, one.nplrd / 1.2, 1e-6 * s.nplrd);
    EXPECT_NEAR(s.myrdm1, one.myrd / 1.2, 1e-6 * s.myrd);
    EXPECT_NEAR(s.mzrdm1, one.mzrd / 1.2, 1e-6 * s.mzrd);
}

TEST(CalcResistanceTube, D175ClassFourKeepsAreaAndElasticModulus)
{
    ProjectState s =
        Member::Bare().Section(FormP31{1000, 10}).Steel(235).Designed();  // d/t = 100 > 90
    EXPECT_EQ(s.classn, 4);
    EXPECT_EQ(s.aeff, s.a);
    EXPECT_EQ(s.ncrd, s.nplrd);
    EXPECT_EQ(s.myrd, s.melyrd);
    Control(s, {1000, 100, 0, 0, 0});
    EXPECT_NEAR(s.irrow2, 1000 / s.nplrd + 100 / s.melyrd, 1e-9);
}

TEST(ControlTube, D176ShearForcesActEachForItself)
{
    ProjectState s = Member::Bare().Section(FormP31{300, 10}).Steel(355).Designed();
    const double v = 0.8 * s.vzrd;
    Control(s, {0, 10, 10, v, v});
    EXPECT_NEAR(s.irrow3, 0.8, 1e-9);  // the resultant: 1.131
    EXPECT_NEAR(s.myrdv, s.myrd * (1 - 0.36), 1e-9);
    EXPECT_NEAR(s.mzrdv, s.mzrd * (1 - 0.36), 1e-9);
}

// --- Laws

TEST(TubeLaws, AxesMayBeExchanged)
{
    for (const float wall : {4.0f, 6.0f, 8.0f, 12.0f}) {
        for (const double n : {-400.0, 0.0, 400.0}) {
            ProjectState s = Member::Bare().Section(FormP31{300, wall}).Steel(355).Designed();
            Control(s, {n, 50, 20, 300, 100});
            ProjectState t = Member::Bare().Section(FormP31{300, wall}).Steel(355).Designed();
            Control(t, {n, 20, 50, 100, 300});
            EXPECT_EQ(s.irrow1, t.irrow1);
            EXPECT_NEAR(s.irrow2, t.irrow2, 1e-12);
            EXPECT_EQ(s.irrow3, t.irrow3);
        }
    }
}

// Class 1 and 2, no shear: the exponents of two make the sum that of the resultant moment.
TEST(TubeLaws, MomentMayTurnAboutTheAxis)
{
    ProjectState s = Member::Bare().Section(FormP31{300, 10}).Steel(355).Designed();
    const double m = 200;
    Control(s, {500, 0, m, 0, 0});
    const double along = s.irrow2;
    for (const double angle : {0.2, 0.5, 0.785, 1.1}) {
        Control(s, {500, m * std::cos(angle), m * std::sin(angle), 0, 0});
        const double sum =
            s.myed / s.mnyrd * (s.myed / s.mnyrd) + s.mzed / s.mnzrd * (s.mzed / s.mnzrd);
        EXPECT_NEAR(sum, along * along, 1e-6);
    }
}

TEST(TubeLaws, ResistancesGrowWithThickness)
{
    ProjectState thin = Member::Bare().Section(FormP31{400, 3}).Steel(355).Designed();
    for (float wall = 3.5f; wall < 60; wall += 0.5f) {
        const ProjectState s = Member::Bare().Section(FormP31{400, wall}).Steel(355).Designed();
        EXPECT_GT(s.nplrd, thin.nplrd);
        EXPECT_GT(s.myrd, thin.myrd);
        EXPECT_GT(s.vbrd, thin.vbrd);
        thin = s;
    }
}

}  // namespace
}  // namespace kestrum
