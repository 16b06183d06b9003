#include "app/platform.h"

#include "support/delivered.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <fstream>
#include <iterator>

#ifdef _WIN32
#include "support/temporary_folder.h"

#include <windows.h>
#endif

namespace kestrum {
namespace {

using ::testing::ElementsAre;

TEST(BehindProgramName, IsWhatWasTyped)
{
    EXPECT_EQ(BehindProgramName(R"(kestrum-ec3 "C:\a b\x.kst")"), R"("C:\a b\x.kst")");
    EXPECT_EQ(BehindProgramName(R"("C:\Program Files\kestrum-ec3.exe"  "x.kst" )"), R"("x.kst")");
    EXPECT_EQ(BehindProgramName("kestrum-ec3\tx.kst y"), "x.kst y");
    EXPECT_EQ(BehindProgramName(R"("k"x.kst)"), "x.kst");
}

TEST(BehindProgramName, IsEmptyWithoutArguments)
{
    for (const char* line : {"", "  ", "kestrum-ec3", "kestrum-ec3.exe ", R"("C:\a b\k.exe")",
                             R"("C:\a b\k.exe" )", R"("never closed x.kst)", R"(")"}) {
        EXPECT_EQ(BehindProgramName(line), "") << line;
    }
}

TEST(ManualFolder, LiesWhereThePlatformKeepsIt)
{
    EXPECT_EQ(ManualFolder("/usr/bin", Platform::linux_desktop), "/usr/share/doc/kestrum-ec3/");
    EXPECT_EQ(ManualFolder("/home/a b/build/bin/", Platform::linux_desktop),
              "/home/a b/build/share/doc/kestrum-ec3/");
    EXPECT_EQ(ManualFolder("/Applications/Kestrum.app/Contents/MacOS", Platform::macos),
              "/Applications/Kestrum.app/Contents/Resources/Help/");
    EXPECT_EQ(ManualFolder("C:/Program Files/Kestrum", Platform::windows),
              "C:/Program Files/Kestrum\\Help\\");
    EXPECT_EQ(ManualFolder("/usr/bin"), ManualFolder("/usr/bin", kPlatform));
}

#ifndef _WIN32

TEST(CommandLine, PutsTheFirstArgumentBackIntoQuotes)
{
    std::string program = "kestrum-ec3", file = "/a b/x.kst", more = "y";
    std::array<char*, 4> argv{program.data(), file.data(), more.data(), nullptr};
    EXPECT_EQ(RawCommandLine(3, argv.data()), "\"/a b/x.kst\"");
    EXPECT_EQ(RawCommandLine(1, argv.data()), "");
    EXPECT_THAT(Arguments(3, argv.data()), ElementsAre(program, file, more));
}

#else

// Started by the test below, which reads the file that it leaves.
TEST(CommandLine, OfAProcessThatWasAsked)
{
    const char* const answer = std::getenv("KESTRUM_ANSWER");
    if (answer == nullptr) {
        GTEST_SKIP() << "nobody asks";
    }
    std::ofstream file(answer, std::ios::binary);
    file << RawCommandLine(0, nullptr) << '\n';
    for (const std::string& argument : Arguments(0, nullptr)) {
        file << argument << '\n';
    }
}

TEST(CommandLine, ArrivesAsItWasTypedInUtf8)
{
    const TemporaryFolder folder;
    const std::string answer = folder.File("answer.txt");
    ASSERT_EQ(_putenv_s("KESTRUM_ANSWER", answer.c_str()), 0);
    std::array<wchar_t, 1024> program{};
    ASSERT_GT(GetModuleFileNameW(nullptr, program.data(), program.size()), 0U);
    const std::wstring filter = L"--gtest_filter=CommandLine.OfAProcessThatWasAsked";
    const std::wstring typed = filter + L"  \"C:\\Tr\u00e4ger \u00f8\\x.kst\"";
    std::wstring line = L"\"" + std::wstring(program.data()) + L"\" " + typed + L" ";
    STARTUPINFOW start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION process{};
    ASSERT_NE(CreateProcessW(program.data(), line.data(), nullptr, nullptr, FALSE, 0, nullptr,
                             nullptr, &start, &process),
              0);
    EXPECT_EQ(WaitForSingleObject(process.hProcess, 60000), WAIT_OBJECT_0);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    _putenv_s("KESTRUM_ANSWER", "");

    std::ifstream file(answer, std::ios::binary);
    const std::string told{std::istreambuf_iterator<char>(file), {}};
    const std::string path = "C:\\Tr\xc3\xa4ger \xc3\xb8\\x.kst";
    const std::string option = "--gtest_filter=CommandLine.OfAProcessThatWasAsked";
    EXPECT_EQ(told.substr(0, told.find('\n')), option + "  \"" + path + "\"");
    EXPECT_THAT(told, ::testing::EndsWith("\n" + option + "\n" + path + "\n"));
}

TEST(DataFolders, AreTheFixedFolderOfTheProductOnWindows)
{
    const std::string fixed = "C:\\ProgramData\\Dorvane 2020\\Kestrum EC3\\";
    EXPECT_EQ(UserDataFolder(), fixed);
    EXPECT_THAT(DataFolders(), ElementsAre(fixed));
}

#endif

}  // namespace
}  // namespace kestrum
