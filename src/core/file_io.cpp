#include "core/file_io.h"

#include "core/file_lock.h"
#include "core/file_target.h"
#include "core/utf8_path.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <system_error>

#ifdef _WIN32
#include <io.h>
#else
#include "core/descriptor_unix.h"

#include <sys/file.h>
#endif

namespace kestrum {

namespace {

namespace fs = std::filesystem;

constexpr const char* kTooLarge = "is larger than any file of this program";

struct CloseFile {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, CloseFile>;

#ifdef _WIN32

// There a file is always replaced.
bool MayBeWrittenInPlace(std::FILE*)
{
    return false;
}

fs::path CopyLeft(const fs::path&)
{
    return {};
}

bool WaitForWriter(std::FILE*)
{
    return true;
}

std::string LastFault()
{
    return std::generic_category().message(errno);
}

#else

bool MayBeWrittenInPlace(std::FILE* file)
{
    struct stat status {};
    return fstat(fileno(file), &status) == 0 && S_ISREG(status.st_mode) &&
           (status.st_nlink > 1 || status.st_uid != geteuid());
}

// The copy that a save in place keeps until it is done. One that a stranger has put there counts
// for nothing: its owner must be one who may write the file.
fs::path CopyLeft(const fs::path& target)
{
    struct stat file {};
    struct stat copy {};
    for (int number = 0; number < kCopies; ++number) {
        const fs::path name = CopyOf(target, number);
        if (lstat(name.c_str(), &copy) != 0) {
            break;
        }
        const bool known = stat(target.c_str(), &file) == 0 &&
                           (copy.st_uid == geteuid() || copy.st_uid == file.st_uid ||
                            (file.st_mode & (S_IWGRP | S_IWOTH)) != 0);
        if (S_ISREG(copy.st_mode) && known) {
            return name;
        }
    }
    return {};
}

bool WaitForWriter(std::FILE* file)
{
    return Lock(fileno(file), LOCK_SH, std::chrono::steady_clock::now() + kLongestWait);
}

#endif

std::string ReadAll(std::FILE* file, std::string& bytes)
{
    bytes.clear();
    std::array<char, 65536> block;
    for (std::size_t count = 0; (count = std::fread(block.data(), 1, block.size(), file)) > 0;) {
        if (bytes.size() + count > kLargestFile) {
            bytes.clear();
            return kTooLarge;
        }
        bytes.append(block.data(), count);
    }
    return std::ferror(file) != 0 ? LastFault() : std::string{};
}

// Says what keeps the file from being read before it is opened.
std::string Unreadable(const fs::path& source, fs::file_type& type)
{
    std::error_code fault;
    type = fs::status(source, fault).type();
    if (type == fs::file_type::not_found) {
        return "no such file";
    }
    if (type == fs::file_type::directory) {
        return "is a directory";
    }
    const bool large =
        type == fs::file_type::regular && fs::file_size(source, fault) > kLargestFile;
    return large ? kTooLarge : "";
}

std::string Read(const std::string& path, std::string& bytes, bool locked)
{
    bytes.clear();
    const fs::path source = Utf8Path(path);
    fs::file_type type{};
    std::string problem = Unreadable(source, type);
    for (bool waited = locked; problem.empty(); waited = true) {
        const File file(OpenFile(source, "rb"));
        if (!file) {
            return LastFault();
        }
        waited = waited || MayBeWrittenInPlace(file.get());
        if (waited && !locked && !WaitForWriter(file.get())) {
            return std::string(kBusy);
        }
        problem = ReadAll(file.get(), bytes);
        fs::path copy;
        if (type == fs::file_type::regular) {
            copy = CopyLeft(TargetOf(path));
        }
        if (copy.empty()) {
            return problem;
        }
        if (waited && problem.empty()) {
            bytes.clear();
            problem = "was not written to its end; " + Utf8Name(copy) + " holds it whole";
        }
    }
    return problem;
}

}  // namespace

bool FlushToDisk(std::FILE* file)
{
    if (std::fflush(file) != 0) {
        return false;
    }
#ifdef _WIN32
    return _commit(_fileno(file)) == 0;
#else
    // Pipes and devices have no disk behind them; EINVAL says so.
    return fsync(fileno(file)) == 0 || errno == EINVAL;
#endif
}

std::string ReadWholeFile(const std::string& path, std::string& bytes)
{
    return Read(path, bytes, false);
}

std::string ReadLockedFile(const std::string& path, std::string& bytes)
{
    return Read(path, bytes, true);
}

std::string WriteWholeFile(const std::string& path, std::string_view bytes)
{
    FileLock lock;
    const std::string problem = lock.Take(path);
    return problem.empty() ? lock.Write(bytes) : problem;
}

}  // namespace kestrum
