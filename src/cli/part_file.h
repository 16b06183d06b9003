#pragma once

// A file that grows in a long run and gets its name at the end. It has a fixed name, so that a run
// that was stopped finds it again; whoever has it open has it alone, and it is never reached
// through a link, made for another user or left with wider rights than the file whose name it gets.

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <string>

namespace kestrum::cli {

class PartFile {
public:
    PartFile() = default;
    ~PartFile() { Close(); }
    PartFile(const PartFile&) = delete;
    PartFile& operator=(const PartFile&) = delete;

    // Opens what is there, or makes it, to read it and append to it. `target` is the name to come;
    // the same as `path` when the file has it already. Returns an empty text, or what is wrong:
    // kRunning while another program has it.
    std::string Open(const std::filesystem::path& path, const std::filesystem::path& target);

    // Null when it is not open.
    std::FILE* stream() const { return file_; }

    // Cuts off what is behind so many bytes; false with errno.
    bool Cut(std::uintmax_t size);

    // Down to the disk, under its name. Returns an empty text, or what went wrong; the file then
    // stays.
    std::string Finish();

    // Deletes the file.
    void Remove();

    bool Close();

private:
    std::filesystem::path path_, target_;
    std::FILE* file_ = nullptr;
};

constexpr const char* kRunning = "is being written by another run";

}  // namespace kestrum::cli
