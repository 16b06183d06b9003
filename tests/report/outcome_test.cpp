#include "report/outcome.h"

#include "core/project_state.h"
#include "engine/calculate.h"
#include "engine/new_project.h"
#include "sections/load_library.h"
#include "support/rows.h"

#include <gtest/gtest.h>

#include <string>

namespace kestrum {
namespace {

// A beam that bends too far, then the same member under small end forces: the deflection that is
// left over belongs to the loads of before and must not judge the end forces.
TEST(Outcome, DeflectionOfEarlierLoadsDoesNotJudgeEndForces)
{
    const Library library = LoadLibrary(std::string(KESTRUM_SHARE));
    ProjectState s = StartState(library);
    s.family = 1;
    s.row[static_cast<std::size_t>(Table::hea)] = 10;
    s.nload[1] = 0;
    s.qload[1] = 50;
    s.l = 9;
    s.checksls = kTrue;
    const bool loaded = Calculate(library, s);
    ASSERT_TRUE(loaded);
    ASSERT_GT(DeflectionZ(s).ratio, 1);
    EXPECT_EQ(OutcomeOf(s, loaded).verdict, Verdict::above);
    s.loadmode = 0;
    s.ne = 1;
    s.my1 = s.my2 = s.mz1 = s.mz2 = s.vy1 = s.vy2 = s.vz1 = s.vz2 = 0;
    const bool well = Calculate(library, s);
    ASSERT_TRUE(well);
    ASSERT_FALSE(DeflectionZ(s).empty());
    const Outcome outcome = OutcomeOf(s, well);
    EXPECT_EQ(outcome.verdict, Verdict::within);
    EXPECT_LT(outcome.ir, 0.1);
}

}  // namespace
}  // namespace kestrum
