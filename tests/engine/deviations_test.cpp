// Deviations from the standard that show in a whole pass.

#include "support/member.h"

#include <gtest/gtest.h>

#include <string>

namespace kestrum {
namespace {

TEST(Box, D29ShearAreasHaveNoEta)
{
    ProjectState s = MemberOf(std::string(kUnloaded) + "family=23 p23.isttw=20 p23.ista=0");
    ASSERT_TRUE(Calculate(DeliveredTables(), s));
    ASSERT_GT(s.neta, 1);
    EXPECT_NEAR(s.avz, 22400, 0.1);    // 2 x 560 x 20
    EXPECT_NEAR(s.vzrd, 4591.1, 0.1);  // 22400 x 355/sqrt(3)/1000
    EXPECT_NEAR(s.avy, 22400, 0.1);    // 2 x 560 x 20, between the webs
}

}  // namespace
}  // namespace kestrum
