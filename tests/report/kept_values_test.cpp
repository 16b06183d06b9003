// What a result keeps of an earlier calculation is named as long as it is in use, and only then.

#include "core/project_state.h"
#include "report/kept_values.h"

#include "support/members.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace kestrum {
namespace {

bool Keeps(const ProjectState& s, const std::string& field)
{
    const std::vector<KeptValue> values = KeptValues(s);
    return std::any_of(values.begin(), values.end(),
                       [&field](const KeptValue& value) { return value.field == field; });
}

// One more pass with these changes, as an input in the window makes it.
void Change(ProjectState& s, const std::string& fields)
{
    SetFields(s, fields);
    EXPECT_TRUE(Calculate(Delivered(), s)) << fields;
}

Member Calculated(const std::string& fields)
{
    Member s = Member(kUnloaded);
    Change(s, fields);
    return s;
}

TEST(KeptValues, NoneAfterAStart)
{
    for (const char* fields :
         {"family=5 ltb=0 nload[1]=100 qload[1]=5", "family=103 nload[1]=50",
          "family=22 method=2 nload[1]=100 qload[1]=5 qload[2]=1 qdir[2]=0 qchecked[2]=true",
          "family=10 nload[1]=20", "loadmode=0 ne=100 my1=20 checksls=true", "qload[1]=5"}) {
        EXPECT_TRUE(KeptValues(Calculated(fields)).empty()) << fields;
    }
}

// Length 4 m; the control is switched off, the member made 6 m long: Ncr,T is still that of 4 m.
TEST(KeptValues, TorsionalLengthOfAnEarlierControl)
{
    Member s = Calculated("family=5 l=4 method=2 nload[1]=100 qload[1]=5");
    EXPECT_FALSE(Keeps(s, "ncrtf"));
    Change(s, "ltb=0");
    EXPECT_FALSE(Keeps(s, "ncrtf"));  // still the member's own length
    Change(s, "l=6");
    EXPECT_TRUE(Keeps(s, "ncrtf"));
    Change(s, "ltb=1");
    EXPECT_FALSE(Keeps(s, "ncrtf"));
}

TEST(KeptValues, CurveOfTheSectionBefore)
{
    Member s = Calculated("family=5 nload[1]=100");
    Change(s, "family=103");
    EXPECT_TRUE(Keeps(s, "curvez"));
    Change(s, "bcy=4 bcz=4");
    EXPECT_FALSE(Keeps(s, "curvez"));
}

TEST(KeptValues, FactorOfTheMemberBefore)
{
    ProjectState s =
        Calculated("method=2 nload[1]=100 qload[1]=5 qload[2]=1 qdir[2]=0 qchecked[2]=true");
    EXPECT_FALSE(Keeps(s, "kzz"));
    Change(s, "family=22 p22.isttw=20");
    ASSERT_LE(s.classmy, 2);
    EXPECT_TRUE(Keeps(s, "kzz"));
    Change(s, "method=1");
    EXPECT_FALSE(Keeps(s, "kzz"));
}

TEST(KeptValues, ShearFactorOfTheStrengthBefore)
{
    Member s = Calculated("fykindex=26 fyk=355 qload[1]=5");
    EXPECT_FALSE(Keeps(s, "neta"));
    Change(s, "fyk=690");
    EXPECT_TRUE(Keeps(s, "neta"));
    Change(s, "annexcode=EU");  // sets the factor again
    EXPECT_FALSE(Keeps(s, "neta"));
}

TEST(KeptValues, DeflectionOfTheLastLoadedMember)
{
    Member s = Calculated("qload[1]=5 checksls=true");
    EXPECT_FALSE(Keeps(s, "deflinez"));
    Change(s, "loadmode=0 my1=20");
    EXPECT_TRUE(Keeps(s, "deflinez"));
    Change(s, "checksls=false");
    EXPECT_FALSE(Keeps(s, "deflinez"));
}

TEST(KeptValues, AFailedPassIsOlderAsAWhole)
{
    Member s = Calculated("qload[1]=5 checksls=true");
    SetFields(s, "loadmode=0 my1=20 ne=90000 method=1");
    EXPECT_FALSE(Calculate(Delivered(), s));
    EXPECT_TRUE(KeptValues(s).empty());
}

}  // namespace
}  // namespace kestrum
