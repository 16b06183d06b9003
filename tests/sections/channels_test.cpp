#include "sections/channels.h"

#include "core/project_state.h"
#include "support/members.h"
#include "support/worked.h"

#include <numbers>

namespace kestrum {
namespace {

using std::numbers::pi;

// UPE 300: h 300, b 100, tw 9.5, tf 15, r 15, e 28.9, by hand; surface published as 0.968 m2/m.
TEST(Upe, DerivesGeometryAndModuli)
{
    Member s = Member::Bare().Section("UPE 300");
    PropertiesUpe(Delivered(), s, s);
    EXPECT_EQ(s.hw, 270);
    EXPECT_EQ(s.d, 240);
    EXPECT_EQ(s.cflange, 75.5F);  // 100 - 9.5 - 15
    EXPECT_EQ(s.r1, 15);
    EXPECT_EQ(s.r2, 0);
    EXPECT_EQ(s.a, 5660);
    ExpectWorked(s.iy, 78.2e6, "iy");
    ExpectWorked(s.iz, 5.38e6, "iz");
    ExpectWorked(s.wply, 613e3, "wply");
    ExpectWorked(s.wplz, 136e3, "wplz");
    ExpectWorked(s.it, 340e3, "it");
    ExpectWorked(s.iw, 75.5e9, "iw");
    ExpectWorked(s.ecg, 28.9, "ecg");
    ExpectWorked(s.wely, 78.2e6 / 150, "wely");
    ExpectWorked(s.welz, 5.38e6 / 71.1, "welz");
    ExpectWorked(s.surface, (200 + 300 + 30 + 151 + 240 + 15 * pi) / 1000, "surface");
    ExpectWorked(s.weight, 5660 * 7850e-6, "weight");
    EXPECT_EQ(s.aflange, 3000);
    EXPECT_EQ(s.aweb, 2565);
}

// D54: ecg + ys is tw/2 longer than the 60.35 mm from centroid to shear centre.
TEST(Upe, CountsTheShearCentreFromTheMiddleOfTheWebD54)
{
    Member s = Member::Bare().Section("UPE 300");
    PropertiesUpe(Delivered(), s, s);
    ExpectWorked(s.ys, 36.2, "ys");
    ExpectWorked(1.0 * s.ecg + s.ys - s.tw / 2.0, 60.35, "centroid to shear centre");
}

// UNP 240: h 240, b 85, tw 9.5, tf 13, r1 13, r2 6.5, e 22.3, by hand; surface published as 0.775
// m2/m.
TEST(Unp, DerivesGeometryAndModuli)
{
    Member s = Member::Bare().Section("UNP 240");
    PropertiesUnp(Delivered(), s, s);
    EXPECT_EQ(s.hw, 214);
    EXPECT_EQ(s.d, 188);
    EXPECT_EQ(s.cflange, 62.5F);
    EXPECT_EQ(s.r, 13);
    EXPECT_EQ(s.r1, 13);
    EXPECT_EQ(s.r2, 6.5F);
    EXPECT_EQ(s.a, 4230);
    ExpectWorked(s.iy, 36e6, "iy");
    ExpectWorked(s.iz, 2.48e6, "iz");
    ExpectWorked(s.it, 197e3, "it");
    ExpectWorked(s.iw, 22.1e9, "iw");
    ExpectWorked(s.wply, 358e3, "wply");
    ExpectWorked(s.wplz, 75.7e3, "wplz");
    ExpectWorked(s.wely, 300e3, "wely");
    ExpectWorked(s.welz, 2.48e6 / 62.7, "welz");
    ExpectWorked(1.0 * s.ecg + s.ys, 43.9, "centroid to shear centre");
}

// D52: one of the two inner web faces carries the slope of both flanges, 85 sin 8 = 11.83; both
// toes lose 6.5 - 6.5 pi/4.
TEST(Unp, SurfaceTakesOneSlopeOffTheWebD52)
{
    Member s = Member::Bare().Section("UNP 240");
    PropertiesUnp(Delivered(), s, s);
    const double toes = 2 * 6.5 * (1 - pi / 4);
    ExpectWorked(s.surface,
                 (170 + 240 + 26 + 2 * 62.5 + (240 - 26 - 26 - 11.830) + 13 * pi - toes) / 1000,
                 "surface", 2e-6);
}

// CH 76x38x7 with toe radius: e 1.12 cm, shear centre 2.07 cm from the centroid.
TEST(BritishChannel, ReadsChWithToeRadius)
{
    Member s = Member::Bare(103).Row("76x38x7");
    PropertiesBritishChannel(Delivered(), s, s);
    ExpectWorked(s.hw, 62.6, "hw");          // 76.2 - 2 6.8
    ExpectWorked(s.d, 38.6, "d");            // 62.6 - 2 12
    ExpectWorked(s.cflange, 21, "cflange");  // 38.1 - 5.1 - 12
    EXPECT_EQ(s.r, 12);
    EXPECT_EQ(s.r1, 12);
    EXPECT_EQ(s.r2, 6);
    ExpectWorked(s.a, 862, "a");
    ExpectWorked(s.weight, 6.7, "weight");
    ExpectWorked(s.surface, 0.29, "surface");
    ExpectWorked(s.iy, 751e3, "iy");
    ExpectWorked(s.wely, 19710, "wely");
    ExpectWorked(s.wply, 23700, "wply");
    ExpectWorked(s.iz, 101e3, "iz");
    ExpectWorked(s.wplz, 7500, "wplz");
    ExpectWorked(s.it, 16400, "it");
    ExpectWorked(s.iw, 0.09e9, "iw");
    ExpectWorked(s.ecg, 11.2, "ecg");
    ExpectWorked(s.ys, 9.5, "ys");
}

// The modulus about z is the table's 3.78 cm3 and not Iz/(b - e) = 101000/26.9 = 3755 mm3.
TEST(BritishChannel, KeepsTheTablesModulus)
{
    Member s = Member::Bare(103).Row("76x38x7");
    PropertiesBritishChannel(Delivered(), s, s);
    ExpectWorked(s.welz, 3780, "welz");
}

// PFC has no toe radius: its columns stand one to the left of those of CH.
TEST(BritishChannel, ReadsPfcWithoutToeRadius)
{
    Member s = Member::Bare(103, 2).Row("100x50x10");
    PropertiesBritishChannel(Delivered(), s, s);
    EXPECT_EQ(s.r, 9);
    EXPECT_EQ(s.r2, 0);
    ExpectWorked(s.a, 1300, "a");
    ExpectWorked(s.weight, 10.2, "weight");
    ExpectWorked(s.surface, 0.382, "surface");
    ExpectWorked(s.iy, 2.077e6, "iy");
    ExpectWorked(s.wely, 41540, "wely");
    ExpectWorked(s.wply, 48870, "wply");
    ExpectWorked(s.iz, 323e3, "iz");
    ExpectWorked(s.welz, 9889, "welz");
    ExpectWorked(s.wplz, 17610, "wplz");
    ExpectWorked(s.it, 25290, "it");
    ExpectWorked(s.iw, 0.4905e9, "iw");
    ExpectWorked(s.ecg, 17.33, "ecg");
    ExpectWorked(s.ys, 34.27 - 17.33, "ys");
}

TEST(BritishChannel, WeightIsIndependentOfTheDensity)
{
    Member s = Member::Bare(103, 2).Row("100x50x10");
    s.density = 1;
    PropertiesBritishChannel(Delivered(), s, s);
    ExpectWorked(s.weight, 10.2, "weight");
}

}  // namespace
}  // namespace kestrum
