// Who may change a file at a time, and what of it a save keeps.

#include "core/file_lock.h"

#include "core/file_io.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <filesystem>
#include <string>

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#ifdef __linux__
#include <sys/xattr.h>
#endif

namespace kestrum {
namespace {

namespace fs = std::filesystem;
using std::chrono::milliseconds;

constexpr uid_t kAnn = 12345, kBob = 12346;

class Locked : public ::testing::Test {
protected:
    Locked() { WriteBytes(file_, "old"); }

    std::size_t FilesThere() const
    {
        return static_cast<std::size_t>(
            std::distance(fs::directory_iterator(folder_.path()), fs::directory_iterator()));
    }

    // As another user, in a process of its own; 0 when `child` returns true.
    template <class Child> static int As(uid_t user, const Child& child)
    {
        const pid_t id = fork();
        if (id == 0) {
            const bool changed = setgid(user) == 0 && setuid(user) == 0;
            _exit(changed && child() ? 0 : 1);
        }
        int status = 0;
        waitpid(id, &status, 0);
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

    struct stat Status(const std::string& path) const
    {
        struct stat status {};
        EXPECT_EQ(lstat(path.c_str(), &status), 0) << path;
        return status;
    }

    TemporaryFolder folder_;
    std::string file_ = folder_.File("x.kst");
};

TEST_F(Locked, OneWriterAtATime)
{
    FileLock first;
    ASSERT_EQ(first.Take(file_), "");
    {
        FileLock second;
        EXPECT_EQ(second.Take(file_, milliseconds(20)), kBusy);
    }
    // The lock goes on to the new file.
    ASSERT_EQ(first.Write("new"), "");
    FileLock third;
    EXPECT_EQ(third.Take(file_, milliseconds(20)), kBusy);
    ASSERT_EQ(first.Write("newer"), "");
    EXPECT_EQ(third.Take(file_, milliseconds(20)), kBusy);
    EXPECT_EQ(ReadBytes(file_), "newer");
    EXPECT_EQ(FilesThere(), 1U);
}

TEST_F(Locked, OtherFilesAreFree)
{
    FileLock first, second;
    ASSERT_EQ(first.Take(file_), "");
    WriteBytes(folder_.File("y.kst"), "y");
    EXPECT_EQ(second.Take(folder_.File("y.kst"), milliseconds(0)), "");
    EXPECT_EQ(WriteWholeFile(folder_.File("z.kst"), "z"), "");
}

TEST_F(Locked, TheNextOneGetsTheFileThatHasTheName)
{
    FileLock second;
    {
        FileLock first;
        ASSERT_EQ(first.Take(file_), "");
        ASSERT_EQ(first.Write("new"), "");
    }
    ASSERT_EQ(second.Take(file_, milliseconds(0)), "");
    EXPECT_EQ(second.Write("newer"), "");
    EXPECT_EQ(ReadBytes(file_), "newer");
}

TEST_F(Locked, GoesThroughLinks)
{
    const std::string link = folder_.File("link.kst");
    fs::create_symlink("x.kst", link);
    FileLock first, second;
    ASSERT_EQ(first.Take(link), "");
    EXPECT_EQ(second.Take(file_, milliseconds(0)), kBusy);
    EXPECT_EQ(first.Write("new"), "");
    EXPECT_TRUE(fs::is_symlink(link));
    EXPECT_EQ(ReadBytes(file_), "new");
}

TEST_F(Locked, AFileThatIsNotThereNeedsNone)
{
    const std::string file = folder_.File("new.kst");
    FileLock first, second;
    ASSERT_EQ(first.Take(file), "");
    EXPECT_EQ(second.Take(file, milliseconds(0)), "");
    EXPECT_EQ(first.Write("1"), "");
    EXPECT_EQ(ReadBytes(file), "1");
}

TEST_F(Locked, ReadersDoNotWaitForAReplacingWriter)
{
    FileLock lock;
    ASSERT_EQ(lock.Take(file_), "");
    std::string bytes;
    EXPECT_EQ(ReadWholeFile(file_, bytes), "");
    EXPECT_EQ(bytes, "old");
}

// Its holder reads a file of two names, for which others would have to wait.
TEST_F(Locked, ItsHolderReadsAtOnce)
{
    fs::create_hard_link(file_, folder_.File("y.kst"));
    FileLock lock;
    ASSERT_EQ(lock.Take(file_), "");
    std::string bytes;
    EXPECT_EQ(ReadLockedFile(file_, bytes), "");
    EXPECT_EQ(bytes, "old");
}

TEST(Saving, NeverFollowsAPlantedLink)
{
    const TemporaryFolder folder;
    const std::string file = folder.File("x.kst"), victim = folder.File("victim");
    WriteBytes(file, "old");
    WriteBytes(victim, "precious");
    for (const char* number : {"", "1", "2", "3", "4", "5", "6", "7"}) {
        fs::create_symlink("victim", folder.File(std::string(".x.kst.kestrum-save") + number));
    }
    EXPECT_EQ(WriteWholeFile(file, "new"), "");
    EXPECT_EQ(ReadBytes(file), "new");
    EXPECT_EQ(ReadBytes(victim), "precious");
    EXPECT_TRUE(fs::is_symlink(folder.File(".x.kst.kestrum-save")));
}

TEST(Saving, GoesThroughALinkToAFileThatIsNotThere)
{
    const TemporaryFolder folder;
    fs::create_directory(folder.path() / "sub");
    fs::create_symlink("sub/x.kst", folder.path() / "link.kst");
    EXPECT_EQ(WriteWholeFile(folder.File("link.kst"), "new"), "");
    EXPECT_TRUE(fs::is_symlink(folder.path() / "link.kst"));
    EXPECT_EQ(ReadBytes(folder.File("sub/x.kst")), "new");
    fs::create_symlink("loop.kst", folder.path() / "loop.kst");
    EXPECT_NE(WriteWholeFile(folder.File("loop.kst"), "new"), "");
}

TEST_F(Locked, SavingKeepsHardLinks)
{
    const std::string other = folder_.File("other.kst");
    fs::create_hard_link(file_, other);
    EXPECT_EQ(WriteWholeFile(file_, "new and longer"), "");
    EXPECT_EQ(ReadBytes(other), "new and longer");
    EXPECT_EQ(WriteWholeFile(other, "n"), "");
    EXPECT_EQ(ReadBytes(file_), "n");
    EXPECT_EQ(FilesThere(), 2U);
}

TEST_F(Locked, SavingKeepsOwnerAndGroup)
{
    if (geteuid() != 0) {
        GTEST_SKIP() << "needs root";
    }
    ASSERT_EQ(chown(file_.c_str(), kAnn, kBob), 0);
    ASSERT_EQ(chmod(file_.c_str(), 0640), 0);
    EXPECT_EQ(WriteWholeFile(file_, "new"), "");
    EXPECT_EQ(ReadBytes(file_), "new");
    EXPECT_EQ(Status(file_).st_uid, kAnn);
    EXPECT_EQ(Status(file_).st_gid, kBob);
    EXPECT_EQ(Status(file_).st_mode & 07777, 0640U);
}

// Bob may write the file but not give it away: it is written in place.
TEST_F(Locked, SavingTheFileOfAnotherUserKeepsItHis)
{
    if (geteuid() != 0) {
        GTEST_SKIP() << "needs root";
    }
    ASSERT_EQ(chmod(folder_.path().c_str(), 0777), 0);
    ASSERT_EQ(chown(file_.c_str(), kAnn, kBob), 0);
    ASSERT_EQ(chmod(file_.c_str(), 0664), 0);
    const ino_t before = Status(file_).st_ino;
    EXPECT_EQ(As(kBob, [&] { return WriteWholeFile(file_, "Bob's").empty(); }), 0);
    EXPECT_EQ(ReadBytes(file_), "Bob's");
    EXPECT_EQ(Status(file_).st_ino, before);
    EXPECT_EQ(Status(file_).st_uid, kAnn);
    EXPECT_EQ(FilesThere(), 1U);
    ASSERT_EQ(chmod(file_.c_str(), 0644), 0);
    EXPECT_EQ(As(kBob, [&] { return WriteWholeFile(file_, "no") == "Permission denied"; }), 0);
    EXPECT_EQ(ReadBytes(file_), "Bob's");
    EXPECT_EQ(FilesThere(), 1U);
}

// In a folder such as /tmp no one can delete what another one has left.
TEST_F(Locked, ANeighbourOfAnotherUserBlocksNothing)
{
    if (geteuid() != 0) {
        GTEST_SKIP() << "needs root";
    }
    ASSERT_EQ(chmod(folder_.path().c_str(), 01777), 0);
    ASSERT_EQ(chown(file_.c_str(), kBob, kBob), 0);
    for (const char* name : {".x.kst.kestrum-save", "x.kst.kestrum-copy"}) {
        WriteBytes(folder_.File(name), "stale");
        ASSERT_EQ(chown(folder_.File(name).c_str(), kAnn, kAnn), 0);
        ASSERT_EQ(chmod(folder_.File(name).c_str(), 0600), 0);
    }
    const auto readandsave = [&] {
        std::string bytes;
        return ReadWholeFile(file_, bytes).empty() && bytes == "old" &&
               WriteWholeFile(file_, "new").empty();
    };
    EXPECT_EQ(As(kBob, readandsave), 0);
    EXPECT_EQ(ReadBytes(file_), "new");
    EXPECT_EQ(FilesThere(), 3U);
}

#ifdef __linux__
// Owner rw, user 12345 r, group r, mask r, others none, as the system keeps it.
TEST_F(Locked, SavingKeepsAccessListAndExtendedAttributes)
{
    constexpr std::array<unsigned char, 44> kList = {
        2, 0,  0,    0,    1,    0,    6,  0, 0xFF, 0xFF, 0xFF, 0xFF, 2,    0,   4,
        0, 57, 48,   0,    0,    4,    0,  4, 0,    0xFF, 0xFF, 0xFF, 0xFF, 16,  0,
        4, 0,  0xFF, 0xFF, 0xFF, 0xFF, 32, 0, 0,    0,    0xFF, 0xFF, 0xFF, 0xFF};
    const bool list =
        setxattr(file_.c_str(), "system.posix_acl_access", kList.data(), kList.size(), 0) == 0;
    const bool note = setxattr(file_.c_str(), "user.note", "mine", 4, 0) == 0;
    if (!list && !note) {
        GTEST_SKIP() << "this file system has neither";
    }
    EXPECT_EQ(WriteWholeFile(file_, "new"), "");
    EXPECT_EQ(ReadBytes(file_), "new");
    std::array<char, 100> value{};
    if (list) {
        EXPECT_EQ(getxattr(file_.c_str(), "system.posix_acl_access", value.data(), value.size()),
                  static_cast<ssize_t>(kList.size()));
    }
    if (note) {
        ASSERT_EQ(getxattr(file_.c_str(), "user.note", value.data(), value.size()), 4);
        EXPECT_EQ(std::string(value.data(), 4), "mine");
    }
}
#endif

}  // namespace
}  // namespace kestrum
