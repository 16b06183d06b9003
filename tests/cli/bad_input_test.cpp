// Bad files through the built program: each ends with a message and its exit code within a minute.

#include "cli/run.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

#include <sstream>
#include <string>
#include <vector>

namespace kestrum {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

constexpr int kWatchdog = 124;  // exit of timeout(1)

class BadInput : public CommandLine {
protected:
    BadInput()
    {
        EXPECT_EQ(Kestrum("new -o good.kst --set l=3 --set qload[1]=1 --set nload[1]=1").exit, 0);
        std::istringstream bytes(Read("good.kst"));
        for (std::string line; std::getline(bytes, line);) {
            lines_.push_back(line.substr(0, line.find('\r')));
        }
    }

    void WriteLines(const std::string& name, const std::vector<std::string>& lines) const
    {
        std::string bytes;
        for (const std::string& line : lines) {
            bytes += line + "\r\n";
        }
        Write(name, bytes);
    }

    // Under a watchdog.
    Said Checked(const std::string& name) const
    {
        Said said;
        const std::string command = "cd '" + Path(".") + "' && KESTRUM_DATA= timeout 60 '" +
                                    KESTRUM_BIN "/kestrum' check '" + name + "' >out 2>err";
        const int status = std::system(command.c_str());
        said.exit = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
        said.out = Read("out");
        said.err = Read("err");
        EXPECT_NE(said.exit, kWatchdog) << name;
        return said;
    }

    std::vector<std::string> lines_;
};

TEST_F(BadInput, AFileCutAfterAnyLineNamesTheMissingField)
{
    ASSERT_GT(lines_.size(), 100U);
    for (std::size_t cut = 0; cut < lines_.size(); ++cut) {
        WriteLines("cut.kst", {lines_.begin(), lines_.begin() + static_cast<std::ptrdiff_t>(cut)});
        const Said said = Checked("cut.kst");
        EXPECT_EQ(said.exit, 2) << cut;
        EXPECT_THAT(said.err,
                    StartsWith("kestrum: cut.kst:" + std::to_string(cut + 1) + ": field "))
            << cut;
        EXPECT_THAT(said.err, HasSubstr("end of the file")) << cut;
    }
    WriteLines("cut.kst", lines_);
    EXPECT_EQ(Checked("cut.kst").exit, 0);
}

// The two names take any text, and a text in the place of a code is a code that is unknown.
TEST_F(BadInput, AnyLineReplacedByLettersNamesTheField)
{
    for (std::size_t k = 0; k < lines_.size(); ++k) {
        std::vector<std::string> wrong = lines_;
        wrong[k] = "abc";
        WriteLines("abc.kst", wrong);
        const Said said = Checked("abc.kst");
        const bool text = k >= 1 && k <= 3;  // projname, ident, annexcode
        EXPECT_EQ(said.exit, text ? 0 : 2) << k + 1 << ' ' << lines_[k];
        if (!text) {
            EXPECT_THAT(said.err,
                        StartsWith("kestrum: abc.kst:" + std::to_string(k + 1) + ": field "));
            EXPECT_THAT(said.err, HasSubstr("found \"abc\""));
        }
    }
}

// Found by itself or given: the same message; the delivered values instead of zeros.
TEST_F(BadInput, ADamagedStoredSetupIsReportedAndNotUsed)
{
    ASSERT_EQ(Kestrum("new -o a.kst --family 1 --set l=12").exit, 0);
    const Said before = Kestrum("check a.kst");
    const Said fresh = Kestrum("new");
    Shell("mkdir kestrum-ec3; cp '" KESTRUM_BIN "/../share/kestrum-ec3/KestrumEC3Setup.dat' .");
    const std::string setup = Read("KestrumEC3Setup.dat");
    for (const std::string& bytes : {setup.substr(0, 110), std::string("garbage"), std::string()}) {
        Write("kestrum-ec3/KestrumEC3Setup.dat", bytes);
        Write("given.dat", bytes);
        const Said found = Kestrum("check a.kst");
        EXPECT_EQ(found.out, before.out);
        EXPECT_EQ(found.exit, before.exit);
        EXPECT_EQ(Kestrum("new").out, fresh.out);
        const Said given = Kestrum("--setup given.dat check a.kst");
        EXPECT_EQ(given.exit, 2);
        const std::size_t at = given.err.find("given.dat:");
        ASSERT_NE(at, std::string::npos) << given.err;
        std::string what = given.err.substr(at + 9);  // ":LINE: field ..: expected .."
        what.pop_back();
        EXPECT_THAT(found.err, HasSubstr("kestrum-ec3/KestrumEC3Setup.dat" + what));
    }
}

TEST_F(BadInput, OwnTablesAreNamed)
{
    WriteGood("a.kst");
    Shell("cp -r '" KESTRUM_BIN "/../share/kestrum-ec3' own && cp own/heb.dat own/hea.dat");
    const Said dump = Kestrum("--data own dump a.kst");
    EXPECT_EQ(dump.exit, 0);
    const auto own = nlohmann::json::parse(dump.out)["owndata"];
    ASSERT_EQ(own.size(), 1U);
    EXPECT_EQ(own[0]["file"], "own/hea.dat");
    EXPECT_EQ(own[0]["sha256"].get<std::string>().size(), 64U);
    EXPECT_FALSE(nlohmann::json::parse(Kestrum("dump a.kst").out).contains("owndata"));
    const std::string digest = own[0]["sha256"].get<std::string>().substr(0, 16);
    for (const char* order : {"--version --data own", "--data own --version"}) {
        EXPECT_THAT(Kestrum(order).out,
                    HasSubstr("\nown: own data: hea.dat (SHA-256 " + digest + ")\n"));
    }
    Shell("cp '" KESTRUM_BIN "/../share/kestrum-ec3/hea.dat' own");
    EXPECT_THAT(Kestrum("--version --data own").out, HasSubstr("\nown: data as delivered\n"));
    EXPECT_EQ(Kestrum("--version --data none").exit, 2);
}

TEST_F(BadInput, AShortTableIsReported)
{
    WriteGood("a.kst");
    Shell("mkdir kestrum-ec3; head -c 1055 '" KESTRUM_BIN
          "/../share/kestrum-ec3/hea.dat' >kestrum-ec3/hea.dat");
    const Said said = Kestrum("check a.kst");
    EXPECT_EQ(said.exit, 0);
    EXPECT_THAT(said.err, HasSubstr("kestrum-ec3/hea.dat: 1055 bytes, 24 rows need 1056; "));
    const Said none = Shell("KESTRUM_DATA=/no/such '" KESTRUM_BIN "/kestrum' check a.kst");
    EXPECT_THAT(none.err, HasSubstr("KESTRUM_DATA: /no/such: no such folder"));
}

TEST_F(BadInput, AHugeSparseFileIsRefusedAtOnce)
{
    Write("sparse.kst", "131\r\n");
    std::filesystem::resize_file(Path("sparse.kst"), std::uintmax_t{1} << 30U);
    const Said said = Checked("sparse.kst");
    EXPECT_EQ(said.exit, 2);
    EXPECT_THAT(said.err, StartsWith("kestrum: sparse.kst: "));
}

TEST_F(BadInput, WhatIsNoFileOfLinesIsRefused)
{
    std::filesystem::create_directory(Path("folder.kst"));
    Write("empty.kst", "");
    Write("zeros.kst", std::string(100000, '\0'));
    Write("longline.kst", std::string(1000000, 'x'));
    std::string returns;
    for (const std::string& line : lines_) {
        returns += line + '\r';
    }
    Write("returns.kst", returns);
    std::string wide = "\xff\xfe";
    for (const char c : Read("good.kst")) {
        wide += c;
        wide += '\0';
    }
    Write("utf16.kst", wide);
    for (const char* name : {"missing.kst", "folder.kst", "empty.kst", "zeros.kst", "longline.kst",
                             "returns.kst", "utf16.kst"}) {
        const Said said = Checked(name);
        EXPECT_EQ(said.exit, 2) << name;
        EXPECT_THAT(said.err, StartsWith("kestrum: " + std::string(name) + ":")) << name;
    }
}

TEST_F(BadInput, ValuesThatCannotBeCalculatedAreNamed)
{
    for (const char* assignment : {"row.hea=32767", "row.hea=-1", "l=0"}) {
        ASSERT_EQ(Kestrum(std::string("set good.kst -o odd.kst --raw ") + assignment).exit, 0);
        const Said said = Checked("odd.kst");
        EXPECT_EQ(said.exit, 2) << assignment;
        const std::string name =
            std::string(assignment).substr(0, std::string(assignment).find('='));
        EXPECT_THAT(said.out, HasSubstr("input: " + name + " = ")) << assignment;
        EXPECT_THAT(said.out, HasSubstr("VERDICT: not checked")) << assignment;
    }
}

TEST_F(BadInput, ANumberWithoutSectionIsToldAndNotChecked)
{
    for (const char* family : {"0", "55", "999", "-1"}) {
        ASSERT_EQ(Kestrum(std::string("set good.kst -o odd.kst --raw family=") + family).exit, 0);
        const Said said = Checked("odd.kst");
        EXPECT_EQ(said.exit, 2) << family;
        EXPECT_THAT(said.out,
                    HasSubstr("odd.kst\nnothing checked: no section control for this family"))
            << family;
    }
}

}  // namespace
}  // namespace kestrum
