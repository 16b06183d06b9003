#include "sections/rolled_i.h"

#include "core/arithmetic_trap.h"
#include "core/project_state.h"
#include "support/members.h"
#include "support/worked.h"

#include <cmath>
#include <numbers>

namespace kestrum {
namespace {

using std::numbers::pi;

// HEA 100: h 96, b 100, tf 8, tw 5, r 12, by hand; Wpl and surface published as 83.01 cm3, 41.14
// cm3, 0.561 m2/m.
TEST(RolledI, DerivesGeometryAndPlasticModuli)
{
    Member s = Member::Bare().Section("HEA 100");
    PropertiesRolledI(Delivered(), s, s);
    EXPECT_EQ(s.h, 96);
    EXPECT_EQ(s.b, 100);
    EXPECT_EQ(s.tf, 8);
    EXPECT_EQ(s.tw, 5);
    EXPECT_EQ(s.r, 12);
    EXPECT_EQ(s.hw, 80);
    EXPECT_EQ(s.d, 56);
    EXPECT_EQ(s.cflange, 35.5F);  // (100 - 5 - 24)/2
    EXPECT_EQ(s.aflange, 1600);
    EXPECT_EQ(s.aweb, 400);
    EXPECT_EQ(s.tmax, 8);
    EXPECT_EQ(s.a, 2124);
    ExpectWorked(s.iy, 3.492e6, "iy");
    ExpectWorked(s.iz, 1.338e6, "iz");
    ExpectWorked(s.it, 52600, "it");
    ExpectWorked(s.iw, 2.58e9, "iw");
    ExpectWorked(s.wely, 3.492e6 / 48, "wely");
    ExpectWorked(s.welz, 1.338e6 / 50, "welz");
    const double fillets = 4 * 144 * (1 - pi / 4);  // 123.61 mm2
    ExpectWorked(s.wply, 8 * 100 * 88 + 6400 * 5 / 4.0 + fillets * (40 - 2.6808), "wply", 1e-6);
    ExpectWorked(s.wply, 83010, "wply, published", 2e-4);
    ExpectWorked(s.wplz, 40000 + 500 + fillets * (2.5 + 2.6808), "wplz", 1e-6);
    ExpectWorked(s.wplz, 41140, "wplz, published", 2e-4);
    ExpectWorked(s.surface, (142 + 32 + 200 + 112 + 24 * pi) / 1000, "surface");
    ExpectWorked(s.weight, 2124 * 7850e-6, "weight");
}

// The height of IPE is its size key too: IPE 600, published Wpl 3512 and 485.6 cm3.
TEST(RolledI, ReadsIpeWithoutKeyColumn)
{
    Member s = Member::Bare().Section("IPE 600");
    PropertiesRolledI(Delivered(), s, s);
    EXPECT_EQ(s.h, 600);
    EXPECT_EQ(s.b, 220);
    EXPECT_EQ(s.tf, 19);
    EXPECT_EQ(s.tw, 12);
    EXPECT_EQ(s.d, 514);  // 600 - 2 (24 + 19)
    EXPECT_EQ(s.a, 15600);
    ExpectWorked(s.iw, 2.85e12, "iw");
    ExpectWorked(s.wply, 3.512e6, "wply, published", 2e-4);
    ExpectWorked(s.wplz, 485.6e3, "wplz, published", 2e-4);
}

TEST(RolledI, TakesTheSeriesOfTheFamily)
{
    for (const auto& [family, depth] : {std::pair{1, 190.0F}, {2, 200.0F}, {3, 220.0F}}) {
        Member s = Member::Bare(family).Row("200");
        PropertiesRolledI(Delivered(), s, s);
        EXPECT_EQ(s.h, depth);
    }
}

// tmax is the flange of rolled sections; exactly 40 mm stays exactly 40 mm.
TEST(RolledI, ThicknessOfFortyIsExact)
{
    Member s = Member::Bare().Section("HEM 1000");  // tf 40, tw 21
    PropertiesRolledI(Delivered(), s, s);
    EXPECT_EQ(s.tmax, 40.0F);
}

TEST(RolledI, WeightFollowsTheDensity)
{
    Member s = Member::Bare().Section("HEA 200");
    s.density = 8000;
    PropertiesRolledI(Delivered(), s, s);
    ExpectWorked(s.weight, 5383 * 8000e-6, "weight");
}

// INP 240: h 240, b 106, tf 13.1, tw 8.7, A 46.1 cm2, by hand; surface published as 0.844 m2/m.
TEST(Inp, ReadsPlasticModuliAndTapersTheSurface)
{
    Member s = Member::Bare().Section("INP 240");
    PropertiesInp(Delivered(), s, s);
    ExpectWorked(s.r, 8.7, "r");
    ExpectWorked(s.hw, 213.8, "hw");
    ExpectWorked(s.d, 196.4, "d");
    ExpectWorked(s.a, 4610, "a");
    ExpectWorked(s.iy, 42.5e6, "iy");
    ExpectWorked(s.wply, 412e3, "wply");
    ExpectWorked(s.iz, 2.21e6, "iz");
    ExpectWorked(s.wplz, 70e3, "wplz");
    ExpectWorked(s.it, 250e3, "it");
    ExpectWorked(s.iw, 28.7e9, "iw");
    ExpectWorked(s.wely, 42.5e6 / 120, "wely");
    ExpectWorked(s.welz, 2.21e6 / 53, "welz");
    // 2 79.9 + 52.4 + 212 + 2 (196.4 - 53 sin 14) + 2 pi 8.7
    ExpectWorked(s.surface, (159.8 + 52.4 + 212 + 2 * (196.4 - 53 * 0.241925) + 17.4 * pi) / 1000,
                 "surface");
}

// D51: INP and the British series take half the flange for the outstand.
TEST(HalfFlange, StandsForTheOutstandOfTheseSeriesD51)
{
    Member s = Member::Bare().Section("INP 240");
    PropertiesInp(Delivered(), s, s);
    EXPECT_EQ(s.cflange, 53);
    EXPECT_GT(s.cflange, (s.b - s.tw - 2 * s.r) / 2);

    s = Member::Bare(101).Row("838x292x176");
    PropertiesBritishI(Delivered(), s, s);
    ExpectWorked(s.cflange, 145.85, "UB");

    s = Member::Bare(102).Row("76x76x13");
    PropertiesBritishI(Delivered(), s, s);
    ExpectWorked(s.cflange, 38.1, "J");
}

// UB 838x292x176: everything but the web height is the table's.
TEST(BritishI, TakesMassSurfaceAndModuliFromTheTable)
{
    Member s = Member::Bare(101).Row("838x292x176");
    PropertiesBritishI(Delivered(), s, s);
    EXPECT_EQ(s.weight, 175.9F);
    EXPECT_EQ(s.surface, 2.778F);
    ExpectWorked(s.hw, 797.3, "hw");  // 834.9 - 2 18.8
    ExpectWorked(s.d, 761.7, "d");    // 797.3 - 2 17.8
    ExpectWorked(s.a, 22400, "a");
    ExpectWorked(s.iy, 2.46e9, "iy");
    ExpectWorked(s.wely, 5.893e6, "wely");
    ExpectWorked(s.wply, 6.808e6, "wply");
    ExpectWorked(s.iz, 77.99e6, "iz");
    ExpectWorked(s.welz, 534.7e3, "welz");
    ExpectWorked(s.wplz, 841.9e3, "wplz");
    ExpectWorked(s.it, 2.262e6, "it");
    ExpectWorked(s.iw, 12.95e12, "iw");
    ExpectWorked(s.tmax, 18.8, "tmax");
}

TEST(BritishI, WeightIsIndependentOfTheDensity)
{
    for (const int series : {1, 2, 3}) {
        Member s = Member::Bare(101, series);
        s.density = 1;
        PropertiesBritishI(Delivered(), s, s);
        EXPECT_GT(s.weight, 10);
    }
}

TEST(BritishI, ReadsTheSeriesChosen)
{
    Member s = Member::Bare(101, 2).Row("254x254x167");
    PropertiesBritishI(Delivered(), s, s);
    ExpectWorked(s.weight, 167.1, "UC");
    s = Member::Bare(101, 3).Row("356x368x174");
    PropertiesBritishI(Delivered(), s, s);
    ExpectWorked(s.weight, 173.9, "UBP");
}

// J 76x76x13: h 76.2, tf 8.4, r 9.4, by hand.
TEST(BritishI, JoistGeometryIsThatOfTheOthers)
{
    Member s = Member::Bare(102).Row("76x76x13");
    PropertiesBritishI(Delivered(), s, s);
    ExpectWorked(s.hw, 59.4, "hw");
    ExpectWorked(s.d, 40.6, "d");
    ExpectWorked(s.a, 1624, "a");
    ExpectWorked(s.wply, 48690, "wply");
    ExpectWorked(s.wplz, 22400, "wplz");
}

Member Welded(float h, float b, float tw, float tf)
{
    return Member::Bare().Section(FormP21{h, b, tw, tf}).Measured();
}

// 600x300x12x20 by plates.
TEST(WeldedI, AddsItsPlates)
{
    const ProjectState s = Welded(600, 300, 12, 20);
    EXPECT_EQ(s.hw, 560);
    EXPECT_EQ(s.r, 6);
    EXPECT_EQ(s.d, 548);        // 600 - 2 26
    EXPECT_EQ(s.cflange, 138);  // (300 - 12 - 12)/2
    EXPECT_EQ(s.a, 18720);      // 2 6000 + 6720
    EXPECT_EQ(s.aflange, 12000);
    EXPECT_EQ(s.aweb, 6720);
    EXPECT_EQ(s.ey, 150);
    EXPECT_EQ(s.ez, 300);
    // 2 (300 20^3/12 + 6000 290^2) + 12 560^3/12
    const double iy = 2 * (200000 + 504.6e6) + 175.616e6;
    ExpectWorked(s.iy, iy, "iy");
    ExpectWorked(s.iz, 2 * 45e6 + 80640, "iz");  // 2 20 300^3/12 + 560 12^3/12
    ExpectWorked(s.it, (2 * 300 * 8000 + 560 * 1728) / 3.0, "it");
    ExpectWorked(s.iw, 27e6 * 20 / 24 * 580 * 580, "iw");
    ExpectWorked(s.wely, iy / 300, "wely");
    ExpectWorked(s.welz, 90.08064e6 / 150, "welz");
    ExpectWorked(s.wply, 580 * 6000 + 560 * 560 * 3.0, "wply");
    ExpectWorked(s.wplz, 900000 + 20160, "wplz");
    ExpectWorked(s.surface, (80 + 600 + 576 + 1120) / 1000.0, "surface");
    ExpectWorked(s.weight, 18720 * 7850e-6, "weight");
}

TEST(WeldedI, WeldLegIsHalfTheWebAndAtLeastFour)
{
    EXPECT_EQ(Welded(600, 300, 6, 20).r, 4);
    EXPECT_EQ(Welded(600, 300, 8, 20).r, 4);
    EXPECT_EQ(Welded(600, 300, 10, 20).r, 5);
}

TEST(WeldedI, TheThickerPlateSelectsTheStrength)
{
    EXPECT_EQ(Welded(600, 300, 12, 20).tmax, 20);
    EXPECT_EQ(Welded(600, 300, 30, 20).tmax, 30);
    EXPECT_EQ(Welded(600, 300, 40, 40).tmax, 40);
}

TEST(WeldedI, WithoutHeightDividesByZero)
{
    ArmTrap();
    Welded(0, 300, 12, 20);
    EXPECT_THROW(CheckTrap(), CalculationStop);
    ArmTrap();
}

}  // namespace
}  // namespace kestrum
