#pragma once

// Names of files are UTF-8 everywhere in the program. A std::filesystem::path made of a
// std::string, and std::fopen, take them in the code page of the machine on Windows; what stands
// here does not.

#include <cstdio>
#include <filesystem>
#include <string>
#include <string_view>

namespace kestrum {

std::filesystem::path Utf8Path(std::string_view name);
std::string Utf8Name(const std::filesystem::path& path);

// As std::fopen: null with errno on failure.
std::FILE* OpenFile(const std::filesystem::path& path, const char* mode);

}  // namespace kestrum
