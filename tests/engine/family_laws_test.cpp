// What the driver decides by family beside the choice of routines, and laws of a whole pass.

#include "core/annexes.h"
#include "core/project_state.h"
#include "engine/calculate.h"
#include "sections/families.h"
#include "support/members.h"
#include "support/rows.h"

#include <gtest/gtest.h>

#include <cmath>
#include <initializer_list>
#include <map>
#include <string>
#include <utility>

namespace kestrum {
namespace {

// A flat bar on edge, with the linear interaction that its section control has.
Member Bar(float n)
{
    Member s = Member().Family(28).BasicLoads().Length(2).Axial(n).Load(2);
    s.checkconsercontrol = kTrue;
    return s;
}

TEST(FlatBar, D229LateralTorsionalBucklingIsControlledBesideCompressionOnly)
{
    Member compressed = Bar(0.01f);
    ASSERT_TRUE(EndsWell(compressed));
    EXPECT_FALSE(LateralRow(compressed).empty());
    EXPECT_GT(compressed.irrow6, 0);
    EXPECT_LT(compressed.xlt, 1);
    for (const float n : {0.0f, -0.01f}) {  // nothing of it beside bending alone or tension
        Member s = Bar(n);
        ASSERT_TRUE(EndsWell(s));
        EXPECT_EQ(s.mydesign, compressed.mydesign);
        EXPECT_TRUE(LateralRow(s).empty()) << n;
        EXPECT_TRUE(RowY(s).empty() && RowZ(s).empty()) << n;
        EXPECT_EQ(s.maxirbuckling, 0) << n;
    }
}

TEST(FlatBar, LoadsInYAreTakenAwayAndTheAxialForceStays)
{
    Member s = Bar(5);
    s.qload[2] = 1;
    s.qdir[2] = 0;
    Member without = Bar(5);
    ASSERT_TRUE(EndsWell(s));
    ASSERT_TRUE(EndsWell(without));
    EXPECT_EQ(s.qload[2], 0);
    EXPECT_EQ(s.mzdesign, 0);
    EXPECT_EQ(s.ned, 5);
    EXPECT_EQ(s.maxirbuckling, without.maxirbuckling);
}

TEST(TSection, WithoutCompressionThereIsNoBuckling)
{
    for (const float n : {0.0f, -10.0f}) {
        Member s = Member().Family(26).BasicLoads();
        s.selfweight = 1;
        s.nload[1] = 10;
        ASSERT_TRUE(EndsWell(s));
        EXPECT_GT(s.maxirbuckling, 0);
        s.nload[1] = n;
        ASSERT_TRUE(EndsWell(s));
        EXPECT_EQ(s.maxirbuckling, 0) << n;
        EXPECT_TRUE(RowY(s).empty() && RowZ(s).empty()) << n;
        EXPECT_GT(s.irsection, 0) << n;  // the self-weight bends it
    }
}

TEST(RolledI, TensionLeavesTheLateralTorsionalRowToGovern)
{
    Member s = Member().BasicLoads();
    s.nload[1] = -50;
    ASSERT_TRUE(EndsWell(s));
    EXPECT_TRUE(RowY(s).empty() && RowZ(s).empty());
    EXPECT_FALSE(LateralRow(s).empty());
    EXPECT_EQ(s.maxirbuckling, s.irrow6);
    EXPECT_GT(s.maxirbuckling, 0);
}

// The upgrade of one sign switches web buckling on; the class 4 of the other sign takes it at once,
// and a second pass changes nothing.
TEST(Hsq, UpgradeOfOneSignCountsForTheOtherInTheSamePass)
{
    Member s = Member().Family(24).BasicLoads();
    s.p24.isth = 640;
    s.class23 = 0;
    s.checkwebbuck = kTrue;
    ASSERT_TRUE(EndsWell(s));
    ASSERT_EQ(s.classmytop, 4);
    ASSERT_EQ(s.classmybot, 23);
    EXPECT_EQ(s.checkwebbuck, kFalse);
    const ProjectState first = s;
    ASSERT_TRUE(EndsWell(s));
    EXPECT_EQ(first.mytoprd, s.mytoprd);
    EXPECT_EQ(first.mybotrd, s.mybotrd);
    EXPECT_EQ(first.ncrd, s.ncrd);
    EXPECT_EQ(first.irsection, s.irsection);
}

// The rotated load acts alike on a section that is the same about both axes, except for lateral
// torsional buckling, which none of these has.
TEST(SameAboutBothAxes, LoadsMayTurn)
{
    for (const i16 family : std::initializer_list<i16>{6, 8, 31}) {
        for (const i16 method : std::initializer_list<i16>{1, 2}) {
            SCOPED_TRACE(family);
            Member down = Member().Family(family).BasicLoads();
            down.l = 4;
            down.nload[1] = 50;
            down.qload[1] = 3;
            down.method = method;
            ProjectState aside = down;
            aside.qdir[1] = 0;
            ASSERT_TRUE(EndsWell(down));
            ASSERT_TRUE(EndsWell(aside));
            EXPECT_GT(down.mydesign, 0);
            EXPECT_EQ(aside.mydesign, 0);
            EXPECT_NEAR(aside.mzdesign, down.mydesign, 1e-5 * down.mydesign);
            EXPECT_NEAR(aside.dymax, down.dzmax, 1e-6 * down.dzmax);
            EXPECT_NEAR(aside.irsection, down.irsection, 1e-6 * down.irsection);
            EXPECT_EQ(aside.ncry, down.ncrz);
            EXPECT_NEAR(aside.chiy, down.chiz, 1e-7);  // one imperfection factor is single
            if (method == 1) {  // Annex B picks its columns by the class of My for both moments
                EXPECT_NEAR(aside.maxirbuckling, down.maxirbuckling, 1e-5);
            }
        }
    }
}

TEST(Rectangle, MayTurnWithItsLoad)
{
    for (const i16 family : std::initializer_list<i16>{7, 9}) {
        SCOPED_TRACE(family);
        Member upright = Member().Family(family).BasicLoads();
        upright.l = 4;
        upright.nload[1] = 50;
        upright.qload[1] = 3;
        upright.method = 1;  // the factors of Annex B are not the same for both axes
        ProjectState turned = upright;
        turned.rectaxis = 2;
        turned.qdir[1] = 0;
        ASSERT_TRUE(EndsWell(upright));
        ASSERT_TRUE(EndsWell(turned));
        EXPECT_GT(upright.h, upright.b);
        EXPECT_EQ(turned.h, upright.b);
        EXPECT_EQ(turned.b, upright.h);
        EXPECT_EQ(turned.myrd, upright.mzrd);
        EXPECT_EQ(turned.mzrd, upright.myrd);
        EXPECT_NEAR(turned.irsection, upright.irsection, 1e-6);
        EXPECT_NEAR(turned.irrow4, upright.irrow5, 1e-6);
        EXPECT_NEAR(turned.irrow5, upright.irrow4, 1e-6);
        EXPECT_NEAR(turned.dymax, upright.dzmax, 1e-6 * upright.dzmax);
    }
}

// A mirrored load on a symmetric member mirrors forces and deflections and changes no ratio.
TEST(SymmetricMember, LoadMayStandOnEitherSide)
{
    for (const i16 supportcase : std::initializer_list<i16>{0, 2, 3}) {
        SCOPED_TRACE(supportcase);
        Member left = Member().BasicLoads();
        left.supportcase = supportcase;
        left.restraints = 1;
        left.qload[1] = 0;
        left.pm[1] = 40;
        left.pmx[1] = 1.5f;
        ProjectState right = left;
        right.pmx[1] = 3.5f;
        ASSERT_TRUE(EndsWell(left));
        ASSERT_TRUE(EndsWell(right));
        for (std::size_t j = 0; j < left.mydiag.size(); ++j) {
            const std::size_t mirrored = left.mydiag.size() - 1 - j;
            EXPECT_NEAR(left.mydiag[j], right.mydiag[mirrored], 1e-4);
            EXPECT_NEAR(left.dzdiag[j], right.dzdiag[mirrored], 1e-5);
        }
        EXPECT_NEAR(left.mymax, right.mymax, 1e-4);
        EXPECT_NEAR(left.vzmax, -right.vzmin, 1e-4);
        EXPECT_NEAR(left.dzmax, right.dzmax, 1e-5);
        EXPECT_NEAR(left.irrow6, right.irrow6, 1e-4);
    }
}

TEST(EveryFamily, TwiceTheLoadIsTwiceTheMomentAndTheDeflection)
{
    for (const int family : FamilyNumbers()) {
        SCOPED_TRACE(family);
        Member s = Member().Family(family).BasicLoads();
        s.l = 3;
        s.nload[1] = 0;
        s.qload[1] = 0.5f;
        s.pm[1] = 0.25f;
        s.pmx[1] = 1;
        ASSERT_TRUE(EndsWell(s));
        const double moment = s.mymax, deflection = s.dzmax, section = s.irrow1;
        s.qload[1] = 1;
        s.pm[1] = 0.5f;
        ASSERT_TRUE(EndsWell(s));
        EXPECT_NEAR(s.mymax, 2 * moment, 1e-6 * s.mymax);
        EXPECT_NEAR(s.dzmax, 2 * deflection, 1e-6 * s.dzmax);
        if (family != 10 && family != 11) {  // there row 1 has its own sign of My
            EXPECT_NEAR(s.irrow1, 2 * section, 1e-6 * s.irrow1);
        }
    }
}

TEST(EveryFamily, EndMomentsMayBeSwapped)
{
    for (const int family : FamilyNumbers()) {
        for (const i16 method : std::initializer_list<i16>{1, 2}) {
            SCOPED_TRACE(family);
            Member s = Member().Family(family).BasicLoads();
            s.loadmode = 0;
            s.method = method;
            s.l = 2;
            s.ne = 1;
            s.my1 = 3;
            s.my2 = -1;
            s.vz1 = s.vz2 = 2;
            s.checkconsercontrol = family == 28 ? kTrue : kFalse;
            ProjectState swapped = s;
            std::swap(swapped.my1, swapped.my2);
            ASSERT_TRUE(EndsWell(s));
            ASSERT_TRUE(EndsWell(swapped));
            EXPECT_NEAR(swapped.irsection, s.irsection, 1e-6);
            EXPECT_NEAR(swapped.maxirbuckling, s.maxirbuckling, 1e-6);
            EXPECT_GT(s.irsection, 0);
        }
    }
}

TEST(EveryFamily, MoreRestraintsNeverLowerTheResistanceForUniformMoment)
{
    std::map<int, int> controlled;
    for (const int family : FamilyNumbers()) {
        for (const float moment : {2.0f, -2.0f}) {
            double before = 0;
            for (i16 restraints = 0; restraints <= 5; ++restraints) {
                SCOPED_TRACE(std::to_string(family) + ", restraints " + std::to_string(restraints));
                Member s = Member().Family(family).BasicLoads();
                s.loadmode = 0;
                s.l = 8;
                s.ne = 0.01f;
                s.my1 = s.my2 = moment;
                s.vz1 = 0;
                s.restraints = restraints;
                s.method = 2;
                s.checkconsercontrol = kTrue;
                ASSERT_TRUE(EndsWell(s));
                if (s.irrow6 == 0 || s.mcr == 0) {
                    continue;  // no lateral torsional buckling
                }
                ++controlled[family];
                EXPECT_GE(s.xlt * s.mltrd, before);
                EXPECT_GT(s.xlt, 0);
                EXPECT_LE(s.xlt, 1);
                before = s.xlt * s.mltrd;
            }
        }
    }
    for (const int family :
         {1, 2, 3, 4, 5, 15, 16, 21, 22, 28, 41, 51, 52, 53, 54, 56, 101, 102, 103}) {
        EXPECT_EQ(controlled[family], 2 * 6) << family;
    }
}

TEST(GivenEndForces, KeepTheDeflectionRowsOfTheLastLoadedPass)
{
    Member s = Member().BasicLoads();
    ASSERT_TRUE(EndsWell(s));
    const Check row = DeflectionZ(s);
    ASSERT_FALSE(row.empty());
    s.loadmode = 0;
    ASSERT_TRUE(EndsWell(s));
    EXPECT_EQ(DeflectionZ(s), row);
    EXPECT_TRUE(DeflectionY(s).empty());
}

// kzy divides by CmLT - 0.25, Table B.2.
TEST(AnnexB, CmLtKeepsAwayFromItsPole)
{
    for (const i16 family : std::initializer_list<i16>{1, 5, 16, 21, 22, 41, 101, 102, 103}) {
        for (const i16 supportcase : std::initializer_list<i16>{0, 1, 2, 3, 4, 5}) {
            for (const float place : {0.5f, 2.5f, 4.0f}) {
                for (const float moment : {-60.0f, 0.0f, 60.0f}) {
                    SCOPED_TRACE(std::to_string(family) + " " + std::to_string(supportcase));
                    Member s = Member().Family(family).BasicLoads();
                    s.supportcase = supportcase;
                    s.method = 2;
                    s.pm[1] = 30;
                    s.pmx[1] = place;
                    s.pmkind[2] = 1;
                    s.pm[2] = moment;
                    s.pmx[2] = 5 - place;
                    ASSERT_TRUE(EndsWell(s));
                    EXPECT_GE(s.cmlt, 0.4f);
                    EXPECT_LE(s.cmlt, 1.1f);
                    s.loadmode = 0;
                    ASSERT_TRUE(EndsWell(s));
                    EXPECT_EQ(s.cmlt, 0.6f);
                }
            }
        }
    }
}

struct NamedResistance {
    const char* name;
    double Resistances::*value;
};
constexpr NamedResistance kResistances[] = {
    {"nplrd", &Resistances::nplrd},     {"ncrd", &Resistances::ncrd},
    {"mplyrd", &Resistances::mplyrd},   {"mplzrd", &Resistances::mplzrd},
    {"melyrd", &Resistances::melyrd},   {"melzrd", &Resistances::melzrd},
    {"meffyrd", &Resistances::meffyrd}, {"meffzrd", &Resistances::meffzrd},
    {"myrd", &Resistances::myrd},       {"mzrd", &Resistances::mzrd},
    {"nrdm1", &Resistances::nrdm1},     {"myrdm1", &Resistances::myrdm1},
    {"mzrdm1", &Resistances::mzrdm1},   {"mytoprd", &Resistances::mytoprd},
    {"mybotrd", &Resistances::mybotrd}, {"vzrd", &Resistances::vzrd},
    {"vplzrd", &Resistances::vplzrd},   {"vplyrd", &Resistances::vplyrd},
    {"vbrd", &Resistances::vbrd},       {"vyrd", &Resistances::vyrd},
    {"vcyrd", &Resistances::vcyrd},     {"mfrd", &Resistances::mfrd},
    {"mfzrd", &Resistances::mfzrd},     {"mry1", &Resistances::mry1},
    {"mry2", &Resistances::mry2},       {"mrz1", &Resistances::mrz1},
    {"mrz2", &Resistances::mrz2},       {"mrely", &Resistances::mrely},
    {"mrelz", &Resistances::mrelz}};

// With an annex of one's own, everything of the strength side that rests on one factor: in bending
// about one axis or the other, or both, as far as the family takes loads in y.
TEST(EveryFamily, PartialFactorDividesTheResistances)
{
    for (const int family : FamilyNumbers()) {
        for (const bool across : {false, true}) {
            SCOPED_TRACE(testing::Message() << family << (across ? " with a load in y" : ""));
            Member s = Member().Family(family).BasicLoads();
            s.annexcode = "UD";
            s.annexindex = AnnexIndexFromCode(s.annexcode);
            s.l = 2;
            s.nload[1] = 0;
            s.qload[1] = 1;
            if (across) {
                s.qload[2] = 0.5;
                s.qdir[2] = 0;
            }
            ASSERT_TRUE(EndsWell(s));
            const ProjectState one = s;
            s.gammam0 = 1.25;
            s.gammam1 = 1.25f;
            ASSERT_TRUE(EndsWell(s));
            for (const auto& [name, value] : kResistances) {
                EXPECT_NEAR(s.*value * 1.25, one.*value, 1e-9 * one.*value) << name;
            }
            EXPECT_NEAR(s.irrow1, 1.25 * one.irrow1, 1e-9 * s.irrow1);
        }
    }
}

}  // namespace
}  // namespace kestrum
