#pragma once

// The names that belong to a file which is to be read or written: where its links lead, and those
// of its neighbours.

#include <filesystem>
#include <string>

namespace kestrum {

// Where the bytes go: a link keeps pointing to its file, also to one that is not there yet.
std::filesystem::path TargetOf(const std::string& path);

// Names for a file that is being written, ".x.kst.kestrum-save" first; those of higher numbers
// cannot be guessed.
constexpr int kNeighbours = 32;
std::filesystem::path NeighbourOf(const std::filesystem::path& target, int number);

// Names for the copy that is kept while a file is written in place, "x.kst.kestrum-copy" first.
constexpr int kCopies = 4;
std::filesystem::path CopyOf(const std::filesystem::path& target, int number);

}  // namespace kestrum
