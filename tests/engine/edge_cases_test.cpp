// Corners of the calculation that no ordinary project reaches.

#include "core/load_combination.h"
#include "core/project_state.h"
#include "support/members.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

namespace kestrum {
namespace {

Member Unloaded(const std::string& fields)
{
    return Member(kUnloaded + fields);
}

TEST(EdgeCases, ANumberThatIsNoneEndsThePass)
{
    Member s = Unloaded("family=41 qload[1]=1");
    s.p41.istwply = std::numeric_limits<float>::quiet_NaN();
    EXPECT_FALSE(Calculate(Delivered(), s));
    EXPECT_TRUE(s.calculationerror);
}

// Long about y, short about v: the axial force is above Ncr,y = 915.6/9 = 101.7 and below Ncr,u,
// Ncr,v.
TEST(EdgeCases, AnAngleAboveItsCriticalForceAboutYHasNoFactorsOfAnnexA)
{
    const std::string angle = "family=10 row.l1=41 l=2 ly=3 lz=0.5 qload[1]=1 nload[1]=120 ";
    Member s = Unloaded(angle + "method=1");
    EXPECT_FALSE(Calculate(Delivered(), s));
    EXPECT_EQ(s.errorflag, -1);
    EXPECT_LT(s.ncry, s.ned);
    EXPECT_GT(s.ncru, s.ned);
    EXPECT_GT(s.ncrv, s.ned);
    s = Unloaded(angle + "method=2");
    EXPECT_TRUE(Calculate(Delivered(), s));
    EXPECT_GT(s.maxirbuckling, 1);
}

// Its loads act at the centroid, since a general profile has no flange for them to act on; the
// input says so when lateral torsional buckling has been calculated.
TEST(EdgeCases, AGeneralProfileIsLoadedAtTheCentroid)
{
    const auto level = [](const std::string& fields) {
        Member s = Unloaded(fields + " qload[1]=1");
        EXPECT_TRUE(Calculate(Delivered(), s)) << fields;
        return s.loadlevel;
    };
    EXPECT_EQ(level("family=41 ltb=1 loadlevel=1"), 2);
    EXPECT_EQ(level("family=41 ltb=1 loadlevel=4 za=100"), 2);
    EXPECT_EQ(level("family=41 ltb=0 loadlevel=1"), 1);
    EXPECT_EQ(level("family=4 ltb=1 loadlevel=1"), 1);
}

TEST(EdgeCases, AnUnknownCombinationHasNoText)
{
    Member s = Unloaded("");
    s.loadcomb = 9;
    s.checksls = kFalse;
    const std::string text = GoverningText(s);
    EXPECT_EQ(text.find("6.10"), std::string::npos);
    EXPECT_EQ(text.find("Basic"), std::string::npos);
    EXPECT_EQ(StrengthFactors(s, s, 9), (LoadFactors{0, 0, 0}));
}

TEST(EdgeCases, AnUnknownSupportCaseHasNoCriticalMoment)
{
    Member s = Unloaded("qload[1]=1");
    s.supportcase = 9;
    Calculate(Delivered(), s);  // whatever its outcome, it ends
    EXPECT_EQ(s.ltc1, 0);
}

}  // namespace
}  // namespace kestrum
