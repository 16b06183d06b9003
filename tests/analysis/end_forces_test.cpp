#include "member.h"

#include "core/arithmetic_trap.h"
#include "core/project_state.h"

#include <gtest/gtest.h>

namespace kestrum::test {
namespace {

Member WithEndForces(int family = 1)
{
    Member s = Beam(0);
    s.family = static_cast<i16>(family);
    s.loadmode = 0;
    s.ne = 120;
    s.my1 = 10;
    s.my2 = -30;
    s.mz1 = 4;
    s.mz2 = 8;
    s.vz1 = -5;
    s.vz2 = -15;
    s.vy1 = 2;
    s.vy2 = 6;
    return s;
}

TEST(EndForces, RunStraightFromEndToEnd)
{
    Member s = WithEndForces();
    Analyse(s);
    EXPECT_EQ(s.ned, 120);
    EXPECT_EQ(s.npts, 10);
    EXPECT_FLOAT_EQ(s.mydiag[0], 10);
    EXPECT_FLOAT_EQ(s.mydiag[10], 2);
    EXPECT_FLOAT_EQ(s.mydiag[50], -30);
    EXPECT_FLOAT_EQ(s.mzdiag[25], 6);
    EXPECT_FLOAT_EQ(s.vzdiag[25], -10);
    EXPECT_FLOAT_EQ(s.vydiag[25], 4);
    EXPECT_NEAR(s.mysec[2], 2, 1e-6);
    EXPECT_FLOAT_EQ(s.mzsec[10], 8);
    EXPECT_NEAR(s.vzsec[1], -6, 1e-6);
    EXPECT_NEAR(s.vysec[5], 4, 1e-6);
}

TEST(EndForces, ExtremesStartAtZeroButTheHighestShear)
{
    Member s = WithEndForces();
    Analyse(s);
    EXPECT_EQ(s.mymax, 10);
    EXPECT_EQ(s.mymin, -30);
    EXPECT_EQ(s.mzmax, 8);
    EXPECT_EQ(s.mzmin, 0);
    EXPECT_EQ(s.vzmax, -5);
    EXPECT_EQ(s.vzmin, -15);
    EXPECT_EQ(s.vymax, 6);
    EXPECT_EQ(s.vymin, 0);
    EXPECT_EQ(s.mymaxabs, 30);
    EXPECT_EQ(s.mzmaxabs, 8);
    EXPECT_EQ(s.mydesign, -30);
    EXPECT_EQ(s.mzdesign, 8);
}

TEST(EndForces, GiveQuarterPointsAndEndRatios)
{
    Member s = WithEndForces();
    Analyse(s);
    EXPECT_EQ(s.my0, 10);
    EXPECT_NEAR(s.myq1, 0, 1e-6);
    EXPECT_NEAR(s.mymid, -10, 1e-6);
    EXPECT_NEAR(s.myq3, -20, 1e-5);
    EXPECT_EQ(s.myl, -30);
    EXPECT_NEAR(s.psiy, -1.0 / 3, 1e-12);
    EXPECT_EQ(s.psiz, 0.5);
    s.my2 = -10;
    Analyse(s);
    EXPECT_EQ(s.psiy, -1);
}

TEST(EndForces, CrossingsOnlyWithRestrainedEnds)
{
    for (int supportcase = 0; supportcase < kSupportCases; ++supportcase) {
        Member s = WithEndForces();
        s.supportcase = static_cast<i16>(supportcase);
        s.my2 = -10;
        s.mz2 = -2;
        Analyse(s);
        const bool restrained = supportcase != 0 && supportcase != 4;
        EXPECT_FLOAT_EQ(s.x0my1, restrained ? 0.5F : 0) << supportcase;
        EXPECT_FLOAT_EQ(s.x0my2, restrained ? 0.5F : 0) << supportcase;
        EXPECT_FLOAT_EQ(s.x0mz1, 0) << supportcase;
        EXPECT_NEAR(s.x0mz2, restrained ? 2.0 / 3 : 0, 1e-6) << supportcase;
    }
}

TEST(EndForces, ATSectionTakesTheAxialForceOnlyD106)
{
    Member s = WithEndForces(26);
    Analyse(s);
    EXPECT_EQ(s.ned, 120);
    EXPECT_EQ(Largest(s.mydiag) + Largest(s.mzdiag) + Largest(s.vzdiag) + Largest(s.vydiag), 0);
    EXPECT_EQ(s.my1, 0);
    EXPECT_EQ(s.vz2, 0);
    EXPECT_EQ(s.mz2, 0);
    EXPECT_EQ(s.vy1, 0);
    EXPECT_EQ(s.mydesign, 0);
}

TEST(EndForces, SectionsBentAboutYOnlyLoseMzAndVyD106)
{
    for (const int family : {24, 25, 27, 28}) {
        Member s = WithEndForces(family);
        Analyse(s);
        EXPECT_EQ(s.mz1 + s.mz2 + s.vy1 + s.vy2, 0) << family;
        EXPECT_EQ(Largest(s.mzdiag) + Largest(s.vydiag), 0) << family;
        EXPECT_EQ(s.my2, -30) << family;
        EXPECT_EQ(s.ned, family == 27 ? 0 : 120) << family;
    }
    for (const int family : {1, 51, 56}) {
        Member s = WithEndForces(family);
        Analyse(s);
        EXPECT_EQ(s.mz2, 8) << family;
    }
}

TEST(EndForces, LeaveTheResultsOfTheLoadedMember)
{
    Member s = Beam(0);
    s.qload[1] = 10;
    Analyse(s);
    const ProjectState loaded = s;
    s.loadmode = 0;
    s.my1 = 5;
    Analyse(s);
    EXPECT_EQ(s.dzdiag, loaded.dzdiag);
    EXPECT_EQ(s.dzmax, loaded.dzmax);
    EXPECT_EQ(s.xmymax, loaded.xmymax);
    EXPECT_EQ(s.mycurved, loaded.mycurved);
    EXPECT_EQ(s.mypeakratio, loaded.mypeakratio);
    EXPECT_EQ(s.qload, loaded.qload);
    EXPECT_EQ(s.qsum, 0);
    EXPECT_EQ(s.hasyloads, kTrue);
    EXPECT_EQ(s.haszloads, kTrue);
    EXPECT_EQ(s.mymax, 5);
}

TEST(EndForces, WorkAtChosenPoints)
{
    Member s = WithEndForces();
    s.cpmode = 1;
    s.cpcount = 2;
    s.cp = {0, 1.5F, 4.5F, 0};
    Analyse(s);
    EXPECT_EQ(s.npts, 1);
    EXPECT_NEAR(s.mysec[0], 0, 1e-6);
    EXPECT_NEAR(s.mysec[1], -20, 1e-6);
    EXPECT_EQ(s.mysec[2], 0);
}

TEST(EndForces, ZeroForcesFailNothing)
{
    Member s = Beam(2);
    s.loadmode = 0;
    ArmTrap();
    Analyse(s);
    EXPECT_NO_THROW(CheckTrap());
    EXPECT_EQ(s.mydesign, 0);
}

}  // namespace
}  // namespace kestrum::test
