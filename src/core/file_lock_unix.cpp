#include "core/descriptor_unix.h"
#include "core/file_io.h"
#include "core/file_lock.h"
#include "core/file_target.h"
#include "core/utf8_path.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <cstdio>
#include <thread>

#include <fcntl.h>
#include <sys/file.h>

namespace kestrum {

namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

constexpr mode_t kPrivate = 0600, kUsual = 0666;  // the second less the user's mask

bool Exclusive(const Descriptor& file, Clock::time_point end = {})
{
    return Lock(file.number(), LOCK_EX, end);
}

// A file that is locked is opened for writing, which locks over a network ask for, if it may be.
Descriptor OpenToLock(const fs::path& target)
{
    Descriptor file;
    for (const int way : {O_RDWR, O_RDONLY, O_WRONLY}) {
        file = OpenDescriptor(target, way);
        if (file || (errno != EACCES && errno != EPERM && errno != EROFS)) {
            break;
        }
    }
    return file;
}

// Deletes a neighbour whose writer is gone: a living one holds its lock.
bool ClearStale(const fs::path& name)
{
    const Descriptor file = OpenDescriptor(name, O_RDWR);
    return file && S_ISREG(StatusOf(file).st_mode) && Exclusive(file) && Names(name, file) &&
           unlink(name.c_str()) == 0;
}

// A new file in the folder of the target, gone with this object until it gets another name.
class Neighbour {
public:
    Neighbour() = default;
    Neighbour(const Neighbour&) = delete;
    Neighbour& operator=(const Neighbour&) = delete;
    ~Neighbour()
    {
        if (file_) {
            unlink(name_.c_str());
        }
    }

    std::string Create(const fs::path& target, mode_t mode)
    {
        for (int number = 0; number < kNeighbours; ++number) {
            name_ = NeighbourOf(target, number);
            file_ = OpenNew(mode);
            if (!file_ && errno == EEXIST) {
                if (!ClearStale(name_)) {
                    continue;
                }
                file_ = OpenNew(mode);
            }
            if (!file_ && errno != EEXIST) {
                return LastFault();
            }
            // Another one may have taken it for stale before it was locked.
            if (file_ && Exclusive(file_) && Names(name_, file_)) {
                return {};
            }
            file_ = Descriptor();
        }
        return "no name is free for its neighbour";
    }

    bool Rename(const fs::path& name) const { return rename(name_.c_str(), name.c_str()) == 0; }

    const Descriptor& file() const { return file_; }
    Descriptor Release() { return std::move(file_); }

private:
    Descriptor OpenNew(mode_t mode) const
    {
        return OpenDescriptor(name_, O_RDWR | O_CREAT | O_EXCL, mode);
    }

    fs::path name_;
    Descriptor file_;  // locked
};

// What is to be done in the folder when the file is written. All is at hand before: memory that is
// short then would make a failure of what is done.
class Folder {
public:
    explicit Folder(const fs::path& target)
    {
        const fs::path name = target.has_parent_path() ? target.parent_path() : fs::path(".");
        file_ = Descriptor(open(name.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
        for (int number = 0; number < kCopies; ++number) {
            names_.at(static_cast<std::size_t>(number)) = CopyOf(target, number);
        }
    }

    // A folder that may not be read cannot be flushed either.
    std::string Flush() const
    {
        if (!file_ || kestrum::Flush(file_)) {
            return {};
        }
        return "is written, but its folder cannot be flushed: " + LastFault();
    }

    // Gives the neighbour, which holds the bytes, the name of the copy.
    const fs::path* KeepCopy(const Neighbour& neighbour) const
    {
        const auto* const name =
            std::find_if(names_.begin(), names_.end(),
                         [&](const fs::path& copy) { return neighbour.Rename(copy); });
        return name == names_.end() ? nullptr : name;
    }

    // Copies of this user, also those that a save left behind when it was interrupted.
    void DeleteCopies() const
    {
        for (const fs::path& copy : names_) {
            struct stat status {};
            if (lstat(copy.c_str(), &status) != 0) {
                return;
            }
            if (S_ISREG(status.st_mode) && status.st_uid == geteuid()) {
                unlink(copy.c_str());
            }
        }
    }

private:
    Descriptor file_;
    std::array<fs::path, kCopies> names_;
};

// The room that the file will need, without a change that shows: what is lacking is known before.
bool Reserve(const Descriptor& file, std::size_t size)
{
#ifdef __linux__
    return size == 0 ||
           fallocate(file.number(), FALLOC_FL_KEEP_SIZE, 0, static_cast<off_t>(size)) == 0 ||
           errno == EOPNOTSUPP || errno == ENOSYS;
#else
    static_cast<void>(file), static_cast<void>(size);
    return true;
#endif
}

std::string WriteInPlace(const fs::path& target, const Folder& folder, Neighbour& neighbour,
                         std::string_view bytes)
{
    const Descriptor file = OpenDescriptor(target, O_WRONLY);
    if (!file || !Reserve(file, bytes.size())) {
        return LastFault();
    }
    const fs::path* const copy = folder.KeepCopy(neighbour);
    if (copy == nullptr) {
        return LastFault();
    }
    const Descriptor kept = neighbour.Release();
    std::string problem = folder.Flush();
    if (problem.empty() &&
        (!WriteAll(file, bytes) ||
         ftruncate(file.number(), static_cast<off_t>(bytes.size())) != 0 || !Flush(file))) {
        problem = LastFault();
    }
    if (!problem.empty()) {
        return problem + "; " + Utf8Name(*copy) + " holds it whole";
    }
    folder.DeleteCopies();
    return {};
}

// Devices and pipes take the bytes as they come.
std::string WriteDevice(const fs::path& target, std::string_view bytes)
{
    std::FILE* const file = OpenFile(target, "wb");
    if (file == nullptr) {
        return LastFault();
    }
    const bool written =
        std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size() && FlushToDisk(file);
    std::string problem = written ? std::string{} : LastFault();
    if (std::fclose(file) != 0 && problem.empty()) {
        problem = LastFault();
    }
    return problem;
}

// The file that this program released last, and when. One that locks it again and again would
// hardly ever let another in, which can only ask now and then; it waits for a moment before it asks
// again.
constexpr std::chrono::milliseconds kCourtesy{5};
std::atomic<ino_t> released;
std::atomic<Clock::time_point> releasetime;

void LetOthersIn(const Descriptor& file)
{
    if (StatusOf(file).st_ino == released && Clock::now() < releasetime.load() + kCourtesy) {
        std::this_thread::sleep_for(kCourtesy);
    }
}

}  // namespace

struct FileLock::Held {
    fs::path target;
    Descriptor file;  // none when the file is not there yet

    ~Held()
    {
        if (file) {
            released = StatusOf(file).st_ino;
            releasetime = Clock::now();
        }
    }
};

FileLock::FileLock() = default;
FileLock::~FileLock() = default;

std::string FileLock::Take(const std::string& path, std::chrono::milliseconds wait)
{
    held_ = nullptr;  // before a new one is made
    held_ = std::make_unique<Held>();
    const auto end = Clock::now() + wait;
    do {
        held_->target = TargetOf(path);
        struct stat status {};
        const bool there = stat(held_->target.c_str(), &status) == 0;
        if (!there || !S_ISREG(status.st_mode)) {
            return there || errno == ENOENT ? std::string{} : LastFault();
        }
        Descriptor file = OpenToLock(held_->target);
        if (!file && errno != ENOENT && errno != ELOOP) {
            return LastFault();
        }
        LetOthersIn(file);
        if (file && !Exclusive(file, end)) {
            break;
        }
        if (file && Names(held_->target, file)) {
            held_->file = std::move(file);
            return {};
        }
    } while (Clock::now() < end);
    return std::string(kBusy);
}

std::string FileLock::Write(std::string_view bytes)
{
    const fs::path target = held_->target;
    struct stat before {};
    const bool there = stat(target.c_str(), &before) == 0;
    if (there && S_ISDIR(before.st_mode)) {
        return "is a directory";
    }
    if (target.filename().empty()) {
        return "no such file";
    }
    if (there && !S_ISREG(before.st_mode)) {
        return WriteDevice(target, bytes);
    }
    if (there && (before.st_mode & S_IWUSR) == 0) {
        return "is write-protected";  // a rename would not mind
    }
    std::string problem;
    if (there && !held_->file) {  // made by another one since
        problem = Take(Utf8Name(target));
    }
    if (!problem.empty()) {
        return problem;
    }
    const Folder folder(target);
    Neighbour neighbour;
    problem = neighbour.Create(target, held_->file ? kPrivate : kUsual);
    if (!problem.empty()) {
        return problem;
    }
    const bool replaceable =
        !held_->file || (before.st_nlink == 1 && CopyAttributes(held_->file, neighbour.file()));
    if (!WriteAll(neighbour.file(), bytes) || !Flush(neighbour.file())) {
        return LastFault();
    }
    if (!replaceable) {
        return WriteInPlace(target, folder, neighbour, bytes);
    }
    if (!neighbour.Rename(target)) {
        return LastFault();
    }
    held_->file = neighbour.Release();
    folder.DeleteCopies();
    return folder.Flush();
}

}  // namespace kestrum
