#include "app/member_list.h"

#include "core/project_state.h"
#include "engine/new_project.h"
#include "support/delivered.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace kestrum {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

TEST(MemberList, FindsMembersByTheirKeys)
{
    MemberList list;
    ASSERT_EQ(list.Take("id,section,l,group\nB1,IPE 300,6,a\n\"B \"\"2\"\"\",HEB 200,3.5,b\n",
                        "m.csv", ""),
              "");
    ASSERT_EQ(list.size(), 2U);
    EXPECT_EQ(list.Find("B1"), 0U);
    EXPECT_EQ(list.Find("B \"2\""), 1U);
    EXPECT_EQ(list.Find("B3"), MemberList::kNone);
    EXPECT_EQ(list.LineOf(1), 3U);
    ProjectState s = StartState(Delivered());
    EXPECT_EQ(list.Apply(1, Delivered(), s, Assignment::checked), "");
    EXPECT_EQ(s.family, 2);
    EXPECT_EQ(s.l, 3.5F);
}

TEST(MemberList, TheKeyIsAFieldToo)
{
    MemberList list;
    ASSERT_EQ(list.Take("l,ident\n6,B1\n", "m.csv", ""), "");
    EXPECT_EQ(list.Key(0), "B1");
    ASSERT_EQ(list.Take("l,ident,mark\n6,B1,M7\n", "m.csv", "mark"), "");
    EXPECT_EQ(list.Key(0), "M7");
}

TEST(MemberList, SectionsOfAllFamiliesGoByName)
{
    MemberList list;
    ASSERT_EQ(list.Take("id,section,family,l\na,CHS 114.3/5.0,,3\nb,SHS120/120/5.0,,3\n"
                        "c,CHS 114.3x5,1,3\nd,HE 200 B,2,3\n",
                        "m.csv", ""),
              "");
    ProjectState s = StartState(Delivered());
    EXPECT_EQ(list.Apply(0, Delivered(), s, Assignment::checked), "");
    EXPECT_EQ(s.family, 31);
    EXPECT_EQ(s.p31.istd, 114.3F);
    EXPECT_EQ(s.p31.isttw, 5);
    EXPECT_EQ(list.Apply(1, Delivered(), s, Assignment::checked), "");
    EXPECT_EQ(s.family, 6);
    EXPECT_THAT(list.Apply(2, Delivered(), s, Assignment::checked), HasSubstr("of family 31"));
    EXPECT_EQ(list.Apply(3, Delivered(), s, Assignment::checked), "");
    EXPECT_EQ(s.family, 2);
}

TEST(MemberList, LinesThatCannotBeMembersAreNamed)
{
    MemberList list;
    ASSERT_EQ(list.Take("id,l\nB1,6\n,5\n\nB1,7\nB2\n", "m.csv", ""), "");
    EXPECT_EQ(list.size(), 2U);  // what is wrong with the rest of B2 is said when it is set
    EXPECT_THAT(list.faults(),
                ElementsAre("m.csv:3: no key",
                            "m.csv:5: member \"B1\" is in line 2 already, which is used"));
    ProjectState s = StartState(Delivered());
    EXPECT_EQ(list.Apply(1, Delivered(), s, Assignment::checked), "fewer cells than columns");
}

TEST(MemberList, TablesThatAreNoneAreRefused)
{
    MemberList list;
    EXPECT_THAT(list.Take("l,section\n6,IPE 300\n", "m.csv", ""), HasSubstr("no column of keys"));
    EXPECT_EQ(list.Take("id,l\nB1,6\n", "m.csv", "mark"),
              "m.csv:1: --key mark: there is no such column");
    EXPECT_EQ(list.Take("id,l\n", "m.csv", ""), "m.csv: holds no members");
    EXPECT_THAT(list.Take("member,case,x,N\n", "m.csv", ""), HasSubstr("the members come first"));
    EXPECT_THAT(list.Take("{\"id\":1}\n", "m.csv", ""), HasSubstr("not from JSON"));
    EXPECT_THAT(list.Take("", "m.csv", ""), HasSubstr("no column of keys"));
}

}  // namespace
}  // namespace kestrum
