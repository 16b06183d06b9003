// What a save leaves behind when the system fails it: the old file or the new one, never a third,
// and nothing beside it after the next save. Calls of the system are counted and made to fail by
// functions of the same names in this program, which the linker takes first.

#include "core/file_io.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <dlfcn.h>
#include <filesystem>
#include <iostream>
#include <random>
#include <string>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

struct Plan {
    int failfrom = 0;  // number of the first call that fails; 0 none
    int failto = 0;    // and of the last
    bool die = false;  // ends the process there instead
    int calls = 0;
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

std::FILE* fopen(const char* path, const char* mode)
{
    static auto* const real = Next<std::FILE*(const char*, const char*)>("fopen");
    return mode[0] == 'w' && Fails() ? nullptr : real(path, mode);
}

std::size_t fwrite(const void* data, std::size_t size, std::size_t count, std::FILE* file)
{
    static auto* const real =
        Next<std::size_t(const void*, std::size_t, std::size_t, std::FILE*)>("fwrite");
    if (file == stdout || file == stderr) {
        return real(data, size, count, file);
    }
    if (Fails()) {
        return real(data, size, count / 2, file);  // half of it is there
    }
    return real(data, size, count, file);
}

int fflush(std::FILE* file)
{
    static auto* const real = Next<int(std::FILE*)>("fflush");
    if (file == nullptr || file == stdout || file == stderr) {
        return real(file);
    }
    return Fails() ? EOF : real(file);
}

int fsync(int descriptor)
{
    static auto* const real = Next<int(int)>("fsync");
    return Fails() ? -1 : real(descriptor);
}

int rename(const char* from, const char* to) noexcept
{
    static auto* const real = Next<int(const char*, const char*)>("rename");
    return Fails() ? -1 : real(from, to);
}

int remove(const char* path) noexcept
{
    static auto* const real = Next<int(const char*)>("remove");
    return Fails() ? -1 : real(path);
}

}  // extern "C"

namespace kestrum {
namespace {

namespace fs = std::filesystem;

const std::string kOld(3000, 'o');
const std::string kNew(70000, 'n');

class SaveFaults : public ::testing::Test {
protected:
    SaveFaults() { WriteBytes(file_, kOld); }
    ~SaveFaults() override { plan = {}; }

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
        EXPECT_EQ(FilesThere(), 1U);
        WriteBytes(file_, kOld);
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

TEST_F(SaveFaults, KeepTheOldFileWhenOneCallFails)
{
    const int calls = CallsOfASave(file_);
    ASSERT_GE(calls, 5);  // open, write, flush, sync, rename
    for (int k = 1; k <= calls; ++k) {
        SCOPED_TRACE(k);
        WriteBytes(file_, kOld);
        plan = {.failfrom = k, .failto = k};
        EXPECT_NE(WriteWholeFile(file_, kNew), "");
        plan = {};
        EXPECT_EQ(ReadBytes(file_), kOld);
        EXPECT_EQ(FilesThere(), 1U);
        ExpectNextSaveClean();
    }
}

TEST_F(SaveFaults, KeepTheOldFileWhenAllCallsFailFromOneOn)
{
    const int calls = CallsOfASave(file_);
    for (int k = 1; k <= calls; ++k) {
        SCOPED_TRACE(k);
        WriteBytes(file_, kOld);
        plan = {.failfrom = k, .failto = 1000};
        EXPECT_NE(WriteWholeFile(file_, kNew), "");
        plan = {};
        EXPECT_EQ(ReadBytes(file_), kOld);
        ExpectNextSaveClean();
    }
}

TEST_F(SaveFaults, LeaveTheOldOrTheNewFileWhenTheProcessEndsAtACall)
{
    const int calls = CallsOfASave(file_);
    for (int k = 1; k <= calls; ++k) {
        SCOPED_TRACE(k);
        WriteBytes(file_, kOld);
        InProcess([&] {
            plan = {.failfrom = k, .failto = k, .die = true};
            WriteWholeFile(file_, kNew);
            return 1;
        });
        EXPECT_EQ(ReadBytes(file_), kOld);  // the rename is the last call
        ExpectNextSaveClean();
    }
}

// KESTRUM_FULL=1: a thousand times.
TEST_F(SaveFaults, LeaveTheOldOrTheNewFileWhenTheProcessIsKilled)
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
        const std::string bytes = ReadBytes(file_);
        ASSERT_TRUE(bytes == kOld || bytes == kNew) << bytes.size();
        old += bytes == kOld ? 1 : 0;
        strays += FilesThere() > 1 ? 1 : 0;
        ExpectNextSaveClean();
    }
    std::cout << times << " times killed: " << old << " old, " << times - old << " new, " << strays
              << " strays, all gone after the next save\n";
}

TEST_F(SaveFaults, TellOfAFolderThatIsGone)
{
    fs::remove_all(folder_.path());
    EXPECT_NE(WriteWholeFile(file_, kNew), "");
    EXPECT_FALSE(fs::exists(folder_.path()));
}

TEST_F(SaveFaults, TellOfAMissingPermission)
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
    EXPECT_EQ(FilesThere(), 1U);
}

TEST_F(SaveFaults, TellOfAFullDevice)
{
    EXPECT_NE(WriteWholeFile("/dev/full", kNew), "");
}

}  // namespace
}  // namespace kestrum
