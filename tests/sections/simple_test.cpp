#include "sections/simple.h"

#include "core/arithmetic_trap.h"
#include "core/project_state.h"
#include "support/members.h"
#include "support/worked.h"

#include <cmath>
#include <numbers>

namespace kestrum {
namespace {

using std::numbers::pi;

Member BarOf(float h, float t)
{
    return Member::Bare().Section(FormP28{h, t}).Measured();
}

// 150x12, by hand.
TEST(FlatBar, IsARectangle)
{
    const ProjectState s = BarOf(150, 12);
    EXPECT_EQ(s.a, 1800);
    EXPECT_EQ(s.iy, 3375000);
    EXPECT_EQ(s.iz, 21600);
    EXPECT_EQ(s.it, 86400);
    EXPECT_EQ(s.iw, 0);
    EXPECT_EQ(s.wely, 45000);
    EXPECT_EQ(s.welz, 3600);
    EXPECT_EQ(s.wply, 67500);
    EXPECT_EQ(s.wplz, 5400);
    EXPECT_EQ(s.aeff, s.a);
    EXPECT_EQ(s.weffy, s.wely);
    EXPECT_EQ(s.weffz, s.welz);
    ExpectWorked(s.surface, 0.324, "surface");
    ExpectWorked(s.weight, 1800 * 7850e-6, "weight");
}

TEST(FlatBar, SetsTheRecordOfAWebAlone)
{
    const ProjectState s = BarOf(150, 12);
    EXPECT_EQ(s.h, 150);
    EXPECT_EQ(s.hw, 150);
    EXPECT_EQ(s.d, 150);
    EXPECT_EQ(s.b, 12);
    EXPECT_EQ(s.tw, 12);
    EXPECT_EQ(s.tmax, 12);
    EXPECT_EQ(s.tf, 0);
    EXPECT_EQ(s.r, 0);
    EXPECT_EQ(s.cflange, 0);
}

TEST(FlatBar, WithoutThicknessDividesByZero)
{
    ArmTrap();
    BarOf(150, 0);
    EXPECT_THROW(CheckTrap(), CalculationStop);
    ArmTrap();
}

// 300x10, by hand: di 280.
TEST(Tube, IsARing)
{
    Member s = Member::Bare(31);
    s.p31 = {300, 10};
    PropertiesTube(Delivered(), s, s);
    const double i = pi / 64 * (std::pow(300, 4) - std::pow(280, 4));
    ExpectWorked(s.a, pi / 4 * (90000 - 78400), "a");
    ExpectWorked(s.iy, i, "iy");
    EXPECT_EQ(s.iz, s.iy);
    ExpectWorked(s.wely, i / 150, "wely");
    EXPECT_EQ(s.welz, s.wely);
    ExpectWorked(s.wply, (27e6 - 21.952e6) / 6, "wply");
    EXPECT_EQ(s.wplz, s.wply);
    ExpectWorked(s.it, (145.0 * 145 + 25) * 290 * pi * 10, "it");
    EXPECT_EQ(s.iw, 0);
    ExpectWorked(s.surface, pi * 0.3, "surface");
    ExpectWorked(s.weight, 71.52, "weight, published as 71.5 kg/m");
    EXPECT_EQ(s.h, 300);
    EXPECT_EQ(s.b, 300);
    EXPECT_EQ(s.d, 300);
    EXPECT_EQ(s.hw, 280);
    EXPECT_EQ(s.bw, 280);
    EXPECT_EQ(s.tf, 10);
    EXPECT_EQ(s.tmax, 10);
    EXPECT_EQ(s.r, 0);
    EXPECT_EQ(s.cflange, 0);
    EXPECT_EQ(s.aeff, s.a);
    EXPECT_EQ(s.weffy, s.wely);
}

// J of a ring is its polar second moment.
TEST(Tube, TorsionConstantIsTwiceTheSecondMoment)
{
    for (const float wall : {1.0F, 10.0F, 60.0F, 140.0F}) {
        Member s = Member::Bare(31);
        s.p31 = {300, wall};
        PropertiesTube(Delivered(), s, s);
        ExpectWorked(s.it, 2.0 * s.iy, "it", 1e-6);
    }
}

// The wall is what selects the strength: 40 mm is still up to 40 mm.
TEST(Tube, WallSelectsTheStrength)
{
    Member s = Member::Bare(31);
    s.p31 = {500, 40};
    PropertiesTube(Delivered(), s, s);
    EXPECT_EQ(s.tmax, 40);
}

Member GeneralOf(const FormP41& form)
{
    return Member::Bare().Section(form).Measured();
}

// The values of a welded I 600x300x12x20, entered.
constexpr FormP41 kEntered = {1,        3,        1,        18720,    12000,
                              6720,     1.923e6F, 1.185e9F, 9.008e7F, 7.569e12F,
                              3.951e6F, 6.005e5F, 4.421e6F, 9.202e5F};

TEST(General, TakesThePropertiesAsEntered)
{
    const ProjectState s = GeneralOf(kEntered);
    EXPECT_EQ(s.a, 18720);
    EXPECT_EQ(s.aflange, 12000);
    EXPECT_EQ(s.aweb, 6720);
    EXPECT_EQ(s.it, 1.923e6F);
    EXPECT_EQ(s.iy, 1.185e9F);
    EXPECT_EQ(s.iz, 9.008e7F);
    EXPECT_EQ(s.iw, 7.569e12F);
    EXPECT_EQ(s.wely, 3.951e6F);
    EXPECT_EQ(s.welz, 6.005e5F);
    EXPECT_EQ(s.wply, 4.421e6F);
    EXPECT_EQ(s.wplz, 9.202e5F);
    EXPECT_EQ(s.classn, 1);
    EXPECT_EQ(s.classmy, 3);
    EXPECT_EQ(s.classmz, 1);
    EXPECT_EQ(s.aeff, s.a);
    EXPECT_EQ(s.weffy, s.wely);
    EXPECT_EQ(s.weffz, s.welz);
    ExpectWorked(s.weight, 18720 * 7850e-6, "weight");
}

// 1000 x 300 for the figure; the web is as thick as its area: 6720/1000.
TEST(General, HasFixedDimensions)
{
    const ProjectState s = GeneralOf(kEntered);
    EXPECT_EQ(s.h, 1000);
    EXPECT_EQ(s.b, 300);
    EXPECT_EQ(s.hw, 1000);
    EXPECT_EQ(s.d, 1000);
    EXPECT_EQ(s.cflange, 150);
    EXPECT_EQ(s.tf, 0);
    EXPECT_EQ(s.r, 0);
    EXPECT_EQ(s.surface, 0);
    ExpectWorked(s.tw, 6.72, "tw");
}

// D56: 40 mm whatever the parts are.
TEST(General, TakesTheStrengthUpToFortyMillimetresD56)
{
    EXPECT_EQ(GeneralOf(kEntered).tmax, 40);
    FormP41 heavy = kEntered;
    heavy.istaz = 90000;  // a web of 90 mm
    EXPECT_EQ(GeneralOf(heavy).tmax, 40);
}

}  // namespace
}  // namespace kestrum
