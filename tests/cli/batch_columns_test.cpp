// Columns of batch that are no fields of a member.

#include "cli/run.h"

#include <gmock/gmock.h>

#include <string>

namespace kestrum {
namespace {

using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

class BatchColumns : public CommandLine {
protected:
    // The answer to a table; the run may end with the verdicts of its members.
    std::string Answer(const std::string& arguments) const
    {
        return Kestrum("batch -q " + arguments).out;
    }
};

TEST_F(BatchColumns, AreRefusedWithoutTheOption)
{
    Write("t.csv", "l,mark\n3,A\n");
    const Said said = Kestrum("batch t.csv");
    EXPECT_EQ(said.exit, 2);
    EXPECT_THAT(said.err, HasSubstr("t.csv:1: column \"mark\": no such field"));
    EXPECT_THAT(said.err, HasSubstr("--keep-columns"));
}

TEST_F(BatchColumns, PassThroughBehindTheAnswer)
{
    Write("plain.csv", "l,qload[1]\n3,1\n3,1\n");
    Write("t.csv", "mark,l,qload[1],where\n\"A, 1\",3,1,\"axis \"\"B\"\"\"\nB,3,1,\n");
    std::string expected = Answer("--fields l plain.csv");
    const std::string before = expected;
    expected.insert(expected.size() - 1, ",B,");
    expected.insert(before.rfind("\n2,"), ",\"A, 1\",\"axis \"\"B\"\"\"");
    expected.insert(before.find('\n'), ",mark,where");
    EXPECT_EQ(Answer("--keep-columns --fields l t.csv"), expected);
}

TEST_F(BatchColumns, StayWithALineThatIsRefused)
{
    Write("t.csv", "mark,l,where\nA,-1,roof\n");
    EXPECT_THAT(Answer("--keep-columns --fields control t.csv"),
                EndsWith("1,bad input,,,A,roof\n"));
    Write("t.ndjson", "{\"mark\":\"A\",\"l\":-1,\"where\":[1,{\"x\":2}]}\n");
    EXPECT_EQ(Answer("--json --keep-columns --fields control t.ndjson"),
              "{\"member\":\"1\",\"verdict\":\"bad input\",\"ir\":null,\"control\":\"\",\"mark\":"
              "\"A\",\"where\":[1,{\"x\":2}]}\n");
}

TEST_F(BatchColumns, StayValidJson)
{
    Write("t.ndjson",
          "{\"l\":3,\"mark\":[1,}\n{\"l\":3,\"mark\":nil}\n{\"l\":3,\"mark\":\"a\\tb\"}\n");
    const std::string answer = Answer("--json --keep-columns --fields l t.ndjson");
    EXPECT_THAT(answer, Not(HasSubstr("nil")));
    EXPECT_THAT(answer, HasSubstr(",\"mark\":\"a\\tb\"}\n"));
    EXPECT_THAT(Kestrum("batch --json --keep-columns t.ndjson").err,
                HasSubstr("t.ndjson:1: member 1: mark: expected a value"));
}

TEST_F(BatchColumns, GetANameOfTheirOwn)
{
    Write("t.csv", "member,l,ir\nA,3,7\n");
    EXPECT_THAT(Answer("--keep-columns --fields l t.csv"),
                StartsWith("member,verdict,ir,l,input.member,input.ir\n"));
    EXPECT_THAT(Answer("--json --keep-columns --fields l t.csv"),
                EndsWith(",\"input.member\":\"A\",\"input.ir\":\"7\"}\n"));
}

// A field with an index that it does not have, and what the program sets, are no marks.
TEST_F(BatchColumns, AreNoFieldsThatCannotBeSet)
{
    for (const char* name : {"qload[99]", "ned"}) {
        Write("t.csv", std::string(name) + ",l\n1,3\n");
        const Said said = Kestrum("batch --keep-columns t.csv");
        EXPECT_EQ(said.exit, 2) << name;
        EXPECT_THAT(said.err, HasSubstr(std::string("column \"") + name + "\": "));
        EXPECT_THAT(said.err, Not(HasSubstr("passes it through"))) << name;
    }
}

TEST_F(BatchColumns, ThatMayBeMeantForAFieldAreTold)
{
    Write("t.csv", "l,familly\n3,4\n3,4\n");
    const Said said = Kestrum("batch --keep-columns t.csv");
    EXPECT_THAT(said.err,
                HasSubstr("familly: is not a field and is passed through; did you mean family?"));
    EXPECT_THAT(said.out, HasSubstr("did you mean family?"));
    Write("t.ndjson", "{\"l\":3,\"familly\":4}\n");
    EXPECT_THAT(Kestrum("batch --json --keep-columns t.ndjson").err,
                HasSubstr("familly: is not a field and is passed through; did you mean family?"));
}

TEST_F(BatchColumns, OfSeveralTablesAreThoseOfTheFirst)
{
    Write("a.csv", "l,mark,axis\n3,A,1\n");
    Write("b.csv", "axis,l\n2,3\n");
    Write("c.csv", "l,other\n3,x\n");
    WriteGood("p.kst");
    const Said said = Kestrum("batch -q --keep-columns --fields l p.kst a.csv b.csv c.csv");
    EXPECT_THAT(said.out, StartsWith("member,verdict,ir,l,mark,axis\np.kst,"));
    EXPECT_THAT(said.out, HasSubstr(",3,,\na.csv:1,"));
    EXPECT_THAT(said.out, HasSubstr(",3,A,1\nb.csv:1,"));
    EXPECT_THAT(said.out, EndsWith(",3,,2\n"));
    EXPECT_EQ(said.exit, 2);
    EXPECT_THAT(said.err, HasSubstr("c.csv: column \"other\": the first table has no such column"));
    Write("d.ndjson", "{\"l\":3,\"mark\":1}\n");
    EXPECT_THAT(Kestrum("batch --keep-columns d.ndjson").err, HasSubstr("--json"));
}

TEST_F(BatchColumns, AreTakenUpWithTheAnswers)
{
    std::string table = "l,mark,qload[1]\n";
    for (int i = 0; i < 50; ++i) {
        table += "3,\"M\n" + std::to_string(i) + "\",1\n";
    }
    Write("t.csv", table);
    const std::string command = "batch -q --keep-columns --fields l t.csv -o o.csv";
    ASSERT_EQ(Kestrum(command).exit, 0);
    const std::string whole = Read("o.csv");
    EXPECT_THAT(whole, HasSubstr(",M 49\n"));
    for (const std::size_t length : {whole.size() / 3, whole.size() - 2}) {
        Write("o.csv", whole.substr(0, length));
        EXPECT_EQ(Kestrum(command + " --resume").exit, 0);
        EXPECT_TRUE(Read("o.csv") == whole) << length;
    }
    Write("o.csv", whole);
    EXPECT_THAT(Kestrum("batch -q --fields l t.csv -o o.csv --resume").err,
                HasSubstr("cannot be resumed"));
}

// A member is answered as soon as it is there, the line of names included.
TEST_F(BatchColumns, OfAPipeDoNotWaitForItsEnd)
{
    const Said said =
        Shell("{ echo l,mark,qload[1]; echo 3,A,1; sleep 0.1; echo 3,B,1; } | '" KESTRUM_BIN
              "/kestrum' batch -q --keep-columns --fields l -");
    EXPECT_EQ(said.exit, 0) << said.err;
    EXPECT_THAT(said.out, StartsWith("member,verdict,ir,l,mark\n1,"));
    EXPECT_THAT(said.out, EndsWith(",3,B\n"));
}

TEST_F(BatchColumns, ASpreadsheetRunsNoneOfThem)
{
    Write("t.csv", "l,mark,qload[1]\n3,=1+1,1\n");
    ASSERT_EQ(Kestrum("batch -q --keep-columns --fields l t.csv -o o.csv").exit, 0);
    EXPECT_THAT(Read("o.csv"), EndsWith(",'=1+1\n"));
}

}  // namespace
}  // namespace kestrum
