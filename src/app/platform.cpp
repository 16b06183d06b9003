#include "app/platform.h"

#include "app/cell_reader.h"

namespace kestrum {

namespace {

std::string_view Parent(std::string_view folder)
{
    while (folder.size() > 1 && folder.ends_with('/')) {
        folder.remove_suffix(1);
    }
    return folder.substr(0, folder.find_last_of('/') + 1);  // with its separator
}

}  // namespace

std::string_view BehindProgramName(std::string_view commandline)
{
    const std::string_view line = Trimmed(commandline);
    std::size_t end = std::string_view::npos;
    if (line.starts_with('"')) {
        const std::size_t quote = line.find('"', 1);
        end = quote == std::string_view::npos ? line.size() : quote + 1;
    } else {
        end = line.find_first_of(" \t");
    }
    return end < line.size() ? Trimmed(line.substr(end)) : std::string_view{};
}

std::string StateFolder(const std::function<std::string(const char* name)>& variable,
                        Platform platform)
{
    const auto below = [&](const char* name, std::string_view rest) {
        const std::string folder = variable(name);
        return folder.empty() ? folder : folder + std::string(rest);
    };
    switch (platform) {
    case Platform::windows:
        return below("LOCALAPPDATA", "\\Kestrum EC3");
    case Platform::macos:
        return below("HOME", "/Library/Application Support/kestrum-ec3");
    default: {
        // A path that is not absolute counts as none.
        const bool own = variable("XDG_STATE_HOME").starts_with('/');
        return own ? below("XDG_STATE_HOME", "/kestrum-ec3")
                   : below("HOME", "/.local/state/kestrum-ec3");
    }
    }
}

std::string ManualFolder(std::string_view folder, Platform platform)
{
    switch (platform) {
    case Platform::windows:
        return std::string(folder) + "\\Help\\";
    case Platform::macos:
        return std::string(Parent(folder)) + "Resources/Help/";
    default:
        return std::string(Parent(folder)) + "share/doc/kestrum-ec3/";
    }
}

}  // namespace kestrum
