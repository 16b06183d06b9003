#include "core/descriptor_unix.h"

#include <cerrno>
#include <system_error>
#include <thread>
#include <vector>

#include <fcntl.h>
#include <sys/file.h>
#ifdef __APPLE__
#include <copyfile.h>
#else
#include <sys/xattr.h>
#endif

namespace kestrum {

namespace {

#ifndef __APPLE__

using NameList = std::vector<std::string>;

// Names of the extended attributes, those of the access list among them.
bool Attributes(int file, NameList& names)
{
    std::vector<char> list(65536);  // the most that Linux gives
    const ssize_t size = flistxattr(file, list.data(), list.size());
    if (size < 0) {
        return errno == ENOTSUP;
    }
    for (const char* at = list.data(); at < list.data() + size; at += names.back().size() + 1) {
        names.emplace_back(at);
    }
    return true;
}

bool Attribute(int file, const std::string& name, std::string& value)
{
    value.resize(65536);
    const ssize_t size = fgetxattr(file, name.c_str(), value.data(), value.size());
    value.resize(size < 0 ? 0 : static_cast<std::size_t>(size));
    return size >= 0;
}

bool CopyExtended(int from, int to)
{
    NameList wanted, there;
    if (!Attributes(from, wanted) || !Attributes(to, there)) {
        return false;
    }
    std::string value, other;
    for (const std::string& name : wanted) {
        if (!Attribute(from, name, value)) {
            return false;
        }
        const bool same = Attribute(to, name, other) && other == value;
        if (!same && fsetxattr(to, name.c_str(), value.data(), value.size(), 0) != 0) {
            return false;
        }
    }
    for (const std::string& name : there) {  // what the folder gives to each new file
        if (!Attribute(from, name, value) && fremovexattr(to, name.c_str()) != 0) {
            return false;
        }
    }
    return true;
}

#else

bool CopyExtended(int from, int to)
{
    return fcopyfile(from, to, nullptr, COPYFILE_ACL | COPYFILE_XATTR) == 0;
}

#endif

}  // namespace

std::string LastFault()
{
    return std::generic_category().message(errno);
}

Descriptor OpenDescriptor(const std::filesystem::path& path, int flags, mode_t mode)
{
    return Descriptor(open(path.c_str(), flags | O_NOFOLLOW | O_CLOEXEC | O_NONBLOCK, mode));
}

struct stat StatusOf(const Descriptor& file)
{
    struct stat status {};
    if (fstat(file.number(), &status) != 0) {
        status = {};
    }
    return status;
}

bool Names(const std::filesystem::path& path, const Descriptor& file)
{
    struct stat named {};
    const struct stat open = StatusOf(file);
    return lstat(path.c_str(), &named) == 0 && named.st_dev == open.st_dev &&
           named.st_ino == open.st_ino;
}

bool Lock(int file, int kind, std::chrono::steady_clock::time_point end)
{
    constexpr std::chrono::milliseconds kPause{1};
    while (flock(file, kind | LOCK_NB) != 0) {
        if (errno == EINTR) {
            continue;
        }
        if (errno != EWOULDBLOCK) {
            return true;
        }
        if (std::chrono::steady_clock::now() >= end) {
            return false;
        }
        std::this_thread::sleep_for(kPause);
    }
    return true;
}

bool WriteAll(const Descriptor& file, std::string_view bytes)
{
    off_t at = 0;
    while (!bytes.empty()) {
        const ssize_t count = pwrite(file.number(), bytes.data(), bytes.size(), at);
        if (count < 0 && errno != EINTR) {
            return false;
        }
        if (count > 0) {
            at += count;
            bytes.remove_prefix(static_cast<std::size_t>(count));
        }
    }
    return true;
}

bool Flush(const Descriptor& file)
{
    return fsync(file.number()) == 0 || errno == EINVAL || errno == ENOTSUP;
}

bool CopyAttributes(const Descriptor& from, const Descriptor& to)
{
    const struct stat wanted = StatusOf(from), there = StatusOf(to);
    const bool owned = wanted.st_uid == there.st_uid && wanted.st_gid == there.st_gid;
    if (!owned && fchown(to.number(), wanted.st_uid, wanted.st_gid) != 0) {
        return false;
    }
    return fchmod(to.number(), wanted.st_mode & 07777) == 0 &&
           CopyExtended(from.number(), to.number());
}

}  // namespace kestrum
