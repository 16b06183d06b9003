#include "sections/read_profiles.h"

#include "core/arithmetic_trap.h"
#include "core/fingerprint.h"
#include "core/project_state.h"
#include "core/sha256.h"
#include "sections/hollow.h"
#include "sections/rolled_i.h"
#include "support/members.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace kestrum {
namespace {

namespace fs = std::filesystem;

std::string ReadFile(const fs::path& path)
{
    std::ifstream file(path, std::ios::binary);
    EXPECT_TRUE(file) << path;
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

const ProfileTable& At(const std::array<ProfileTable, kTables>& tables, Table table)
{
    return tables[static_cast<std::size_t>(table)];
}

// A folder of its own with copies of the delivered tables.
class DataFolder : public testing::Test {
protected:
    DataFolder()
    {
        const auto* test = testing::UnitTest::GetInstance()->current_test_info();
        folder = fs::path(testing::TempDir()) / (std::string("kestrum_tables_") + test->name());
        fs::remove_all(folder);
        fs::create_directories(folder);
        for (const auto& entry : fs::directory_iterator(KESTRUM_SHARE)) {
            if (entry.path().extension() == ".dat") {
                fs::copy_file(entry.path(), folder / entry.path().filename());
            }
        }
    }
    ~DataFolder() override { fs::remove_all(folder); }

    void Write(const char* name, const std::string& bytes) const
    {
        std::ofstream(folder / name, std::ios::binary | std::ios::trunc) << bytes;
    }

    fs::path folder;
};

struct Telling {
    Table table;
    int row;
    std::vector<float> values;
};

// Rows that fix columns and units of the files, as published.
const Telling kTelling[] = {
    {Table::hea, 0, {100, 96, 100, 8, 5, 12, 2124, 3.492F, 1.338F, 0.0526F, 2.58F}},
    {Table::ipe, 17, {600, 220, 19, 12, 24, 15600, 920.8F, 33.87F, 1.66F, 2850}},
    {Table::upe, 10, {300, 100, 9.5F, 15, 15, 28.9F, 36.2F, 5660, 7820, 538, 613, 136, 340, 75.5F}},
    {Table::cfrhs, 0, {50, 30, 2, 2.94F, 9.54F, 4.29F, 4.74F, 3.33F, 9.77F}},
    {Table::ub,
     62,
     {838, 292, 176, 175.9F, 834.9F, 291.7F, 14, 18.8F, 17.8F, 224, 2.778F, 246000, 5893, 6808,
      7799, 534.7F, 841.9F, 226.2F, 12950}},
    {Table::ch, 0, {76,    38,    7,      6.7F,  76.2F, 38.1F, 5.1F, 6.8F,  12,    6,     8.62F,
                    0.29F, 75.1F, 19.71F, 23.7F, 10.1F, 3.78F, 7.5F, 1.64F, 0.09F, 1.12F, 2.07F}},
};

TEST(ProfileTables, TellingRowsStandInTheirColumns)
{
    for (const Telling& telling : kTelling) {
        const ProfileTable& table = At(Delivered().tables, telling.table);
        SCOPED_TRACE(RowName(Delivered(), telling.table, telling.row));
        ASSERT_EQ(table.columns, static_cast<int>(telling.values.size()));
        for (int column = 1; column <= table.columns; ++column) {
            EXPECT_EQ(table.At(telling.row, column),
                      telling.values[static_cast<std::size_t>(column - 1)])
                << "column " << column;
        }
    }
}

// A table as data/NAME.csv has it: lines behind the header, columns of the header.
struct Shape {
    Table table;
    std::string file;
    int rows, columns;
};

const fs::path kCsvFolder = fs::path(KESTRUM_SOURCE) / "data";

std::vector<Shape> Shapes()
{
    std::vector<Shape> shapes;
    for (std::size_t i = 0; i < kTables; ++i) {
        const auto table = static_cast<Table>(i);
        const fs::path file(ShapeOf(table).file);
        const std::string csv = ReadFile(kCsvFolder / (file.stem().string() + ".csv"));
        const std::string header = csv.substr(0, csv.find('\n'));
        shapes.push_back({table, file.string(), static_cast<int>(std::ranges::count(csv, '\n')) - 1,
                          static_cast<int>(std::ranges::count(header, ',')) + 1});
    }
    return shapes;
}

TEST(ProfileTables, HaveTheShapesOfTheirCsv)
{
    for (const Shape& shape : Shapes()) {
        SCOPED_TRACE(shape.file);
        const ProfileTable& table = At(Delivered().tables, shape.table);
        EXPECT_EQ(RowCount(shape.table), shape.rows);
        EXPECT_EQ(table.rows, shape.rows);
        EXPECT_EQ(table.columns, shape.columns);
        EXPECT_GE(table.reserved, shape.rows);
        EXPECT_EQ(fs::file_size(fs::path(KESTRUM_SHARE) / shape.file),
                  static_cast<std::uintmax_t>(4 * shape.rows * shape.columns));
    }
}

struct Reserve {
    Table table;
    int rows;
};

// An index up to these calculates as a row of zeros; projects may hold one.
const Reserve kReserves[] = {
    {Table::hea, 29},  {Table::heb, 29},    {Table::hem, 29},    {Table::ipe, 20},
    {Table::upe, 16},  {Table::inp, 23},    {Table::unp, 23},    {Table::shs, 116},
    {Table::rhs, 166}, {Table::cfshs, 116}, {Table::cfrhs, 146}, {Table::l1, 66},
    {Table::l2, 51},   {Table::l3, 13},     {Table::hp, 48},     {Table::ub, 86},
    {Table::uc, 31},   {Table::ubp, 18},    {Table::j, 21},      {Table::ch, 18},
    {Table::pfc, 18},
};

TEST(ProfileTables, KeepTheirReserves)
{
    for (const Reserve& reserve : kReserves) {
        const ProfileTable& table = At(Delivered().tables, reserve.table);
        EXPECT_EQ(table.reserved, std::max(reserve.rows, table.rows))
            << ShapeOf(reserve.table).file;
    }
}

TEST(ProfileTables, LastRowIsReadableAndNothingIsOfferedBehindIt)
{
    for (const Shape& shape : Shapes()) {
        SCOPED_TRACE(shape.file);
        const ProfileTable& table = At(Delivered().tables, shape.table);
        for (int column = 1; column <= shape.columns; ++column) {
            EXPECT_GT(table.At(shape.rows - 1, column), 0) << "column " << column;
        }
        EXPECT_FALSE(RowName(Delivered(), shape.table, shape.rows - 1).empty());
        EXPECT_TRUE(RowName(Delivered(), shape.table, shape.rows).empty());
        EXPECT_TRUE(RowName(Delivered(), shape.table, -1).empty());
    }
}

// Each line of the file list: | `hea.csv` | 24 | what | standard | checked | `sha256` |. Rows and
// checksum are those of the comparison with the source; rows may have come behind them, none may
// have changed.
TEST(ProfileTables, KeepTheRowsThatTheirSourcesName)
{
    const std::string sources = ReadFile(kCsvFolder / "SOURCES.md");
    for (const Shape& shape : Shapes()) {
        const std::string name = fs::path(shape.file).stem().string() + ".csv";
        SCOPED_TRACE(name);
        const std::string csv = ReadFile(kCsvFolder / name);
        const std::string head = "| `" + name + "` | ";
        const std::size_t line = sources.find(head);
        ASSERT_NE(line, std::string::npos);
        const std::string text = sources.substr(line, sources.find('\n', line) - line);
        const int rows = std::stoi(text.substr(head.size()));
        ASSERT_LE(rows, shape.rows);
        std::size_t end = 0;
        for (int i = 0; i <= rows; ++i) {
            end = csv.find('\n', end) + 1;
        }
        const std::string checksum = Sha256(csv.substr(0, end));
        EXPECT_NE(text.find("`" + checksum + "`"), std::string::npos)
            << "the first " << rows << " rows have the checksum " << checksum;
    }
}

// Published values of XXH64 with seed 0.
TEST(Checksum, FingerprintIsThatOfXxHash)
{
    EXPECT_EQ(Fingerprint(""), 0xEF46DB3751D8E999U);
    EXPECT_EQ(Fingerprint("a"), 0xD24EC4F1A98C6E5BU);
    EXPECT_EQ(Fingerprint("abc"), 0x44BC2CF5AD770999U);
    EXPECT_EQ(Fingerprint("Nobody inspects the spammish repetition"), 0xFBCEA83C8A378BF1U);
}

// FIPS 180-4, example of the one-block message.
TEST(Checksum, IsSha256)
{
    EXPECT_EQ(Sha256("abc"), "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
    EXPECT_EQ(Sha256(""), "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855");
}

TEST_F(DataFolder, MissingFileLeavesItsTableZero)
{
    fs::remove(folder / "heb.dat");
    const auto tables = ReadProfiles(folder.string());
    const ProfileTable& heb = At(tables, Table::heb);
    EXPECT_EQ(heb.rows, 24);
    EXPECT_TRUE(std::ranges::all_of(heb.value, [](float v) { return v == 0; }));
    EXPECT_EQ(At(tables, Table::hem).At(0, 1), 100);
}

TEST_F(DataFolder, MissingFolderLeavesAllTablesZero)
{
    for (const ProfileTable& table : ReadProfiles((folder / "none").string())) {
        EXPECT_GT(table.value.size(), 0U);
        EXPECT_TRUE(std::ranges::all_of(table.value, [](float v) { return v == 0; }));
    }
}

// Two rows, one value and half of another are there: a row that is not whole stays zero.
TEST_F(DataFolder, ShortFileKeepsWhatItHolds)
{
    const std::string whole = ReadFile(folder / "hea.dat");
    Write("hea.dat", whole.substr(0, (2 * 11 + 1) * 4 + 2));
    const auto tables = ReadProfiles(folder.string());
    const ProfileTable& hea = At(tables, Table::hea);
    EXPECT_EQ(hea.At(1, 11), At(Delivered().tables, Table::hea).At(1, 11));
    EXPECT_EQ(hea.At(2, 1), 0);
    EXPECT_EQ(hea.At(2, 2), 0);
    EXPECT_EQ(hea.At(3, 1), 0);
}

TEST_F(DataFolder, StaleBytesBehindTheLastRowAreIgnored)
{
    for (const Shape& shape : Shapes()) {
        Write(shape.file.c_str(), ReadFile(folder / shape.file) + std::string(1'000'000, '\x3F'));
    }
    const auto tables = ReadProfiles(folder.string());
    for (const Shape& shape : Shapes()) {
        SCOPED_TRACE(shape.file);
        const ProfileTable& table = At(tables, shape.table);
        const ProfileTable& delivered = At(Delivered().tables, shape.table);
        const auto held = static_cast<std::ptrdiff_t>(shape.rows * shape.columns);
        EXPECT_TRUE(
            std::equal(table.value.begin(), table.value.begin() + held, delivered.value.begin()));
        EXPECT_EQ(table.value.size(), delivered.value.size());
        // The loop over the bearing piles goes on to the end of the array, behind the last row.
        const bool beyond = std::any_of(table.value.begin() + held, table.value.end(),
                                        [](float v) { return v != 0; });
        EXPECT_EQ(beyond, shape.table == Table::ubp);
    }
}

// A row between those read and those reserved is zero: its divisions mark the flags.
TEST(ChosenRow, BehindTheTableDividesByZero)
{
    Member s = Member::Bare();
    s.Row(24);
    ArmTrap();
    PropertiesRolledI(Delivered(), s, s);
    EXPECT_THROW(CheckTrap(), CalculationStop);

    s = Member::Bare(7);
    s.Row(165);
    ArmTrap();
    PropertiesHollow(Delivered(), s, s);
    EXPECT_THROW(CheckTrap(), CalculationStop);
    ArmTrap();
}

TEST(ChosenRow, BeyondTheReservedRowsStopsThePass)
{
    Member s = Member::Bare();
    s.Row(29);
    EXPECT_THROW(PropertiesRolledI(Delivered(), s, s), CalculationStop);
    s.Row(-1);
    EXPECT_THROW(PropertiesRolledI(Delivered(), s, s), CalculationStop);
}

TEST(ChosenRow, WithoutTablesStopsThePass)
{
    Member s = Member::Bare();
    EXPECT_THROW(PropertiesRolledI(Library{}, s, s), CalculationStop);
}

}  // namespace
}  // namespace kestrum
