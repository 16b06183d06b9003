#include "cli/batch_origin.h"

#include "cli/context.h"
#include "core/utf8_path.h"
#include "core/utf8_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <filesystem>
#include <memory>

namespace kestrum::cli {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view kHead = "kestrum batch 1";

// Size and FNV-1a hash (64 bits): whether a file was changed, not whether somebody forged it.
class Fingerprint {
public:
    void Add(std::string_view bytes)
    {
        constexpr std::uint64_t kPrime = 1099511628211U;
        for (const char c : bytes) {
            hash_ = (hash_ ^ static_cast<unsigned char>(c)) * kPrime;
        }
        size_ += bytes.size();
    }

    void AddFile(const fs::path& path)
    {
        const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(OpenFile(path, "rb"),
                                                                   std::fclose);
        std::array<char, 65536> block;
        while (const std::size_t got =
                   file ? std::fread(block.data(), 1, block.size(), file.get()) : 0) {
            Add({block.data(), got});
        }
    }

    std::string Text() const
    {
        std::array<char, 16> digits;
        const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), hash_, 16).ptr;
        return std::to_string(size_) + " " + std::string(digits.data(), end);
    }

private:
    std::uint64_t hash_ = 14695981039346656037U;
    std::uintmax_t size_ = 0;
};

// The projects of a folder by name, with their names.
void AddFolder(Fingerprint& print, const fs::path& folder)
{
    std::vector<std::string> files;
    std::error_code fault;
    for (fs::directory_iterator at(folder, fault), end; !fault && at != end; at.increment(fault)) {
        if (EndingOf(Utf8Name(at->path())) == ".kst") {
            files.push_back(Utf8Name(at->path()));
        }
    }
    std::sort(files.begin(), files.end());
    for (const std::string& file : files) {
        print.Add(file);
        print.AddFile(Utf8Path(file));
    }
}

std::string LineOf(const BatchSource& source)
{
    const fs::path path = Utf8Path(source.path);
    std::error_code fault;
    Fingerprint print;
    if (fs::is_directory(path, fault)) {
        AddFolder(print, path);
    } else if (fs::is_regular_file(path, fault)) {
        print.AddFile(path);
    } else {
        return "- - " + Printable(source.name);  // a stream, which can be read but once
    }
    return print.Text() + " " + Printable(source.name);
}

std::string_view NameIn(std::string_view line)
{
    for (int i = 0; i < 2; ++i) {
        line.remove_prefix(std::min(line.find(' ') + 1, line.size()));
    }
    return line;
}

}  // namespace

BatchOrigin::BatchOrigin(const std::vector<BatchSource>& sources, const std::string& how)
    : text_(std::string(kHead) + " " + Printable(how) + "\n")
{
    for (const BatchSource& source : sources) {
        text_ += LineOf(source) + "\n";
    }
}

bool BatchOrigin::ReadShardOf(const std::string& stored, Shard& shard, std::string& common)
{
    std::string_view rest = stored;
    bool found = false;
    common = TakeLine(rest);
    while (!rest.empty()) {
        const std::string_view line = TakeLine(rest), name = NameIn(line);
        if (name.starts_with(kShardSource)) {
            found = ReadShard(name.substr(std::string_view(kShardSource).size()), shard);
        } else {
            common.append("\n").append(line.substr(0, line.size() - name.size()));
        }
    }
    return found && common.starts_with(kHead);
}

std::string BatchOrigin::Differs(const std::string& stored) const
{
    std::string_view mine = text_, other = stored;
    if (TakeLine(mine) != TakeLine(other)) {
        return "the earlier run had other options or columns";
    }
    while (!mine.empty() || !other.empty()) {
        const std::string_view now = TakeLine(mine), then = TakeLine(other);
        if (now == then) {
            continue;
        }
        if (NameIn(now) == NameIn(then)) {
            return std::string(NameIn(now)) + " is not what the earlier run read";
        }
        return then.empty() ? "the earlier run did not read " + std::string(NameIn(now))
                            : "the earlier run read " + std::string(NameIn(then));
    }
    return {};
}

}  // namespace kestrum::cli
