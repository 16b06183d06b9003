// Loads with the factors of their categories, and the worse of two combinations.

#include "member.h"

#include "core/arithmetic_trap.h"
#include "core/project_state.h"

#include <gtest/gtest.h>

#include <cmath>

namespace kestrum::test {
namespace {

struct Selector {
    int loadcomb;
    double g, q1, q2;     // strength
    double sg, sq1, sq2;  // serviceability
};

// EN 1990 with 1.35, 1.5 and xi 0.85; psi1 0.7, psi2 0.3; class factors 1 and 0.9.
const Selector kSelectors[] = {
    {0, 1.35, 1.5 * 0.9, 1.5 * 0.9 * 0.7, 1, 1, 0.3},
    {1, 1.35, 1.5 * 0.9 * 0.7, 1.5 * 0.9 * 0.3, 1, 1, 0.3},
    {2, 0.85 * 1.35, 1.5 * 0.9, 1.5 * 0.9 * 0.3, 1, 1, 0.3},
    {4, 1.1, 1.2, 1.3, 0.9, 0.8, 0.7},
    {5, 1, 1, 1, 1, 1, 1},
    {9, 0, 0, 0, 0, 0, 0},  // nothing is combined
};

ProjectState WithFactors(ProjectState s)
{
    s.g610g = s.g610ag = s.g610bg = 1.35F;
    s.g610q1 = s.g610q2 = s.g610aq1 = s.g610aq2 = 1.5F;
    s.xi610b = 0.85F;
    s.kfig = 1;
    s.kfiq = 0.9F;
    s.psi1 = 0.7F;
    s.psi2 = 0.3F;
    s.lfulsg = 1.1F;
    s.lfulsq1 = 1.2F;
    s.lfulsq2 = 1.3F;
    s.lfslsg = 0.9F;
    s.lfslsq1 = 0.8F;
    s.lfslsq2 = 0.7F;
    return s;
}

TEST(Combination, EachKindOfLoadTakesTheFactorOfItsCategory)
{
    for (const Selector& selector : kSelectors) {
        const double strength[] = {selector.g, selector.q1, selector.q2};
        const double service[] = {selector.sg, selector.sq1, selector.sq2};
        for (const int category : {0, 1, 2}) {
            SCOPED_TRACE(testing::Message()
                         << "selector " << selector.loadcomb << ", category " << category);
            const auto c = static_cast<i16>(category);
            for (const int kind : {0, 1, 2, 3, 4}) {
                ProjectState s = WithFactors(Beam(0));
                s.loadcomb = static_cast<i16>(selector.loadcomb);
                switch (kind) {
                case 0:
                    s.nload[2] = 50;
                    s.ntype[2] = c;
                    s.nchecked[2] = kTrue;
                    break;
                case 1:
                    s.qload[3] = 10;
                    s.qtype[3] = c;
                    s.qchecked[3] = kTrue;
                    break;
                case 2:
                    AddForce(s, 4, 10, 1.5F);
                    s.pmtype[4] = c;
                    s.pmchecked[4] = kTrue;
                    break;
                case 3:
                    AddMoment(s, 8, 10, 4.5F);
                    s.pmtype[8] = c;
                    s.pmchecked[8] = kTrue;
                    break;
                default:
                    AddTrapezoid(s, 2, 5, 10, 1, 5);
                    s.qttype[2] = c;
                    s.qtchecked[2] = kTrue;
                    break;
                }
                ProjectState basic = s;
                basic.loadcomb = kBasicLoads;
                Analyse(s);
                Analyse(basic);
                const double f = strength[category];
                EXPECT_NEAR(s.ned, f * basic.ned, 1e-5 * std::abs(basic.ned));
                EXPECT_NEAR(s.qsum, f * basic.qsum, 1e-5 * std::abs(basic.qsum));
                EXPECT_NEAR(s.mymax, f * basic.mymax, 1e-5 * basic.mymaxabs);
                EXPECT_NEAR(s.vzmin, f * basic.vzmin, 1e-5 * std::abs(basic.vzmin));
                EXPECT_NEAR(s.mysec[3], f * basic.mysec[3], 1e-5 * basic.mymaxabs);
                EXPECT_NEAR(s.dzmaxabs, service[category] * basic.dzmaxabs, 1e-5 * basic.dzmaxabs);
            }
        }
    }
}

TEST(Combination, BasicLoadsTakeCheckedRowsOnly)
{
    ProjectState s = Loaded(0);
    s.loadcomb = kBasicLoads;
    s.selfweight = 0;
    Analyse(s);  // no box is checked
    EXPECT_EQ(s.ned, 0);
    EXPECT_EQ(s.qsum, 0);
    EXPECT_EQ(s.mymaxabs + s.mzmaxabs + s.dzmaxabs + s.vzmax, 0);
    EXPECT_EQ(s.hasyloads, kFalse);
    EXPECT_EQ(s.haszloads, kFalse);

    s.qchecked[2] = kTrue;  // 3 kN/m in y: 3*36/8
    s.nchecked[3] = 1;      // anything but 0 is checked
    Analyse(s);
    EXPECT_EQ(s.ned, 3);
    EXPECT_EQ(s.qsum, 3);
    EXPECT_NEAR(s.mzmax, 13.5, 1e-6);
    EXPECT_EQ(s.mymaxabs, 0);
    EXPECT_EQ(s.hasyloads, kFalse);
    EXPECT_EQ(s.haszloads, kTrue);

    s.selfweight = 1;  // checked by itself: 0.4*36/8
    Analyse(s);
    EXPECT_NEAR(s.mymax, 1.8, 1e-6);
}

TEST(Combination, LeavesOddCategoriesAndDirectionsOut)
{
    Member s = Beam(0);
    s.nload[1] = 10;
    s.ntype[1] = 3;
    s.qload[1] = 10;
    s.qtype[1] = -1;
    AddForce(s, 1, 10, 2);
    s.pmdir[1] = 2;
    AddTrapezoid(s, 1, 3, 4, 1, 2);
    s.qttype[1] = 0.5F;
    Analyse(s);
    EXPECT_EQ(s.ned, 0);
    EXPECT_EQ(s.qsum, 0);
    EXPECT_EQ(s.mymaxabs + s.mzmaxabs + s.dzmaxabs + s.dymaxabs, 0);
}

// A control that finds what the test asks for.
struct FakeControl {
    int calls = 0;
    double irsection[2] = {0, 0}, maxirbuckling[2] = {0, 0};
    int failing = 0;  // call that sets errorflag
    double ned[2] = {0, 0}, design[2] = {0, 0}, irbefore[2] = {1, 1};
};

FakeControl fake;

void Control(ProjectState& s)
{
    const auto call = static_cast<std::size_t>(fake.calls++);
    fake.ned[call] = s.ned;
    fake.design[call] = s.mydesign;
    fake.irbefore[call] = s.irsection + s.maxirbuckling;
    s.irsection = fake.irsection[call];
    s.maxirbuckling = fake.maxirbuckling[call];
    if (fake.calls == fake.failing) {
        s.errorflag = -1;
    }
}

// G 100 kN and 10 kN/m. Eq 6.10a: 135 kN, 13.5*36/8 = 60.75; 6.10b: 114.75 kN, 51.6375.
ProjectState WorseOfTwo()
{
    ProjectState s = WithFactors(Beam(0));
    s.loadcomb = kEq610ab;
    s.nload[1] = 100;
    s.qload[1] = 10;
    return s;
}

TEST(WorseOfTwoCombinations, ControlSeesBothInTurn)
{
    fake = {};
    ProjectState s = WorseOfTwo();
    s.irsection = s.maxirbuckling = 9;
    CalcMember(s, Control);
    ASSERT_EQ(fake.calls, 2);
    EXPECT_NEAR(fake.ned[0], 135, 1e-4);
    EXPECT_NEAR(fake.ned[1], 114.75, 1e-4);
    EXPECT_NEAR(fake.design[0], 60.75, 1e-4);
    EXPECT_NEAR(fake.design[1], 51.6375, 1e-4);
    EXPECT_EQ(fake.irbefore[0], 0);
    EXPECT_EQ(fake.irbefore[1], 0);
}

TEST(WorseOfTwoCombinations, TheHigherUtilisationGoverns)
{
    struct Case {
        double section[2], buckling[2];
        int governing;
        double ned;
    };
    const Case cases[] = {
        {{0.8, 0.7}, {0, 0}, 1, 135},        {{0.7, 0.8}, {0, 0}, 2, 114.75},
        {{0.1, 0.7}, {0.8, 0.1}, 1, 135},    {{0.7, 0.1}, {0.1, 0.8}, 2, 114.75},
        {{0.5, 0.5}, {0.5, 0.2}, 2, 114.75},  // a tie goes to 6.10b
        {{0, 0}, {0, 0}, 2, 114.75},
    };
    for (const Case& c : cases) {
        fake = {};
        for (const std::size_t i : {0U, 1U}) {
            fake.irsection[i] = c.section[i];
            fake.maxirbuckling[i] = c.buckling[i];
        }
        ProjectState s = WorseOfTwo();
        CalcMember(s, Control);
        EXPECT_EQ(s.governing, c.governing);
        EXPECT_NEAR(s.ned, c.ned, 1e-4);
        EXPECT_NEAR(s.mydesign, c.ned * 0.45, 1e-4);  // 36/8 kNm for 0.1 kN/m of each kN
        EXPECT_NEAR(s.dzmax, 10.04464, 1e-4);
    }
}

TEST(WorseOfTwoCombinations, AnAxialOverloadEndsTheSearch)
{
    for (const int failing : {1, 2}) {
        fake = {};
        fake.failing = failing;
        ProjectState s = WorseOfTwo();
        s.governing = 7;
        CalcMember(s, Control);
        EXPECT_EQ(fake.calls, failing);
        EXPECT_EQ(s.governing, 7);
        EXPECT_EQ(s.errorflag, -1);
        EXPECT_NEAR(s.ned, failing == 1 ? 135 : 114.75, 1e-4);
    }
}

TEST(WorseOfTwoCombinations, AFailureInTheControlStopsThePass)
{
    ProjectState s = WorseOfTwo();
    ArmTrap();
    EXPECT_THROW(CalcMember(s,
                            [](ProjectState& state) {
                                volatile double zero = 0;
                                state.irsection = 1 / zero;
                            }),
                 CalculationStop);
    ArmTrap();
}

TEST(WorseOfTwoCombinations, OtherSelectorsRunNoControlAndKeepTheOldChoice)
{
    fake = {};
    for (const int loadcomb : {0, 1, 2, 4, 5}) {
        ProjectState s = WorseOfTwo();
        s.loadcomb = static_cast<i16>(loadcomb);
        s.governing = 1;
        CalcMember(s, Control);
        EXPECT_EQ(s.governing, 1);
    }
    EXPECT_EQ(fake.calls, 0);
}

}  // namespace
}  // namespace kestrum::test
