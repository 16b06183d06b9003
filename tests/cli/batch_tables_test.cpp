// What batch reads: tables as spreadsheets save them, and what is none.

#include "cli/run.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <string>

namespace kestrum {
namespace {

using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::StartsWith;

class BatchTables : public CommandLine {};

std::string Utf16(const std::string& ascii)
{
    std::string bytes = "\xFF\xFE";
    for (const char c : ascii) {
        bytes.push_back(c);
        bytes.push_back('\0');
    }
    return bytes;
}

std::string Replaced(std::string text, char what, const std::string& by)
{
    std::string out;
    for (const char c : text) {
        out += c == what ? by : std::string(1, c);
    }
    return out;
}

// A line break inside a cell made members of its halves. The table is longer than what is read at
// once, so that breaks lie on the borders as well.
TEST_F(BatchTables, ALineBreakInsideACellMakesNoMember)
{
    std::string broken = "l,ident,qload[1]\n", plain = broken;
    for (int i = 0; i < 20000; ++i) {
        const std::string l = std::to_string(2 + i % 7);
        broken += l + ",\"B" + std::to_string(i) + "\n" + (i % 3 == 0 ? "1,2,3" : "") + "\",5\n";
        plain += l + ",B" + std::to_string(i) + ",5\n";
    }
    Write("broken.csv", broken);
    Write("plain.csv", plain);
    const Said with = Kestrum("batch broken.csv --fields control"),
               without = Kestrum("batch plain.csv --fields control");
    EXPECT_EQ(with.exit, without.exit);
    EXPECT_THAT(with.err, HasSubstr("20000 members: "));
    EXPECT_TRUE(with.out == without.out);
}

TEST_F(BatchTables, ALineIsCountedAsTheEditorDoes)
{
    Write("t.csv", "l,ident\n5,\"a\nb\"\nx,c\n\"5,d\n6,e\n");
    const Said said = Kestrum("batch t.csv --fields ident");
    EXPECT_EQ(said.exit, 2);
    EXPECT_THAT(said.err, HasSubstr("kestrum: t.csv:4: member 2: l: "));
    EXPECT_THAT(said.err, HasSubstr("kestrum: t.csv:5: member 3: a quote is not closed"));
    EXPECT_THAT(said.err, HasSubstr("4 members: "));
    EXPECT_THAT(said.out, HasSubstr(",a b\n"));
    EXPECT_THAT(said.out, HasSubstr("\n4,"));
}

TEST_F(BatchTables, ReadsWhatSpreadsheetsSave)
{
    const std::string table = "l,ident,qload[1]\n5,a,10\n6,b,10\n";
    Write("t.csv", table);
    const std::string expected = Kestrum("batch -q t.csv").out;
    EXPECT_THAT(expected, HasSubstr("\n2,within"));
    Write("utf16.csv", Utf16(Replaced(Replaced(table, ',', "\t"), '\n', "\r\n")));
    Write("old.csv", Replaced(table, '\n', "\r"));
    Write("marked.csv", "\xEF\xBB\xBF" + table);
    for (const char* name : {"utf16.csv", "old.csv", "marked.csv"}) {
        const Said said = Kestrum(std::string("batch -q ") + name);
        EXPECT_EQ(said.out, expected) << name;
        EXPECT_EQ(said.err, "") << name;
        EXPECT_EQ(Kestrum(std::string("batch -q - <") + name).out, expected) << name;
    }
    Write("marked.ndjson",
          "\xEF\xBB\xBF{\"l\": 5, \"qload[1]\": 10}\n{\"l\": 6, \"qload[1]\": 10}\n");
    EXPECT_EQ(Kestrum("batch -q --format csv marked.ndjson").out, expected);
}

TEST_F(BatchTables, RefusesByNameWhatIsNoTable)
{
    Write("book.xlsx", std::string("PK\x03\x04") + "rest");
    const Said book = Kestrum("batch book.xlsx");
    EXPECT_EQ(book.exit, 2);
    EXPECT_EQ(book.err, "kestrum: book.xlsx: is a spreadsheet; save its sheet as CSV\n");
    Write("book.csv", Read("book.xlsx"));
    for (const char* input : {"book.csv", "- <book.csv"}) {
        const Said said = Kestrum(std::string("batch ") + input);
        EXPECT_EQ(said.exit, 2) << input;
        EXPECT_THAT(said.err, HasSubstr("is a spreadsheet or archive (XLSX, ODS, ZIP)")) << input;
    }
    Write("t.csv", "\x1F\x8B\x08 and more");
    EXPECT_THAT(Kestrum("batch t.csv").err, StartsWith("kestrum: t.csv: is compressed"));
}

TEST_F(BatchTables, AnEmptyFolderIsNoAnswer)
{
    std::filesystem::create_directory(Path("in"));
    const Said empty = Kestrum("batch in");
    EXPECT_EQ(empty.exit, 2);
    EXPECT_THAT(empty.err, HasSubstr("kestrum: in: the folder holds no project (.kst)\n"));
    WriteGood("in/a.KST");
    const Said said = Kestrum("batch in");
    EXPECT_EQ(said.exit, 0);
    EXPECT_THAT(said.out, HasSubstr("\nin/a.KST,within limits"));
}

TEST_F(BatchTables, TheEndingOfTheAnswerIsChecked)
{
    Write("t.csv", "l,qload[1]\n5,9\n");
    for (const char* out : {"o.txt", "o", "o.xlsx", "o.kst"}) {
        const Said said = Kestrum(std::string("batch t.csv -o ") + out);
        EXPECT_EQ(said.exit, 2) << out;
        EXPECT_EQ(said.err, "kestrum: " + std::string(out) +
                                ": the name has to end in .csv, .ndjson or .jsonl\n");
        EXPECT_FALSE(std::filesystem::exists(Path(out))) << out;
    }
    EXPECT_EQ(Kestrum("batch t.csv --json -o o.csv").exit, 2);
    EXPECT_EQ(Kestrum("batch t.csv -o O.CSV").exit, 0);
    EXPECT_EQ(Kestrum("batch t.csv -o /dev/null").exit, 0);
}

// A spreadsheet would run what begins like a formula; programs that read a stream want it as it is.
TEST_F(BatchTables, AFileHoldsNothingThatASpreadsheetRuns)
{
    Write("t.csv", "ident,l,qload[1]\n=1+1,5,9\n@SUM(A1),5,9\n-B12,5,9\n+4.200,5,9\n");
    const std::string fields = "batch -q t.csv --fields ident ";
    const std::string plain = Kestrum(fields).out;
    EXPECT_THAT(plain, HasSubstr(",=1+1\n"));
    const std::string safe = Kestrum(fields + "--csv-safe").out;
    EXPECT_THAT(safe, HasSubstr(",'=1+1\n"));
    EXPECT_THAT(safe, HasSubstr(",'@SUM(A1)\n"));
    EXPECT_THAT(safe, HasSubstr(",'-B12\n"));
    EXPECT_THAT(safe, HasSubstr(",+4.200\n"));
    ASSERT_EQ(Kestrum(fields + "-o o.csv").exit, 0);
    EXPECT_EQ(Read("o.csv"), safe);
    ASSERT_EQ(Kestrum(fields + "--no-csv-safe -o p.csv").exit, 0);
    EXPECT_EQ(Read("p.csv"), plain);
}

// A spreadsheet with a decimal comma splits at semicolons. 12.5 kN/m over 5.5 m: the inputs come
// back as they are typed there, texts keep their points.
TEST_F(BatchTables, DelimiterAndDecimalSignAreChosen)
{
    Write("t.csv", "ident,l,qload[1]\nB 1.5,5.5,12.5\na;b,5,9\n");
    const std::string fields = "batch -q t.csv --fields ident,l,qload[1],clause ";
    const std::string usual = Kestrum(fields).out;
    const std::string comma = Kestrum(fields + "--decimal comma").out;
    EXPECT_THAT(comma, ::testing::StartsWith("member;verdict;ir;ident;l;qload[1];clause\n"));
    EXPECT_THAT(comma, HasSubstr(";B 1.5;5,5;12,5;"));
    EXPECT_THAT(comma, HasSubstr(";\"a;b\";5;9;"));
    EXPECT_THAT(comma, Not(HasSubstr("clause;\"")));
    const std::string tab = Kestrum(fields + "--delimiter tab").out;
    EXPECT_THAT(tab, HasSubstr("\tB 1.5\t5.5\t12.5\t"));
    EXPECT_EQ(Kestrum(fields + "--delimiter comma --decimal point").out, usual);

    for (const char* refused : {"--decimal comma --delimiter comma", "--json --decimal comma",
                                "--delimiter ';'", "--decimal ,"}) {
        EXPECT_EQ(Kestrum(fields + refused).exit, 2) << refused;
    }
}

TEST_F(BatchTables, AnswersWithDecimalCommasAreReadBack)
{
    Write("t.csv", "ident,l,qload[1]\nB 1.5,5.5,12.5\na;b,5,9\n");
    const std::string batch = "batch -q t.csv --fields ident,l ";
    ASSERT_EQ(Kestrum(batch + "-o o.csv").exit, 0);
    ASSERT_EQ(Kestrum(batch + "--decimal comma -o p.csv").exit, 0);
    EXPECT_EQ(Kestrum("summary -q p.csv").out, Kestrum("summary -q o.csv").out);
    const std::string whole = Read("p.csv");
    EXPECT_EQ(Kestrum(batch + "--decimal comma -o p.csv --resume").exit, 0);
    EXPECT_EQ(Read("p.csv"), whole);
    EXPECT_EQ(Kestrum(batch + "-o p.csv --resume").exit, 2);
    for (const char* part : {"1", "2"}) {
        const std::string name(part);
        ASSERT_EQ(
            Kestrum(batch + "--decimal comma --shard " + name + "/2 -o " + name + ".csv").exit, 0);
    }
    ASSERT_EQ(Kestrum("merge 1.csv 2.csv -o m.csv").exit, 0);
    EXPECT_EQ(Read("m.csv"), whole);
}

// Control characters of names and identifiers are a way to forge what a terminal shows.
TEST_F(BatchTables, NothingThatATerminalObeysIsPrinted)
{
    Write("t.csv", "ident,l\n\x1B[2Jgone,5\nb,x\x1B[31m\n");
    Write("u.csv", "\x1B]0;title\x07,l\na,5\n");
    WriteGood("a.kst");
    std::filesystem::rename(Path("a.kst"), Path("\x1B[31ma.kst"));
    for (const char* arguments :
         {"batch t.csv --fields ident,message", "batch t.csv --json --fields ident,message",
          "batch u.csv", "check *.kst", "check --json *.kst", "check --format csv *.kst",
          "dump *.kst", "batch *.kst", "check $(printf '\\033[31mnothing.kst')",
          "$(printf '\\033[31m')", "check --$(printf '\\033[31m') a.kst",
          "set *.kst $(printf 'l\\033=5')", "batch -o $(printf '\\033[31m').txt t.csv"}) {
        const Said said = Kestrum(arguments);
        EXPECT_THAT(said.out + said.err, Not(HasSubstr("\x1B"))) << arguments;
        EXPECT_THAT(said.out + said.err, Not(IsEmpty())) << arguments;
    }
}

// What is held of a stream does not grow with it, and what has to be held has a limit.
TEST_F(BatchTables, ALongStreamIsNotHeldWhole)
{
#if defined(KESTRUM_SANITIZED)
    GTEST_SKIP() << "the sanitizer holds more than the program";
#endif
    const std::string peak = "-f %M -o peak '" KESTRUM_BIN "/kestrum' ";
    if (Shell("command -v /usr/bin/time && /usr/bin/time --version").exit != 0) {
        GTEST_SKIP() << "no program time to measure it";
    }
    const auto megabytes = [this] {
        const std::string text = Read("peak");
        return std::stol(text.substr(text.rfind('\n', text.size() - 2) + 1)) / 1024;
    };
    const Said line = Shell("{ printf 'l\\n5\\n'; head -c 300000000 /dev/zero | tr '\\0' x; } | "
                            "/usr/bin/time " +
                            peak + "batch -");
    EXPECT_THAT(line.err, HasSubstr("the line is too long"));
    EXPECT_LT(megabytes(), 128);
    Shell("{ printf 'l\\n5\\n\"'; yes | head -c 3000000; } | /usr/bin/time " + peak +
          "batch -q - 2>/dev/null | tail -n 1");
    EXPECT_LT(megabytes(), 128);
    const Said project = Shell("head -c 300000000 /dev/zero | /usr/bin/time " + peak + "check -");
    EXPECT_EQ(project.exit, 2);
    EXPECT_EQ(project.err, "kestrum: standard input: is larger than any file of this program\n");
    EXPECT_LT(megabytes(), 256);  // 64 MiB, and as much again while the text grows
}

TEST_F(BatchTables, AReadFaultIsNoEnd)
{
    std::filesystem::create_directory(Path("folder"));
    Write("t.csv", "l\n5\n");
    const Said said = Kestrum("batch -q - <folder");
    EXPECT_EQ(said.exit, 2);
    EXPECT_THAT(said.err, StartsWith("kestrum: standard input: "));
}

}  // namespace
}  // namespace kestrum
