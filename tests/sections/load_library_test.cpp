#include "sections/load_library.h"

#include "core/material.h"
#include "core/setup_file.h"
#include "core/sha256.h"
#include "sections/read_profiles.h"
#include "sections/second_source.h"
#include "support/members.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace kestrum {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::IsEmpty;
using ::testing::StartsWith;

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

// An empty place between two colons is no folder.
TEST(DataFolders, EmptyPlacesOfTheListAreNone)
{
    const Variable own("KESTRUM_DATA", "/own");
    const Variable shared("XDG_DATA_DIRS", ":/opt/share::/usr/share:");
    const std::vector<std::string> folders = DataFolders();
    ASSERT_EQ(folders.size(), 4U);
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

// A folder with the delivered data, of which a test changes what it likes.
class OwnFolder : public testing::Test {
protected:
    OwnFolder() { fs::copy(KESTRUM_SHARE, folder_.path(), fs::copy_options::recursive); }

    std::string Path(std::string_view name) const { return folder_.File(name); }
    std::string Bytes(std::string_view name) const { return ReadBytes(Path(name)); }
    Library Load() const { return LoadLibrary({folder_.path().string(), KESTRUM_SHARE}); }
    Library LoadAlone() const { return LoadLibrary(folder_.path().string()); }

    const ProfileTable& TableOf(const Library& library, Table table) const
    {
        return library.tables.at(static_cast<std::size_t>(table));
    }

private:
    TemporaryFolder folder_;
};

TEST_F(OwnFolder, TheDeliveredFilesAreKnown)
{
    const Library library = Load();
    EXPECT_TRUE(library.own.empty()) << OwnDataText(library);
    EXPECT_THAT(library.faults, IsEmpty());
    EXPECT_EQ(OwnDataText(library), "");
}

// The user's folder holds one table and a setup of its own: the rest is delivered.
TEST_F(OwnFolder, TakesEachFileFromTheFirstFolderThatHasIt)
{
    const TemporaryFolder user;
    fs::copy_file(Path("heb.dat"), user.File("hea.dat"));
    const std::string setup = "131\r\n\"NO\"\r\n" + Bytes(kSetupFile).substr(11);
    WriteBytes(user.File(kSetupFile), setup);
    const Library library = LoadLibrary({user.path().string(), KESTRUM_SHARE});
    EXPECT_EQ(library.setup, setup);
    EXPECT_EQ(TableOf(library, Table::hea).value, TableOf(library, Table::heb).value);
    EXPECT_EQ(TableOf(library, Table::ipe).value, TableOf(Delivered(), Table::ipe).value);
    EXPECT_FALSE(library.materials.empty());
    EXPECT_THAT(library.faults, IsEmpty());
    ASSERT_EQ(library.own.size(), 1U);
    EXPECT_EQ(library.own[0].path, user.File("hea.dat"));
    EXPECT_EQ(OwnDataText(library),
              "own data: hea.dat (SHA-256 " + Sha256(Bytes("heb.dat")).substr(0, 16) + ")");
}

// One byte less, and the last row would be another.
TEST_F(OwnFolder, AShortTableIsPassedOver)
{
    for (std::size_t i = 0; i < kTables; ++i) {
        const TableShape& shape = ShapeOf(static_cast<Table>(i));
        const std::string path = Path(shape.file), whole = Bytes(shape.file);
        const std::size_t needed =
            static_cast<std::size_t>(shape.rows * shape.columns) * sizeof(float);
        WriteBytes(path, whole.substr(0, needed - 1));
        const Library library = Load();
        EXPECT_EQ(library.tables.at(i).value, Delivered().tables.at(i).value) << shape.file;
        EXPECT_THAT(library.faults,
                    ElementsAre(path + ": " + std::to_string(needed - 1) + " bytes, " +
                                std::to_string(shape.rows) + " rows need " +
                                std::to_string(needed) + "; " + KESTRUM_SHARE "/" +
                                std::string(shape.file) + " is used instead"));
        WriteBytes(path, whole);
    }
}

// Each is exact, or a fault is named and what was used is the delivered file. KESTRUM_FULL=1: every
// byte also of the larger files.
TEST_F(OwnFolder, ACutFileIsExactOrReported)
{
    std::vector<std::string> names = {std::string(kMaterialFile), std::string(kSetupFile), "l3.dat",
                                      "hp.dat", "j.dat"};
    const Library delivered = Load();
    const std::string& setup = delivered.setup;
    const bool full = std::getenv("KESTRUM_FULL") != nullptr;
    for (const std::string& name : names) {
        const std::string whole = Bytes(name);
        const std::size_t step = full || whole.size() < 200 ? 1 : 7;
        for (std::size_t size = (whole.size() - 1) % step; size < whole.size(); size += step) {
            WriteBytes(Path(name), whole.substr(0, size));
            const Library library = Load();
            const bool told = !library.faults.empty();
            // Half of the last line end is enough of it.
            const bool exact = size + 1 == whole.size() && whole.ends_with("\r\n");
            EXPECT_TRUE(told || exact) << name << " cut to " << size;
            EXPECT_EQ(library.setup.substr(0, setup.size() - 1), setup.substr(0, setup.size() - 1));
            for (const Table table : {Table::l3, Table::hp}) {
                EXPECT_EQ(TableOf(library, table).value, TableOf(delivered, table).value);
            }
        }
        WriteBytes(Path(name), whole);
    }
}

// Without another folder: whole rows stay, the rest is zero; a damaged setup gives the delivered
// values, also when it is garbage.
TEST_F(OwnFolder, ADamagedFileWithoutAnotherIsReported)
{
    const std::string setup = Bytes(kSetupFile);
    for (const std::string& bytes : {std::string(), std::string("garbage"), setup.substr(0, 110),
                                     setup.substr(0, setup.size() - 3)}) {
        WriteBytes(Path(kSetupFile), bytes);
        const Library library = LoadAlone();
        EXPECT_EQ(library.setup, setup);
        ASSERT_EQ(library.faults.size(), 1U);
        EXPECT_THAT(library.faults[0], StartsWith(Path(kSetupFile) + ":"));
        EXPECT_THAT(library.faults[0], EndsWith("; the delivered values are used instead"));
    }
    WriteBytes(Path(kSetupFile), setup);
    WriteBytes(Path("hp.dat"), Bytes("hp.dat").substr(0, 939));
    const Library library = LoadAlone();
    EXPECT_THAT(library.faults, ElementsAre(Path("hp.dat") + ": 939 bytes, 47 rows need 940"));
    EXPECT_EQ(TableOf(library, Table::hp).At(45, 5), TableOf(Delivered(), Table::hp).At(45, 5));
    EXPECT_EQ(TableOf(library, Table::hp).At(46, 1), 0);
}

TEST_F(OwnFolder, ATableWithoutNumbersIsPassedOver)
{
    std::string bytes = Bytes("hea.dat");
    bytes.replace((2 * 11 + 4) * 4, 4, std::string("\0\0\xC0\x7F", 4));  // a NaN
    WriteBytes(Path("hea.dat"), bytes);
    EXPECT_THAT(Load().faults,
                ElementsAre(Path("hea.dat") + ": row 3, column 5 is no finite number; " +
                            KESTRUM_SHARE "/hea.dat is used instead"));
}

// What lies in a folder that only the installation writes is either the delivered file or damaged.
TEST_F(OwnFolder, AnotherFileAmongTheDeliveredOnesIsReported)
{
    const TemporaryFolder user;
    fs::copy_file(Path("heb.dat"), Path("hea.dat"), fs::copy_options::overwrite_existing);
    const std::string folder = fs::path(Path("hea.dat")).parent_path().string();
    const Library library = LoadLibrary({user.path().string(), folder});
    EXPECT_THAT(library.faults, ElementsAre(Path("hea.dat") + ": is not the file as delivered"));
    EXPECT_EQ(library.own.size(), 1U);
}

// Two damaged files: both are told, and what the first holds counts. A damaged one among the
// delivered is not called another file as well.
TEST_F(OwnFolder, OfTwoDamagedFilesTheFirstCounts)
{
    const TemporaryFolder user;
    const std::string bytes = Bytes("hea.dat");
    WriteBytes(user.File("hea.dat"), bytes.substr(0, 2 * 44));  // two rows of eleven numbers
    WriteBytes(Path("hea.dat"), bytes.substr(0, 44));
    const std::string folder = fs::path(Path("hea.dat")).parent_path().string();
    const Library library = LoadLibrary({user.path().string(), folder});
    const std::string need = " rows need " + std::to_string(bytes.size());
    ASSERT_EQ(library.faults.size(), 2U);
    EXPECT_THAT(library.faults[0], StartsWith(user.File("hea.dat") + ": 88 bytes, "));
    EXPECT_THAT(library.faults[1], StartsWith(Path("hea.dat") + ": 44 bytes, "));
    EXPECT_THAT(library.faults[0], EndsWith(need));
    EXPECT_EQ(TableOf(library, Table::hea).At(1, 1), TableOf(Delivered(), Table::hea).At(1, 1));
    EXPECT_EQ(TableOf(library, Table::hea).At(2, 1), 0);
}

// A file that is there and cannot be read: its text is the system's.
TEST_F(OwnFolder, AFileTooLargeToReadIsPassedOver)
{
    fs::resize_file(Path("hea.dat"), std::uintmax_t{1} << 40);  // holes only
    EXPECT_THAT(Load().faults,
                ElementsAre(Path("hea.dat") + ": is larger than any file of this program; " +
                            KESTRUM_SHARE "/hea.dat is used instead"));
}

TEST_F(OwnFolder, AListWhoseLastRowIsAGradeIsReported)
{
    WriteBytes(Path(kMaterialFile), "A\t235\t215\r\nB\t275\t255\r\n");
    const Library library = Load();
    EXPECT_EQ(library.materials.size(), 2U);
    EXPECT_THAT(library.faults,
                ElementsAre(Path(kMaterialFile) + ": the last row, B, is the user's own value; "
                                                  "its strengths are not used"));
    WriteBytes(Path(kMaterialFile), "A\t235\t215\r\nOwn\t0\t0\r\n");
    EXPECT_THAT(Load().faults, IsEmpty());
    ASSERT_EQ(Load().own.size(), 1U);
    EXPECT_EQ(Load().own[0].name, kMaterialFile);
}

// A list of corrected figures of the user's own counts and is named; a damaged one is passed over.
TEST_F(OwnFolder, TheListOfCorrectedFiguresIsOneOfTheFiles)
{
    const std::string list(kSecondSourceFile), whole = Bytes(list);
    ASSERT_FALSE(Load().corrected.empty());
    const std::size_t count = Load().corrected.size();
    WriteBytes(Path(list), whole.substr(0, whole.find('\n', 100) + 1));  // the first line
    EXPECT_EQ(Load().corrected.size(), 1U);
    ASSERT_EQ(Load().own.size(), 1U);
    EXPECT_EQ(Load().own[0].name, list);
    EXPECT_THAT(Load().faults, IsEmpty());
    WriteBytes(Path(list), whole.substr(0, whole.size() - 1));
    EXPECT_EQ(Load().corrected.size(), count);
    EXPECT_THAT(Load().faults,
                ElementsAre(Path(list) + ":101: expected a line end; " KESTRUM_SHARE "/" + list +
                            " is used instead"));
    fs::remove(Path(list));
    EXPECT_THAT(LoadAlone().faults,
                ElementsAre("in none of the data folders: second_source.csv; the standard basis "
                            "takes every figure of the profile tables"));
}

TEST_F(OwnFolder, AFolderNamedOnPurposeIsReportedForWhatItLacks)
{
    const auto named = [](const std::string& folder) {
        const Variable own("KESTRUM_DATA", folder.c_str());
        const Variable shared("XDG_DATA_DIRS", fs::path(KESTRUM_SHARE).parent_path().c_str());
        return LoadUsualLibrary();
    };
    const std::string folder = fs::path(Path("hea.dat")).parent_path().string();
    EXPECT_THAT(named(folder).faults, IsEmpty());
    fs::remove(Path("hea.dat"));
    fs::remove(Path("j.dat"));
    EXPECT_THAT(named(folder).faults,
                ElementsAre("KESTRUM_DATA: " + folder +
                            " has no hea.dat, j.dat; those of the other data folders are used"));
    const TemporaryFolder empty;
    EXPECT_THAT(named(empty.path()).faults,
                ElementsAre("KESTRUM_DATA: " + empty.path().string() +
                            " has no profile tables; those of the other data folders are used"));
    EXPECT_THAT(named("/no/such/folder").faults,
                ElementsAre("KESTRUM_DATA: /no/such/folder: no such folder; the other data "
                            "folders are used"));
    EXPECT_EQ(named("/no/such/folder").tables[0].value, Delivered().tables[0].value);
}

TEST(LoadLibrary, WithoutDataIsEmptyAndOfFullShape)
{
    const Library library = LoadLibrary(std::string("/no/such/folder"));
    EXPECT_TRUE(library.materials.empty());
    EXPECT_TRUE(library.setup.empty());
    ASSERT_EQ(library.faults.size(), 2U);
    EXPECT_THAT(library.faults[0], StartsWith("in none of the data folders: hea.dat, heb.dat, "));
    EXPECT_EQ(library.faults[1],
              "in none of the data folders: second_source.csv; the standard basis takes every "
              "figure of the profile tables");
    EXPECT_TRUE(library.corrected.empty());
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
