// What the command line says of itself and of lines that it cannot take.

#include "cli/run.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

#include <algorithm>

namespace kestrum {
namespace {

using nlohmann::json;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::StartsWith;

class Manners : public CommandLine {};

std::ptrdiff_t Count(const std::string& text, const std::string& word)
{
    std::ptrdiff_t count = 0;
    for (std::size_t at = 0; (at = text.find(word, at)) != std::string::npos; ++at) {
        ++count;
    }
    return count;
}

TEST_F(Manners, VersionHasAShortOption)
{
    EXPECT_EQ(Kestrum("-V").out, Kestrum("--version").out);
    EXPECT_EQ(Kestrum("-V").exit, 0);
}

TEST_F(Manners, HelpOfACommandIsThatOfItsOption)
{
    for (const char* command : {"check", "dump", "new", "set", "sections", "vortex", "diagram",
                                "table", "report", "batch", "envelope", "help"}) {
        const Said said = Kestrum(std::string("help ") + command);
        EXPECT_EQ(said.exit, 0) << command;
        EXPECT_EQ(said.out, Kestrum(std::string(command) + " --help").out) << command;
        EXPECT_THAT(said.out, HasSubstr("Usage: kestrum " + std::string(command)));
    }
    EXPECT_EQ(Kestrum("help").out, Kestrum("--help").out);
    const Said wrong = Kestrum("help chek");
    EXPECT_EQ(wrong.exit, 2);
    EXPECT_EQ(wrong.err, "kestrum: chek: no such command; did you mean check?\n");
}

TEST_F(Manners, AWrongOptionIsNamedWithTheNearest)
{
    EXPECT_THAT(
        Kestrum("check a.kst --loadcas").err,
        StartsWith("kestrum: check: --loadcas: no such option; did you mean --loadcase?\n"));
    // Also when something else is missing, and for an option of the program.
    EXPECT_THAT(Kestrum("check --quite").err,
                StartsWith("kestrum: check: --quite: no such option; did you mean --quiet?\n"));
    EXPECT_THAT(Kestrum("batch --feilds=ident a.csv").err,
                StartsWith("kestrum: batch: --feilds: no such option; did you mean --fields?\n"));
    EXPECT_THAT(Kestrum("--versoin").err,
                StartsWith("kestrum: --versoin: no such option; did you mean --version?\n"));
    EXPECT_THAT(Kestrum("check --nothing-like-it a.kst").err,
                StartsWith("kestrum: check: --nothing-like-it: no such option\n"));
    EXPECT_THAT(Kestrum("vortex a.kst b.kst").err,
                StartsWith("kestrum: vortex: b.kst: one argument too many\n"));
    EXPECT_EQ(Kestrum("vortex a.kst b.kst").exit, 2);
}

TEST_F(Manners, ColoursAreForTerminalsAndOnRequest)
{
    WriteGood("a.kst");
    const std::string plain = Kestrum("check a.kst").out;
    EXPECT_THAT(plain, Not(HasSubstr("\x1B")));
    const std::string coloured = Kestrum("check --color=always a.kst").out;
    EXPECT_THAT(coloured, HasSubstr("\x1B[32mwithin limits"));
    EXPECT_THAT(Shell("NO_COLOR=1 '" KESTRUM_BIN "/kestrum' check --color=always a.kst").out,
                HasSubstr("\x1B["));
    const Said wrong = Kestrum("check --color=perhaps a.kst");
    EXPECT_EQ(wrong.exit, 2);
    EXPECT_THAT(wrong.err, HasSubstr("perhaps is none of auto|always|never"));
    if (Shell("command -v script").exit != 0) {
        GTEST_SKIP() << "no program script to give it a terminal";
    }
    const auto shown = [this](const std::string& environment, const std::string& options) {
        Write("run.sh", environment + " '" KESTRUM_BIN "/kestrum' check " + options + " a.kst\n");
        return Shell("SHELL=/bin/sh script -qec 'sh run.sh' /dev/null").out;
    };
    EXPECT_THAT(shown("TERM=xterm NO_COLOR=", ""), HasSubstr("\x1B[32m"));
    EXPECT_THAT(shown("TERM=xterm NO_COLOR=1", ""), Not(HasSubstr("\x1B")));
    EXPECT_THAT(shown("TERM=dumb NO_COLOR=", ""), Not(HasSubstr("\x1B")));
    EXPECT_THAT(shown("TERM=xterm NO_COLOR=", "--color never"), Not(HasSubstr("\x1B")));
}

TEST_F(Manners, AnErrorIsPrintedOnce)
{
    Write("bad.kst", "131\r\nabc");
    for (const std::string file : {"nothing.kst", "bad.kst"}) {
        const Said said = Shell("'" KESTRUM_BIN "/kestrum' check " + file + " 2>&1");
        EXPECT_EQ(said.exit, 2);
        EXPECT_EQ(Count(said.out, "no such file") + Count(said.out, "expected"), 1) << said.out;
    }
    WriteGood("good.kst");
    ASSERT_EQ(Kestrum("set good.kst -o failed.kst nload[1]=100000 method=1 --raw").exit, 0);
    const Said failed = Shell("'" KESTRUM_BIN "/kestrum' check failed.kst 2>&1");
    EXPECT_EQ(Count(failed.out, "Calculation Error"), 1) << failed.out;
}

TEST_F(Manners, QuietAnswersByTheExitAlone)
{
    WriteGood("good.kst");
    ASSERT_EQ(Kestrum("set good.kst -o above.kst qload[1]=1000").exit, 0);
    const Said said = Kestrum("check -q good.kst above.kst");
    EXPECT_EQ(said.exit, 1);
    EXPECT_THAT(said.out + said.err, IsEmpty());
    EXPECT_THAT(Kestrum("-q check nothing.kst").err, HasSubstr("no such file"));
    EXPECT_THAT(Kestrum("set good.kst -o b.kst bucklingcasez=1").err, HasSubstr("as well"));
    EXPECT_THAT(Kestrum("-q set good.kst -o b.kst bucklingcasez=1").err, IsEmpty());
    EXPECT_THAT(Kestrum("batch -q good.kst").err, IsEmpty());
}

TEST_F(Manners, ExitZeroIsForVerdictsNotForWhatCannotBeRead)
{
    WriteGood("good.kst");
    ASSERT_EQ(Kestrum("set good.kst -o above.kst qload[1]=1000").exit, 0);
    Write("t.csv", "l,qload[1]\n5,1\n5,4000\nx,1\n");
    EXPECT_EQ(Kestrum("check above.kst").exit, 1);
    EXPECT_EQ(Kestrum("check --exit-zero above.kst").exit, 0);
    EXPECT_EQ(Kestrum("check --exit-zero above.kst nothing.kst").exit, 2);
    EXPECT_EQ(Kestrum("batch t.csv").exit, 2);
    EXPECT_EQ(Kestrum("batch --exit-zero t.csv").exit, 0);
    Write("bad.csv", "lenght\n5\n");
    EXPECT_EQ(Kestrum("batch --exit-zero t.csv bad.csv").exit, 2);
    EXPECT_EQ(Kestrum("batch --exit-zero nothing.csv").exit, 2);
}

TEST_F(Manners, ADryRunTellsAndWritesNothing)
{
    WriteGood("a.kst");
    const std::string before = Read("a.kst");
    const Said said = Kestrum("set --dry-run a.kst l=7.5 supportcase=4");
    EXPECT_EQ(said.exit, 0);
    EXPECT_THAT(said.out, HasSubstr("l: 3 -> 7.5\n"));
    EXPECT_THAT(said.out, HasSubstr("supportcase: 0 -> 4\n"));
    EXPECT_EQ(Read("a.kst"), before);
    EXPECT_EQ(Kestrum("set --dry-run a.kst l=3").out, "nothing changes\n");
    EXPECT_EQ(Kestrum("set --dry-run a.kst l=-3").exit, 2);
    EXPECT_EQ(Read("a.kst"), before);
}

TEST_F(Manners, SeveralFilesAreDumpedAsAList)
{
    WriteGood("a.kst");
    WriteGood("b.kst");
    const json list = json::parse(Kestrum("dump a.kst b.kst").out);
    ASSERT_EQ(list.size(), 2U);
    EXPECT_EQ(list[0], json::parse(Kestrum("dump a.kst").out));
    EXPECT_EQ(list[1]["filename"], "b.kst");
    const Said some = Kestrum("dump --inputs a.kst nothing.kst b.kst");
    EXPECT_EQ(some.exit, 2);
    EXPECT_EQ(json::parse(some.out).size(), 2U);
    EXPECT_EQ(some.err, "kestrum: nothing.kst: no such file\n");
}

TEST_F(Manners, SeveralFilesAreNotPrintedOnOnePage)
{
    WriteGood("a.kst");
    const Said said = Kestrum("report control a.kst a.kst -o a.svg");
    EXPECT_EQ(said.exit, 2);
    EXPECT_EQ(said.err, "kestrum: a.svg: several files go into one .pdf only\n");
    // What is printed lacks no member.
    const Said lacking = Kestrum("report control a.kst nothing.kst -o a.pdf");
    EXPECT_EQ(lacking.exit, 2);
    EXPECT_FALSE(std::filesystem::exists(Path("a.pdf")));
    const Said over = Kestrum("report control a.kst a.pdf -o a.pdf");
    EXPECT_EQ(over.exit, 2);
}

}  // namespace
}  // namespace kestrum
