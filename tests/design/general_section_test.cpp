// The general profile. gammaM0 = gammaM1 = eta = 1, fyk = 355 MPa; the expected values are worked
// by hand from the clauses named.

#include "core/project_state.h"
#include "design/general_section.h"

#include "design/i_section.h"
#include "support/members.h"
#include "support/rows.h"
#include "support/worked.h"

namespace kestrum {
namespace {

// The welded I 600x300x12x20.
constexpr FormP41 kEntered{.opn = 3,
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
                           .istwplz = 9.202e5f};

Member General(const FormP41& entered = kEntered)
{
    return Member::Bare().Section(entered).Steel(355).Designed();
}

TEST(ControlGeneral, CompressionAndBothMoments)
{
    ProjectState s = General();
    Control(s, {2000, 600, 100, 500, 400});
    EXPECT_EQ(s.classn, 3);
    ExpectDigits(s.nplrd, 6646, "18720*355/1000");
    EXPECT_EQ(s.ncrd, s.nplrd);
    ExpectDigits(s.myrd, 1569, "4.421e6*355/1e6");
    ExpectDigits(s.mzrd, 326.7, "9.202e5*355/1e6");
    ExpectDigits(s.mnyrd, 1337, "1569*(1 - 0.3010)/(1 - 0.5*0.3590)");
    ExpectDigits(s.mnzrd, 326.7, "n = 0.3010 below aw = 0.3590");
    ExpectDigits(s.betaexp, 1.505, "5*0.3010");
    ExpectDigits(s.vzrd, 1377, "6720*355/sqrt(3)/1000");
    ExpectDigits(s.vyrd, 2460, "12000*355/sqrt(3)/1000");
    ExpectRow(SectionRow(s, 1),
              {0.3823, "IR = My,Ed/My,Rd = ", "{F}/{F} = ", {600, 1569}, " (0.00L; Ch 6.2.5)"});
    ExpectRow(SectionRow(s, 2),
              {0.4487, "IR = My,Ed/MN,y,Rd = ", "{F}/{F} = ", {600, 1337}, " (0.00L; Ch 6.2.9)"});
    ExpectRow(SectionRow(s, 3),
              {0.3630, "IR = Vz,Ed/Vz,Rd = ", "{F}/{F} = ", {500, 1377}, " (0.00L; Ch 6.2.6)"});
    // Without My: e = 100/326.7; with less My f = (300/1337)^2 + 0.3061^1.505.
    Control(s, {2000, 0, 100, 0, 0});
    ExpectRow(SectionRow(s, 2),
              {0.3061, "IR = Mz,Ed/MN,z,Rd = ", "{F}/{F} = ", {100, 326.7}, " (0.00L; Ch 6.2.9)"});
    Control(s, {2000, 600, 200, 0, 0});  // (0.4487)^2 + 0.6122^1.505 = 0.2013 + 0.4780
    ExpectRow(SectionRow(s, 2),
              {0.679,
               "IR = (My,Ed/MN,y,Rd)^alfa  + (Mz,Ed/MN,z,Rd)^beta = ",
               "({F}/{F})^{R}+({F}/{F})^{R} = ",
               {600, 1337, 2, 200, 326.7, 1.505},
               " (0.00L; Ch 6.2.9)"},
              3);
}

TEST(ControlGeneral, AxialForceHasNoPlace)
{
    ProjectState s = General();
    Control(s, {-2000, 0, 0, 0, 0});
    ExpectRow(SectionRow(s, 1),
              {0.3010, "IR = NEd/NRd = ", "{F}/{F} = ", {-2000, 6646}, " (Ch 6.2.3)"});
    Control(s, {2000, 0, 0, 0, 0});
    EXPECT_EQ(LimitOf(SectionRow(s, 1)), " (Ch 6.2.4)");
}

TEST(CalcResistanceGeneral, ClassThreeRestsOnTheElasticModulus)
{
    FormP41 entered = kEntered;
    entered.opmy = 3;
    ProjectState s = General(entered);
    EXPECT_EQ(s.wyused, s.wely);
    ExpectDigits(s.myrd, 1403, "3.951e6*355/1e6");
    EXPECT_EQ(s.wzused, s.wplz);
    Control(s, {2000, 600, 0, 0, 0});
    ExpectRow(SectionRow(s, 2),
              {0.7287,  // 0.3010 + 600/1402.6
               "IR = NEd/NRd+My,Ed/My,Rd = ",
               "{F}/{F}+{F}/{F} = ",
               {2000, 6646, 600, 1403},
               " (0.00L; Ch 6.2.1/6.2.9)"});

    s = General();
    s.checkelastic = kTrue;
    CalcResistanceGeneral(s, s, s, s);
    EXPECT_EQ(s.wyused, s.wely);
    EXPECT_EQ(s.wzused, s.welz);
}

TEST(CalcResistanceGeneral, ValuesForTheStabilityControl)
{
    ProjectState s = General();
    s.gammam0 = 1.1;
    s.gammam1 = 1.2f;
    CalcResistanceGeneral(s, s, s, s);
    ExpectDigits(s.nrdm1, 5538, "6645.6/1.2");
    ExpectDigits(s.myrdm1, 1308, "1569.455/1.2");
    ExpectDigits(s.mzrdm1, 272.2, "326.671/1.2");
    EXPECT_EQ(s.aeff, s.a);
}

TEST(ControlGeneral, SmallAxialForceLeavesTheMoments)
{
    ProjectState s = General();
    const double web = 0.5 * 6720 * 355 / 1000;  // 1192.8 kN, below 0.25*6645.6 = 1661.4
    Control(s, {web, 600, 0, 0, 0});
    EXPECT_EQ(s.mnyrd, s.myrdv);
    EXPECT_EQ(LabelOf(SectionRow(s, 2)), "IR = My,Ed/MN,y,Rd = ");
    Control(s, {web + 300, 600, 0, 0, 0});
    EXPECT_LT(s.mnyrd, s.myrdv);
}

// Eq (6.34) begins at half of the web, n = 0.5 a_w = 0.1795; Eq (6.38) at all of it, 0.3590.
TEST(ControlGeneral, ReductionsBeginWhereTheWebIsUsedUp)
{
    ProjectState s = General();
    const double aw = 6720.0 / 18720;
    const auto control = [&](double n) { Control(s, {n * s.nplrd, 600, 100, 0, 0}); };
    control(0.4995 * aw);
    EXPECT_EQ(s.mnyrd, s.myrdv);
    EXPECT_EQ(s.mnzrd, s.mzrdv);
    control(0.503 * aw);
    EXPECT_NEAR(s.mnyrd, s.myrdv * (1 - 0.503 * aw) / (1 - 0.5 * aw), 1e-6 * s.myrdv);
    control(0.999 * aw);
    EXPECT_EQ(s.mnzrd, s.mzrdv);
    for (const double share : {1.008, 2.0}) {
        control(share * aw);
        const double beyond = (share - 1) * aw / (1 - aw);
        EXPECT_NEAR(s.mnzrd, s.mzrdv * (1 - beyond * beyond), 1e-6 * s.mzrdv);
    }
}

TEST(ControlGeneral, D179ShearReducesNoMoment)
{
    ProjectState s = General();
    Control(s, {0, 600, 100, 0.95 * s.vzrd, 0.95 * s.vyrd});
    EXPECT_EQ(s.myrdv, s.myrd);
    EXPECT_EQ(s.mzrdv, s.mzrd);
    EXPECT_EQ(LabelOf(SectionRow(s, 1)), "IR = My,Ed/My,Rd = ");
    EXPECT_EQ(LabelOf(SectionRow(s, 2)), "IR = [My,Ed/My,Rd]^alfa + [Mz,Ed/Mz,Rd]^beta = ");
}

TEST(ControlGeneral, D180WebShareIsNotHeldAtOneHalf)
{
    FormP41 entered = kEntered;
    entered.istaz = 0.8f * 18720;
    ProjectState s = General(entered);
    Control(s, {0.9 * s.nplrd, 100, 0, 0, 0});
    EXPECT_NEAR(s.mnyrd, s.myrd * 0.1 / 0.6, 1e-5 * s.myrd);  // the standard: 0.1/0.75
}

TEST(ControlGeneral, D173ClassOfCompressionPlaysNoPart)
{
    ProjectState s = General();  // class 3 entered for N, 1 for My
    Control(s, {2000, 600, 0, 0, 0});
    EXPECT_EQ(LabelOf(SectionRow(s, 2)), "IR = My,Ed/MN,y,Rd = ");
    const double ratio = s.irrow2;
    s.classn = 1;
    Control(s, {2000, 600, 0, 0, 0});
    EXPECT_EQ(s.irrow2, ratio);
}

// With the properties and classes of a welded I the section control is that of the welded I as long
// as shear is below half the resistance (D179), no compression makes the class worse (D173) and Vy,
// which an I divides by 1.5 (D152), is away.
TEST(GeneralLaws, EqualsTheWeldedIOfItsProperties)
{
    Member i = Member::Bare()
                   .Section(FormP21{.isth = 600, .istb1 = 300, .isttw = 12, .isttf = 20})
                   .Steel(355)
                   .Designed();

    ProjectState g = General({.opn = 3,
                              .opmy = 1,
                              .opmz = 1,
                              .istax = i.a,
                              .istay = i.aflange,
                              .istaz = i.aweb,
                              .istix = i.it,
                              .istiy = i.iy,
                              .istiz = i.iz,
                              .istiw = i.iw,
                              .istwely = i.wely,
                              .istwelz = i.welz,
                              .istwply = i.wply,
                              .istwplz = i.wplz});
    EXPECT_NEAR(g.nplrd, i.nplrd, 1e-6 * i.nplrd);
    EXPECT_NEAR(g.myrd, i.myrd, 1e-6 * i.myrd);
    EXPECT_NEAR(g.mzrd, i.mzrd, 1e-6 * i.mzrd);
    EXPECT_NEAR(g.vzrd, i.vzrd, 1e-6 * i.vzrd);
    EXPECT_NEAR(g.vyrd, i.vyrd, 1e-6 * i.vyrd);

    for (const SectionForces& f :
         {SectionForces{0, 600, 100, 300, 0}, SectionForces{-2000, 600, 100, 300, 0},
          SectionForces{-4000, 600, 100, 0, 0}, SectionForces{-2500, 900, 0, 600, 0},
          SectionForces{-3000, 0, 150, 0, 0}}) {
        SCOPED_TRACE(f.n);
        SetForces(i, f);
        ControlRolledI(i, i, i, i, i, i);
        Control(g, f);
        EXPECT_NEAR(g.irrow1, i.irrow1, 1e-6);
        EXPECT_NEAR(g.irrow2, i.irrow2, 1e-5);
        EXPECT_NEAR(g.irrow3, i.irrow3, 1e-6);
        EXPECT_EQ(LabelOf(SectionRow(g, 2)), LabelOf(SectionRow(i, 2)));
        EXPECT_EQ(LimitOf(SectionRow(g, 2)), LimitOf(SectionRow(i, 2)));
    }

    // D152: the ratio of Vy.
    const SectionForces sideways{0, 0, 0, 0, 100};
    SetForces(i, sideways);
    ControlRolledI(i, i, i, i, i, i);
    Control(g, sideways);
    EXPECT_NEAR(i.irrow3, 1.5 * g.irrow3, 1e-6);
}

}  // namespace
}  // namespace kestrum
