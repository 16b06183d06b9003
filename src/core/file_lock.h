#pragma once

// The right to change a file, from reading it to writing it, and how a file is written.
//
// A file is written to a neighbour in its folder, flushed and renamed, so that it appears under its
// name only when it is complete; then the folder is flushed. The neighbour is created exclusively
// and never through a link, has the rights of the file from its first byte, and is gone after the
// next save if a crash left it behind. Owner, group, access list and extended attributes are those
// of the file before. Where they cannot be kept, and where the file has further names (hard links),
// it is written in place, after a flushed copy, NAME.kestrum-copy; if that is interrupted, the copy
// stays, and readers refuse the file until it is saved again or the copy is moved or deleted.
//
// The lock is advisory and lies on the file itself: a file of its own for it would be left behind
// by a crash, and one on the folder would hold up every other file. Because a save replaces the
// file, whoever gets the lock looks whether the name still means the file that he locked, and the
// lock goes on to the new file before that gets the name. On Windows an open file cannot be
// replaced; there a neighbour that the system deletes with its last handle is the lock.

#include <chrono>
#include <memory>
#include <string>
#include <string_view>

namespace kestrum {

constexpr std::chrono::milliseconds kLongestWait{10000};
constexpr std::string_view kBusy = "is being changed by another program";

class FileLock {
public:
    FileLock();
    ~FileLock();
    FileLock(const FileLock&) = delete;
    FileLock& operator=(const FileLock&) = delete;

    // Waits until no other lock is held on the file. A file that is not there yet, a device, and a
    // file system without locks need none. Returns an empty text, or what is wrong: kBusy after
    // `wait`.
    std::string Take(const std::string& path, std::chrono::milliseconds wait = kLongestWait);

    // Writes the file taken, whole, or leaves what stood there. The lock stays. Returns an empty
    // text, or what went wrong.
    std::string Write(std::string_view bytes);

private:
    struct Held;
    std::unique_ptr<Held> held_;
};

}  // namespace kestrum
