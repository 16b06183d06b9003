#ifndef _WIN32

#include "cli/part_file.h"
#include "core/descriptor_unix.h"
#include "core/file_io.h"

#include <array>
#include <cerrno>
#include <system_error>
#include <utility>

#include <fcntl.h>
#include <sys/file.h>

namespace kestrum::cli {

namespace {

namespace fs = std::filesystem;

constexpr mode_t kPrivate = 0600, kUsual = 0666;  // the second less the user's mask

std::string Fault(int number)
{
    return std::generic_category().message(number);
}

// What must not be written on, though its name is free to anyone who may write in the folder.
std::string Strange(const struct stat& status, bool named)
{
    if (!S_ISREG(status.st_mode)) {
        return "is no file";
    }
    if (named) {
        return {};
    }
    if (status.st_uid != geteuid()) {
        return "belongs to another user";
    }
    return status.st_nlink > 1 ? "has another name besides (hard link)" : "";
}

// The bytes of the one file in place of those of the other; false with errno.
bool CopyBytes(std::FILE* from, const Descriptor& to)
{
    std::rewind(from);
    std::array<char, 65536> block;
    off_t size = 0;
    while (const std::size_t got = std::fread(block.data(), 1, block.size(), from)) {
        for (std::size_t done = 0; done < got;) {
            const ssize_t count = pwrite(to.number(), block.data() + done, got - done, size);
            if (count < 0 && errno != EINTR) {
                return false;
            }
            done += count > 0 ? static_cast<std::size_t>(count) : 0;
            size += count > 0 ? count : 0;
        }
    }
    return std::ferror(from) == 0 && ftruncate(to.number(), size) == 0 && Flush(to);
}

}  // namespace

std::string PartFile::Open(const fs::path& path, const fs::path& target)
{
    const bool named = path == target;
    const Descriptor before = OpenDescriptor(target, O_RDONLY);
    constexpr int kRounds = 10;  // another run may finish or give up meanwhile
    for (int round = 0; round < kRounds; ++round) {
        Descriptor file =
            OpenDescriptor(path, O_RDWR | O_CREAT | O_APPEND, before ? kPrivate : kUsual);
        if (!file) {
            return errno == ELOOP ? "is a link" : Fault(errno);
        }
        const std::string strange = Strange(StatusOf(file), named);
        if (!strange.empty()) {
            return strange;
        }
        if (!Lock(file.number(), LOCK_EX, {})) {
            return kRunning;
        }
        if (!Names(path, file)) {
            continue;
        }
        if (before && !named) {
            CopyAttributes(before, file);  // those that can be given; Finish sees to the rest
        }
        path_ = path;
        target_ = target;
        const int flags = fcntl(file.number(), F_GETFL);
        fcntl(file.number(), F_SETFL, flags & ~O_NONBLOCK);
        file_ = fdopen(dup(file.number()), "a+b");  // the lock is that of both descriptors
        return file_ == nullptr ? Fault(errno) : std::string{};
    }
    return kRunning;
}

bool PartFile::Cut(std::uintmax_t size)
{
    return ftruncate(fileno(file_), static_cast<off_t>(size)) == 0;
}

// A file with further names keeps them, and one whose owner or rights a new file cannot have keeps
// those: its bytes are replaced. So they are where the name is bound to another file system.
std::string PartFile::Finish()
{
    if (!FlushToDisk(file_)) {
        return Fault(errno);
    }
    if (path_ == target_) {
        return Close() ? std::string{} : Fault(errno);
    }
    const Descriptor old = OpenDescriptor(target_, O_RDONLY);
    const Descriptor part(dup(fileno(file_)));
    const bool keeps = old && (StatusOf(old).st_nlink > 1 || !CopyAttributes(old, part));
    if (!keeps && rename(path_.c_str(), target_.c_str()) == 0) {
        return Close() ? std::string{} : Fault(errno);
    }
    if (!keeps && errno != EXDEV && errno != EBUSY) {
        return Fault(errno);
    }
    const Descriptor place = OpenDescriptor(target_, O_WRONLY);
    if (!place || !CopyBytes(file_, place)) {
        return Fault(errno);
    }
    Remove();
    return {};
}

void PartFile::Remove()
{
    unlink(path_.c_str());
    Close();
}

bool PartFile::Close()
{
    std::FILE* const file = std::exchange(file_, nullptr);
    return file == nullptr || std::fclose(file) == 0;
}

}  // namespace kestrum::cli

#endif
