// The start of the desktop program from a shell, without a display.

#include "cli/run.h"

#include <gmock/gmock.h>

namespace kestrum {
namespace {

using ::testing::StartsWith;

class DesktopStart : public CommandLine {
protected:
    void SetUp() override
    {
        if (!std::filesystem::exists(KESTRUM_BIN "/kestrum-ec3")) {
            GTEST_SKIP() << "the desktop is not built";
        }
    }

    Said Desktop(const std::string& arguments) const
    {
        return Shell("unset DISPLAY WAYLAND_DISPLAY QT_QPA_PLATFORM; timeout 60 '" KESTRUM_BIN
                     "/kestrum-ec3' " +
                     arguments);
    }
};

TEST_F(DesktopStart, HelpAndVersionPrintAndEnd)
{
    for (const char* option : {"--version", "-V"}) {
        const Said said = Desktop(option);
        EXPECT_EQ(said.exit, 0);
        EXPECT_EQ(said.out, "kestrum-ec3 " + Kestrum("--version").out.substr(8));
        EXPECT_EQ(said.err, "");
    }
    for (const char* option : {"--help", "-h"}) {
        const Said said = Desktop(option);
        EXPECT_EQ(said.exit, 0);
        EXPECT_THAT(said.out, StartsWith("Usage: kestrum-ec3 [FILE]\n"));
        EXPECT_EQ(said.err, "");
    }
}

TEST_F(DesktopStart, WithoutADisplayItSaysSo)
{
    for (const char* environment : {"", "DISPLAY=:7777 ", "WAYLAND_DISPLAY=none "}) {
        const Said said =
            Shell("unset DISPLAY WAYLAND_DISPLAY QT_QPA_PLATFORM; " + std::string(environment) +
                  "timeout 60 '" KESTRUM_BIN "/kestrum-ec3'");
        EXPECT_EQ(said.exit, 2) << environment;
        EXPECT_THAT(said.err, StartsWith("kestrum-ec3: no display to open a window on"));
    }
}

}  // namespace
}  // namespace kestrum
