#pragma once

// The project's file on the disk against what the program has read from it or written to it last:
// another program, or another window of this one, may have changed it since.

#include <cstdint>
#include <optional>
#include <string>

namespace kestrum {

enum class DiskState : std::uint8_t {
    same,     // holds what was read or written here
    changed,  // holds something else, or cannot be read any more
    gone      // no longer there; saving loses nothing
};

// Whole contents are compared: neither a time that did not move nor one that did deceives it.
class DiskFile {
public:
    // The bytes were read from the file, or have been written to it.
    void Know(std::string bytes);
    void Forget();

    // SHA-256 of what is known; empty when nothing is.
    std::string Digest() const;

    // For one who holds the lock of the file.
    DiskState Compare(const std::string& path);

    // Whether the file holds something else that no look has seen yet.
    bool HasNews(const std::string& path);
    // What the last look has seen may be overwritten.
    void Accept();
    // The last look found no file.
    bool gone() const { return seen_ && !seen_->there; }

private:
    struct Content {
        bool there = false;
        std::string bytes, problem;
        bool operator==(const Content&) const = default;
    };
    using Reader = std::string (*)(const std::string& path, std::string& bytes);
    static Content Read(const std::string& path, Reader reader);

    std::optional<Content> known_, seen_;
};

}  // namespace kestrum
