// Lateral torsional buckling between restraints, and of the uniform moment.

#include "stability/lateral_torsional.h"

#include "core/arithmetic_trap.h"
#include "core/project_state.h"
#include "stability/test_members.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace kestrum {
namespace {

using members::EndMoments;
using members::UniformLoad;

constexpr double kPi2 = std::numbers::pi * std::numbers::pi;

// Mcr of a double-symmetric section with E 210000 and G = E/2.6, Nmm; length in mm.
double Mcr(const ProjectState& s, double c1, double lever, double length)
{
    const double euler = kPi2 * 210000 * double(s.iz) / (length * length);
    return c1 * euler *
           (std::sqrt(210000 / 2.6 * double(s.it) / euler + double(s.iw) / s.iz + lever * lever) -
            lever);
}

// Two restraints: points 0, 17, 33, 50 (16.67 and 33.33). q: M at x = 17/50 is 4 0.34 0.66 = 0.8976
// of the largest; the middle segment has r = 1, C1 = 1.
TEST(Segments, TakeTheDiagramPointsAtTheRestraints)
{
    Member s = members::Heb200();
    s.l = 15.0f;
    UniformLoad(s, 5);
    s.restraints = 2;
    LateralTorsionalBuckling(s, s, s, s, s, s);
    EXPECT_EQ(s.beampart, 2);
    EXPECT_NEAR(s.mydesignf, 140.625 * 0.8976, 1e-3);
    EXPECT_NEAR(s.lt, 5.0, 1e-6);
    EXPECT_NEAR(s.segc1[1], 1.77, 1e-9);
    EXPECT_NEAR(s.segc1[2], 1.0, 1e-9);
    EXPECT_NEAR(s.segc1[3], 1.77, 1e-9);
    EXPECT_NEAR(s.segmcr[2], Mcr(s, 1.0, 0, double(s.lt) * 1000), s.segmcr[2] * 1e-6);
    EXPECT_EQ(s.mcr, s.segmcr[2]);
    EXPECT_EQ(s.ltc1, s.segc1[2]);
    EXPECT_EQ(s.ltc2, 0);
    EXPECT_EQ(s.mltrd, s.myrdm1);
    EXPECT_NEAR(s.kc, 1.0, 1e-6);
}

// The largest moment, 31.25 at the middle, is not the moment of the check.
TEST(Segments, D201MissTheMomentBetweenTheRestraints)
{
    Member s = members::Heb200();
    UniformLoad(s, 10);
    s.restraints = 2;
    LateralTorsionalBuckling(s, s, s, s, s, s);
    EXPECT_LT(s.mydesignf, 0.9 * s.mydesign);
}

// Half a beam under uniform load, held at mid-span: the straight line from 0 has C1 1.77. The
// quarter points of the parabola, 0.4375, 0.75 and 0.9375 of the largest moment, give by 12.5/(2.5
// + 3 a + 4 b + 3 c) of AISC 360, F1: 12.5/9.625 = 1.299. The load on the top flange does not
// count.
TEST(Segments, D233TakeAStraightMomentLineAndNoLoadLevel)
{
    Member s = members::Heb200();
    UniformLoad(s, 10);
    s.restraints = 1;
    s.loadlevel = 1;
    LateralTorsionalBuckling(s, s, s, s, s, s);
    EXPECT_EQ(s.zg, 100);
    EXPECT_NEAR(s.ltc1, 1.77, 1e-9);
    EXPECT_NEAR(s.mcr, Mcr(s, 1.77, 0, 2500), s.mcr * 1e-6);
    EXPECT_GT(s.mcr, 1.36 * Mcr(s, 1.299, 0, 2500));
}

// Three restraints: 12.5 and 37.5 round to the even points 12 and 38.
TEST(Segments, RoundHalfPointsToEven)
{
    Member s = members::Heb200();
    EndMoments(s, 0, 50);
    s.restraints = 3;
    LateralTorsionalBuckling(s, s, s, s, s, s);
    // segments end at 12, 25, 38, 50: ratios 0, 12/25, 25/38, 38/50
    EXPECT_NEAR(s.segc1[1], 1.77, 1e-9);
    EXPECT_NEAR(s.segc1[2], 1.31 + (0.5 - 12.0 / 25) / 0.25 * 0.21, 1e-6);
    EXPECT_NEAR(s.segc1[4], 1.14 - (38.0 / 50 - 0.75) / 0.25 * 0.14, 1e-6);
    EXPECT_EQ(s.beampart, 4);
    EXPECT_EQ(s.mydesignf, 50.0f);
}

TEST(Segments, EndForcesAreOneSegmentWithoutRestraints)
{
    Member s = members::Heb200();
    EndMoments(s, 40, 20);
    LateralTorsionalBuckling(s, s, s, s, s, s);
    EXPECT_EQ(s.beampart, 1);
    EXPECT_EQ(s.mydesignf, 40.0f);
    EXPECT_NEAR(s.ltc1, 1.31, 1e-9);
    EXPECT_NEAR(s.mcr, Mcr(s, 1.31, 0, 5000), s.mcr * 1e-6);
}

TEST(Segments, ManualFactorsActOnTheWholeMemberOnly)
{
    Member s = members::Heb200();
    EndMoments(s, 40, 40);
    s.cmanual = kTrue;
    s.c1 = 3;
    LateralTorsionalBuckling(s, s, s, s, s, s);
    EXPECT_NEAR(s.ltc1, 1.0, 1e-9);
}

TEST(Segments, TheLastOfEqualRatiosGoverns)
{
    Member s = members::Heb200();
    EndMoments(s, 40, 40);
    s.restraints = 3;
    LateralTorsionalBuckling(s, s, s, s, s, s);
    EXPECT_EQ(s.beampart, 4);

    Member unloaded = members::Heb200();
    unloaded.restraints = 2;
    LateralTorsionalBuckling(unloaded, unloaded, unloaded, unloaded, unloaded, unloaded);
    EXPECT_EQ(unloaded.beampart, 3);
    EXPECT_EQ(unloaded.mydesignf, 0.0f);
}

TEST(Segments, KeepTheMomentWithItsSign)
{
    Member s = members::Heb200();
    EndMoments(s, -60, 30);
    LateralTorsionalBuckling(s, s, s, s, s, s);
    EXPECT_EQ(s.mydesignf, -60.0f);
    EXPECT_NEAR(s.ltc1, 2.35, 1e-9);  // r = -0.5
}

// r = -1: mean 0 counts as hogging, and of equal sizes the first end gives the sign.
TEST(Segments, OpposedMomentsTakeTheBottomSide)
{
    Member s = members::Single600();
    s.mybotrd = 900;
    EndMoments(s, 100, -100);
    LateralTorsionalBuckling(s, s, s, s, s, s);
    EXPECT_EQ(s.mydesignf, 100.0f);
    EXPECT_EQ(s.mltrd, 900);
    // psifbot 7/9 > 0, k = 1, t = -1: C3 = -7/9 - 0.55
    EXPECT_NEAR(s.ltc3, -7.0 / 9 - 0.55, 1e-6);
    EXPECT_NEAR(s.mcr, Mcr(s, 2.6, -s.ltc3 * double(s.zjbot), 5000), s.mcr * 1e-6);
}

// The upper side resists twice as much: 60 of the lower side is worse than 100 of the upper one.
TEST(Segments, EachSideRestsOnItsOwnResistance)
{
    Member s = members::Single600();
    s.ltb = 1;
    s.restraints = 1;
    s.mytoprd *= 2;
    EndMoments(s, 100, -60);
    LateralTorsionalBuckling(s, s, s, s, s, s);
    EXPECT_EQ(s.beampart, 2);
    EXPECT_EQ(s.mydesignf, -60);
    s.mybotrd *= 4;
    LateralTorsionalBuckling(s, s, s, s, s, s);
    EXPECT_EQ(s.beampart, 1);
}

TEST(Segments, MoreRestraintsNeverLowerTheResistanceForUniformMoment)
{
    for (const int family : {2, 21, 22}) {
        double before = 0;
        for (int n = 0; n <= 5; ++n) {
            ProjectState s = family == 22   ? members::Single600()
                             : family == 21 ? members::Welded600()
                                            : members::Heb200();
            s.l = 12.0f;
            s.restraints = static_cast<i16>(n);
            EndMoments(s, 40, 40);
            LateralTorsionalBuckling(s, s, s, s, s, s);
            EXPECT_GE(s.xlt * s.mltrd, before) << family << ' ' << n;
            before = s.xlt * s.mltrd;
        }
    }
}

TEST(Segments, SwappedEndMomentsGiveTheSame)
{
    for (int n = 0; n <= 5; ++n) {
        Member s = members::Heb200();
        s.restraints = static_cast<i16>(n);
        EndMoments(s, 45, -12);
        LateralTorsionalBuckling(s, s, s, s, s, s);
        Member t = members::Heb200();
        t.restraints = static_cast<i16>(n);
        EndMoments(t, -12, 45);
        LateralTorsionalBuckling(t, t, t, t, t, t);
        EXPECT_NEAR(s.xlt, t.xlt, 1e-6) << n;
        EXPECT_NEAR(s.mydesignf, t.mydesignf, 1e-4) << n;
        EXPECT_NEAR(s.mcr, t.mcr, 1e-4 * s.mcr) << n;
    }
}

TEST(Segments, MoreThanFiveRestraintsStopThePass)
{
    Member s = members::Heb200();
    EndMoments(s, 40, 40);
    s.restraints = 5;
    EXPECT_NO_THROW(LateralTorsionalBuckling(s, s, s, s, s, s));
    s.restraints = 6;
    EXPECT_THROW(LateralTorsionalBuckling(s, s, s, s, s, s), CalculationStop);
    s.restraints = -1;
    EXPECT_THROW(LateralTorsionalBuckling(s, s, s, s, s, s), CalculationStop);
}

// HEB 200, k 1: C1 = 1; k 0.5: 1.05. lam0 = sqrt(MRd/Mcr0); by hand Mcr0 321.08, lam0 0.8428.
TEST(LtUniformMcr, GivesTheSlendernessOfUniformMoment)
{
    Member s = members::Heb200();
    LtUniformMcr(s, s, s, s, s, s);
    EXPECT_NEAR(s.mcr0, Mcr(s, 1.0, 0, 5000), s.mcr0 * 1e-6);
    EXPECT_NEAR(s.lam0, 0.8428, 5e-5);
    EXPECT_EQ(s.lt, 5.0f);
    s.ltbk = 0.5f;
    s.restraints = 1;
    LtUniformMcr(s, s, s, s, s, s);
    EXPECT_EQ(s.lt, 1.25f);
    EXPECT_NEAR(s.mcr0, Mcr(s, 1.05, 0, 1250), s.mcr0 * 1e-6);
}

TEST(LtUniformMcr, CoversEveryFamilyWithTheCheck)
{
    for (const int family : {1, 5, 15, 16, 21, 28, 41, 101, 102, 103}) {
        Member s = members::Heb200();
        s.family = static_cast<i16>(family);
        LtUniformMcr(s, s, s, s, s, s);
        EXPECT_GT(s.mcr0, 0) << family;
    }
}

TEST(LtUniformMcr, TakesTheSideOfTheMidMomentInTheSingleSymmetricI)
{
    Member s = members::Single600();
    s.mymid = 10;
    LtUniformMcr(s, s, s, s, s, s);
    EXPECT_NEAR(s.mcr0, Mcr(s, 1.0, -double(s.zjtop), 5000), s.mcr0 * 1e-6);
    s.mymid = 0;
    LtUniformMcr(s, s, s, s, s, s);
    EXPECT_NEAR(s.mcr0, Mcr(s, 1.0, -double(s.zjbot), 5000), s.mcr0 * 1e-6);
}

}  // namespace
}  // namespace kestrum
