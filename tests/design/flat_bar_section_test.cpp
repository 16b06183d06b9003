// Flat bars. gammaM0 = gammaM1 = 1; the expected values are worked by hand from the clauses named.

#include "core/project_state.h"
#include "design/flat_bar_section.h"

#include "support/members.h"
#include "support/rows.h"
#include "support/worked.h"

#include <cfenv>

namespace kestrum {
namespace {

TEST(ControlFlatBar, MomentBesideShear)
{
    ProjectState s = Member::Bare().Section(FormP28{150, 12}).Steel(235).Designed();
    Control(s, {0, 8, 0, 100, 0});
    EXPECT_EQ(s.classn, 1);
    EXPECT_EQ(s.classmy, 1);
    EXPECT_EQ(s.classmz, 1);
    ExpectDigits(s.nplrd, 423.0, "1800*235/1000");
    ExpectDigits(s.myrd, 15.86, "67500*235/1e6");
    ExpectDigits(s.vzrd, 162.8, "1800*235/sqrt(3)/1.5/1000");
    ExpectDigits(s.myrdv, 15.03, "15.86 - 0.0522*12*150^2/4*235/1e6");
    ExpectRow(SectionRow(s, 1),
              {0.5321, "IR = My,Ed/MV,y,Rd = ", "{F}/{F} = ", {8, 15.03}, " (0.00L; Ch 6.2.8)"});
    EXPECT_TRUE(SectionRow(s, 2).empty());
    ExpectRow(SectionRow(s, 3),
              {0.6142, "IR = Vz,Ed/Vz,Rd = ", "{F}/{F} = ", {100, 162.8}, " (0.00L; Ch 6.2.6)"});
    EXPECT_EQ(s.irsection, s.irrow3);
}

// With VEd at or above Vpl,Rd rho is 1 and nothing of the modulus is left, EN 1993-1-1, 6.2.8 (3):
// exactly 0 for every size, also where h^2 t/4 has no exact single-precision value.
TEST(ControlFlatBar, FullShearLeavesNoMomentWhateverTheSize)
{
    struct Size {
        float height, thickness;
    };
    for (const Size size :
         {Size{150, 12}, {123.6F, 16.3F}, {60.5F, 8.2F}, {99.9F, 7.3F}, {33.3F, 3.1F}}) {
        ProjectState s =
            Member::Bare().Section(FormP28{size.height, size.thickness}).Steel(235).Designed();
        for (const double excess : {1.0, 1.5}) {
            std::feclearexcept(FE_ALL_EXCEPT);
            Control(s, {0, 0.01F, 0, static_cast<float>(excess * s.vzrd + 0.01), 0});
            EXPECT_EQ(s.myrdv, 0) << size.height << 'x' << size.thickness;
            EXPECT_TRUE(std::fetestexcept(FE_DIVBYZERO)) << size.height << 'x' << size.thickness;
        }
    }
}

TEST(ControlFlatBar, AxialForceAlone)
{
    ProjectState s = Member::Bare().Section(FormP28{150, 12}).Steel(235).Designed();
    Control(s, {100, 0, 0, 0, 0});
    ExpectRow(SectionRow(s, 1),
              {0.2364, "IR = NEd/NRd = ", "{F}/{F} = ", {100, 423}, " (Ch 6.2.4)"});
    Control(s, {-100, 0, 0, 0, 0});
    EXPECT_EQ(LimitOf(SectionRow(s, 1)), " (Ch 6.2.3)");
}

TEST(ControlFlatBar, D177CompressionWithMomentEndsTheCalculation)
{
    ProjectState s = Member::Bare().Section(FormP28{150, 12}).Steel(235).Designed();
    std::feclearexcept(FE_ALL_EXCEPT);
    Control(s, {10, 0, 0, 50, 0});  // no moment: nothing to divide
    EXPECT_FALSE(std::fetestexcept(FE_DIVBYZERO));
    Control(s, {10, 8, 0, 0, 0});
    EXPECT_TRUE(std::fetestexcept(FE_DIVBYZERO));
    EXPECT_EQ(s.mnyrd, 0);  // the standard: myrd (1 - (10/423)^2)
}

TEST(ControlFlatBar, D177TensionLeavesTheMomentResistance)
{
    ProjectState s = Member::Bare().Section(FormP28{150, 12}).Steel(235).Designed();
    Control(s, {-300, 8, 0, 0, 0});
    // The standard: 15.86*(1 - (300/423)^2) = 7.884.
    ExpectRow(SectionRow(s, 2),
              {0.5043, "IR = My,Ed/MN,y,Rd = ", "{F}/{F} = ", {8, 15.86}, " (0.00L; Ch 6.2.9)"});
    Control(s, {-300, 8, 0, 100, 0});
    EXPECT_EQ(LabelOf(SectionRow(s, 2)), "IR = My,Ed/MVN,y,Rd = ");
}

TEST(ControlFlatBar, ConservativeControlAddsTheRatios)
{
    ProjectState s = Member::Bare().Section(FormP28{150, 12}).Steel(235).Designed();
    s.checkconsercontrol = kTrue;
    std::feclearexcept(FE_ALL_EXCEPT);
    Control(s, {10, 8, 0, 100, 0});
    EXPECT_FALSE(std::fetestexcept(FE_DIVBYZERO));
    ExpectRow(SectionRow(s, 2),
              {0.5557,  // 10/423 + 8/15.03
               "IR = NEd/NRd+My,Ed/MV,y,Rd = ",
               "{F}/{F}+{F}/{F} = ",
               {10, 423, 8, 15.03},
               " (0.00L; Ch 6.2.1/6.2.9)"});
}

TEST(ControlFlatBar, D178MomentAndShearOfTheWeakAxisAreNotControlled)
{
    ProjectState s = Member::Bare().Section(FormP28{150, 12}).Steel(235).Designed();
    Control(s, {0, 0, 100, 0, 1000});
    EXPECT_EQ(s.irsection, 0);
    EXPECT_TRUE(SectionRow(s, 1).empty());
    EXPECT_TRUE(SectionRow(s, 3).empty());
}

TEST(CalcResistanceFlatBar, StaysPlasticUnderElasticDesign)
{
    ProjectState s = Member::Bare().Section(FormP28{150, 12}).Steel(235).Designed();
    s.checkelastic = kTrue;
    CalcResistanceFlatBar(s, s, s, s);
    EXPECT_EQ(s.myrd, s.mplyrd);
    EXPECT_EQ(s.wyused, s.wply);
    EXPECT_EQ(s.wzused, s.wplz);
}

TEST(CalcResistanceFlatBar, ValuesForTheStabilityControl)
{
    ProjectState s = Member::Bare().Section(FormP28{150, 12}).Steel(235).Designed();
    s.gammam0 = 1.1;
    s.gammam1 = 1.2f;
    CalcResistanceFlatBar(s, s, s, s);
    ExpectDigits(s.nrdm1, 352.5, "423/1.2");
    ExpectDigits(s.myrdm1, 13.22, "15.8625/1.2");
    ExpectDigits(s.mzrdm1, 1.0575, "12^2*150/4*235/1e6/1.2");
}

TEST(FlatBarLaws, ResistancesGrowWithThickness)
{
    ProjectState thin = Member::Bare().Section(FormP28{100, 4}).Steel(235).Designed();
    for (float t = 5; t < 100; t += 1) {
        const ProjectState s = Member::Bare().Section(FormP28{100, t}).Steel(235).Designed();
        EXPECT_GT(s.nplrd, thin.nplrd);
        EXPECT_GT(s.myrd, thin.myrd);
        EXPECT_GT(s.vbrd, thin.vbrd);
        thin = s;
    }
}

}  // namespace
}  // namespace kestrum
