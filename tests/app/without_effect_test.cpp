#include "app/without_effect.h"

#include "support/members.h"

#include <gtest/gtest.h>

namespace kestrum {
namespace {

std::string Why(const std::string& project, const char* name)
{
    return WithoutEffect(Delivered(), Member(project), name);
}

TEST(WithoutEffect, IsSilentAboutWhatCounts)
{
    for (const char* name : {"l", "qload[1]", "nload[1]", "row.hea", "family", "ltbk", "lfulsg",
                             "projname", "annexcode", "restraints", "loadcomb"}) {
        EXPECT_EQ(Why("", name), "") << name;
    }
    EXPECT_EQ(Why("", "nothing"), "");
}

TEST(WithoutEffect, TellsOfLoadsOfTheOtherMode)
{
    EXPECT_EQ(Why("ne=5", "ne"), "the member has loads (loadmode 1)");
    EXPECT_EQ(Why("ne=0", "ne"), "");
    EXPECT_EQ(Why("loadmode=0 qload[2]=3", "qload[2]"),
              "the member has given end forces (loadmode 0)");
    EXPECT_EQ(Why("loadmode=0 ne=5", "ne"), "");
}

// With basic loads the unticked rows are left out of the calculation.
TEST(WithoutEffect, TellsOfRowsThatBasicLoadsLeaveOut)
{
    EXPECT_EQ(Why("loadcomb=5 qload[2]=3 qchecked[2]=0", "qload[2]"),
              "basic loads (loadcomb 5) are those of ticked rows (qchecked)");
    EXPECT_EQ(Why("loadcomb=5 qload[2]=3 qchecked[2]=-1", "qload[2]"), "");
    EXPECT_EQ(Why("loadcomb=5 pm[8]=3 pmchecked[8]=0", "pm[8]"),
              "basic loads (loadcomb 5) are those of ticked rows (pmchecked)");
    EXPECT_EQ(Why("loadcomb=0 qload[2]=3 qchecked[2]=0", "qload[2]"), "");
}

TEST(WithoutEffect, TellsOfFieldsOfOtherFamilies)
{
    EXPECT_EQ(Why("family=4", "row.hea"), "the family is 4");
    EXPECT_EQ(Why("family=4", "row.ipe"), "");
    EXPECT_EQ(Why("family=101 series101=2", "row.ub"), "the family is 101");
    EXPECT_EQ(Why("family=101 series101=2", "row.uc"), "");
    EXPECT_EQ(Why("family=52", "row.l3"), "");
    EXPECT_EQ(Why("family=52", "p52.istb1"), "");
    EXPECT_EQ(Why("family=52", "p51.istb1"), "the family is 52");
    EXPECT_EQ(Why("family=9", "rectaxis"), "");
    EXPECT_EQ(Why("family=8", "rectaxis"), "the family is 8");
    EXPECT_EQ(Why("family=25", "flangeload"), "the family is 25");  // the load lies on one flange
    EXPECT_EQ(Why("family=25", "hsqopt"), "");
}

TEST(WithoutEffect, TellsWhichChoiceWouldHaveToBeMade)
{
    EXPECT_EQ(Why("supportcase=0", "spring"), "no support has springs (supportcase 3 or 5)");
    EXPECT_EQ(Why("supportcase=3", "spring"), "");
    EXPECT_EQ(Why("supportcase=5", "modal"),
              "spring supports have no modal analysis (supportcase 3 and 5)");
    EXPECT_EQ(Why("loadcomb=0", "lfulsq1"), "own load factors go with loadcomb 4");
    EXPECT_EQ(Why("loadcomb=4", "psi1index"), "the combination has no psi (loadcomb 4 and 5)");
    EXPECT_EQ(Why("ltb=0", "restraints"), "lateral torsional buckling is off (ltb 0)");
    EXPECT_EQ(Why("cmanual=0", "c1"), "own C factors go with cmanual");
    EXPECT_EQ(Why("cmanual=-1", "c1"), "");
    EXPECT_EQ(
        Why("cmanual=-1 restraints=1", "c1"),
        "own C factors go with loads and without restraints in the program's rules; the standard "
        "takes them");
    EXPECT_EQ(Why("loadlevel=2", "za"), "za goes with loadlevel 4");
    EXPECT_EQ(Why("cpmode=0", "cp[1]"), "own check points go with cpmode 1");
    EXPECT_EQ(Why("loadcomb=0 annexcode=EU", "safetyclass"),
              "the annex or the combination has no classes");
    EXPECT_EQ(Why("loadcomb=0 annexcode=SW", "safetyclass"), "");
    EXPECT_EQ(Why("family=24", "p24.hsqc"), "the file keeps p25.istc in its place");
}

TEST(WithoutEffect, TellsWhatAnnexAndMaterialOverrule)
{
    EXPECT_EQ(Why("annexcode=NO", "gammam0"), "set by the national annex NO");
    EXPECT_EQ(Why("fykindex=2", "fyk"), "set by the material S355");
}

}  // namespace
}  // namespace kestrum
