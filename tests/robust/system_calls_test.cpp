// What reading and saving make of the answers that a system may give: interruptions, locks and
// attributes that a file system does not have, rights that are missing, files that others change
// meanwhile. Calls of the system answer as a test plans, through functions of the same names in
// this program, which the linker takes first.

#include "core/descriptor_unix.h"
#include "core/file_io.h"
#include "core/file_lock.h"
#include "core/program_path.h"
#include "sections/load_library.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <chrono>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <dlfcn.h>
#include <fcntl.h>
#include <filesystem>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <sys/auxv.h>
#include <sys/file.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>
#include <utility>

namespace {

constexpr int kShort = -1;      // no failure: the call does only a part
constexpr int kAlways = 10000;  // calls
constexpr uid_t kStranger = 54321;

struct Plan {
    const char* call = nullptr;
    int error = 0;
    int from = 1, to = kAlways;  // numbers of the calls that fail
    int calls = 0;
    std::function<void()> before = {};  // what others do just before the first of them
};
Plan plan;
bool hurried = false;          // each look at the clock takes a second
std::optional<ino_t> strange;  // a file that another user owns
std::optional<uid_t> given;    // the owner that was given to a new file
bool strangecopies = false;    // of a save in place: another user has put them there
bool namelesskernel = false;   // that hands over no name of the program
bool attributed = false;       // files have the attributes below
std::map<ino_t, std::map<std::string, std::string>> attributes;
const std::map<std::string, std::string> kOfTheFolder = {{"user.folder", "each new file"}};

// What the call is to fail with; 0 when it is not to.
int FaultOf(const char* call)
{
    if (plan.call == nullptr || std::strcmp(plan.call, call) != 0) {
        return 0;
    }
    const int number = ++plan.calls;
    if (number < plan.from || number > plan.to) {
        return 0;
    }
    if (number == plan.from && plan.before) {
        std::exchange(plan.before, nullptr)();
    }
    errno = plan.error;
    return plan.error;
}

template <class Function> Function* Next(const char* name)
{
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

std::map<std::string, std::string>& AttributesOf(int file)
{
    struct stat status {};
    fstat(file, &status);
    return attributes.try_emplace(status.st_ino, kOfTheFolder).first->second;
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
    const bool failed = FaultOf((flags & O_CREAT) != 0 ? "create" : "open") != 0;
    return failed ? -1 : real(path, flags, mode);
}

int flock(int file, int kind) noexcept
{
    static auto* const real = Next<int(int, int)>("flock");
    return FaultOf("flock") != 0 ? -1 : real(file, kind);
}

int fstat(int file, struct stat* status) noexcept
{
    static auto* const real = Next<int(int, struct stat*)>("fstat");
    if (FaultOf("fstat") != 0) {
        return -1;
    }
    const int answer = real(file, status);
    if (answer == 0 && strange == status->st_ino) {
        status->st_uid = kStranger;
    }
    return answer;
}

int stat(const char* path, struct stat* status) noexcept
{
    static auto* const real = Next<int(const char*, struct stat*)>("stat");
    return FaultOf("stat") != 0 ? -1 : real(path, status);
}

int lstat(const char* path, struct stat* status) noexcept
{
    static auto* const real = Next<int(const char*, struct stat*)>("lstat");
    if (FaultOf("lstat") != 0) {
        return -1;
    }
    const int answer = real(path, status);
    if (answer == 0 && strangecopies && std::strstr(path, ".kestrum-copy") != nullptr) {
        status->st_uid = kStranger;
    }
    return answer;
}

int fchown(int file, uid_t user, gid_t group) noexcept
{
    static auto* const real = Next<int(int, uid_t, gid_t)>("fchown");
    if (FaultOf("fchown") != 0) {
        return -1;
    }
    given = user;
    return user == kStranger ? 0 : real(file, user, group);
}

int fchmod(int file, mode_t mode) noexcept
{
    static auto* const real = Next<int(int, mode_t)>("fchmod");
    return FaultOf("fchmod") != 0 ? -1 : real(file, mode);
}

ssize_t pwrite(int file, const void* data, std::size_t size, off_t at)
{
    static auto* const real = Next<ssize_t(int, const void*, std::size_t, off_t)>("pwrite");
    const int fault = FaultOf("pwrite");
    return fault > 0 ? -1 : real(file, data, fault == kShort ? (size + 1) / 2 : size, at);
}

int fallocate(int file, int mode, off_t from, off_t size)
{
    static auto* const real = Next<int(int, int, off_t, off_t)>("fallocate");
    return FaultOf("fallocate") != 0 ? -1 : real(file, mode, from, size);
}

int fsync(int file)
{
    static auto* const real = Next<int(int)>("fsync");
    return FaultOf("fsync") != 0 ? -1 : real(file);
}

int fclose(std::FILE* file)
{
    static auto* const real = Next<int(std::FILE*)>("fclose");
    const int fault = FaultOf("fclose");
    const int answer = real(file);
    errno = fault;
    return fault != 0 ? EOF : answer;
}

ssize_t readlink(const char* path, char* name, std::size_t size) noexcept
{
    static auto* const real = Next<ssize_t(const char*, char*, std::size_t)>("readlink");
    return FaultOf("readlink") != 0 ? -1 : real(path, name, size);
}

int clock_gettime(clockid_t clock, std::timespec* time) noexcept
{
    static auto* const real = Next<int(clockid_t, std::timespec*)>("clock_gettime");
    static std::time_t late = 0;
    late += hurried ? 1 : 0;
    const int answer = real(clock, time);
    time->tv_sec += late;
    return answer;
}

ssize_t flistxattr(int file, char* list, std::size_t size) noexcept
{
    static auto* const real = Next<ssize_t(int, char*, std::size_t)>("flistxattr");
    if (FaultOf("flistxattr") != 0) {
        return -1;
    }
    if (!attributed) {
        return real(file, list, size);
    }
    std::string names;
    for (const auto& [name, value] : AttributesOf(file)) {
        names.append(name).push_back('\0');
    }
    return static_cast<ssize_t>(names.copy(list, size));
}

ssize_t fgetxattr(int file, const char* name, void* value, std::size_t size) noexcept
{
    static auto* const real = Next<ssize_t(int, const char*, void*, std::size_t)>("fgetxattr");
    if (FaultOf("fgetxattr") != 0) {
        return -1;
    }
    if (!attributed) {
        return real(file, name, value, size);
    }
    const auto& all = AttributesOf(file);
    const auto found = all.find(name);
    errno = ENODATA;
    return found == all.end()
               ? -1
               : static_cast<ssize_t>(found->second.copy(static_cast<char*>(value), size));
}

int fsetxattr(int file, const char* name, const void* value, std::size_t size, int flags) noexcept
{
    static auto* const real =
        Next<int(int, const char*, const void*, std::size_t, int)>("fsetxattr");
    if (FaultOf("fsetxattr") != 0) {
        return -1;
    }
    if (!attributed) {
        return real(file, name, value, size, flags);
    }
    AttributesOf(file)[name] = std::string(static_cast<const char*>(value), size);
    return 0;
}

int fremovexattr(int file, const char* name) noexcept
{
    static auto* const real = Next<int(int, const char*)>("fremovexattr");
    if (FaultOf("fremovexattr") != 0) {
        return -1;
    }
    return attributed ? (AttributesOf(file).erase(name), 0) : real(file, name);
}

unsigned long getauxval(unsigned long type) noexcept
{
    static auto* const real = Next<unsigned long(unsigned long)>("getauxval");
    return namelesskernel ? 0 : real(type);
}

}  // extern "C"

namespace kestrum {
namespace {

namespace fs = std::filesystem;
using std::chrono::milliseconds;
using std::chrono::seconds;

const std::string kOld = "old";
const std::string kNew(70000, 'n');

class SystemCalls : public ::testing::Test {
protected:
    SystemCalls() { WriteBytes(file_, kOld); }
    ~SystemCalls() override
    {
        plan = {};
        hurried = attributed = namelesskernel = strangecopies = false;
        strange.reset();
        given.reset();
        attributes.clear();
    }

    static void Fail(const char* call, int error, int from = 1, int to = kAlways)
    {
        plan = {.call = call, .error = error, .from = from, .to = to};
    }
    // Saves the new bytes while the call fails.
    std::string SavedWhile(const char* call, int error, int from = 1, int to = kAlways)
    {
        WriteBytes(file_, kOld);
        Fail(call, error, from, to);
        std::string problem = WriteWholeFile(file_, kNew);
        plan = {};
        return problem;
    }
    static ino_t FileNumber(const std::string& path)
    {
        struct stat status {};
        EXPECT_EQ(lstat(path.c_str(), &status), 0) << path;
        return status.st_ino;
    }
    std::size_t FilesThere() const
    {
        return static_cast<std::size_t>(
            std::distance(fs::directory_iterator(folder_.path()), fs::directory_iterator()));
    }
    std::string Refused(const std::string& path)
    {
        std::string bytes;
        std::string problem = ReadWholeFile(path, bytes);
        EXPECT_EQ(bytes, "");
        return problem;
    }

    TemporaryFolder folder_;
    std::string file_ = folder_.File("x.kst");
};

TEST_F(SystemCalls, ALockThatIsInterruptedIsAskedForAgain)
{
    FileLock first, second;
    Fail("flock", EINTR, 1, 3);
    EXPECT_EQ(first.Take(file_, milliseconds(0)), "");
    EXPECT_EQ(plan.calls, 4);
    plan = {};
    EXPECT_EQ(second.Take(file_, milliseconds(0)), kBusy);
}

TEST_F(SystemCalls, AFileSystemWithoutLocksIsWrittenWithoutThem)
{
    FileLock first, second;
    Fail("flock", ENOLCK);
    EXPECT_EQ(first.Take(file_, milliseconds(0)), "");
    EXPECT_EQ(second.Take(file_, milliseconds(0)), "");
    EXPECT_EQ(first.Write(kNew), "");
    EXPECT_EQ(ReadBytes(file_), kNew);
}

TEST_F(SystemCalls, AWriteThatIsInterruptedOrShortGoesOn)
{
    EXPECT_EQ(SavedWhile("pwrite", EINTR, 1, 2), "");
    EXPECT_EQ(ReadBytes(file_), kNew);
    std::string bytes;  // each byte another one than before
    for (int i = 0; i < 1000; ++i) {
        bytes.push_back(static_cast<char>(i * 7));
    }
    Fail("pwrite", kShort);
    EXPECT_EQ(WriteWholeFile(file_, bytes), "");
    EXPECT_EQ(plan.calls, 10);  // 500 of 1000, then 250, 125, 63, 31, 16, 8, 4, 2, 1
    EXPECT_EQ(ReadBytes(file_), bytes);
}

TEST_F(SystemCalls, OnlyWhatHasADiskIsFlushed)
{
    for (const int without : {EINVAL, ENOTSUP}) {
        EXPECT_EQ(SavedWhile("fsync", without), "");
        EXPECT_EQ(ReadBytes(file_), kNew);
    }
    EXPECT_EQ(SavedWhile("fsync", EIO), "Input/output error");
    EXPECT_EQ(ReadBytes(file_), kOld);
    EXPECT_EQ(SavedWhile("fsync", EIO, 2),
              "is written, but its folder cannot be flushed: Input/output error");
    EXPECT_EQ(ReadBytes(file_), kNew);
    EXPECT_EQ(FilesThere(), 1U);
}

TEST_F(SystemCalls, AFileOfTwoNamesNeedsNoReservedRoom)
{
    fs::create_hard_link(file_, folder_.File("y.kst"));
    for (const int without : {EOPNOTSUPP, ENOSYS}) {
        EXPECT_EQ(SavedWhile("fallocate", without), "");
        EXPECT_EQ(ReadBytes(folder_.File("y.kst")), kNew);
    }
    EXPECT_EQ(SavedWhile("fallocate", ENOSPC), "No space left on device");
    EXPECT_EQ(ReadBytes(folder_.File("y.kst")), kOld);
    EXPECT_EQ(WriteWholeFile(file_, ""), "");  // asks for none
    EXPECT_EQ(ReadBytes(folder_.File("y.kst")), "");
}

TEST_F(SystemCalls, AttributesGoOnToTheNewFileAndThoseOfTheFolderDoNot)
{
    attributed = true;
    for (const char* folder : {"", "each new file", "another"}) {
        std::map<std::string, std::string> own = {{"user.note", "mine"}, {"user.void", ""}};
        if (*folder != '\0') {
            own["user.folder"] = folder;
        }
        const ino_t before = FileNumber(file_);
        attributes.clear();
        attributes[before] = own;
        EXPECT_EQ(WriteWholeFile(file_, kNew), "");
        EXPECT_NE(FileNumber(file_), before);
        EXPECT_EQ(attributes[FileNumber(file_)], own) << folder;
    }
}

// The file that cannot be given all that the old one had is not put in its place: the old one is
// written.
TEST_F(SystemCalls, AFileWhoseAttributesCannotBeKeptIsWrittenInPlace)
{
    attributed = true;
    const std::map<std::string, std::string> own = {{"user.note", "mine"}};
    struct Case {
        const char* call;
        int error, from;
    };
    for (const Case& of :
         {Case{"flistxattr", EIO, 1}, Case{"flistxattr", EIO, 2}, Case{"fgetxattr", EIO, 1},
          Case{"fsetxattr", EPERM, 1}, Case{"fremovexattr", EPERM, 1}}) {
        SCOPED_TRACE(of.call);
        attributes.clear();
        const ino_t before = FileNumber(file_);
        attributes[before] = own;
        EXPECT_EQ(SavedWhile(of.call, of.error, of.from), "");
        EXPECT_EQ(FileNumber(file_), before);
        EXPECT_EQ(attributes[before], own);
        EXPECT_EQ(ReadBytes(file_), kNew);
        EXPECT_EQ(FilesThere(), 1U);
    }
}

TEST_F(SystemCalls, AFileSystemWithoutAttributesHasNoneToKeep)
{
    const ino_t before = FileNumber(file_);
    EXPECT_EQ(SavedWhile("flistxattr", ENOTSUP), "");
    EXPECT_NE(FileNumber(file_), before);
    EXPECT_EQ(ReadBytes(file_), kNew);
}

TEST_F(SystemCalls, TheFileOfAnotherUserIsReplacedOnlyWhereItStaysHis)
{
    EXPECT_EQ(SavedWhile("fchmod", EPERM), "");  // rights that it cannot have
    strange = FileNumber(file_);
    EXPECT_EQ(SavedWhile("fchown", EPERM), "");
    EXPECT_EQ(FileNumber(file_), *strange);
    EXPECT_EQ(ReadBytes(file_), kNew);
    EXPECT_EQ(WriteWholeFile(file_, kNew), "");
    EXPECT_NE(FileNumber(file_), *strange);
    EXPECT_EQ(given, kStranger);
}

// What another user owns may be written in place: a reader waits for its writer, and not for ever.
TEST_F(SystemCalls, AReaderIsToldOfAWriterWhoNeverEnds)
{
    FileLock writer;
    ASSERT_EQ(writer.Take(file_), "");
    strange = FileNumber(file_);
    hurried = true;
    EXPECT_EQ(Refused(file_), kBusy);
}

// The copy of a save that did not end counts where its owner may write the file.
TEST_F(SystemCalls, CopiesOfAStrangerCountWhereHeMayWriteTheFile)
{
    const std::string copy = file_ + ".kestrum-copy";
    for (const char* number : {"", "1", "2", "3"}) {
        WriteBytes(copy + number, kNew);
    }
    strangecopies = true;
    ASSERT_EQ(chmod(file_.c_str(), 0644), 0);
    std::string bytes;
    EXPECT_EQ(ReadWholeFile(file_, bytes), "");
    EXPECT_EQ(bytes, kOld);
    EXPECT_EQ(WriteWholeFile(file_, kOld), "");
    EXPECT_EQ(FilesThere(), 5U);  // they are not ours to delete
    ASSERT_EQ(chmod(file_.c_str(), 0664), 0);
    EXPECT_EQ(Refused(file_), "was not written to its end; " + copy + " holds it whole");
    strangecopies = false;
    ASSERT_EQ(chmod(file_.c_str(), 0644), 0);
    EXPECT_EQ(Refused(file_), "was not written to its end; " + copy + " holds it whole");
    Fail("stat", EACCES, 3);  // not the looks for its kind and its target
    EXPECT_EQ(ReadWholeFile(file_, bytes), "");
    plan = {};
    EXPECT_EQ(WriteWholeFile(file_, kOld), "");
    EXPECT_EQ(FilesThere(), 1U);
}

TEST_F(SystemCalls, WhatIsNoFileIsNoCopy)
{
    const std::string copy = file_ + ".kestrum-copy";
    fs::create_directory(copy);
    std::string bytes;
    EXPECT_EQ(ReadWholeFile(file_, bytes), "");
    EXPECT_EQ(WriteWholeFile(file_, kNew), "");
    EXPECT_TRUE(fs::is_directory(copy));
}

// A neighbour whose writer lives is locked; what is no file is nobody's neighbour.
TEST_F(SystemCalls, NeighboursOfOthersStay)
{
    const std::string living = folder_.File(".x.kst.kestrum-save");
    const std::string pipe = folder_.File(".x.kst.kestrum-save1");
    WriteBytes(living, "half");
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    const Descriptor writer = OpenDescriptor(living, O_RDWR);
    ASSERT_TRUE(Lock(writer.number(), LOCK_EX, {}));
    EXPECT_EQ(WriteWholeFile(file_, kNew), "");
    EXPECT_EQ(ReadBytes(file_), kNew);
    EXPECT_EQ(ReadBytes(living), "half");
    EXPECT_TRUE(fs::is_fifo(pipe));
    EXPECT_EQ(FilesThere(), 3U);
}

TEST_F(SystemCalls, ANewNeighbourThatAnotherOneLocksFirstIsHis)
{
    {
        FileLock lock;
        ASSERT_EQ(lock.Take(file_), "");
        Fail("flock", EWOULDBLOCK, 1, 1);
        EXPECT_EQ(lock.Write(kNew), "");
        plan = {};
    }
    EXPECT_EQ(ReadBytes(file_), kNew);
    EXPECT_EQ(FilesThere(), 2U);
    EXPECT_EQ(WriteWholeFile(file_, kOld), "");
    EXPECT_EQ(FilesThere(), 1U);
}

TEST_F(SystemCalls, AFileThatCannotBeLookedAtIsNotTaken)
{
    FileLock lock;
    Fail("stat", EACCES);
    EXPECT_EQ(lock.Take(file_), "Permission denied");
    Fail("fstat", EIO);
    EXPECT_EQ(lock.Take(file_, milliseconds(0)), kBusy);
}

TEST_F(SystemCalls, AFileThatMayOnlyBeReadIsLockedAllTheSame)
{
    for (const int refused : {EACCES, EPERM, EROFS}) {
        FileLock first, second;
        Fail("open", refused, 1, 1);
        EXPECT_EQ(first.Take(file_, milliseconds(0)), "");
        plan = {};
        EXPECT_EQ(second.Take(file_, milliseconds(0)), kBusy);
    }
    FileLock none;
    Fail("open", EACCES);
    EXPECT_EQ(none.Take(file_), "Permission denied");
    Fail("open", EMFILE);
    EXPECT_EQ(none.Take(file_), "Too many open files");
    EXPECT_EQ(plan.calls, 1);
}

// Between the look at a name and the opening of its file another one deletes it, makes a link of it
// or replaces it.
TEST_F(SystemCalls, AFileThatChangesMeanwhileIsAskedForAgain)
{
    for (const int gone : {ENOENT, ELOOP}) {
        FileLock lock;
        Fail("open", gone, 1, 1);
        EXPECT_EQ(lock.Take(file_, seconds(10)), "");
        EXPECT_EQ(plan.calls, 2);
        Fail("open", gone);
        EXPECT_EQ(lock.Take(file_, milliseconds(0)), kBusy);
    }
    FileLock first, second;
    plan = {.call = "flock", .error = EINTR, .from = 1, .to = 1, .before = [&] {
                WriteBytes(file_ + ".new", kNew);
                fs::rename(file_ + ".new", file_);
            }};
    EXPECT_EQ(first.Take(file_, seconds(10)), "");
    EXPECT_EQ(plan.calls, 3);  // interrupted, the old file, the new file
    plan = {};
    EXPECT_EQ(second.Take(file_, milliseconds(0)), kBusy);
}

TEST_F(SystemCalls, AFileThatAnotherOneMadeMeanwhileIsNotWrittenOver)
{
    const std::string name = folder_.File("made.kst");
    FileLock first, second;
    ASSERT_EQ(first.Take(name), "");
    WriteBytes(name, kOld);
    ASSERT_EQ(second.Take(name), "");
    hurried = true;
    EXPECT_EQ(first.Write(kNew), kBusy);
    EXPECT_EQ(ReadBytes(name), kOld);
}

TEST_F(SystemCalls, ANeighbourThatAnotherOneTakesForStaleGetsTheNextName)
{
    {
        FileLock lock;
        ASSERT_EQ(lock.Take(file_), "");
        Fail("lstat", ENOENT, 1, 1);  // the look whether the first name is still its own
        EXPECT_EQ(lock.Write(kNew), "");
        plan = {};
    }
    EXPECT_EQ(ReadBytes(file_), kNew);
    EXPECT_TRUE(fs::exists(folder_.File(".x.kst.kestrum-save")));  // that of the other one
    EXPECT_EQ(WriteWholeFile(file_, kOld), "");
    EXPECT_EQ(FilesThere(), 1U);
}

TEST_F(SystemCalls, WithoutAFreeNameNothingIsWritten)
{
    EXPECT_EQ(SavedWhile("create", EEXIST), "no name is free for its neighbour");
    EXPECT_EQ(SavedWhile("create", EACCES), "Permission denied");
    // The stale one is cleared, and its name taken by another one at once.
    WriteBytes(folder_.File(".x.kst.kestrum-save"), "stale");
    EXPECT_EQ(SavedWhile("create", EEXIST, 2, 2), "");
    EXPECT_EQ(ReadBytes(file_), kNew);
    EXPECT_EQ(FilesThere(), 1U);
}

TEST_F(SystemCalls, ADeviceTakesTheBytesOrSaysWhyNot)
{
    EXPECT_EQ(WriteWholeFile("/dev/null", kNew), "");
    Fail("fsync", EIO);
    EXPECT_EQ(WriteWholeFile("/dev/null", kNew), "Input/output error");
    Fail("fclose", EIO);
    EXPECT_EQ(WriteWholeFile("/dev/null", kNew), "Input/output error");
    plan = {};
    if (fs::exists("/dev/full")) {
        Fail("fclose", EIO);  // the first fault counts
        EXPECT_EQ(WriteWholeFile("/dev/full", kNew), "No space left on device");
    }
}

TEST_F(SystemCalls, ASocketIsNoFile)
{
    const int number = socket(AF_UNIX, SOCK_STREAM, 0);
    sockaddr_un name{};
    name.sun_family = AF_UNIX;
    const std::string path = folder_.File("socket");
    ASSERT_LT(path.size(), sizeof(name.sun_path));
    path.copy(name.sun_path, path.size());
    ASSERT_EQ(bind(number, reinterpret_cast<const sockaddr*>(&name), sizeof(name)), 0);
    EXPECT_EQ(WriteWholeFile(path, kNew), "No such device or address");
    EXPECT_EQ(Refused(path), "No such device or address");
    close(number);
}

TEST_F(SystemCalls, AFaultOfTheDeviceIsNoShortFile)
{
    // The memory of a process begins with addresses that nobody may read.
    EXPECT_EQ(Refused("/proc/self/mem"), "Input/output error");
}

// Where not even the kernel says what it started, the folder next to the program is left out.
TEST_F(SystemCalls, WithoutAProgramPathTheSharedFoldersStay)
{
    const std::size_t usual = DataFolders().size();
    namelesskernel = true;
    Fail("readlink", ENOENT);
    EXPECT_EQ(ProgramPath(), fs::path());
    EXPECT_EQ(DataFolders().size(), usual - 1);
}

TEST_F(SystemCalls, TheProgramFindsItselfWithoutProc)
{
    const fs::path known = ProgramPath();
    ASSERT_TRUE(known.is_absolute());
    ASSERT_TRUE(fs::exists(known));
    Fail("readlink", ENOENT, 1, 1);
    EXPECT_EQ(ProgramPath(), known);
}

}  // namespace
}  // namespace kestrum
