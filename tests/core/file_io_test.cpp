#include "core/file_io.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#ifndef _WIN32
#include <csignal>
#include <sys/resource.h>
#include <unistd.h>
#endif

namespace kestrum {
namespace {

namespace fs = std::filesystem;

// A fresh folder for each test.
class FileIo : public ::testing::Test {
protected:
    void SetUp() override
    {
        const std::string test = ::testing::UnitTest::GetInstance()->current_test_info()->name();
        folder_ = fs::temp_directory_path() /
                  ("kestrum_file_io_" + std::to_string(::getpid()) + "_" + test);
        fs::remove_all(folder_);
        fs::create_directories(folder_);
    }
    void TearDown() override { fs::remove_all(folder_); }

    std::string Path(const std::string& name) const { return (folder_ / name).string(); }

    std::vector<std::string> Files() const
    {
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(folder_)) {
            names.push_back(entry.path().filename().string());
        }
        std::sort(names.begin(), names.end());
        return names;
    }

    void Put(const std::string& name, const std::string& bytes) const
    {
        std::ofstream(Path(name), std::ios::binary) << bytes;
    }

    std::string Content(const std::string& name) const
    {
        std::string bytes;
        EXPECT_EQ(ReadWholeFile(Path(name), bytes), "");
        return bytes;
    }

private:
    fs::path folder_;
};

using Names = std::vector<std::string>;

TEST_F(FileIo, WritesAndReadsAnyBytes)
{
    std::string bytes;
    for (int i = 0; i < 300000; ++i) {
        bytes.push_back(static_cast<char>(i * 7));
    }
    for (const std::string& content : {bytes, std::string{}, std::string("a\r\nb\0c\n", 7)}) {
        EXPECT_EQ(WriteWholeFile(Path("x.kst"), content), "");
        EXPECT_EQ(Content("x.kst"), content);
    }
    EXPECT_EQ(Files(), (Names{"x.kst"}));
}

TEST_F(FileIo, ReplacesALongerFile)
{
    Put("x.kst", std::string(5000, 'a'));
    EXPECT_EQ(WriteWholeFile(Path("x.kst"), "short"), "");
    EXPECT_EQ(Content("x.kst"), "short");
}

TEST_F(FileIo, TakesNamesOfEveryKind)
{
    for (const std::string& name :
         {std::string("St\xC3\xBCtze 1, \"a\".kst"), std::string("-o"), std::string(250, 'n')}) {
        EXPECT_EQ(WriteWholeFile(Path(name), "1"), "") << name;
        EXPECT_EQ(Content(name), "1");
    }
    EXPECT_EQ(Files().size(), 3U);
}

TEST_F(FileIo, TakesAPathWithoutFolder)
{
    const fs::path before = fs::current_path();
    fs::current_path(Path(""));
    EXPECT_EQ(WriteWholeFile("x.kst", "here"), "");
    fs::current_path(before);
    EXPECT_EQ(Content("x.kst"), "here");
    EXPECT_EQ(Files(), (Names{"x.kst"}));
}

TEST_F(FileIo, TellsWhyAFileCannotBeRead)
{
    std::string bytes = "before";
    EXPECT_EQ(ReadWholeFile(Path("none.kst"), bytes), "no such file");
    EXPECT_EQ(bytes, "");
    EXPECT_EQ(ReadWholeFile("", bytes), "no such file");
    EXPECT_EQ(ReadWholeFile(Path(""), bytes), "is a directory");
    Put("x.kst", "1");
    EXPECT_NE(ReadWholeFile(Path("x.kst/y.kst"), bytes), "");
    EXPECT_NE(ReadWholeFile(Path(std::string(5000, 'n')), bytes), "");
}

TEST_F(FileIo, RefusesALargeFileWithoutReadingIt)
{
    Put("large.kst", "");
    fs::resize_file(Path("large.kst"), std::uintmax_t{1} << 40);  // holes only
    std::string bytes;
    EXPECT_EQ(ReadWholeFile(Path("large.kst"), bytes), "is larger than any file of this program");
    EXPECT_EQ(bytes.capacity(), std::string{}.capacity());

    fs::resize_file(Path("large.kst"), kLargestFile + 1);
    EXPECT_NE(ReadWholeFile(Path("large.kst"), bytes), "");
    fs::resize_file(Path("large.kst"), kLargestFile);
    EXPECT_EQ(ReadWholeFile(Path("large.kst"), bytes), "");
    EXPECT_EQ(bytes.size(), kLargestFile);
}

TEST_F(FileIo, TellsWhyAFileCannotBeWritten)
{
    EXPECT_NE(WriteWholeFile(Path("none/x.kst"), "1"), "");
    EXPECT_EQ(WriteWholeFile(Path(""), "1"), "is a directory");
    EXPECT_NE(WriteWholeFile("", "1"), "");
    EXPECT_NE(WriteWholeFile(Path(std::string(5000, 'n')), "1"), "");
    EXPECT_EQ(Files(), Names{});
    Put("x.kst", "old");
    EXPECT_NE(WriteWholeFile(Path("x.kst/y.kst"), "1"), "");
    EXPECT_EQ(Files(), (Names{"x.kst"}));
    EXPECT_EQ(Content("x.kst"), "old");
}

TEST_F(FileIo, LeavesAWriteProtectedFileAlone)
{
    Put("x.kst", "old");
    fs::permissions(Path("x.kst"), fs::perms::owner_read);
    EXPECT_EQ(WriteWholeFile(Path("x.kst"), "new"), "is write-protected");
    EXPECT_EQ(Content("x.kst"), "old");
    EXPECT_EQ(Files(), (Names{"x.kst"}));
}

TEST_F(FileIo, ClearsWhatACrashLeftBehind)
{
    Put("x.kst", "old");
    Put(".x.kst.kestrum-save", "half a file that is longer than the new one");
    EXPECT_EQ(WriteWholeFile(Path("x.kst"), "new"), "");
    EXPECT_EQ(Content("x.kst"), "new");
    EXPECT_EQ(Files(), (Names{"x.kst"}));
}

#ifndef _WIN32
TEST_F(FileIo, KeepsLinkAndPermissions)
{
    Put("x.kst", "old");
    fs::permissions(Path("x.kst"), fs::perms::owner_read | fs::perms::owner_write);
    fs::create_symlink("x.kst", Path("link.kst"));
    EXPECT_EQ(WriteWholeFile(Path("link.kst"), "new"), "");
    EXPECT_TRUE(fs::is_symlink(Path("link.kst")));
    EXPECT_EQ(Content("x.kst"), "new");
    EXPECT_EQ(fs::status(Path("x.kst")).permissions(),
              fs::perms::owner_read | fs::perms::owner_write);
}

TEST_F(FileIo, ReportsAFullDisk)
{
    if (!fs::exists("/dev/full")) {
        GTEST_SKIP() << "no /dev/full";
    }
    EXPECT_NE(WriteWholeFile("/dev/full", "1"), "");
    EXPECT_NE(WriteWholeFile("/dev/full", std::string(1000000, 'x')), "");
    EXPECT_TRUE(fs::is_character_file("/dev/full"));
    EXPECT_EQ(WriteWholeFile("/dev/null", "1"), "");
}

TEST_F(FileIo, EndsAnEndlessSource)
{
    std::string bytes;
    EXPECT_EQ(ReadWholeFile("/dev/zero", bytes), "is larger than any file of this program");
    EXPECT_EQ(bytes, "");
}

// The disk fills up half-way: the old file stays whole and nothing stays beside it.
TEST_F(FileIo, KeepsTheOldFileWhenWritingFails)
{
    Put("x.kst", "old");
    rlimit before{};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &before), 0);
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    const rlimit small{4096, before.rlim_max};
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
    const std::string problem = WriteWholeFile(Path("x.kst"), std::string(1000000, 'n'));
    const std::string other = WriteWholeFile(Path("y.kst"), std::string(1000000, 'n'));
    setrlimit(RLIMIT_FSIZE, &before);
    std::signal(SIGXFSZ, handler);

    EXPECT_NE(problem, "");
    EXPECT_NE(other, "");
    EXPECT_EQ(Content("x.kst"), "old");
    EXPECT_EQ(Files(), (Names{"x.kst"}));
}
#endif

}  // namespace
}  // namespace kestrum
