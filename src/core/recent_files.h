#pragma once

// The four most recent projects of the file menu.

#include <string>
#include <string_view>
#include <vector>

namespace kestrum {

// Where the paths are kept: the platform's store, application and section below, values
// "RecentFile1" (the newest) to "RecentFile4".
class SettingsStore {
public:
    virtual ~SettingsStore() = default;
    virtual std::string Get(const std::string& value) const = 0;  // empty when there is none
    virtual void Set(const std::string& value, const std::string& text) = 0;
};
constexpr std::string_view kSettingsApplication = "Kestrum_ns";
constexpr std::string_view kSettingsSection = "Recent Files";
constexpr int kRecentFiles = 4;

// Menu captions, "1. C:\x.kst"; none when the first value is empty. An empty value in between has
// no entry but keeps its number.
std::vector<std::string> ReadRecentFiles(const SettingsStore& store);

// The path of a caption: what stands behind its number.
std::string PathOfCaption(std::string_view caption);

// Makes the path the newest entry. One already listed moves to the top, the entries above it move
// down; the oldest falls off. Paths are compared letter by letter.
void PushRecentFile(SettingsStore& store, const std::string& path);

}  // namespace kestrum
