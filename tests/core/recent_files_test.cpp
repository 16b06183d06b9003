#include "core/recent_files.h"

#include <gtest/gtest.h>

#include <map>

namespace kestrum {
namespace {

class Store : public SettingsStore {
public:
    std::string Get(const std::string& value) const override
    {
        const auto at = values.find(value);
        return at == values.end() ? std::string{} : at->second;
    }
    void Set(const std::string& value, const std::string& text) override { values[value] = text; }
    std::map<std::string, std::string> values;
};

Store With(const std::vector<std::string>& oldest_first)
{
    Store store;
    for (const std::string& path : oldest_first) {
        PushRecentFile(store, path);
    }
    return store;
}

TEST(RecentFiles, TheNewestIsNumberOneAndTheOldestFallsOff)
{
    EXPECT_EQ(ReadRecentFiles(With({"a", "b", "c", "d", "e"})),
              (std::vector<std::string>{"1. e", "2. d", "3. c", "4. b"}));
}

TEST(RecentFiles, AListedPathMovesToTheTop)
{
    Store store = With({"d", "c", "b", "a"});
    PushRecentFile(store, "c");
    EXPECT_EQ(ReadRecentFiles(store), (std::vector<std::string>{"1. c", "2. a", "3. b", "4. d"}));
    PushRecentFile(store, "d");
    EXPECT_EQ(ReadRecentFiles(store), (std::vector<std::string>{"1. d", "2. c", "3. a", "4. b"}));
    PushRecentFile(store, "d");
    EXPECT_EQ(ReadRecentFiles(store), (std::vector<std::string>{"1. d", "2. c", "3. a", "4. b"}));
}

TEST(RecentFiles, AreComparedLetterByLetter)
{
    Store store = With({"a"});
    PushRecentFile(store, "A");
    EXPECT_EQ(ReadRecentFiles(store), (std::vector<std::string>{"1. A", "2. a"}));
}

TEST(RecentFiles, AreNotListedWithoutAFirstOne)
{
    Store store;
    store.Set("RecentFile2", "b");
    EXPECT_TRUE(ReadRecentFiles(store).empty());
}

TEST(RecentFiles, ACaptionGivesItsPathBack)
{
    EXPECT_EQ(PathOfCaption("3. C:\\jobs\\1. hall.kst"), "C:\\jobs\\1. hall.kst");
    EXPECT_EQ(PathOfCaption(""), "");
}

}  // namespace
}  // namespace kestrum
