// EN 1993-1-5, 4.4: expectations by hand from the formulas and tables of the standard.

#include "design/local_buckling.h"

#include "design/class_limits.h"

#include <cmath>
#include <gtest/gtest.h>

namespace kestrum {
namespace {

TEST(PlateSlenderness, FollowsTheStandard)
{
    // c/t = 514/12, S355, k = 4: 42.8333/(28.4 * 0.813617 * 2) = 0.92686
    EXPECT_NEAR(PlateSlenderness(514, 12, std::sqrt(235.0 / 355), 4), 0.92686, 1e-5);
}

TEST(RhoOutstand, StartsToFallAt0_748)
{
    EXPECT_EQ(RhoOutstand(0.2), 1.0);
    EXPECT_EQ(RhoOutstand(0.748), 1.0);
    // just beyond, (0.7481 - 0.188)/0.7481^2 = 1.0008 is held at 1
    EXPECT_EQ(RhoOutstand(0.7481), 1.0);
    EXPECT_NEAR(RhoOutstand(1.0), 0.812, 1e-12);
    EXPECT_NEAR(RhoOutstand(0.752), 0.997340, 1e-6);  // (0.752 - 0.188)/0.752^2
    EXPECT_NEAR(RhoOutstand(2.0), 1.812 / 4, 1e-12);
}

TEST(RhoInternal, StartsToFallAt0_673)
{
    EXPECT_EQ(RhoInternal(0.2), 1.0);
    EXPECT_EQ(RhoInternal(0.673), 1.0);
    // (0.6731 - 0.22)/0.6731^2 = 1.00009 is held at 1
    EXPECT_EQ(RhoInternal(0.6731), 1.0);
    EXPECT_NEAR(RhoInternal(0.676), 0.997864, 1e-6);  // (0.676 - 0.22)/0.676^2
    EXPECT_NEAR(RhoInternal(1.0), 0.78, 1e-12);
    EXPECT_NEAR(RhoInternal(2.0), 1.78 / 4, 1e-12);
}

TEST(RhoInternal, TakesTheStressRatio)
{
    // psi = -1: threshold 0.5 + sqrt(0.14) = 0.874166; (1.275 - 0.11)/1.275^2 = 0.716647
    EXPECT_EQ(RhoInternal(0.874, -1), 1.0);
    EXPECT_NEAR(RhoInternal(1.275, -1), 0.716647, 1e-6);
    EXPECT_NEAR(RhoInternal(0.8748, -1), 0.999379, 1e-6);  // 0.7648/0.8748^2, just above
    // psi = 1 is uniform compression: (1 - 0.055 * 4)/1 = 0.78
    EXPECT_NEAR(RhoInternal(1.0, 1), 0.78, 1e-12);
    // psi = 1: threshold 0.673; (0.8 - 0.22)/0.64 = 0.90625
    EXPECT_NEAR(RhoInternal(0.8, 1), 0.90625, 1e-12);
    // psi = -0.5: threshold 0.5 + sqrt(0.1125) = 0.83541; (0.9 - 0.1375)/0.81 = 0.941358
    EXPECT_NEAR(RhoInternal(0.9, -0.5), 0.941358, 1e-6);
    // beyond psi = 1.545 the root of the threshold would be negative; it counts as 0
    EXPECT_EQ(RhoInternal(0.5, 3), 1.0);
}

TEST(RhoInternal, FallsWithSlenderness)
{
    for (const double psi : {1.0, 0.5, 0.0, -0.5, -1.0}) {
        double last = 1;
        for (double lambda = 0.1; lambda < 5; lambda += 0.01) {
            const double rho = RhoInternal(lambda, psi);
            EXPECT_LE(rho, last) << lambda << ' ' << psi;
            EXPECT_GT(rho, 0);
            last = rho;
        }
    }
}

TEST(RhoOutstand, FallsWithSlenderness)
{
    double last = 1;
    for (double lambda = 0.1; lambda < 5; lambda += 0.01) {
        const double rho = RhoOutstand(lambda);
        EXPECT_LE(rho, last) << lambda;
        EXPECT_GT(rho, 0);
        last = rho;
    }
}

TEST(StressRatio, RemovesTheResidueAtMinusOne)
{
    EXPECT_EQ(StressRatio(-1 + 1e-7), -1.0);
    EXPECT_EQ(StressRatio(-1 - 1e-7), -1.0);
    EXPECT_EQ(StressRatio(-1 + 2e-6), -1 + 2e-6);
    EXPECT_EQ(StressRatio(0.3), 0.3);
}

TEST(KSigma, MatchesTable4_1AndTable4_2)
{
    EXPECT_NEAR(KSigmaInternal(1), 4.0, 1e-12);
    EXPECT_NEAR(KSigmaInternal(0.5), 8.2 / 1.55, 1e-12);
    EXPECT_NEAR(KSigmaInternal(0), 7.81, 1e-12);
    EXPECT_NEAR(KSigmaInternal(-1), 23.88, 1e-12);  // the standard rounds to 23.9
    EXPECT_NEAR(KSigmaInternal(-2), 53.82, 1e-12);  // 5.98 * 9
    EXPECT_NEAR(KSigmaOutstand(1), 0.43, 1e-12);
    EXPECT_NEAR(KSigmaOutstand(0), 0.57, 1e-12);
    EXPECT_NEAR(KSigmaOutstand(-1), 0.85, 1e-12);
}

TEST(ClassLimits, BelongToTheWorseOrTheBetterClass)
{
    EXPECT_EQ(ClassBelow(8.9, 9, 10, 14), 1);
    EXPECT_EQ(ClassBelow(9, 9, 10, 14), 2);
    EXPECT_EQ(ClassBelow(10, 9, 10, 14), 3);
    EXPECT_EQ(ClassBelow(14, 9, 10, 14), 4);
    EXPECT_EQ(ClassAtMost(9, 9, 10, 14), 1);
    EXPECT_EQ(ClassAtMost(9.1, 9, 10, 14), 2);
    EXPECT_EQ(ClassAtMost(10, 9, 10, 14), 2);
    EXPECT_EQ(ClassAtMost(14, 9, 10, 14), 3);
    EXPECT_EQ(ClassAtMost(14.1, 9, 10, 14), 4);
}

}  // namespace
}  // namespace kestrum
