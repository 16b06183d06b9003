#include "core/file_io.h"

#include "core/utf8_path.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <system_error>

#ifdef _WIN32
#include <io.h>
#else
#include <unistd.h>
#endif

namespace kestrum {

namespace {

namespace fs = std::filesystem;

struct CloseFile {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, CloseFile>;

std::string LastFault()
{
    return std::generic_category().message(errno);
}

// Where the bytes go: a link keeps pointing to its file.
fs::path TargetOf(const std::string& path)
{
    std::error_code fault;
    const fs::path target = fs::canonical(Utf8Path(path), fault);
    return fault ? Utf8Path(path) : target;
}

fs::path NeighbourOf(const fs::path& target)
{
    constexpr std::size_t kLongestName = 200;  // leaves room for what is added
    fs::path::string_type name = target.filename().native();
    name.resize(std::min(name.size(), kLongestName));
    fs::path neighbour = target.parent_path() / ".";
    neighbour += name;
    neighbour += ".kestrum-save";
    return neighbour;
}

std::string WriteNeighbour(const fs::path& neighbour, std::string_view bytes)
{
    File file(OpenFile(neighbour, "wb"));
    if (!file) {
        return LastFault();
    }
    const bool written = std::fwrite(bytes.data(), 1, bytes.size(), file.get()) == bytes.size() &&
                         FlushToDisk(file.get());
    std::string fault = written ? std::string{} : LastFault();
    if (std::fclose(file.release()) != 0 && fault.empty()) {
        fault = LastFault();
    }
    return fault;
}

}  // namespace

bool FlushToDisk(std::FILE* file)
{
    if (std::fflush(file) != 0) {
        return false;
    }
#ifdef _WIN32
    return _commit(_fileno(file)) == 0;
#else
    // Pipes and devices have no disk behind them; EINVAL says so.
    return fsync(fileno(file)) == 0 || errno == EINVAL;
#endif
}

std::string ReadWholeFile(const std::string& path, std::string& bytes)
{
    bytes.clear();
    std::error_code fault;
    const fs::path source = Utf8Path(path);
    const fs::file_status status = fs::status(source, fault);
    if (status.type() == fs::file_type::not_found) {
        return "no such file";
    }
    if (status.type() == fs::file_type::directory) {
        return "is a directory";
    }
    if (status.type() == fs::file_type::regular && fs::file_size(source, fault) > kLargestFile) {
        return "is larger than any file of this program";
    }
    const File file(OpenFile(source, "rb"));
    if (!file) {
        return LastFault();
    }
    std::array<char, 65536> block;
    for (std::size_t count = 0;
         (count = std::fread(block.data(), 1, block.size(), file.get())) > 0;) {
        if (bytes.size() + count > kLargestFile) {
            bytes.clear();
            return "is larger than any file of this program";
        }
        bytes.append(block.data(), count);
    }
    return std::ferror(file.get()) != 0 ? LastFault() : std::string{};
}

std::string WriteWholeFile(const std::string& path, std::string_view bytes)
{
    std::error_code fault;
    const fs::path target = TargetOf(path);
    const fs::file_status before = fs::status(target, fault);
    if (before.type() == fs::file_type::directory) {
        return "is a directory";
    }
    if (before.type() != fs::file_type::regular && before.type() != fs::file_type::not_found) {
        return WriteNeighbour(target, bytes);  // a device takes the bytes as they come
    }
    if (before.type() == fs::file_type::regular &&
        (before.permissions() & fs::perms::owner_write) == fs::perms::none) {
        return "is write-protected";  // a rename would not mind
    }
    const fs::path neighbour = NeighbourOf(target);
    std::string problem = WriteNeighbour(neighbour, bytes);
    if (problem.empty()) {
        if (before.type() == fs::file_type::regular) {
            fs::permissions(neighbour, before.permissions(), fault);
        }
        fs::rename(neighbour, target, fault);
        problem = fault ? fault.message() : std::string{};
    }
    if (!problem.empty()) {
        fs::remove(neighbour, fault);
    }
    return problem;
}

}  // namespace kestrum
