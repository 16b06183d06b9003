#include "sections/plate_summation.h"

#include "core/arithmetic_trap.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace kestrum;

// By hand: a rectangle 300 x 20 below a rectangle 10 x 100.
TEST(PlateSummation, AddsAreasMomentsAndOwnMoments)
{
    const Plate plates[] = {{300, 20, 0, 0}, {10, 100, 20, 50}};
    const PlateSums sums = SumPlates(plates);
    EXPECT_DOUBLE_EQ(sums.a, 6000 + 1000);
    EXPECT_DOUBLE_EQ(sums.zcog, (6000.0 * 10 + 1000.0 * 70) / 7000);
    EXPECT_DOUBLE_EQ(sums.ey, 1000.0 * 50 / 7000);
    const double dz = 60, dy = 50;  // between the two centres; 6000*1000/7000 is their joint weight
    EXPECT_NEAR(sums.iy, 300 * 8000.0 / 12 + 10 * 1e6 / 12 + 6e6 / 7000 * dz * dz, 1e-6 * sums.iy);
    EXPECT_NEAR(sums.iz, 20 * 2.7e7 / 12 + 100 * 1e3 / 12 + 6e6 / 7000 * dy * dy, 1e-6 * sums.iz);
    EXPECT_DOUBLE_EQ(sums.it, (300 * 8000.0 + 100 * 1000.0) / 3);
    EXPECT_DOUBLE_EQ(sums.ymax, 150 + 1000.0 * 50 / 7000);
    EXPECT_DOUBLE_EQ(sums.height, 120);
}

// By hand: half of 18720 lies (9360 - 8000)/12 + 20 = 133.33 above the edge; the step above it is
// 133.4. D186: the modulus about the stepped axis exceeds the exact one by tw times the square of
// the distance of the axes.
TEST(PlateSummation, D186StepsThePlasticAxisByATenthOfAMillimetre)
{
    const Plate plates[] = {{400, 20, 0, 0}, {12, 560, 20, 0}, {200, 20, 580, 0}};
    const float zpl = SteppedPlasticAxis(plates);
    // 1314 steps, each rounded by at most 2^-18 mm: the level may drift by 0.005.
    EXPECT_NEAR(zpl, 133.4, 0.005);
    const double exact = ExactPlasticAxis(plates);
    EXPECT_NEAR(exact, 133.0 + 1.0 / 3, 1e-9);
    const double apart = static_cast<double>(zpl) - exact;
    EXPECT_NEAR(PlasticModulus(plates, static_cast<double>(zpl)) - PlasticModulus(plates, exact),
                12 * apart * apart, 1e-3);
    // 8000*123.33 + 12*113.33^2/2 + 12*446.67^2/2 + 4000*456.67
    EXPECT_NEAR(PlasticModulus(plates, exact), 4.0874e6, 100);
}

TEST(PlateSummation, SmallestSteppedAxisIsOneStepAboveTwoMillimetres)
{
    const Plate plates[] = {{1000, 3, 0, 0}, {1, 10, 3, 0}};  // half the area at 1.505
    EXPECT_FLOAT_EQ(SteppedPlasticAxis(plates), 2.1F);
}

// Two of the levels fall on a round number, 9.5 and 37.5 mm: half the area there is enough. In a
// gap the first level behind the lower plate has it.
TEST(PlateSummation, AxisIsTheFirstLevelWithHalfTheArea)
{
    for (const double half : {9.5, 37.5}) {
        const Plate plates[] = {{10, 2 * half, 0, 0}};
        EXPECT_EQ(SteppedPlasticAxis(plates), static_cast<float>(half));
    }
    const Plate apart[] = {{10, 10, 0, 0}, {10, 10, 20, 0}};
    EXPECT_NEAR(SteppedPlasticAxis(apart), 10, 0.1);
    EXPECT_EQ(ExactPlasticAxis(apart), 10);
}

// Half of 1510 mm2 lies at 10 + 745/1000, less than a millimetre below the top.
TEST(PlateSummation, AxisMayLieJustBelowTheTop)
{
    const Plate plates[] = {{1, 10, 0, 0}, {1000, 1.5, 10, 0}};
    EXPECT_NEAR(SteppedPlasticAxis(plates), 10.745, 0.1);
    EXPECT_NEAR(ExactPlasticAxis(plates), 10.745, 1e-12);
}

// Centroid at 10 mm: the further edge of two plates of 20 mm is 20 mm away from it.
TEST(PlateSummation, WidestEdgeCountsFromTheCentroid)
{
    const Plate plates[] = {{20, 5, 0, 0}, {20, 5, 5, 20}};
    EXPECT_DOUBLE_EQ(SumPlates(plates).ey, 10);
    EXPECT_DOUBLE_EQ(SumPlates(plates).ymax, 20);
}

TEST(PlateSummation, ReachesHalfTheAreaInAHighSection)
{
    const Plate plates[] = {{10, 40000, 0, 0}};
    const float zpl = SteppedPlasticAxis(plates);
    // The level is held in single precision: near 20000 its last digit is 0.002 mm, so that the
    // steps are not exactly a tenth.
    EXPECT_GE(zpl, 20000.0F);
    EXPECT_LT(zpl, 20000.2F);
}

// From 2^21 mm on a tenth of a millimetre is less than half the last digit of the level.
TEST(PlateSummation, StopsWhenTheStepNoLongerGrows)
{
    const Plate plates[] = {{10, 5e6, 0, 0}};
    EXPECT_THROW(SteppedPlasticAxis(plates), CalculationStop);
}

// Dimensions that no input box takes but a file may hold: half the area is never found.
TEST(PlateSummation, StopsWhenTheSearchLeavesTheSection)
{
    const Plate plates[] = {{10, 100, 0, 0}, {-10, -200, 100, 0}};
    EXPECT_THROW(SteppedPlasticAxis(plates), CalculationStop);
}

TEST(PlateSummation, ExactAxisWalksThePlatesInTheirOrder)
{
    const Plate flange[] = {{200, 10, 0, 0}, {10, 190, 10, 0}};  // 2000 + 1900
    EXPECT_DOUBLE_EQ(ExactPlasticAxis(flange), 1950.0 / 200);
    const Plate web[] = {{100, 10, 0, 0}, {10, 190, 10, 0}};  // 1000 + 1900
    EXPECT_DOUBLE_EQ(ExactPlasticAxis(web), 10 + 450.0 / 10);
    const Plate border[] = {{100, 19, 0, 0}, {10, 190, 19, 0}};  // 1900 + 1900
    EXPECT_DOUBLE_EQ(ExactPlasticAxis(border), 19);
}

// A plate that ends at the axis belongs to one side, whichever rule takes it.
TEST(PlateSummation, PlasticModulusIsContinuousAtThePlateEdges)
{
    const Plate plates[] = {{100, 20, 0, 0}, {10, 100, 20, 0}};
    const double at = PlasticModulus(plates, 20);
    EXPECT_DOUBLE_EQ(at, 2000 * 10 + 1000 * 50);
    EXPECT_NEAR(PlasticModulus(plates, 20 - 1e-9), at, 1e-4);
    EXPECT_NEAR(PlasticModulus(plates, 20 + 1e-9), at, 1e-4);
}
