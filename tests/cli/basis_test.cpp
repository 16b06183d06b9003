// The result by the standard as written beside the program's own.

#include "run.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <set>
#include <string>

namespace kestrum {
namespace {

using nlohmann::json;
using ::testing::HasSubstr;
using ::testing::IsSubsetOf;
using ::testing::IsSupersetOf;
using ::testing::Not;
using ::testing::StartsWith;

class Basis : public CommandLine {};

TEST_F(Basis, JsonHoldsBothResults)
{
    WriteGood("a.kst");
    const json answer = json::parse(Kestrum("check --json a.kst").out)[0];
    const json alone = json::parse(Kestrum("check --basis program --json a.kst").out)[0];
    EXPECT_FALSE(alone.contains("standard"));
    EXPECT_EQ(answer["ir"], alone["ir"]);
    bool largest = false;  // that of the program stands at the member
    for (const json& check : answer["checks"]) {
        largest = largest || (check["ir"] == answer["ir"] && check["check"] == answer["check"] &&
                              check["clause"] == answer["clause"]);
    }
    EXPECT_TRUE(largest);
    const json& standard = answer["standard"];
    EXPECT_EQ(standard["verdict"], "within limits");
    EXPECT_TRUE(standard["outside"].empty());
    bool governs = false;
    std::set<std::string> kinds;
    for (const json& check : standard["checks"]) {
        EXPECT_TRUE(check["ir"].is_number());
        EXPECT_FALSE(check["clause"].get<std::string>().empty());
        EXPECT_FALSE(check["case"].get<std::string>().empty());
        governs = governs || (check["check"] == standard["check"] && check["ir"] == standard["ir"]);
        EXPECT_TRUE(kinds.insert(check["check"].get<std::string>()).second) << check;
        for (const json& part : check.value("parts", json::array())) {
            EXPECT_LE(part["ir"], check["ir"]);
        }
    }
    EXPECT_TRUE(governs);
    EXPECT_THAT(kinds, IsSubsetOf({"section", "flexural_y", "flexural_z", "torsional", "ltb",
                                   "eq661", "eq662", "deflection_z", "deflection_y"}));
    EXPECT_THAT(kinds, IsSupersetOf({"section", "flexural_y", "flexural_z"}));
    for (const json& at : standard["deviations"]) {
        EXPECT_THAT(at["id"].get<std::string>(), StartsWith("D"));
        EXPECT_FALSE(at["text"].get<std::string>().empty());
        EXPECT_TRUE(at["cost"].is_number());
        EXPECT_GE(std::abs(at["largest_change"]["change"].get<double>()) + 1e-12,
                  std::abs(at["cost"].get<double>()));
    }
}

// Ncr,y of an IPE 100 of 10 m is pi^2 210 1.71e6/10^2/1e3 = 35.4 kN: no check of the program says
// so.
TEST_F(Basis, ARatioAboveTheCriticalForceHasTheVerdictForACheck)
{
    ASSERT_EQ(Kestrum("new -o a.kst --family 4 --set row.ipe=1 --set l=10 --set nload[1]=100 "
                      "--set qload[1]=0.1")
                  .exit,
              0);
    const Said said = Kestrum("check a.kst");
    EXPECT_THAT(said.out, HasSubstr("Rules of the program:   IR = "));
    EXPECT_THAT(said.out, HasSubstr(", unstable\n"));
    EXPECT_THAT(said.out, Not(HasSubstr(",  ()")));
}

// A slender bar in bending alone: the program checks lateral torsional buckling beside compression
// only (D229), the standard in any case.
TEST_F(Basis, TheExitFollowsTheStandardWhereItIsAsked)
{
    ASSERT_EQ(Kestrum("new -o a.kst --family 28 --set p28.isth=200 --set p28.isttw=10 --set l=6 "
                      "--set qload[1]=2 --set nload[1]=0 --set ltb=1 --set loadlevel=1")
                  .exit,
              0);
    EXPECT_EQ(Kestrum("check a.kst").exit, 0);
    EXPECT_EQ(Kestrum("check --basis both a.kst").exit, 0);
    EXPECT_EQ(Kestrum("check --basis standard a.kst").exit, 1);
    const Said said = Kestrum("check --basis both a.kst");
    EXPECT_THAT(said.out, HasSubstr("EN 1993-1-1 as written: IR = "));
    EXPECT_THAT(said.out, HasSubstr("ltb (6.3.2.2)"));
    EXPECT_THAT(said.out, HasSubstr("Rules of the program:   IR = "));
    EXPECT_THAT(said.out, HasSubstr("The two verdicts differ."));
    EXPECT_EQ(Kestrum("check a.kst").out, said.out);

    const json standard = json::parse(Kestrum("check --json a.kst").out)[0]["standard"];
    const json& first = standard["deviations"][0];
    EXPECT_EQ(first["id"], "D229");
    EXPECT_TRUE(first["unsafe"]);
    EXPECT_NEAR(first["cost"], standard["ir"].get<double>() - first["without"].get<double>(),
                1e-12);
    // Without compression the program makes no such check: all of its ratio is the change.
    EXPECT_EQ(first["largest_change"]["check"], "ltb");
    EXPECT_NEAR(first["largest_change"]["change"], standard["ir"], 1e-12);
    // Whether the check is made at all concerns no other one.
    for (const json& check : standard["checks"]) {
        const json& acting = check["deviations"];
        const bool d229 = std::find(acting.begin(), acting.end(), "D229") != acting.end();
        EXPECT_EQ(d229, check["check"] == "ltb") << check["check"];
    }
    EXPECT_THAT(said.out, HasSubstr("  D229 +"));
    EXPECT_THAT(Kestrum("check --basis program a.kst").out, Not(HasSubstr("as written")));
}

// A fixed HEA 200 that Q alone bends: nothing of the load cases, the section or the stability of it
// departs, since no lateral torsional buckling is asked for.
TEST_F(Basis, OneLineTellsThatNoDeviationActs)
{
    ASSERT_EQ(Kestrum("new -o a.kst --family 1 --set 'section=HEA 200' l=5 'nload[1]=0' "
                      "'qload[1]=10' loadcomb=4 ltb=0 selfweight=0")
                  .exit,
              0);
    EXPECT_THAT(Kestrum("check a.kst").out, HasSubstr("No deviation acts: both are equal.\n"));
    const json answer = json::parse(Kestrum("check --json a.kst").out)[0];
    EXPECT_NEAR(answer["ir"], answer["standard"]["ir"], 1e-6);
    EXPECT_TRUE(answer["standard"]["deviations"].empty());
}

TEST_F(Basis, BatchTellsWhatDeviationsCost)
{
    Write("t.ndjson",
          "{\"family\": 28, \"p28.isth\": 200, \"p28.isttw\": 10, \"l\": 6, \"ltb\": 1, "
          "\"qload[1]\": 2, \"nload[1]\": 0, \"loadlevel\": 1}\n");
    const json line =
        json::parse(Kestrum("batch --json --fields ir_standard,deviations t.ndjson").out);
    EXPECT_EQ(line["deviations"][0]["id"], "D229");
    EXPECT_GT(line["deviations"][0]["cost"], 0.1);
    EXPECT_THAT(Kestrum("batch --fields deviations t.ndjson").out, HasSubstr("D229 "));
}

TEST_F(Basis, BatchHasItsFields)
{
    Write("t.ndjson", "{\"section\": \"IPE 300\", \"l\": 5, \"qload[1]\": 8}\n"
                      "{\"family\": 31, \"p31.istd\": 600, \"p31.isttw\": 5, "
                      "\"qload[1]\": 8}\n");
    const std::string out =
        Kestrum("batch --json --fields ir_standard,standard_check,standard_clause t.ndjson").out;
    const json first = json::parse(out.substr(0, out.find('\n')));
    const json second = json::parse(out.substr(out.find('\n') + 1));
    ASSERT_EQ(Kestrum("new -o a.kst --set 'section=IPE 300' --set l=5 --set qload[1]=8").exit, 0);
    const json standard = json::parse(Kestrum("check --json a.kst").out)[0]["standard"];
    EXPECT_EQ(first["ir_standard"], standard["ir"]);
    EXPECT_EQ(first["standard_check"], standard["check"]);
    EXPECT_EQ(first["standard_clause"], standard["clause"]);
    EXPECT_TRUE(second["ir_standard"].is_null());
    EXPECT_TRUE(second["standard_check"].is_null());
}

// A tube of class 4 belongs to EN 1993-1-6.
TEST_F(Basis, ASectionThatIsNotCoveredSaysSo)
{
    ASSERT_EQ(Kestrum("new -o a.kst --family 31 --set p31.istd=600 --set p31.isttw=5").exit, 0);
    const Said said = Kestrum("check --basis standard --json a.kst");
    const json standard = json::parse(said.out)[0]["standard"];
    EXPECT_EQ(said.exit, 2);
    EXPECT_TRUE(standard["ir"].is_null());
    EXPECT_EQ(standard["verdict"], "not covered");
    EXPECT_FALSE(standard["outside"].empty());
    EXPECT_NE(Kestrum("check --basis eurocode a.kst").exit, 0);
}

}  // namespace
}  // namespace kestrum
