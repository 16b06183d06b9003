#include "service/deflection_control.h"

#include "core/arithmetic_trap.h"
#include "core/project_state.h"
#include "core/row_text.h"

#include <gtest/gtest.h>

namespace kestrum {
namespace {

ProjectState Deflected(double dzmax, double dzmin, double dymax = 0, double dymin = 0)
{
    ProjectState s{};
    s.l = 6;
    s.irlimit = 1;
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
    const ProjectState s = Deflected(15, 0);
    EXPECT_EQ(s.deflinez.label[0].text(), "IR = dz/dzMax = ");
    EXPECT_EQ(s.deflinez.calculation[0].text(), "{F}/{F} = ");
    EXPECT_EQ(s.deflinez.number[0], 15);
    EXPECT_EQ(s.deflinez.number[1], 20);
    EXPECT_EQ(s.deflinez.ir, 0.75);
    EXPECT_TRUE(s.deflinez.judged);
    EXPECT_EQ(s.deflinez.status, kWithin);
    EXPECT_TRUE(s.defliney.empty());
}

TEST(DeflectionControl, IsWrittenWithOneDecimal)
{
    const RowText text = TextOf(Deflected(15, 0).deflinez, 1);
    EXPECT_EQ(text.label, "IR = dz/dzMax = ");
    EXPECT_EQ(text.calculation, "15.0/20.0 = ");
    EXPECT_EQ(text.result, "0.75");
    EXPECT_EQ(text.limit, " < 1.0");
    EXPECT_EQ(TextOf(Deflected(0, -7.25).deflinez, 1).calculation, "-7.3/20.0 = ");
    EXPECT_EQ(TextOf(Deflected(40, 0).deflinez, 1).limit, " < 1.0");  // the status alone tells
}

// D258: no precamber is taken off.
TEST(DeflectionControl, JudgesTheWholeDeflectionD258)
{
    EXPECT_EQ(Deflected(30, 0).deflinez.ir, 1.5);
}

TEST(DeflectionControl, TreatsTheAxesAlike)
{
    const ProjectState s = Deflected(0, 0, 0, -45);  // 6000/200 = 30
    EXPECT_TRUE(s.deflinez.empty());
    EXPECT_EQ(s.defliney.label[0].text(), "IR = dy/dyMax = ");
    EXPECT_EQ(s.defliney.number[0], -45);
    EXPECT_EQ(s.defliney.number[1], 30);
    EXPECT_EQ(s.defliney.ir, 1.5);
    EXPECT_EQ(s.defliney.status, kAbove);
}

TEST(DeflectionControl, AnUpwardDeflectionKeepsItsSignAndHasAPositiveRatio)
{
    const ProjectState s = Deflected(0, -10);
    EXPECT_EQ(s.deflinez.number[0], -10);
    EXPECT_EQ(s.deflinez.ir, 0.5);
}

TEST(DeflectionControl, TheLargerSizeCountsAndATieShowsTheUpwardOne)
{
    EXPECT_EQ(Deflected(12, -11).deflinez.number[0], 12);
    EXPECT_EQ(Deflected(11, -12).deflinez.number[0], -12);
    EXPECT_EQ(Deflected(12, -12).deflinez.number[0], -12);
}

TEST(DeflectionControl, ARatioOfOneIsWithinTheLimit)
{
    EXPECT_EQ(Deflected(20, 0).deflinez.ir, 1);
    EXPECT_EQ(Deflected(20, 0).deflinez.status, kWithin);
    EXPECT_EQ(Deflected(20.00001, 0).deflinez.status, kAbove);
}

TEST(DeflectionControl, WithoutDeflectionTheRowIsEmptiedAndKeepsItsStatus)
{
    ProjectState s = Deflected(40, 0);
    EXPECT_EQ(s.deflinez.status, kAbove);
    s.dzmax = 0;
    s.deflimitz = 0;  // not used without a deflection
    ArmTrap();
    DeflectionControl(s, s, s);
    EXPECT_NO_THROW(CheckTrap());
    ResultRow empty{};
    empty.status = kAbove;
    EXPECT_EQ(s.deflinez, empty);
}

TEST(DeflectionControl, AMissingLimitFails)
{
    ProjectState s = Deflected(0, 0);
    s.dzmax = 1;
    s.deflimitz = 0;
    ArmTrap();
    DeflectionControl(s, s, s);
    EXPECT_THROW(CheckTrap(), CalculationStop);
    ArmTrap();
}

}  // namespace
}  // namespace kestrum
