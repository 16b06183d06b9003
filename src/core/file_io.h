#pragma once

// Whole files, read and written. A written file appears under its name only when it is complete: it
// is written to a neighbour first, flushed to the disk and renamed; the neighbour has a fixed name,
// so that one left behind by a crash is gone after the next save. Failures are values; nothing
// throws.

#include <cstddef>
#include <cstdio>
#include <string>
#include <string_view>

namespace kestrum {

// Larger files are none of ours; they are refused before they are read.
constexpr std::size_t kLargestFile = std::size_t{64} << 20;

// Reads the file into `bytes`. Returns an empty text, or why it could not be read ("no such file").
std::string ReadWholeFile(const std::string& path, std::string& bytes);

// Writes the file whole or leaves what stood there. Returns an empty text, or what went wrong.
std::string WriteWholeFile(const std::string& path, std::string_view bytes);

// Hands on what was written to a stream, down to the disk. False with errno when that fails.
bool FlushToDisk(std::FILE* file);

}  // namespace kestrum
