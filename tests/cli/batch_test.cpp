// kestrum batch: many members from tables, files and streams.

#include "run.h"

#include <algorithm>
#include <string>

namespace kestrum {
namespace {

using Batch = CommandLine;

const std::string kHead = "member,verdict,ir,control,clause\n";

std::size_t LinesOf(const std::string& text)
{
    return static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
}

// Beams of several lengths; every seventh is no member.
std::string ManyLines(int count)
{
    std::string table = "l,family,qload[1]\n";
    for (int i = 0; i < count; ++i) {
        const std::string length = i % 7 == 3 ? "none" : std::to_string(2 + i % 9);
        table += length + "," + std::to_string(1 + i % 4) + ",8.5\n";
    }
    return table;
}

TEST_F(Batch, AnswersEachLineInOrder)
{
    Write("t.csv", "ident,l,nload[1],qload[1]\nA,5,100,10\n\"B, long\",6,100,10\nC,,100,10\n");
    const Said said = Kestrum("batch t.csv --fields ident,l");
    EXPECT_EQ(said.exit, 0) << said.err;
    const std::string& out = said.out;
    EXPECT_TRUE(out.starts_with("member,verdict,ir,ident,l\n1,within limits,")) << out;
    EXPECT_NE(out.find(",A,5\n2,within limits,"), std::string::npos) << out;
    EXPECT_NE(out.find(",\"B, long\",6\n3,within limits,"), std::string::npos) << out;
    EXPECT_TRUE(out.ends_with(",C,5\n")) << out;  // an empty cell keeps the default length
}

// Options may stand in front of the inputs.
TEST_F(Batch, TakesInputsBehindItsOptions)
{
    Write("t.csv", "l,nload[1],qload[1]\n5,100,10\n");
    const Said said = Kestrum("batch --fields ident,l --jobs 1 t.csv");
    EXPECT_EQ(said.exit, 0) << said.err;
    EXPECT_EQ(said.out, Kestrum("batch t.csv --fields ident,l").out);
}

// The same member through the table, and through a file and check.
TEST_F(Batch, GivesTheRatioOfCheck)
{
    Write("t.csv", "family,row.ipe,l,qload[1],gammam0\n4,9,6.5,2,1.3\n");
    const Said made = Kestrum("new --set family=4 --set row.ipe=9 --set l=6.5 --set qload[1]=2 "
                              "--set gammam0=1.3 -o one.kst");
    ASSERT_EQ(made.exit, 0) << made.err;
    const Said table = Kestrum("batch t.csv --fields irsection,maxirbuckling,gammam0");
    const Said file = Kestrum("batch one.kst --fields irsection,maxirbuckling,gammam0");
    EXPECT_NE(table.err.find("member 1: gammam0: without effect, set by the national annex EU"),
              std::string::npos)
        << table.err;
    const std::string behind = table.out.substr(table.out.find("\n1,") + 3);
    EXPECT_EQ(file.out.substr(file.out.find("\none.kst,") + 9), behind);
    const Said check = Kestrum("check one.kst --format csv");
    ASSERT_EQ(check.exit, 0) << check.out;
    const std::string head = "one.kst,within limits,";
    ASSERT_NE(check.out.find(head), std::string::npos) << check.out;
    const std::string ratios = check.out.substr(check.out.find(head) + head.size());
    const std::string irsection = ratios.substr(0, ratios.find(','));
    EXPECT_NE(behind.find("," + irsection + ","), std::string::npos) << behind << check.out;
}

TEST_F(Batch, TellsBadLinesByNumberAndCalculatesTheRest)
{
    Write("t.csv", "l,family,qload[1]\n5,1,10\nabc,1,10\n-3,1,10\n\n5,55,10\n6,1\n7,1,10,2\n\"8,1,"
                   "10\n5,4,10\n");
    const Said said = Kestrum("batch t.csv");
    EXPECT_EQ(said.exit, 2);
    EXPECT_EQ(LinesOf(said.out), 9U);
    for (const char* const told :
         {"t.csv:3: member 2: l: ", "t.csv:4: member 3: l: L >= 0.050",
          "t.csv:6: member 4: family: not in the list",
          "t.csv:7: member 5: fewer cells than columns",
          "t.csv:8: member 6: more cells than columns", "t.csv:9: member 7: a quote is not closed",
          "8 members: 2 within limits"}) {
        EXPECT_NE(said.err.find(told), std::string::npos) << told << "\n" << said.err;
    }
}

TEST_F(Batch, RefusesUnknownColumnsAndResults)
{
    Write("a.csv", "l,length\n5,5\n");
    Write("b.csv", "l,ned\n5,5\n");
    Write("c.csv", "l,l\n5,5\n");
    EXPECT_NE(Kestrum("batch a.csv").err.find("a.csv:1: column \"length\": no such field"),
              std::string::npos);
    EXPECT_EQ(Kestrum("batch b.csv").exit, 2);
    EXPECT_NE(Kestrum("batch c.csv").err.find("two columns"), std::string::npos);
    EXPECT_EQ(Kestrum("batch a.csv --fields nothing").exit, 2);
    EXPECT_EQ(Kestrum("batch none.csv").exit, 2);
}

TEST_F(Batch, NeverWritesOverAnInput)
{
    const std::string table = "l,family\n5,1\n";
    Write("t.csv", table);
    std::filesystem::create_symlink("t.csv", Path("link.csv"));
    ASSERT_EQ(Kestrum("new -o a.kst").exit, 0);
    const std::string project = Read("a.kst");
    for (const char* arguments : {"t.csv -o t.csv", "t.csv -o ./t.csv", "t.csv -o link.csv",
                                  "link.csv -o t.csv", "t.csv -o t.csv --resume", "a.kst -o a.kst",
                                  ". -o a.kst", "t.csv --base a.kst -o a.kst"}) {
        EXPECT_EQ(Kestrum(std::string("batch ") + arguments).exit, 2) << arguments;
        EXPECT_EQ(Read("t.csv"), table) << arguments;
        EXPECT_EQ(Read("a.kst"), project) << arguments;
    }
}

// The default member is 5 m long; a load at 6 m stands on the member of its line.
TEST_F(Batch, ColumnsStandInAnyOrder)
{
    Write("a.csv", "pmx[1],pm[1],l,row.ipe,family,ltb\n6,10,8,IPE 400,4,0\n");
    Write("b.csv", "l,ltb,family,row.ipe,pm[1],pmx[1]\n8,0,4,13,10,6\n");
    const Said a = Kestrum("batch a.csv --quiet --fields mymax,ltbk");
    EXPECT_EQ(a.exit, 0) << a.err;
    EXPECT_EQ(a.out, Kestrum("batch b.csv --quiet --fields mymax,ltbk").out);
    EXPECT_TRUE(a.out.ends_with(",0.001\n")) << a.out;
}

TEST_F(Batch, TakesTheInputsOfADumpBack)
{
    ASSERT_EQ(Kestrum("new -o a.kst --set l=3 bucklingcasey=5").exit, 0);
    ASSERT_EQ(Kestrum("dump a.kst --inputs | tr -d '\\n' >a.ndjson").exit, 0);
    const Said said = Kestrum("batch a.ndjson --raw --quiet");
    EXPECT_EQ(said.exit, 0) << said.err;
    const auto answer = [](const std::string& out) {
        return out.substr(out.find(',', out.find('\n')));
    };
    EXPECT_EQ(answer(said.out), answer(Kestrum("batch a.kst --quiet").out));
}

TEST_F(Batch, ReadsAndWritesNdjsonThroughPipes)
{
    Write("t.ndjson", R"({"l": 5.5, "qload": [null, 10, 2, -3.5], "ident": "\u00e4 \"x\""}
{"l": "6", "modal": 1, "checksls": true}
{"l": [1]}
{"l": 5
)");
    const Said said = Kestrum("batch - --json --fields l,'qload[3]',ident <t.ndjson");
    EXPECT_EQ(said.exit, 2);
    EXPECT_EQ(LinesOf(said.out), 4U);
    EXPECT_NE(said.out.find(R"("l":5.5,"qload[3]":-3.5,"ident":")"
                            "\xC3\xA4"
                            R"( \"x\""})"),
              std::string::npos)
        << said.out;
    EXPECT_NE(said.out.find(R"({"member":"3","verdict":"bad input","ir":null)"), std::string::npos);
    EXPECT_NE(said.err.find("standard input:4: member 4: "), std::string::npos) << said.err;
}

TEST_F(Batch, TakesSemicolonsDecimalCommasAndOtherLineEnds)
{
    Write("t.csv", "\xEF\xBB\xBFl;qload[1]\r\n5,5;8,25\r\n");
    const Said said = Kestrum("batch t.csv --fields 'l,qload[1]'");
    EXPECT_EQ(said.exit, 0) << said.err;
    EXPECT_TRUE(said.out.ends_with(",5.5,8.25\n")) << said.out;
}

TEST_F(Batch, StartsFromABase)
{
    ASSERT_EQ(Kestrum("new --set family=6 --set l=3.5 -o base.kst").exit, 0);
    Write("t.csv", "qload[1]\n5\n");
    const Said said = Kestrum("batch t.csv --base base.kst --fields family,l");
    EXPECT_TRUE(said.out.ends_with(",6,3.5\n")) << said.out;
}

TEST_F(Batch, TakesFilesAndFolders)
{
    ASSERT_EQ(Kestrum("new -o a.kst").exit, 0);
    ASSERT_EQ(Kestrum("new -o b.kst").exit, 0);
    Write("c.kst", "131\r\nbroken");
    Write("other.txt", "not looked at");
    const Said said = Kestrum("batch .");
    EXPECT_EQ(said.exit, 2);
    EXPECT_EQ(LinesOf(said.out), 4U) << said.out;
    EXPECT_LT(said.out.find("./a.kst,"), said.out.find("./b.kst,"));
    EXPECT_NE(said.err.find("./c.kst:"), std::string::npos);
    Write("t.csv", "l,nload[1],qload[1]\n5,100,10\n");
    EXPECT_NE(Kestrum("batch a.kst t.csv").out.find("\nt.csv:1,"), std::string::npos);
}

TEST_F(Batch, AnswersAlikeWithAnyNumberOfThreads)
{
    Write("t.csv", ManyLines(20000));
    const Said one = Kestrum("batch t.csv -o 1.csv --jobs 1");
    const Said many = Kestrum("batch t.csv -o 5.csv --jobs 5");
    EXPECT_EQ(one.exit, 2);
    EXPECT_EQ(one.err, many.err);
    EXPECT_EQ(Read("1.csv"), Read("5.csv"));
    EXPECT_EQ(LinesOf(Read("1.csv")), 20001U);
}

TEST_F(Batch, GoesOnBehindTheLastWholeLine)
{
    Write("t.csv", ManyLines(3000));
    const Said whole = Kestrum("batch t.csv -o whole.csv");
    const std::string bytes = Read("whole.csv");
    for (const std::size_t cut : {std::size_t{0}, kHead.size() / 2, kHead.size(), bytes.size() / 3,
                                  bytes.size() - 1, bytes.size()}) {
        Write("part.csv", bytes.substr(0, cut));
        const Said rest = Kestrum("batch t.csv -o part.csv --resume");
        EXPECT_EQ(rest.exit, whole.exit);
        EXPECT_EQ(Read("part.csv"), bytes) << cut;
        const std::string summary = whole.err.substr(whole.err.find("3000 members"));
        EXPECT_TRUE(rest.err.ends_with(summary)) << rest.err;
    }
    Write("part.csv", "something else\n1,2\n");
    EXPECT_EQ(Kestrum("batch t.csv -o part.csv --resume").exit, 2);
    EXPECT_EQ(Read("part.csv"), "something else\n1,2\n");
    EXPECT_EQ(Kestrum("batch t.csv --resume").exit, 2);
}

// Names in, names out; family and mode follow from what is given.
TEST_F(Batch, TakesAndGivesNames)
{
    Write("t.csv", "section,steel,qload[1],qtype[1],ne\nIPE 300,S355,5,Q1,\nHE 200 A,S275,,,80\n");
    const Said said =
        Kestrum("batch t.csv --fields "
                "section,family,family.name,steel,annex,qtype[1].name,loadmode,ident");
    EXPECT_EQ(said.exit, 0) << said.err;
    const std::size_t second = said.out.find("\n2,");
    EXPECT_NE(said.out.find(",IPE 300,4,IPE,S355,EU,Q1,1,\n"), std::string::npos) << said.out;
    EXPECT_NE(said.out.find(",HEA 200,1,HEA,S275,EU,G,0,\n", second), std::string::npos)
        << said.out;
    Write("t.ndjson", R"({"section": "UC 203x203x60", "qload": [null, 4]})"
                      "\n");
    EXPECT_NE(Kestrum("batch t.ndjson --fields section,row.uc").out.find(",UC 203x203x60,5\n"),
              std::string::npos);
    const Said none = Kestrum("batch t.csv --fields l.name");
    EXPECT_EQ(none.exit, 2);
    EXPECT_NE(none.err.find("the values of l have no names"), std::string::npos) << none.err;
}

// A member of a table that names no load has none.
TEST_F(Batch, BeginsWithoutLoads)
{
    Write("t.csv", "family,row.ipe,l,qload[1]\n4,9,5,2\n");
    const Said said = Kestrum("batch t.csv --fields ned,nload[1],my1,ident");
    EXPECT_NE(said.out.find(",0,0,0,\n"), std::string::npos) << said.out;
}

TEST_F(Batch, AContradictionIsTheVerdictOfItsLine)
{
    Write("t.csv", "family,row.ipe,ne,qload[1]\n21,3,,5\n,3,,50\n,3,9,5\n");
    const Said said = Kestrum("batch t.csv --fields message");
    EXPECT_EQ(said.exit, 2);
    EXPECT_NE(said.out.find("1,bad input,,\"row.ipe: of family 4 IPE, the family is 21 I - "),
              std::string::npos)
        << said.out;
    EXPECT_NE(said.out.find("\n2,above limit,"), std::string::npos) << said.out;
    EXPECT_NE(said.out.find("3,bad input,,\"ne: an end force, qload[1] is a load;"),
              std::string::npos)
        << said.out;
}

// A column without effect is said once, and in the message of each line.
TEST_F(Batch, TellsWhatHasNoEffect)
{
    std::string rows = "l,spring,qload[1]\n";
    for (int i = 0; i < 3000; ++i) {
        rows += "5,20,1\n";
    }
    Write("t.csv", rows);
    const Said said = Kestrum("batch t.csv --fields message --jobs 4");
    const std::string word = "spring: without effect, no support has springs";
    const std::size_t at = said.err.find("t.csv:2: member 1: " + word);
    EXPECT_NE(at, std::string::npos) << said.err;
    EXPECT_EQ(said.err.find(word, at + 30), std::string::npos) << said.err;
    std::size_t told = 0;
    for (std::size_t i = said.out.find(word); i != std::string::npos;
         i = said.out.find(word, i + 1)) {
        ++told;
    }
    EXPECT_EQ(told, 3000U);
    Write("u.csv", "l,qload[1]\n6000,0.001\n");
    EXPECT_NE(Kestrum("batch u.csv").err.find("l: is 6000 m meant? The unit is m"),
              std::string::npos);
}

TEST_F(Batch, NamesTheWorst)
{
    Write("t.csv", "l,qload[1]\n5,10\n9,10\n7,10\n");
    const Said said = Kestrum("batch t.csv");
    const std::size_t second = said.err.find("  2\n"), third = said.err.find("  3\n");
    const std::size_t first = said.err.find("  1\n");
    EXPECT_TRUE(second < third && third < first && first != std::string::npos) << said.err;
    EXPECT_NE(said.err.find("not looked for (--fields notes)\n"), std::string::npos) << said.err;
    const Said noted = Kestrum("batch t.csv --fields notes");
    EXPECT_EQ(noted.err.find("not looked for"), std::string::npos) << noted.err;
    EXPECT_EQ(Kestrum("batch t.csv --quiet").err, "");
}

TEST_F(Batch, TellsWhenTheAnswersCannotBeWritten)
{
    Write("t.csv", ManyLines(3000));
    const Said said = Kestrum("batch t.csv -o /dev/full");
    EXPECT_EQ(said.exit, 2);
    EXPECT_NE(said.err.find("/dev/full: "), std::string::npos) << said.err;
    EXPECT_EQ(Kestrum("batch t.csv -o none/out.csv").exit, 2);
}

// The two examples of docs/batch.md.
TEST_F(Batch, RunsUnderToolsThatSpreadWork)
{
    Write("spread.sh", R"(PATH=")" KESTRUM_BIN R"(:$PATH"
find . -name '*.kst' -print0 | sort -z | xargs -0 -P 4 -n 1 kestrum batch --quiet --fields ident,control |
    grep -v '^member,' | sort > files.csv
tail -n +2 t.csv | split -l 30 --filter='{ head -n 1 t.csv; cat; } | kestrum batch - -o $FILE.csv' - part.
)");
    ASSERT_EQ(Kestrum("new --set ident=A -o a.kst").exit, 0);
    ASSERT_EQ(Kestrum("new --set ident=B -o b.kst").exit, 0);
    std::string table = "l,qload[1]\n";
    for (int i = 0; i < 100; ++i) {
        table += std::to_string(2 + i % 5) + ",10\n";
    }
    Write("t.csv", table);
    ASSERT_EQ(Kestrum("--version && sh ./spread.sh").exit, 0);
    EXPECT_EQ(LinesOf(Read("files.csv")), 2U) << Read("files.csv");
    EXPECT_NE(Read("files.csv").find("./b.kst,within limits,"), std::string::npos);
    EXPECT_EQ(LinesOf(Read("part.aa.csv")), 31U);
    EXPECT_EQ(LinesOf(Read("part.ad.csv")), 11U);
}

TEST_F(Batch, OutlivesALineWithoutEnd)
{
    Write("t.csv", "l\n5\n" + std::string(5'000'000, '1') + "\n6\n");
    const Said said = Kestrum("batch t.csv");
    EXPECT_EQ(said.exit, 2);
    EXPECT_EQ(LinesOf(said.out), 4U);
    EXPECT_NE(said.err.find("t.csv:3: member 2: the line is too long"), std::string::npos);
}

}  // namespace
}  // namespace kestrum
