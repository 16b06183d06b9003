#include "service/deflection_control.h"

#include "core/arithmetic_trap.h"
#include "core/check_text.h"
#include "core/project_state.h"
#include "support/members.h"
#include "support/rows.h"

#include <gtest/gtest.h>

namespace kestrum {
namespace {

Member Deflected(double dzmax, double dzmin, double dymax = 0, double dymin = 0)
{
    Member s = Member::Bare().Length(6);
    s.deflimitz = 300;
    s.deflimity = 200;
    s.dzmax = dzmax;
    s.dzmin = dzmin;
    s.dymax = dymax;
    s.dymin = dymin;
    DeflectionControl(s, s, s);
    return s;
}

// 6000/300 = 20 mm, 15/20 = 0.75.
TEST(DeflectionControl, ComparesTheDeflectionWithAPartOfTheLength)
{
    const Member s = Deflected(15, 0);
    EXPECT_EQ(LabelOf(DeflectionZ(s)), "IR = dz/dzMax = ");
    EXPECT_EQ(CalculationOf(DeflectionZ(s)), "{F}/{F} = ");
    EXPECT_EQ(DeflectionZ(s).terms[0], 15);
    EXPECT_EQ(DeflectionZ(s).terms[1], 20);
    EXPECT_EQ(DeflectionZ(s).ratio, 0.75);
    EXPECT_TRUE(IsJudged(DeflectionZ(s)));
    EXPECT_EQ(DeflectionZ(s).status, kWithin);
    EXPECT_TRUE(DeflectionY(s).empty());
}

TEST(DeflectionControl, IsWrittenWithOneDecimal)
{
    const RowText text = TextOf(DeflectionZ(Deflected(15, 0)));
    EXPECT_EQ(text.label, "IR = dz/dzMax = ");
    EXPECT_EQ(text.calculation, "15.0/20.0 = ");
    EXPECT_EQ(text.result, "0.75");
    EXPECT_EQ(text.limit, " < 1.0");
    EXPECT_EQ(TextOf(DeflectionZ(Deflected(0, -7.25))).calculation, "-7.3/20.0 = ");
    EXPECT_EQ(TextOf(DeflectionZ(Deflected(40, 0))).limit, " < 1.0");  // the status alone tells
}

// D258: no precamber is taken off.
TEST(DeflectionControl, JudgesTheWholeDeflectionD258)
{
    EXPECT_EQ(DeflectionZ(Deflected(30, 0)).ratio, 1.5);
}

TEST(DeflectionControl, TreatsTheAxesAlike)
{
    const Member s = Deflected(0, 0, 0, -45);  // 6000/200 = 30
    EXPECT_TRUE(DeflectionZ(s).empty());
    EXPECT_EQ(LabelOf(DeflectionY(s)), "IR = dy/dyMax = ");
    EXPECT_EQ(DeflectionY(s).terms[0], -45);
    EXPECT_EQ(DeflectionY(s).terms[1], 30);
    EXPECT_EQ(DeflectionY(s).ratio, 1.5);
    EXPECT_EQ(DeflectionY(s).status, kAbove);
}

TEST(DeflectionControl, AnUpwardDeflectionKeepsItsSignAndHasAPositiveRatio)
{
    const Member s = Deflected(0, -10);
    EXPECT_EQ(DeflectionZ(s).terms[0], -10);
    EXPECT_EQ(DeflectionZ(s).ratio, 0.5);
}

TEST(DeflectionControl, TheLargerSizeCountsAndATieShowsTheUpwardOne)
{
    EXPECT_EQ(DeflectionZ(Deflected(12, -11)).terms[0], 12);
    EXPECT_EQ(DeflectionZ(Deflected(11, -12)).terms[0], -12);
    EXPECT_EQ(DeflectionZ(Deflected(12, -12)).terms[0], -12);
}

TEST(DeflectionControl, ARatioOfOneIsWithinTheLimit)
{
    EXPECT_EQ(DeflectionZ(Deflected(20, 0)).ratio, 1);
    EXPECT_EQ(DeflectionZ(Deflected(20, 0)).status, kWithin);
    EXPECT_EQ(DeflectionZ(Deflected(20.00001, 0)).status, kAbove);
}

TEST(DeflectionControl, WithoutDeflectionNothingIsChecked)
{
    Member s = Deflected(40, 0);
    EXPECT_EQ(DeflectionZ(s).status, kAbove);
    s.dzmax = 0;
    s.deflimitz = 0;  // not used without a deflection
    ArmTrap();
    DeflectionControl(s, s, s);
    EXPECT_NO_THROW(CheckTrap());
    EXPECT_EQ(DeflectionZ(s), Check{});
}

TEST(DeflectionControl, AMissingLimitFails)
{
    Member s = Deflected(0, 0);
    s.dzmax = 1;
    s.deflimitz = 0;
    ArmTrap();
    DeflectionControl(s, s, s);
    EXPECT_THROW(CheckTrap(), CalculationStop);
    ArmTrap();
}

}  // namespace
}  // namespace kestrum
