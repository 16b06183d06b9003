#include "run.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <regex>
#include <sstream>

namespace kestrum {
namespace {

using ::testing::HasSubstr;

class ManPage : public CommandLine {
protected:
    // The page with plain hyphens and without changes of the font.
    static std::string Page()
    {
        std::ifstream file(KESTRUM_SOURCE "/packaging/kestrum.1");
        const std::string page{std::istreambuf_iterator<char>(file), {}};
        return std::regex_replace(std::regex_replace(page, std::regex("\\\\-"), "-"),
                                  std::regex("\\\\f[BIR]"), "");
    }
};

TEST_F(ManPage, NamesEveryOptionOfEveryCommand)
{
    const std::string page = Page();
    const std::regex option("^  (-\\w,)?(--[\\w-]+).*");
    int options = 0;
    for (const char* command :
         {"", "check", "dump", "new", "set", "sections", "fields", "vortex", "diagram", "table",
          "report", "batch", "envelope", "optimize", "merge", "summary", "help"}) {
        EXPECT_THAT(page, HasSubstr(std::string("\n.BR ") + command));
        std::istringstream help(Kestrum(std::string(command) + " --help").out);
        std::smatch found;
        for (std::string line; std::getline(help, line);) {
            if (std::regex_match(line, found, option)) {
                EXPECT_THAT(page, HasSubstr(found[2])) << command;
                ++options;
            }
        }
    }
    EXPECT_GT(options, 30);
}

TEST_F(ManPage, IsPrintedWithoutWarnings)
{
    if (std::system("command -v groff >/dev/null") != 0) {
        GTEST_SKIP() << "groff is not here";
    }
    for (const char* page : {"kestrum.1", "kestrum-ec3.1"}) {
        const std::string command =
            std::string("groff -man -Tutf8 -ww -z '" KESTRUM_SOURCE "/packaging/") + page + "' >'" +
            Path("said") + "' 2>&1";
        EXPECT_EQ(std::system(command.c_str()), 0) << page;
        EXPECT_EQ(Read("said"), "") << page;
    }
}

}  // namespace
}  // namespace kestrum
