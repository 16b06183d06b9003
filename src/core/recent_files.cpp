#include "core/recent_files.h"

namespace kestrum {

namespace {

constexpr std::size_t kNumber = 3;  // "1. "

std::string ValueName(int index)
{
    return "RecentFile" + std::to_string(index);
}

// Entries 1 to last - 1 move one step down, where there is something to move or the place must be
// cleared.
void MoveDown(SettingsStore& store, int last, bool keep_empty)
{
    for (int i = last - 1; i >= 1; --i) {
        const std::string path = store.Get(ValueName(i));
        if (keep_empty || !path.empty()) {
            store.Set(ValueName(i + 1), path);
        }
    }
}

}  // namespace

std::vector<std::string> ReadRecentFiles(const SettingsStore& store)
{
    std::vector<std::string> captions;
    if (store.Get(ValueName(1)).empty()) {
        return captions;
    }
    for (int i = 1; i <= kRecentFiles; ++i) {
        if (const std::string path = store.Get(ValueName(i)); !path.empty()) {
            captions.push_back(std::to_string(i) + ". " + path);
        }
    }
    return captions;
}

std::string PathOfCaption(std::string_view caption)
{
    return std::string(caption.size() > kNumber ? caption.substr(kNumber) : std::string_view{});
}

void PushRecentFile(SettingsStore& store, const std::string& path)
{
    int found = 0;
    for (int i = kRecentFiles; i >= 1; --i) {
        if (store.Get(ValueName(i)) == path) {
            found = i;
        }
    }
    if (found == 0) {
        MoveDown(store, kRecentFiles, false);
    } else {
        MoveDown(store, found, true);
    }
    store.Set(ValueName(1), path);
}

}  // namespace kestrum
