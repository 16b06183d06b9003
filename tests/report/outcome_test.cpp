#include "report/outcome.h"

#include "core/project_state.h"
#include "engine/calculate.h"
#include "engine/new_project.h"
#include "support/members.h"
#include "support/rows.h"

#include <gtest/gtest.h>

#include <string>

namespace kestrum {
namespace {

// A beam that bends too far, then the same member under small end forces: the deflection that is
// left over belongs to the loads of before and must not judge the end forces.
TEST(Outcome, DeflectionOfEarlierLoadsDoesNotJudgeEndForces)
{
    Member s = Member().Row(10).Length(9).Axial(0).Load(50);
    s.checksls = kTrue;
    const bool loaded = Calculate(Delivered(), s);
    ASSERT_TRUE(loaded);
    ASSERT_GT(DeflectionZ(s).ratio, 1);
    EXPECT_EQ(OutcomeOf(s, loaded).verdict, Verdict::above);
    s.loadmode = 0;
    s.ne = 1;
    s.my1 = s.my2 = s.mz1 = s.mz2 = s.vy1 = s.vy2 = s.vz1 = s.vz2 = 0;
    const bool well = Calculate(Delivered(), s);
    ASSERT_TRUE(well);
    ASSERT_FALSE(DeflectionZ(s).empty());
    const Outcome outcome = OutcomeOf(s, well);
    EXPECT_EQ(outcome.verdict, Verdict::within);
    EXPECT_LT(outcome.ir, 0.1);
}

}  // namespace
}  // namespace kestrum
