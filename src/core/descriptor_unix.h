#pragma once

// Open files of Unix systems, and locks on them.

#include <chrono>
#include <filesystem>
#include <string>
#include <string_view>
#include <utility>

#include <sys/stat.h>
#include <unistd.h>

namespace kestrum {

class Descriptor {
public:
    Descriptor() = default;
    explicit Descriptor(int number) : number_(number) {}
    Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept
    {
        std::swap(number_, other.number_);
        return *this;
    }
    ~Descriptor()
    {
        if (number_ >= 0) {
            close(number_);
        }
    }

    explicit operator bool() const { return number_ >= 0; }
    int number() const { return number_; }

private:
    int number_ = -1;
};

std::string LastFault();  // what errno says

// Never through a link in the last place, never inherited by another program; errno on failure.
Descriptor OpenDescriptor(const std::filesystem::path& path, int flags, mode_t mode = 0);

struct stat StatusOf(const Descriptor& file);  // all zero when the system refuses it

// Whether the name still means this file.
bool Names(const std::filesystem::path& path, const Descriptor& file);

// Locks the file, LOCK_EX or LOCK_SH. False when another has it to the end. A file system without
// locks has none to wait for.
bool Lock(int file, int kind, std::chrono::steady_clock::time_point end);

// Writes from the beginning of the file; false with errno.
bool WriteAll(const Descriptor& file, std::string_view bytes);

// fsync; pipes, devices and some file systems have nothing to flush. False with errno.
bool Flush(const Descriptor& file);

// Gives a new file owner, group, rights, access list and extended attributes of another one. False
// when one of them cannot be given.
bool CopyAttributes(const Descriptor& from, const Descriptor& to);

}  // namespace kestrum
