#pragma once

// A folder of one test, gone with it.

#include <atomic>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <unistd.h>

namespace kestrum {

class TemporaryFolder {
public:
    TemporaryFolder()
    {
        static std::atomic<int> count = 0;
        path_ = std::filesystem::temp_directory_path() /
                ("kestrum-test-" + std::to_string(getpid()) + "-" + std::to_string(count++));
        std::filesystem::create_directories(path_);
    }
    ~TemporaryFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    std::string File(std::string_view name) const { return (path_ / name).string(); }
    const std::filesystem::path& path() const { return path_; }

private:
    std::filesystem::path path_;
};

inline void WriteBytes(const std::string& path, std::string_view bytes)
{
    std::ofstream(path, std::ios::binary) << bytes;
}

inline std::string ReadBytes(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace kestrum
