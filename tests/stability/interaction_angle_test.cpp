#include "stability/interaction_angle.h"

#include "core/project_state.h"
#include "stability/buckling_curves.h"
#include "stability/buckling_resistance.h"
#include "stability/test_members.h"

#include <gtest/gtest.h>

#include <cmath>

namespace kestrum {
namespace {

Member Loaded()
{
    Member s = members::Angle100();
    members::UniformLoad(s, 2);
    s.ned = 50;
    members::ResistBuckling(s);
    return s;
}

TEST(CmAngleLoads, TakeTheShapesOfYAndZWithThePrincipalForces)
{
    Member s = Loaded();
    s.mzl = -1;
    s.mzmaxabs = 1;
    s.mzlinear = kTrue;
    s.psiz = 0.5;
    CmAngleLoads(s, s, s, s);
    EXPECT_DOUBLE_EQ(s.cmu, 1 + 0.03 * 50 / s.ncru);
    EXPECT_DOUBLE_EQ(s.cmv, 0.79 + 0.105 + 0.36 * 0.17 * 50 / s.ncrv);
}

TEST(CmAngleForces, TakeTheLinearFormula)
{
    Member s = Loaded();
    s.psiy = 1;
    s.psiz = 0;
    CmAngleForces(s, s);
    EXPECT_DOUBLE_EQ(s.cmu, 1.0 + 0.36 * 0.67 * 50 / s.ncru);
    EXPECT_DOUBLE_EQ(s.cmv, 0.79 - 0.36 * 0.33 * 50 / s.ncrv);
}

// kvv = cmv mu/(1 - n) with mu/(1 - n) = 1/(1 - chi n); kvu = cmu muz/(1 - NEd/Ncr,u).
TEST(KAngleAnnexA, D226HasNoTorsionalTerm)
{
    Member s = Loaded();
    s.cmv = 0.9;
    s.cmu = 0.8;
    s.muz = 0.95;
    s.cmlt = 1.4f;
    KAngleAnnexA(s, s);
    EXPECT_EQ(s.cmlt, 1.0f);
    EXPECT_NEAR(s.kvv, 0.9 / (1 - s.chiv * 50 / s.ncrv), 1e-12);
    EXPECT_NEAR(s.kvu, 0.8 * 0.95 / (1 - 50 / s.ncru), 1e-12);
}

TEST(KAngleAnnexA, FinishesAtTheCriticalForce)
{
    Member s = Loaded();
    s.cmv = s.cmu = s.muz = 1;
    s.ncrv = s.ncru = s.ned;
    KAngleAnnexA(s, s);
    EXPECT_NEAR(s.kvv, 1 / (1 - s.chiv), 1e-12);
    EXPECT_TRUE(std::isfinite(s.kvu));
}

TEST(KAngleAnnexB, D227BothFactorsAreThoseOfV)
{
    Member s = Loaded();
    s.cmv = 0.9;
    s.cmu = 0.5;
    s.lamv = 0.8;
    KAngleAnnexB(s, s);
    EXPECT_NEAR(s.kvv, 0.9 * (1 + 0.48 * 50 / s.nbvrd), 1e-12);
    EXPECT_EQ(s.kvu, s.kvv);
    s.lamv = 1.6;
    KAngleAnnexB(s, s);
    EXPECT_NEAR(s.kvv, 0.9 * (1 + 0.6 * 50 / s.nbvrd), 1e-12);
}

// 45 degrees, My 4, Mz 2: both 6/sqrt(2) = 4.2426; smallest point resistances 14.81 and 6.493.
TEST(AnglePrincipalMoments, AddAsSizes)
{
    Member s = members::Angle100();
    s.mydesign = -4;
    s.mzdesign = 2;
    const PrincipalMoments m = AnglePrincipalMoments(s, s, s, s);
    EXPECT_NEAR(m.mu, 4.2426, 5e-5);
    EXPECT_NEAR(m.mv, 4.2426, 5e-5);
    EXPECT_NEAR(m.murd, 14.81, 1e-9);
    EXPECT_NEAR(m.mvrd, 6.493, 1e-9);
    s.gammam1 = 1.1f;
    EXPECT_NEAR(AnglePrincipalMoments(s, s, s, s).murd, 14.81 / 1.1, 1e-5);
}

// Of unlike legs the third point may be the weakest; the resistances carry gammaM1 instead of
// gammaM0.
TEST(AnglePrincipalMoments, TakeTheSmallestResistanceOfAllPoints)
{
    Member s = members::Angle100();
    s.gammam0 = 1.1;
    s.gammam1 = 1.25f;
    s.mru = {0, 14, 12, 9};
    s.mrv = {0, 5, 6, 7};
    const PrincipalMoments m = AnglePrincipalMoments(s, s, s, s);
    EXPECT_NEAR(m.murd, 9 * 1.1 / 1.25, 1e-9);
    EXPECT_NEAR(m.mvrd, 5 * 1.1 / 1.25, 1e-9);
}

TEST(AnglePrincipalMoments, TurnByTheAngle)
{
    Member s = members::Angle100();
    s.alfa = 30;
    s.mydesign = 10;
    const PrincipalMoments m = AnglePrincipalMoments(s, s, s, s);
    EXPECT_NEAR(m.mu, 8.6603, 5e-5);
    EXPECT_NEAR(m.mv, 5.0, 1e-9);
}

}  // namespace
}  // namespace kestrum
