#pragma once

// Whole files, read and written. How a file is written, and how those who change it keep out of
// each other's way, stands in file_lock.h. Failures are values; nothing throws.

#include <cstddef>
#include <cstdio>
#include <string>
#include <string_view>

namespace kestrum {

// Larger files are none of ours; they are refused before they are read.
constexpr std::size_t kLargestFile = std::size_t{64} << 20;

// Reads the file into `bytes`. Returns an empty text, or why it could not be read ("no such file").
// One that may be written in place is read when no one writes it.
std::string ReadWholeFile(const std::string& path, std::string& bytes);

// The same for one who holds its lock and needs not wait.
std::string ReadLockedFile(const std::string& path, std::string& bytes);

// Writes the file whole, under a lock of its own, or leaves what stood there. Returns an empty
// text, or what went wrong.
std::string WriteWholeFile(const std::string& path, std::string_view bytes);

// Hands on what was written to a stream, down to the disk. False with errno when that fails.
bool FlushToDisk(std::FILE* file);

}  // namespace kestrum
