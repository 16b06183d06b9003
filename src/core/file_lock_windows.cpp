#include "core/file_lock.h"
#include "core/file_target.h"
#include "core/utf8_path.h"

#include <algorithm>
#include <system_error>
#include <thread>

#ifndef NOMINMAX  // the standard library of MinGW defines it
#define NOMINMAX
#endif
#include <windows.h>

namespace kestrum {

namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

constexpr std::chrono::milliseconds kPause{2};

class Handle {
public:
    Handle() = default;
    explicit Handle(HANDLE handle) : handle_(handle) {}
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;
    ~Handle() { Close(); }

    explicit operator bool() const { return handle_ != INVALID_HANDLE_VALUE; }
    HANDLE get() const { return handle_; }
    void Set(HANDLE handle)
    {
        Close();
        handle_ = handle;
    }
    void Close()
    {
        if (*this) {
            CloseHandle(handle_);
        }
        handle_ = INVALID_HANDLE_VALUE;
    }

private:
    HANDLE handle_ = INVALID_HANDLE_VALUE;
};

std::string Fault(DWORD number)
{
    return std::system_category().message(static_cast<int>(number));
}

// Another program has the file open at this moment, or it is just being deleted; the system says
// ERROR_ACCESS_DENIED for the latter, and for what stays denied.
bool Passing(DWORD fault, Clock::time_point begin)
{
    constexpr std::chrono::milliseconds kDeleting{500};
    return fault == ERROR_SHARING_VIOLATION || fault == ERROR_LOCK_VIOLATION ||
           (fault == ERROR_ACCESS_DENIED && Clock::now() < begin + kDeleting);
}

bool WriteAll(HANDLE file, std::string_view bytes)
{
    while (!bytes.empty()) {
        constexpr std::size_t kMost = std::size_t{1} << 20;
        DWORD count = 0;
        if (WriteFile(file, bytes.data(), static_cast<DWORD>(std::min(bytes.size(), kMost)), &count,
                      nullptr) == 0) {
            return false;
        }
        bytes.remove_prefix(count);
    }
    return true;
}

bool Regular(const fs::path& target)
{
    std::error_code ignored;
    const fs::file_type type = fs::status(target, ignored).type();
    return type == fs::file_type::regular || type == fs::file_type::not_found;
}

// Zero, or the fault. The lock of the target is held, so that a neighbour that is there was left
// behind.
DWORD WriteNeighbour(const fs::path& name, std::string_view bytes)
{
    Handle file;
    const auto create = [&] {
        file.Set(CreateFileW(name.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                             FILE_ATTRIBUTE_NORMAL, nullptr));
        return static_cast<bool>(file);
    };
    if (!create() &&
        (GetLastError() != ERROR_FILE_EXISTS || DeleteFileW(name.c_str()) == 0 || !create())) {
        return GetLastError();
    }
    return WriteAll(file.get(), bytes) && FlushFileBuffers(file.get()) != 0 ? 0 : GetLastError();
}

// ReplaceFile keeps the access list and the attributes of the file.
bool Rename(const fs::path& name, const fs::path& target)
{
    return ReplaceFileW(target.c_str(), name.c_str(), nullptr, REPLACEFILE_IGNORE_MERGE_ERRORS,
                        nullptr, nullptr) != 0 ||
           (GetLastError() == ERROR_FILE_NOT_FOUND &&
            MoveFileExW(name.c_str(), target.c_str(),
                        MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0);
}

// Waits for readers, which keep the file open for a moment.
std::string RenameInTime(const fs::path& name, const fs::path& target)
{
    const auto begin = Clock::now();
    while (!Rename(name, target)) {
        const DWORD fault = GetLastError();
        if (!Passing(fault, begin) || Clock::now() >= begin + kLongestWait) {
            return Fault(fault);
        }
        std::this_thread::sleep_for(kPause);
    }
    return {};
}

std::string WriteDevice(const fs::path& target, std::string_view bytes)
{
    const Handle file(
        CreateFileW(target.c_str(), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr));
    return file && WriteAll(file.get(), bytes) ? std::string{} : Fault(GetLastError());
}

}  // namespace

struct FileLock::Held {
    fs::path target;
    Handle lock;
};

FileLock::FileLock() = default;
FileLock::~FileLock() = default;

std::string FileLock::Take(const std::string& path, std::chrono::milliseconds wait)
{
    held_ = std::make_unique<Held>();
    held_->target = TargetOf(path);
    if (!Regular(held_->target)) {
        return {};
    }
    fs::path name = NeighbourOf(held_->target, 0);
    name += ".lock";
    const auto begin = Clock::now();
    for (;;) {
        held_->lock.Set(CreateFileW(name.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                    FILE_FLAG_DELETE_ON_CLOSE | FILE_ATTRIBUTE_HIDDEN, nullptr));
        if (held_->lock || !Passing(GetLastError(), begin)) {
            return {};  // where no file can be made none can be replaced either
        }
        if (Clock::now() >= begin + wait) {
            return std::string(kBusy);
        }
        std::this_thread::sleep_for(kPause);
    }
}

std::string FileLock::Write(std::string_view bytes)
{
    const fs::path& target = held_->target;
    std::error_code fault;
    const fs::file_status before = fs::status(target, fault);
    if (before.type() == fs::file_type::directory) {
        return "is a directory";
    }
    if (!Regular(target)) {
        return WriteDevice(target, bytes);
    }
    if (before.type() == fs::file_type::regular &&
        (before.permissions() & fs::perms::owner_write) == fs::perms::none) {
        return "is write-protected";
    }
    for (int number = 0; number < kNeighbours; ++number) {
        const fs::path name = NeighbourOf(target, number);
        const DWORD refused = WriteNeighbour(name, bytes);
        if (refused == ERROR_FILE_EXISTS || refused == ERROR_SHARING_VIOLATION) {
            continue;
        }
        const std::string problem = refused == 0 ? RenameInTime(name, target) : Fault(refused);
        if (!problem.empty()) {
            fs::remove(name, fault);
        }
        return problem;
    }
    return "no name is free for its neighbour";
}

}  // namespace kestrum
