// What a save leaves behind when the system fails it: the old file or the new one, never a third,
// and nothing beside it after the next save. A file of two names is written in place; there a copy
// holds the new one until it is done. Calls of the system are counted and made to fail by
// functions of the same names in this program, which the linker takes first.

#include "core/file_io.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <dlfcn.h>
#include <fcntl.h>
#include <filesystem>
#include <iostream>
#include <random>
#include <string>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

struct Plan {
    int failfrom = 0;  // number of the first call that fails; 0 none
    int failto = 0;    // and of the last
    bool die = false;  // ends the process there instead
    int calls = 0;
    mode_t mode = 0;  // of the file at the last writing of bytes
};
Plan plan;

// Whether this call is to fail.
bool Fails()
{
    ++plan.calls;
    if (plan.failfrom == 0 || plan.calls < plan.failfrom || plan.calls > plan.failto) {
        return false;
    }
    if (plan.die) {
        _exit(0);
    }
    errno = ENOSPC;
    return true;
}

template <class Function> Function* Next(const char* name)
{
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

}  // namespace

extern "C" {

int open(const char* path, int flags, ...)
{
    static auto* const real = Next<int(const char*, int, ...)>("open");
    std::va_list rest;
    va_start(rest, flags);
    const auto mode = (flags & O_CREAT) != 0 ? va_arg(rest, mode_t) : 0;
    va_end(rest);
    return Fails() ? -1 : real(path, flags, mode);
}

int flock(int file, int kind) noexcept
{
    static auto* const real = Next<int(int, int)>("flock");
    return Fails() ? -1 : real(file, kind);
}

int fchmod(int file, mode_t mode) noexcept
{
    static auto* const real = Next<int(int, mode_t)>("fchmod");
    return Fails() ? -1 : real(file, mode);
}

ssize_t pwrite(int file, const void* data, std::size_t size, off_t at)
{
    static auto* const real = Next<ssize_t(int, const void*, std::size_t, off_t)>("pwrite");
    struct stat status {};
    plan.mode = fstat(file, &status) == 0 ? status.st_mode & 07777 : 0;
    if (Fails()) {
        real(file, data, size / 2, at);  // half of it is there
        errno = ENOSPC;
        return -1;
    }
    return real(file, data, size, at);
}

int ftruncate(int file, off_t size) noexcept
{
    static auto* const real = Next<int(int, off_t)>("ftruncate");
    return Fails() ? -1 : real(file, size);
}

int fallocate(int file, int mode, off_t from, off_t size)
{
    static auto* const real = Next<int(int, int, off_t, off_t)>("fallocate");
    return Fails() ? -1 : real(file, mode, from, size);
}

int fsync(int file)
{
    static auto* const real = Next<int(int)>("fsync");
    return Fails() ? -1 : real(file);
}

int rename(const char* from, const char* to) noexcept
{
    static auto* const real = Next<int(const char*, const char*)>("rename");
    return Fails() ? -1 : real(from, to);
}

int unlink(const char* path) noexcept
{
    static auto* const real = Next<int(const char*)>("unlink");
    return Fails() ? -1 : real(path);
}

}  // extern "C"

namespace kestrum {
namespace {

namespace fs = std::filesystem;

const std::string kOld(3000, 'o');
const std::string kNew(70000, 'n');

// With one name, and with two.
class SaveFaults : public ::testing::TestWithParam<bool> {
protected:
    SaveFaults()
    {
        WriteBytes(file_, kOld);
        if (GetParam()) {
            fs::create_hard_link(file_, folder_.File("other.kst"));
        }
    }
    ~SaveFaults() override { plan = {}; }

    std::size_t Names() const { return GetParam() ? 2 : 1; }
    std::size_t FilesThere() const
    {
        return static_cast<std::size_t>(
            std::distance(fs::directory_iterator(folder_.path()), fs::directory_iterator()));
    }

    // The next save goes well and leaves nothing beside the file.
    void ExpectNextSaveClean()
    {
        plan = {};
        EXPECT_EQ(WriteWholeFile(file_, kNew), "");
        EXPECT_EQ(ReadBytes(file_), kNew);
        EXPECT_EQ(FilesThere(), Names());
        EXPECT_EQ(fs::hard_link_count(file_), Names());
        WriteBytes(file_, kOld);
    }

    // What a reader is given: the old file, the new one, or where the new one stands.
    std::string Read() const
    {
        std::string bytes;
        const std::string problem = ReadWholeFile(file_, bytes);
        if (problem.empty()) {
            return bytes;
        }
        const std::string copy = file_ + ".kestrum-copy";
        EXPECT_EQ(problem, "was not written to its end; " + copy + " holds it whole");
        return ReadBytes(copy);
    }

    // Runs `child` in a process of its own.
    template <class Child> static int InProcess(const Child& child)
    {
        const pid_t id = fork();
        if (id == 0) {
            _exit(child());
        }
        int status = 0;
        waitpid(id, &status, 0);
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

    TemporaryFolder folder_;
    std::string file_ = folder_.File("x.kst");
};

// Calls that one good save makes.
int CallsOfASave(const std::string& file)
{
    plan = {};
    EXPECT_EQ(WriteWholeFile(file, kNew), "");
    return plan.calls;
}

// What was refused left the old file, or says where the new one is.
void ExpectRefused(const std::string& problem, const std::string& read)
{
    const bool there =
        problem.find("is written, but") == 0 || problem.find("holds it whole") != std::string::npos;
    EXPECT_EQ(read, there ? kNew : kOld) << problem;
}

// A file system without locks, or a copy that cannot be deleted, is no reason not to save.
TEST_P(SaveFaults, KeepTheOldFileWhenOneCallFails)
{
    const int calls = CallsOfASave(file_);
    ASSERT_GE(calls, 10);  // open and lock both files, open the folder, write, flush, rename, flush
    int refused = 0;
    for (int k = 1; k <= calls; ++k) {
        SCOPED_TRACE(k);
        WriteBytes(file_, kOld);
        plan = {.failfrom = k, .failto = k};
        const std::string problem = WriteWholeFile(file_, kNew);
        plan = {};
        if (problem.empty()) {
            EXPECT_EQ(ReadBytes(file_), kNew);
        } else {
            ++refused;
            ExpectRefused(problem, Read());
        }
        ExpectNextSaveClean();
    }
    EXPECT_GE(refused, 6);
}

TEST_P(SaveFaults, KeepTheOldFileWhenAllCallsFailFromOneOn)
{
    const int calls = CallsOfASave(file_);
    for (int k = 1; k <= calls; ++k) {
        SCOPED_TRACE(k);
        WriteBytes(file_, kOld);
        plan = {.failfrom = k, .failto = 1000};
        const std::string problem = WriteWholeFile(file_, kNew);
        plan = {};
        if (problem.empty()) {
            EXPECT_EQ(Read(), kNew);  // only the copy could not be deleted
        } else {
            ExpectRefused(problem, Read());
        }
        ExpectNextSaveClean();
    }
}

TEST_P(SaveFaults, LeaveTheOldOrTheNewFileWhenTheProcessEndsAtACall)
{
    const int calls = CallsOfASave(file_);
    bool begun = false;
    for (int k = 1; k <= calls; ++k) {
        SCOPED_TRACE(k);
        WriteBytes(file_, kOld);
        InProcess([&] {
            plan = {.failfrom = k, .failto = k, .die = true};
            WriteWholeFile(file_, kNew);
            return 1;
        });
        const std::string read = Read();
        EXPECT_TRUE(read == kNew || (read == kOld && !begun)) << read.size();
        begun = begun || read == kNew;
        ExpectNextSaveClean();
    }
}

TEST_P(SaveFaults, NeverWriteAByteUnderWiderRights)
{
    chmod(file_.c_str(), 0640);
    EXPECT_EQ(WriteWholeFile(file_, kNew), "");
    EXPECT_EQ(plan.mode, 0640U);
    struct stat status {};
    ASSERT_EQ(stat(file_.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777, 0640U);
}

// KESTRUM_FULL=1: a thousand times.
TEST_P(SaveFaults, LeaveTheOldOrTheNewFileWhenTheProcessIsKilled)
{
    const int times = std::getenv("KESTRUM_FULL") != nullptr ? 1000 : 50;
    std::mt19937 random(11);
    int old = 0, strays = 0;
    for (int i = 0; i < times; ++i) {
        WriteBytes(file_, kOld);
        const pid_t id = fork();
        if (id == 0) {
            for (;;) {
                WriteWholeFile(file_, kNew);
                WriteWholeFile(file_, kOld);
            }
        }
        usleep(static_cast<useconds_t>(random() % 3000));
        kill(id, SIGKILL);
        int status = 0;
        waitpid(id, &status, 0);
        const std::string bytes = Read();
        ASSERT_TRUE(bytes == kOld || bytes == kNew) << bytes.size();
        old += bytes == kOld ? 1 : 0;
        strays += FilesThere() > Names() ? 1 : 0;
        ExpectNextSaveClean();
    }
    std::cout << times << " times killed: " << old << " old, " << times - old << " new, " << strays
              << " strays, all gone after the next save\n";
}

TEST_P(SaveFaults, TellOfAFolderThatIsGone)
{
    fs::remove_all(folder_.path());
    EXPECT_NE(WriteWholeFile(file_, kNew), "");
    EXPECT_FALSE(fs::exists(folder_.path()));
}

TEST_P(SaveFaults, TellOfAMissingPermission)
{
    constexpr uid_t kNobody = 65534;
    chmod(folder_.path().c_str(), 0555);
    const int exit = InProcess([&] {
        if (geteuid() == 0 && setuid(kNobody) != 0) {
            return 2;
        }
        return WriteWholeFile(file_, kNew).empty() ? 1 : 0;
    });
    chmod(folder_.path().c_str(), 0755);
    EXPECT_EQ(exit, 0);
    EXPECT_EQ(ReadBytes(file_), kOld);
    EXPECT_EQ(FilesThere(), Names());
}

TEST_P(SaveFaults, TellOfAFullDevice)
{
    EXPECT_NE(WriteWholeFile("/dev/full", kNew), "");
}

INSTANTIATE_TEST_SUITE_P(All, SaveFaults, ::testing::Bool(),
                         [](const auto& named) { return named.param ? "TwoNames" : "OneName"; });

}  // namespace
}  // namespace kestrum
