// The program that turns data/*.csv into the binary tables, run as the build runs it.

#include "core/fingerprint.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

namespace kestrum {
namespace {

namespace fs = std::filesystem;

class TableCompiler : public testing::Test {
protected:
    TableCompiler()
    {
        const auto* test = testing::UnitTest::GetInstance()->current_test_info();
        folder = fs::path(testing::TempDir()) / (std::string("kestrum_compiler_") + test->name());
        fs::remove_all(folder);
        fs::create_directories(folder);
    }
    ~TableCompiler() override { fs::remove_all(folder); }

    // True when the program reports success.
    bool Compile(const std::string& csv)
    {
        std::ofstream(folder / "in.csv", std::ios::binary) << csv;
        const std::string command =
            std::string(KESTRUM_BIN) + "/kestrum-tables " + (folder / "in.csv").string() + " " +
            (folder / "out.dat").string() + " 2> " + (folder / "errors").string();
        return std::system(command.c_str()) == 0;
    }

    std::string Read(const char* name) const
    {
        std::ostringstream text;
        text << std::ifstream(folder / name, std::ios::binary).rdbuf();
        return text.str();
    }

    fs::path folder;
};

// 1 = 3F800000, 2.5 = 40200000, -0.5 = BF000000, 96 = 42C00000, low byte first.
TEST_F(TableCompiler, WritesLittleEndianFloatsRowAfterRow)
{
    ASSERT_TRUE(Compile("h [mm],b [mm]\n1,2.5\n-0.5,96\n"));
    const unsigned char bytes[] = {0, 0, 0x80, 0x3F, 0, 0, 0x20, 0x40,
                                   0, 0, 0x00, 0xBF, 0, 0, 0xC0, 0x42};
    EXPECT_EQ(Read("out.dat"), std::string(std::begin(bytes), std::end(bytes)));
    EXPECT_FALSE(fs::exists(folder / "out.dat.tmp"));
}

TEST_F(TableCompiler, TakesCarriageReturnsAndAnOpenLastLine)
{
    ASSERT_TRUE(Compile("h,b\r\n1,2\r\n3,4"));
    EXPECT_EQ(Read("out.dat").size(), 16U);
}

struct Fault {
    const char* csv;
    const char* message;  // behind the file's name
};

TEST_F(TableCompiler, NamesLineAndFieldOfAFault)
{
    const Fault faults[] = {
        {"h,b\n1,2\n3,x4\n", ":3: field 2: expected a number, found \"x4\""},
        {"h,b\n1,2 \n", ":2: field 2: expected a number, found \"2 \""},
        {"h,b\n,2\n", ":2: field 1: expected a number, found \"\""},
        {"h,b\n1,inf\n", ":2: field 2: expected a number, found \"inf\""},
        {"h,b\n1,1e60\n", ":2: field 2: expected a number, found \"1e60\""},
        {"h,b\n1,2,3\n", ":2: expected 2 fields, found 3"},
        {"h,b\n1,2\n\n3,4\n", ":3: expected 2 fields, found 1"},
        {"h,b\n", ":1: expected a header line and at least one row"},
        {"", ":1: expected a header line and at least one row"},
    };
    for (const Fault& fault : faults) {
        EXPECT_FALSE(Compile(fault.csv)) << fault.message;
        EXPECT_EQ(Read("errors"),
                  "kestrum-tables: " + (folder / "in.csv").string() + fault.message + "\n");
        EXPECT_FALSE(fs::exists(folder / "out.dat"));
    }
}

TEST_F(TableCompiler, KeepsTheOldTableWhenTheNewOneFails)
{
    ASSERT_TRUE(Compile("h\n1\n"));
    const std::string before = Read("out.dat");
    EXPECT_FALSE(Compile("h\nx\n"));
    EXPECT_EQ(Read("out.dat"), before);
}

// The fingerprint of a CSV is that of its table: 1 is the bytes 00 00 80 3F. Behind it its rows.
// That of "abc" is published with the xxHash algorithms.
TEST_F(TableCompiler, WritesTheDigestsOfWhatIsDelivered)
{
    std::ofstream(folder / "hea.csv", std::ios::binary) << "h\n1\n";
    std::ofstream(folder / "list.txt", std::ios::binary) << "abc";
    const std::string command =
        std::string(KESTRUM_BIN) + "/kestrum-tables --digests " + (folder / "out.inc").string() +
        " " + (folder / "hea.csv").string() + " --lists " + (folder / "list.txt").string();
    ASSERT_EQ(std::system(command.c_str()), 0);
    EXPECT_EQ(Read("out.inc"),
              "{\"hea.dat\", " + std::to_string(Fingerprint(std::string("\0\0\x80\x3F", 4))) +
                  "U, 1},\n{\"list.txt\", " + std::to_string(0x44BC2CF5AD770999U) + "U, 0},\n");
}

}  // namespace
}  // namespace kestrum
