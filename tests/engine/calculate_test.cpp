#include "engine/calculate.h"

#include "core/arithmetic_trap.h"
#include "core/project_state.h"
#include "engine/control_dispatch.h"
#include "engine/section_dispatch.h"
#include "sections/families.h"
#include "support/members.h"
#include "support/rows.h"

#include <gtest/gtest.h>

#include <cfenv>
#include <cmath>
#include <initializer_list>
#include <limits>

namespace kestrum {
namespace {

TEST(Calculate, DefaultProjectIsDesigned)
{
    Member s;
    EXPECT_TRUE(EndsWell(s));
    EXPECT_FALSE(s.calculationerror);
    EXPECT_EQ(s.errorflag, 0);
    EXPECT_FALSE(SectionRow(s, 1).empty());
    EXPECT_GT(s.irsection, 0);
    EXPECT_GT(s.maxirbuckling, 0);
    EXPECT_DOUBLE_EQ(s.mymax, 31.25);  // 10*5^2/8
}

TEST(Calculate, EveryFamilyIsDesignedFromItsDefaults)
{
    for (const int family : FamilyNumbers()) {
        SCOPED_TRACE(family);
        Member s = Member().Family(family).BasicLoads();
        s.l = 2;
        s.nload[1] = 1;
        s.qload[1] = 1;
        s.checkconsercontrol = family == 28 ? kTrue : kFalse;  // flat bar: the linear form
        EXPECT_TRUE(EndsWell(s));
        EXPECT_GT(s.irsection, 0);
        EXPECT_GT(s.ncrd, 0);
    }
}

// A column with some bending: HEA 200, L = 10 m, beyond its elastic critical force about z.
Member Overloaded(i16 method)
{
    Member s = Member().BasicLoads().Row(5).Length(10).Axial(1e4f);
    s.method = method;
    return s;
}

TEST(Calculate, AxialOverloadStopsTheFactorsOfMethod1)
{
    Member s = Overloaded(1);
    EXPECT_FALSE(EndsWell(s));
    EXPECT_EQ(s.errorflag, -1);
    EXPECT_TRUE(s.calculationerror);
    EXPECT_EQ(kCalculationError,
              " Calculation Error. Axial load too big. Increase profile or reduce axial force ");
}

TEST(Calculate, AxialOverloadIsCalculatedOnByMethod2)
{
    Member s = Overloaded(2);
    EXPECT_TRUE(EndsWell(s));
    EXPECT_EQ(s.errorflag, 0);
    EXPECT_GT(s.maxirbuckling, 1);
}

TEST(Calculate, AxialOverloadWithoutMomentIsCalculatedOn)
{
    Member s = Overloaded(1);
    s.qload[1] = 0;
    EXPECT_TRUE(EndsWell(s));
    EXPECT_GT(s.maxirbuckling, 1);
}

TEST(Calculate, AxialForceEqualToTheCriticalForceIsNoOverload)
{
    Member s = Overloaded(1);
    s.method = 2;
    ASSERT_TRUE(EndsWell(s));
    s.method = 1;
    s.ned = s.ncrz;  // the least of the three
    ArmTrap();
    CalcControl(s);
    EXPECT_NO_THROW(CheckTrap());
    EXPECT_EQ(s.errorflag, 0);
    EXPECT_GT(s.maxirbuckling, 1);

    s.ned = std::nextafter(s.ncrz, 1e9);
    CalcControl(s);
    EXPECT_EQ(s.errorflag, -1);
}

TEST(Calculate, AngleOverloadStopsInBothMethods)
{
    for (const i16 method : std::initializer_list<i16>{1, 2}) {
        Member s = Member().Family(10).BasicLoads();
        s.method = method;
        s.l = 10;
        s.nload[1] = 1e4f;
        EXPECT_FALSE(EndsWell(s)) << method;
        EXPECT_EQ(s.errorflag, -1) << method;
    }
}

TEST(Calculate, TheNextValidInputRecovers)
{
    Member failed = Overloaded(1);
    ASSERT_FALSE(EndsWell(failed));
    failed.nload[1] = 10;
    EXPECT_TRUE(EndsWell(failed));
    EXPECT_FALSE(failed.calculationerror);
    EXPECT_EQ(failed.errorflag, 0);

    Member straight = Overloaded(1);
    straight.nload[1] = 10;
    ASSERT_TRUE(EndsWell(straight));
    EXPECT_EQ(failed.irsection, straight.irsection);
    EXPECT_EQ(failed.maxirbuckling, straight.maxirbuckling);
}

TEST(Calculate, FailureInTheSectionStep)
{
    for (const i16 row :
         std::initializer_list<i16>{24, 28, 29, 32767, -1}) {  // read 24, reserved 29
        Member s = Member().BasicLoads();
        s.row[0] = row;
        EXPECT_FALSE(EndsWell(s)) << row;
        EXPECT_TRUE(s.calculationerror) << row;
        EXPECT_EQ(s.errorflag, 0) << row;
    }
}

TEST(Calculate, FailureInTheAnalysisStep)
{
    Member s = Member().BasicLoads();
    s.l = 0;
    EXPECT_FALSE(EndsWell(s));
    s.l = 5;
    s.qload[1] = 3e38f;
    s.qload[2] = 3e38f;
    s.qchecked[2] = kTrue;
    EXPECT_FALSE(EndsWell(s));
    s = Member().BasicLoads();
    s.qload[1] = std::numeric_limits<float>::quiet_NaN();  // raises no flag of its own
    EXPECT_FALSE(EndsWell(s));
}

TEST(Calculate, FailureInTheControlStep)
{
    // A flat bar with axial force and moment has no interaction formula but the linear one.
    Member s = Member().Family(28).BasicLoads();
    s.nload[1] = 1;
    EXPECT_FALSE(EndsWell(s));
    EXPECT_EQ(s.errorflag, 0);
    s.checkconsercontrol = kTrue;
    EXPECT_TRUE(EndsWell(s));
}

TEST(Calculate, FailureInTheFirstOfTwoCombinations)
{
    Member s = Member().Family(28).BasicLoads();
    s.nload[1] = 1;
    s.loadcomb = 3;
    s.governing = 7;
    EXPECT_FALSE(EndsWell(s));
    EXPECT_EQ(s.governing, 7);
}

TEST(Calculate, FailureInTheDeflectionStep)
{
    Member s = Member().BasicLoads();
    s.deflimitz = 0;
    EXPECT_FALSE(EndsWell(s));
    s.deflimitz = 300;
    EXPECT_TRUE(EndsWell(s));
}

TEST(Calculate, FailureInTheModalStep)
{
    Member s = Member().BasicLoads();
    s.modal = 1;
    s.qload[1] = -1000;  // its mass outweighs the member's
    EXPECT_FALSE(EndsWell(s));
    s.modal = 0;
    EXPECT_TRUE(EndsWell(s));
}

TEST(Calculate, LeavesNoStatusFlagBehind)
{
    Member s = Member().BasicLoads();
    s.row[0] = 24;
    EXPECT_FALSE(EndsWell(s));
    EXPECT_EQ(std::fetestexcept(FE_DIVBYZERO | FE_OVERFLOW | FE_INVALID), 0);
}

TEST(Calculate, ANumberWithoutSectionDesignsNothing)
{
    for (const i16 family : std::initializer_list<i16>{0, 55, 999, -1, 12}) {
        Member s = Member().BasicLoads();
        ASSERT_TRUE(EndsWell(s));
        s.family = family;
        s.fyk = 123;
        EXPECT_TRUE(EndsWell(s)) << family;
        EXPECT_EQ(s.fyk, 123) << family;  // no section asks for a material
        for (const std::size_t i : {1U, 2U, 3U}) {
            EXPECT_TRUE(SectionRow(s, i).empty()) << family;
        }
        EXPECT_TRUE(RowY(s).empty() && RowZ(s).empty() && LateralRow(s).empty()) << family;
        EXPECT_EQ(s.irsection, 0) << family;
        EXPECT_EQ(s.maxirbuckling, 0) << family;
        EXPECT_DOUBLE_EQ(s.mymax, 31.25) << family;  // forces need no section
    }
}

TEST(CalcSection, ClosedFamilySwitchesLateralTorsionalBucklingOffForGood)
{
    Member s = Member().BasicLoads();
    s.restraints = 2;
    ASSERT_TRUE(EndsWell(s));
    EXPECT_EQ(s.ltb, 1);
    EXPECT_EQ(s.ltbavail, kTrue);
    s.family = 6;
    ASSERT_TRUE(EndsWell(s));
    EXPECT_EQ(s.ltb, 0);
    EXPECT_EQ(s.restraints, 0);
    EXPECT_EQ(s.ltbavail, kFalse);
    s.family = 1;
    ASSERT_TRUE(EndsWell(s));
    EXPECT_EQ(s.ltb, 0);  // until the user ticks it
    EXPECT_EQ(s.ltbavail, kTrue);
}

TEST(CalcSection, LateralTorsionalBucklingByFamily)
{
    for (const int family : FamilyNumbers()) {
        SCOPED_TRACE(family);
        Member s = Member().Family(family).BasicLoads();
        s.restraints = 1;
        s.ltbavail = 7;
        CalcSection(Delivered(), s);
        const bool off = (family >= 6 && family <= 11) || family == 23 || family == 24 ||
                         family == 25 || family == 26 || family == 27 || family == 31;
        const bool general = family == 5 || family == 16 || family == 28 || family == 103 ||
                             (family >= 51 && family <= 56);
        EXPECT_EQ(s.ltb, off ? 0 : 1);
        EXPECT_EQ(s.restraints, off ? 0 : 1);
        EXPECT_EQ(s.ltbavail, off ? kFalse : family == 28 ? 7 : kTrue);
        EXPECT_EQ(s.ltbcurve, general ? 2 : 3);
    }
}

TEST(CalcSection, OpenProfilesByFamily)
{
    for (const int f : FamilyNumbers()) {
        const bool closed =
            (f >= 6 && f <= 9) || f == 23 || f == 24 || f == 25 || f == 27 || f == 31;
        EXPECT_EQ(TraitsOf(f).design.open, !closed) << f;
    }
}

TEST(CalcControl, WithoutCompressionTheBucklingRowsAreEmpty)
{
    for (const i16 family : std::initializer_list<i16>{10, 11, 26, 28, 31}) {
        Member s = Member().Family(family).BasicLoads();
        s.l = 1;
        s.qload[1] = 0.5f;
        s.nload[1] = family == 28 ? 0.0f : 1.0f;
        ASSERT_TRUE(EndsWell(s)) << family;
        s.nload[1] = -1;
        s.checkconsercontrol = kTrue;
        ASSERT_TRUE(EndsWell(s)) << family;
        EXPECT_TRUE(RowY(s).empty() && RowZ(s).empty() && LateralRow(s).empty()) << family;
        EXPECT_EQ(s.maxirbuckling, 0) << family;
    }
}

TEST(CalcControl, TCarriesAxialLoadsOnly)
{
    Member s = Member().Family(26).BasicLoads();
    s.pm[1] = 5;
    s.pmx[1] = 1;
    s.pmdir[1] = 0;
    ASSERT_TRUE(EndsWell(s));
    EXPECT_EQ(s.qload[1], 0);
    EXPECT_EQ(s.pm[1], 0);
    EXPECT_EQ(s.pmx[1], 0);
    EXPECT_EQ(s.pmdir[1], 0);
    EXPECT_EQ(s.nload[1], 100);
    s.loadmode = 0;
    s.qload[1] = 3;
    EndsWell(s);
    EXPECT_EQ(s.qload[1], 0);
}

TEST(CalcControl, HsqAndPlatesHaveNoAxialForce)
{
    for (const i16 family : std::initializer_list<i16>{24, 25, 51, 52, 53, 54, 56}) {
        Member s = Member().Family(family).BasicLoads();
        ASSERT_TRUE(EndsWell(s)) << family;
        EXPECT_EQ(s.ned, 0) << family;
    }
}

}  // namespace
}  // namespace kestrum
