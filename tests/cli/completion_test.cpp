// The completions of bash, zsh and fish, asked by the shells themselves.

#include "run.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <regex>
#include <sstream>
#include <vector>

namespace kestrum {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::IsSupersetOf;
using ::testing::Not;
using ::testing::UnorderedElementsAre;
using ::testing::UnorderedElementsAreArray;

using Words = std::vector<std::string>;

class Completion : public CommandLine, public ::testing::WithParamInterface<const char*> {
protected:
    void SetUp() override
    {
        const std::string present = std::string("command -v ") + GetParam() + " >/dev/null";
        if (std::system(present.c_str()) != 0) {
            GTEST_SKIP() << GetParam() << " is not here";
        }
    }

    // What stands after `line`, in no order.
    Words Complete(const std::string& line) const
    {
        const std::string shell = GetParam();
        const std::string options = shell == "bash"  ? " --norc --noprofile "
                                    : shell == "zsh" ? " -f "
                                                     : " --no-config ";
        // A leak check stops its own process, for which a shell with job control waits for ever.
        const std::string command =
            "export ASAN_OPTIONS=detect_leaks=0; cd '" + Path(".") + "' && HOME='" + Path(".") +
            "' XDG_DATA_HOME='" + Path(".") + "' KESTRUM_DATA= PATH='" KESTRUM_BIN "':\"$PATH\" " +
            shell + options + "'" KESTRUM_SOURCE "/tests/cli/complete." + shell +
            "' '" KESTRUM_SOURCE "/packaging/completion' '" + line + "' >.offered 2>.complaint";
        EXPECT_EQ(std::system(command.c_str()), 0) << line << '\n' << Read(".complaint");
        EXPECT_THAT(Read(".complaint"), IsEmpty()) << line;
        std::istringstream offered(Read(".offered"));
        Words words;
        for (std::string word; std::getline(offered, word);) {
            if (!word.empty()) {
                words.push_back(word);
            }
        }
        return words;
    }

    // The long options that the help of a command lists, and those of the program that it takes
    // too.
    Words Options(const std::string& command) const
    {
        Words options{"--data", "--setup", "--color", "--quiet"};
        std::istringstream help(Kestrum(command + " --help").out);
        const std::regex option("^  (-\\w,)?(--[\\w-]+).*");
        std::smatch found;
        for (std::string line; std::getline(help, line);) {
            if (std::regex_match(line, found, option)) {
                options.push_back(found[2]);
            }
        }
        return options;
    }
};

TEST_P(Completion, OffersTheCommands)
{
    EXPECT_THAT(Complete("kestrum "),
                UnorderedElementsAre("check", "dump", "new", "set", "sections", "fields", "vortex",
                                     "diagram", "table", "report", "batch", "envelope", "optimize",
                                     "merge", "summary", "help"));
    EXPECT_THAT(Complete("kestrum che"), ElementsAre("check"));
    EXPECT_THAT(Complete("kestrum --setup a.dat rep"), ElementsAre("report"));
}

TEST_P(Completion, OffersTheOptionsOfEachCommand)
{
    for (const char* command :
         {"check", "dump", "new", "set", "sections", "fields", "vortex", "diagram", "table",
          "report", "batch", "envelope", "optimize", "merge", "summary", "help"}) {
        EXPECT_THAT(Complete(std::string("kestrum ") + command + " --"),
                    UnorderedElementsAreArray(Options(command)))
            << command;
    }
}

TEST_P(Completion, OffersProjects)
{
    Write("beam.kst", "");
    Write("a b.kst", "");
    for (const char* command : {"check", "check beam.kst", "dump beam.kst", "report control",
                                "report control beam.kst", "set", "vortex"}) {
        EXPECT_THAT(Complete(std::string("kestrum ") + command + " "),
                    IsSupersetOf({"beam.kst", "a b.kst"}))
            << command;
    }
    EXPECT_THAT(Complete("kestrum sections 4 "), Not(Contains("beam.kst")));
}

TEST_P(Completion, OffersValues)
{
    EXPECT_THAT(Complete("kestrum report "),
                UnorderedElementsAre("control", "section", "vortex", "full"));
    EXPECT_THAT(Complete("kestrum check --format "), UnorderedElementsAre("text", "json", "csv"));
    EXPECT_THAT(Complete("kestrum vortex --format "), UnorderedElementsAre("text", "json"));
    EXPECT_THAT(Complete("kestrum batch --format "), UnorderedElementsAre("csv", "json", "ndjson"));
    EXPECT_THAT(Complete("kestrum diagram --axis "), UnorderedElementsAre("z", "y"));
    EXPECT_THAT(Complete("kestrum check --color "),
                UnorderedElementsAre("auto", "always", "never"));
    EXPECT_THAT(Complete("kestrum help che"), ElementsAre("check"));
}

TEST_P(Completion, OffersFamiliesAndFieldsOfTheProgram)
{
    EXPECT_THAT(Complete("kestrum sections 10"), UnorderedElementsAre("10", "101", "102", "103"));
    EXPECT_THAT(Complete("kestrum new --family 2"),
                UnorderedElementsAre("2", "21", "22", "23", "24", "25", "26", "27", "28"));
    EXPECT_THAT(Complete("kestrum fields qloa"), ElementsAre("qload"));
    EXPECT_THAT(Complete("kestrum set beam.kst qlo"), ElementsAre("qload["));
    EXPECT_THAT(Complete("kestrum new --set gammam"), UnorderedElementsAre("gammam0=", "gammam1="));
}

INSTANTIATE_TEST_SUITE_P(Shells, Completion, ::testing::Values("bash", "zsh", "fish"),
                         [](const auto& shell) { return std::string(shell.param); });

}  // namespace
}  // namespace kestrum
