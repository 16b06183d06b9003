// A JSON array in the place of NDJSON.

#include "cli/run.h"

#include <gmock/gmock.h>

#include <string>

namespace kestrum {
namespace {

using ::testing::EndsWith;
using ::testing::HasSubstr;

class BatchArray : public CommandLine {};

// Longer than what is read at once, with elements over several lines and several on one.
TEST_F(BatchArray, IsAnsweredLikeItsLines)
{
    std::string lines, array = "[\n";
    for (int i = 0; i < 4000; ++i) {
        const std::string l = std::to_string(3 + i % 5);
        lines +=
            "{\"l\": " + l + ", \"qload\": [null, 1, 2], \"ident\": \"]}, [{\\\"" + l + "\"}\n";
        array += (i == 0       ? ""
                  : i % 3 == 0 ? ","
                               : ",\n") +
                 std::string("{\"l\": ") + l +
                 ",\n \"qload\": [null, 1,\n2], \"ident\": \"]}, [{\\\"" + l + "\"}";
    }
    Write("t.ndjson", lines);
    Write("t.json", array + "\n]\n");
    const std::string end = " --fields ident,l,control";
    const Said expected = Kestrum("batch t.ndjson" + end), said = Kestrum("batch t.json" + end);
    EXPECT_THAT(expected.err, HasSubstr("4000 members: "));
    EXPECT_TRUE(said.out == expected.out);
    EXPECT_EQ(said.err, expected.err);
    EXPECT_TRUE(Kestrum("batch - <t.json" + end).out == expected.out);
}

TEST_F(BatchArray, HoldsWhatDumpPrintsOfSeveralFiles)
{
    WriteGood("a.kst");
    ASSERT_EQ(Kestrum("set a.kst l=4 -o b.kst").exit, 0);
    const Said said =
        Shell("'" KESTRUM_BIN "/kestrum' dump --inputs a.kst b.kst >both.json && '" KESTRUM_BIN
              "/kestrum' batch -q --raw --fields l both.json");
    EXPECT_EQ(said.exit, 0) << said.err;
    EXPECT_THAT(said.out, HasSubstr(",3\n2,"));
    EXPECT_THAT(said.out, EndsWith(",4\n"));
}

TEST_F(BatchArray, OneThatIsNoneIsTold)
{
    Write("t.json", "[{\"l\":3}, 7, {\"l\":-1}");
    const Said said = Kestrum("batch t.json --fields l");
    EXPECT_EQ(said.exit, 2);
    EXPECT_THAT(said.err, HasSubstr("t.json: member 2: expected an object in braces"));
    EXPECT_THAT(said.err, HasSubstr("t.json: member 3: l: "));
    EXPECT_THAT(said.err, HasSubstr("t.json: the array is not closed"));
    EXPECT_THAT(said.err, HasSubstr("3 members: "));
    Write("t.json", "[]");
    EXPECT_EQ(Kestrum("batch t.json").exit, 0);
}

TEST_F(BatchArray, IsTakenUp)
{
    std::string array = "[";
    for (int i = 0; i < 60; ++i) {
        array += (i == 0 ? "" : ",\n") + std::string("{\"l\": 3,\n\"qload[1]\": 1}");
    }
    Write("t.json", array + "]");
    const std::string command = "batch -q --fields l t.json -o o.csv";
    ASSERT_EQ(Kestrum(command).exit, 0);
    const std::string whole = Read("o.csv");
    Write("o.csv", whole.substr(0, whole.size() / 2));
    EXPECT_EQ(Kestrum(command + " --resume").exit, 0);
    EXPECT_TRUE(Read("o.csv") == whole);
}

}  // namespace
}  // namespace kestrum
