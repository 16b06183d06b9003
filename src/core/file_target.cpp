#include "core/file_target.h"

#include "core/utf8_path.h"

#include <algorithm>
#include <random>
#include <system_error>

namespace kestrum {

namespace {

namespace fs = std::filesystem;

constexpr int kMostLinks = 40;       // as systems follow them
constexpr int kFixedNeighbours = 8;  // found again, and cleared, after a crash

// What may be added to a name that is as long as a system allows.
fs::path Added(const fs::path& target, const char* front, const std::string& back)
{
    constexpr std::size_t kLongestName = 200;
    fs::path::string_type name = target.filename().native();
    name.resize(std::min(name.size(), kLongestName));
    fs::path path = target.parent_path() / front;
    path += name;
    path += back;
    return path;
}

std::string Numbered(const char* text, int number)
{
    std::string numbered(text);
    if (number > 0) {
        numbered += std::to_string(number);
    }
    return numbered;
}

}  // namespace

fs::path TargetOf(const std::string& path)
{
    std::error_code fault;
    fs::path target = fs::canonical(Utf8Path(path), fault);
    if (!fault) {
        return target;
    }
    target = Utf8Path(path);
    for (int i = 0; i < kMostLinks && fs::is_symlink(target, fault); ++i) {
        target = target.parent_path() / fs::read_symlink(target, fault);
    }
    return target;
}

fs::path NeighbourOf(const fs::path& target, int number)
{
    if (number < kFixedNeighbours) {
        return Added(target, ".", Numbered(".kestrum-save", number));
    }
    std::random_device random;
    return Added(target, ".", ".kestrum-save-" + std::to_string(random()));
}

fs::path CopyOf(const fs::path& target, int number)
{
    return Added(target, "", Numbered(".kestrum-copy", number));
}

}  // namespace kestrum
