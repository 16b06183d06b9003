#include "sections/load_library.h"

#include "core/setup_file.h"
#include "sections/readprofiles.h"
#include "support/sections.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace kestrum {
namespace {

namespace fs = std::filesystem;

// An environment variable for the length of a test.
class Variable {
public:
    Variable(const char* name, const char* value) : name_(name)
    {
        if (const char* old = std::getenv(name); old != nullptr) {
            old_ = old;
            had_ = true;
        }
        value == nullptr ? unsetenv(name) : setenv(name, value, 1);
    }
    ~Variable() { had_ ? setenv(name_, old_.c_str(), 1) : unsetenv(name_); }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;

private:
    const char* name_;
    std::string old_;
    bool had_ = false;
};

TEST(DataFolders, UsersFolderComesFirst)
{
    const Variable own("KESTRUM_DATA", "/own/folder");
    EXPECT_EQ(UserDataFolder(), "/own/folder");
    EXPECT_EQ(DataFolders().front(), "/own/folder");
}

TEST(DataFolders, FollowTheBaseDirectories)
{
    const Variable own("KESTRUM_DATA", nullptr);
    const Variable home("HOME", "/home/ann");
    const Variable shared("XDG_DATA_DIRS", "/opt/share:/usr/share");
    {
        const Variable data("XDG_DATA_HOME", nullptr);
        EXPECT_EQ(UserDataFolder(), "/home/ann/.local/share/kestrum-ec3");
    }
    const Variable data("XDG_DATA_HOME", "/data");
    const std::vector<std::string> folders = DataFolders();
    ASSERT_EQ(folders.size(), 4U);
    EXPECT_EQ(folders[0], "/data/kestrum-ec3");
    // bin/../share of this test program.
    EXPECT_EQ(fs::path(folders[1]).filename(), "kestrum-ec3");
    EXPECT_EQ(fs::path(folders[1]).parent_path().filename(), "share");
    EXPECT_EQ(folders[2], "/opt/share/kestrum-ec3");
    EXPECT_EQ(folders[3], "/usr/share/kestrum-ec3");
}

TEST(DataFolders, UnsetSharedFoldersAreTheUsualTwo)
{
    const Variable shared("XDG_DATA_DIRS", nullptr);
    const std::vector<std::string> folders = DataFolders();
    EXPECT_NE(std::ranges::find(folders, "/usr/local/share/kestrum-ec3"), folders.end());
    EXPECT_NE(std::ranges::find(folders, "/usr/share/kestrum-ec3"), folders.end());
}

TEST(LoadLibrary, ReadsTheDeliveredData)
{
    const Library library = LoadLibrary(std::string(KESTRUM_SHARE));
    for (std::size_t i = 0; i < kTables; ++i) {
        EXPECT_EQ(library.tables[i].value, Delivered().tables[i].value);
    }
    EXPECT_FALSE(library.materials.empty());
    EXPECT_FALSE(library.setup.empty());
}

// The user's folder holds one table and a setup of its own: the rest is
// delivered.
TEST(LoadLibrary, TakesEachFileFromTheFirstFolderThatHasIt)
{
    const fs::path user = fs::path(testing::TempDir()) / "kestrum_library_user";
    fs::remove_all(user);
    fs::create_directories(user);
    fs::copy_file(fs::path(KESTRUM_SHARE) / "heb.dat", user / "hea.dat");
    std::ofstream(user / kSetupFile, std::ios::binary) << "own";

    const Library library = LoadLibrary({user.string(), std::string(KESTRUM_SHARE)});
    EXPECT_EQ(library.setup, "own");
    const auto table = [&](Table t) { return library.tables[static_cast<std::size_t>(t)].value; };
    EXPECT_EQ(table(Table::hea), table(Table::heb));
    EXPECT_EQ(table(Table::ipe), Delivered().tables[static_cast<std::size_t>(Table::ipe)].value);
    EXPECT_FALSE(library.materials.empty());
    fs::remove_all(user);
}

TEST(LoadLibrary, WithoutDataIsEmptyAndOfFullShape)
{
    const Library library = LoadLibrary(std::string("/no/such/folder"));
    EXPECT_TRUE(library.materials.empty());
    EXPECT_TRUE(library.setup.empty());
    for (const ProfileTable& table : library.tables) {
        EXPECT_EQ(table.value.size(), static_cast<std::size_t>(table.reserved * table.columns));
        EXPECT_TRUE(std::ranges::all_of(table.value, [](float v) { return v == 0; }));
    }
}

// A folder in the place of a file is no file.
TEST(LoadLibrary, PassesOverAFolderOfTheFilesName)
{
    const fs::path user = fs::path(testing::TempDir()) / "kestrum_library_folder";
    fs::create_directories(user / "hea.dat");
    const Library library = LoadLibrary({user.string(), std::string(KESTRUM_SHARE)});
    EXPECT_EQ(library.tables[0].value, Delivered().tables[0].value);
    fs::remove_all(user);
}

}  // namespace
}  // namespace kestrum
