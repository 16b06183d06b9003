// The stage of the families other than rolled I sections and angles.

#include "stability/buckling_control.h"

#include "core/project_state.h"
#include "stability/test_members.h"
#include "support/rows.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace kestrum {
namespace {

using members::BeamColumn;
using members::kMethods;
using members::MomentZ;
using members::UniformLoad;

TEST(Hollow, HasNoLateralTorsionalPart)
{
    for (const i16 method : kMethods) {
        Member s = members::Shs150();
        UniformLoad(s, 10);
        s.ned = 200;
        s.method = method;
        s.xlt = 0.3;
        s.lam0 = 2;
        BucklingControlHollow(s, s, s, s, s, s, s, s);
        EXPECT_EQ(s.xlt, 1.0);
        EXPECT_TRUE(LateralRow(s).empty());
        EXPECT_EQ(s.irrow6, 0);
        EXPECT_EQ(s.cmlt, 1.0f);
        EXPECT_DOUBLE_EQ(s.irrow4, 200 / s.nbyrd + s.kyy * 31.25 / s.myrdm1);
    }
}

// A square has one critical force about both axes: the first is named.
TEST(Hollow, TheOverloadOfASquareIsThatAboutY)
{
    Member s = members::Shs150();
    members::UniformLoad(s, 10);
    s.method = 1;
    s.ned = 2000;
    BucklingControlHollow(s, s, s, s, s, s, s, s);
    ASSERT_EQ(s.ncry, s.ncrz);
    ASSERT_GT(s.ned, s.ncry);
    EXPECT_EQ(s.errorflag, -1);
    EXPECT_EQ(s.failure.quantity, "Ncr,y");
}

TEST(Hollow, BiaxialBendingWithoutAxialForce)
{
    Member s = members::Shs150();
    UniformLoad(s, 10);
    MomentZ(s, 5);
    BucklingControlHollow(s, s, s, s, s, s, s, s);
    EXPECT_DOUBLE_EQ(s.irrow5, 0.6 * 0.95 * 31.25 / s.myrdm1 + 0.95 * 5 / s.mzrdm1);
}

// The member in a record that holds what the checks of another one left.
Member After(const ProjectState& before, Member s)
{
    static_cast<SectionChecks&>(s) = before;
    static_cast<Stability&>(s) = before;
    static_cast<Carry&>(s) = before;
    static_cast<PassOutcome&>(s) = before;
    return s;
}

TEST(Hollow, DoesNotDependOnTheMemberBefore)
{
    for (const i16 method : kMethods) {
        Member before = BeamColumn(method);
        MomentZ(before, 5);
        before.restraints = 3;
        BucklingControlRolledI(before, before, before, before, before, before, before, before);
        const auto checked = [method](Member s) {
            UniformLoad(s, 10);
            s.ned = 200;
            s.method = method;
            BucklingControlHollow(s, s, s, s, s, s, s, s);
            return s;
        };
        const Member used = checked(After(before, members::Shs150()));
        const Member fresh = checked(members::Shs150());
        EXPECT_EQ(RowY(used), RowY(fresh));
        EXPECT_EQ(RowZ(used), RowZ(fresh));
        EXPECT_EQ(LateralRow(used), LateralRow(fresh));
        EXPECT_EQ(used.maxirbuckling, fresh.maxirbuckling);
        EXPECT_EQ(used.kzy, fresh.kzy);
        EXPECT_EQ(used.ltc1, 0.0);
    }
}

TEST(RolledI, DoesNotDependOnTheMemberBefore)
{
    for (const i16 method : kMethods) {
        Member before = members::Single600();
        UniformLoad(before, 10);
        before.ned = 300;
        before.ltb = 1;
        before.restraints = 2;
        before.method = method;
        BucklingControlWeldedI(before, before, before, before, before, before, before, before);
        const auto checked = [method](Member s) {
            UniformLoad(s, 10);
            s.ned = 100;
            s.ltb = 1;
            s.method = method;
            BucklingControlRolledI(s, s, s, s, s, s, s, s);
            return s;
        };
        const Member used = checked(After(before, members::Heb200()));
        const Member fresh = checked(members::Heb200());
        EXPECT_EQ(RowY(used), RowY(fresh));
        EXPECT_EQ(RowZ(used), RowZ(fresh));
        EXPECT_EQ(LateralRow(used), LateralRow(fresh));
        EXPECT_EQ(used.maxirbuckling, fresh.maxirbuckling);
    }
}

TEST(WeldedI, TakesClassAndResistanceOfTheCompressedSide)
{
    Member s = members::Single600();
    s.ned = 300;
    s.mytoprd = 1000;
    s.mybotrd = 700;
    s.classmytop = 1;
    s.classmybot = 4;
    UniformLoad(s, 10);
    BucklingControlWeldedI(s, s, s, s, s, s, s, s);
    EXPECT_EQ(s.classmy, 1);
    EXPECT_DOUBLE_EQ(s.irrow4, 300 / s.nbyrd + s.kyy * 31.25 / 1000);
    UniformLoad(s, -10);
    BucklingControlWeldedI(s, s, s, s, s, s, s, s);
    EXPECT_EQ(s.classmy, 4);
    EXPECT_DOUBLE_EQ(s.irrow4, 300 / s.nbyrd + s.kyy * 31.25 / 700);
    EXPECT_EQ(RowY(s).terms[5], 700);
}

// No moment compresses a side: the class of My stays the larger one.
TEST(WeldedI, KeepsTheLargerClassWithoutAMoment)
{
    Member s = members::Single600();
    s.ned = 300;
    s.classmytop = 3;
    s.classmybot = 1;
    s.classmy = 3;
    BucklingControlWeldedI(s, s, s, s, s, s, s, s);
    EXPECT_EQ(s.classmy, 3);
}

// Class 4: the sum has the three terms and no moment of the shifted axis.
TEST(WeldedI, D230HasNoMomentOfTheShiftedCentroid)
{
    Member s = members::Single600();
    s.classn = 4;
    s.aeff = 17317;
    s.nrdm1 = 6148;
    s.ned = 300;
    MomentZ(s, 5);
    BucklingControlWeldedI(s, s, s, s, s, s, s, s);
    EXPECT_DOUBLE_EQ(s.irrow5, 300 / s.nbzrd + s.kzz * 5 / s.mzrdm1);
}

// 150x12, L 1, N 50: Nb 605.8 and 39.59; xlt 0.3977, MRd 23.96, kyy = 0.95 (1 + 0.1022 50/605.8).
TEST(FlatBar, WorksOutABeamColumn)
{
    Member s = members::FlatBar150();
    UniformLoad(s, 16);  // My 2
    s.ned = 50;
    s.ltb = 1;
    s.loadlevel = 1;
    BucklingControlFlatBar(s, s, s, s, s, s, s, s);
    EXPECT_NEAR(s.nbyrd, 605.8, 0.1);
    EXPECT_NEAR(s.nbzrd, 39.59, 0.01);
    EXPECT_NEAR(s.xlt, 0.3977, 5e-5);
    EXPECT_NEAR(s.irrow6, 2 / (0.3977 * 23.96), 5e-4);
    EXPECT_NEAR(s.irrow4, 50 / 605.8 + 0.95 * (1 + 0.1022 * 50 / 605.8) * 2 / (0.3977 * 23.96),
                5e-4);
    // kzy = 1 - 0.1/0.7 50/39.59 = 0.8196
    EXPECT_NEAR(s.irrow5, 50 / 39.59 + 0.8196 * 2 / (0.3977 * 23.96), 1e-3);
    EXPECT_EQ(LabelOf(RowY(s)), "IR = NEd/Nb,y,Rd  + kyy*My,Ed/(xLT*My,Rd) ");
    EXPECT_EQ(LabelOf(RowZ(s)), "IR = NEd/Nb,z,Rd  + kzy*My,Ed/(xLT*My,Rd) ");
    EXPECT_EQ(CalculationOf(RowY(s)), "{F}/{F}+{R}*{F}/({R}*{F})");
    EXPECT_EQ(LimitOf(RowY(s)), " (Eq 6.61)");
    EXPECT_EQ(LimitOf(RowZ(s)), " (Eq 6.62)");
    EXPECT_EQ(s.maxirbuckling, std::max(s.irrow4, s.irrow5));
}

// N 50 is above Ncr,z = pi^2 E 21600/1e6 = 44.8.
TEST(FlatBar, AnnexAStopsAboveTheCriticalForce)
{
    Member s = members::FlatBar150();
    UniformLoad(s, 16);
    s.ned = 50;
    s.method = 1;
    BucklingControlFlatBar(s, s, s, s, s, s, s, s);
    EXPECT_NEAR(s.ncrz, 44.8, 0.05);
    EXPECT_EQ(s.errorflag, -1);
    s.errorflag = 0;
    s.ned = 40;
    BucklingControlFlatBar(s, s, s, s, s, s, s, s);
    EXPECT_EQ(s.errorflag, 0);
    EXPECT_GT(s.irrow5, 1);
}

TEST(FlatBar, AxialForceAloneHasTheAxialRowsOrTheRemark)
{
    Member s = members::FlatBar150();
    s.ned = 50;
    BucklingControlFlatBar(s, s, s, s, s, s, s, s);
    EXPECT_EQ(LabelOf(RowZ(s)), "IR = NEd/Nb,z,Rd ");
    EXPECT_EQ(LimitOf(RowZ(s)), " (Ch 6.3.1)");
    EXPECT_NEAR(s.maxirbuckling, 50 / 39.59, 1e-3);
    s.ned = 1;  // below 0.04 44.8
    BucklingControlFlatBar(s, s, s, s, s, s, s, s);
    EXPECT_EQ(LabelOf(RowY(s)).substr(0, 33), "No Buckling, ref ch 6.3.1.2 (4); ");
    EXPECT_TRUE(RowZ(s).empty());
    EXPECT_EQ(s.maxirbuckling, 0);
    EXPECT_EQ(RowY(s).status, kWithin);
}

TEST(FlatBar, D229LateralTorsionalBucklingStandsBesideCompressionOnly)
{
    Member s = members::FlatBar150();
    UniformLoad(s, 16);
    s.ned = 10;
    s.ltb = 1;
    BucklingControlFlatBar(s, s, s, s, s, s, s, s);
    EXPECT_FALSE(LateralRow(s).empty());
    s.ned = 0;
    ClearBucklingRows(s, s);  // what a member without compression gets
    EXPECT_TRUE(LateralRow(s).empty());
    EXPECT_EQ(s.maxirbuckling, 0);
}

Member TSection()
{
    Member s = members::Of(
        26, 355,
        {200, 200, 10, 10, 3900, 1.548e7, 6.683e6, 1.3e5, 0, 105800, 190500, 66830, 104750});
    s.zcog = 53.72f;
    s.classn = 4;
    s.aeff = 3288;
    s.nrdm1 = 3288 * 355 / 1000.0;
    return s;
}

// By hand: lam sqrt(3288 355/1283e3) = 0.9538 and 1.452, curve c, Nb 662.0 and 386.1.
TEST(TSection, ChecksTheAxialForce)
{
    Member s = TSection();
    s.ned = 300;
    BucklingControlT(s, s, s, s, s, s, s, s);
    EXPECT_NEAR(s.lamy, 0.9538, 5e-4);
    EXPECT_NEAR(s.lamz, 1.452, 1e-3);
    EXPECT_NEAR(s.nbyrd, 662.0, 0.3);
    EXPECT_NEAR(s.nbzrd, 386.1, 0.3);
    EXPECT_DOUBLE_EQ(s.maxirbuckling, 300 / s.nbzrd);
    EXPECT_EQ(LimitOf(RowZ(s)), " (Ch 6.3.1)");
    s.ly = s.lz = 0.001f;
    BucklingControlT(s, s, s, s, s, s, s, s);
    EXPECT_EQ(LabelOf(RowY(s)), "No Buckling");
    EXPECT_EQ(s.maxirbuckling, 0);
}

TEST(TSection, D231MomentsOfTheSelfWeightAreNotCombined)
{
    Member s = TSection();
    s.ned = 300;
    BucklingControlT(s, s, s, s, s, s, s, s);
    const double axial = s.maxirbuckling;
    s.mydesign = 5;
    BucklingControlT(s, s, s, s, s, s, s, s);
    EXPECT_EQ(s.maxirbuckling, axial);
}

// Plate with one stiffener, L 5, S355. Flat bar 200x10 under a plate of 10: tripping stress
// (10/210)^2 (1 + 2 (200/5000)^2) 80769 = 183.7, lam 1.390, curve d 0.3086.
TEST(Plate, ChecksTrippingOfAFlatBar)
{
    Member s = members::Of(51, 355, {});
    s.h = 210;
    s.hw = 200;
    s.tw = 10;
    s.wybot = 66610;
    s.mytoprd = 43.28;
    s.mybotrd = 23.65;
    s.ltb = 1;
    UniformLoad(s, 2);
    BucklingControlPlate(s, s, s, s, s, s, s, s);
    EXPECT_NEAR(s.lamlt, 1.390, 5e-4);
    EXPECT_NEAR(s.xlt, 0.3086, 5e-5);
    EXPECT_EQ(s.mltrd, 43.28);
    EXPECT_NEAR(s.maxirbuckling, 6.25 / (0.3086 * 43.28), 1e-4);
    EXPECT_TRUE(RowY(s).empty());
    EXPECT_TRUE(RowZ(s).empty());
    EXPECT_EQ(LimitOf(LateralRow(s)), " (Ch 6.3.2)");

    UniformLoad(s, -2);
    BucklingControlPlate(s, s, s, s, s, s, s, s);
    EXPECT_EQ(s.mltrd, 23.65);
    EXPECT_NEAR(s.lamlt, 1.390, 5e-4);
}

// T stiffener 560x12 with flange 300x20 under a plate of 20: stress 32.7 + 453.6 = 486.3, lam
// 0.8544, curve c (560/300) 0.6281; the option of the rolled curve does not act.
TEST(Plate, ChecksTrippingOfAStiffenerWithFlange)
{
    Member s = members::Of(56, 355, {});
    s.h = 600;
    s.hw = 560;
    s.tw = 12;
    s.ttop = 20;
    s.bbot = 300;
    s.tbot = 20;
    s.iz = 4.508e7f;
    s.wybot = 4.421e6f;
    s.mytoprd = s.mybotrd = 1569;
    s.ltb = 1;
    s.ltbcurve = 3;
    UniformLoad(s, 100);
    BucklingControlPlate(s, s, s, s, s, s, s, s);
    EXPECT_NEAR(s.lamlt, 0.8544, 1e-4);
    EXPECT_NEAR(s.xlt, 0.6281, 1e-4);
    EXPECT_EQ(s.ffactor, 1.0f);
    s.restraints = 1;
    BucklingControlPlate(s, s, s, s, s, s, s, s);
    EXPECT_EQ(s.lt, 2.5f);
    EXPECT_EQ(LimitOf(LateralRow(s)), " (1L/2 -  L;  (Ch 6.3.2))");
    s.ltb = 0;
    BucklingControlPlate(s, s, s, s, s, s, s, s);
    EXPECT_EQ(s.maxirbuckling, 0);
}

}  // namespace
}  // namespace kestrum
