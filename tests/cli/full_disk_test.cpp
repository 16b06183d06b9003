// A disk that is full, at every length of what still fits: each command that writes a file keeps
// the old one, tells what happened, leaves nothing beside it and succeeds when there is room again.
// Once on a real small file system, once against a limit on the size of files.

#include "run.h"
#include "support/small_disk.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <string>
#include <vector>

namespace kestrum {
namespace {

using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

struct Writer {
    std::string name;
    std::string command;  // @ stands for the folder
    std::string file;     // that it writes
    bool renders = false;
};

std::ostream& operator<<(std::ostream& out, const Writer& writer)
{
    return out << writer.name;
}

const std::vector<Writer> kWriters = {
    {"Save", "set @/a.kst l=4.5", "a.kst"},
    {"SaveAs", "set p.kst l=4.5 -o @/b.kst", "b.kst"},
    {"New", "new -o @/b.kst", "b.kst"},
    {"TableAsCsv", "table p.kst -o @/t.csv", "t.csv"},
    {"TableAsXlsx", "table p.kst -o @/t.xlsx", "t.xlsx"},
    {"SummaryAsXlsx", "summary a.csv -o @/s.xlsx", "s.xlsx"},
    {"DiagramAsSvg", "diagram p.kst -o @/d.svg", "d.svg"},
    {"ReportAsSvg", "report control p.kst -o @/r.svg", "r.svg"},
    {"ReportAsPdf", "report section p.kst -o @/r.pdf", "r.pdf", true},
    {"ReportAsPng", "report control p.kst -o @/r.png", "r.png", true},
    {"Batch", "batch t.csv --quiet -o @/o.csv", "o.csv"},
};

class FullDisk : public CommandLine, public ::testing::WithParamInterface<Writer> {
protected:
    FullDisk()
    {
        EXPECT_EQ(Kestrum("new -o p.kst").exit, 0);
        std::string table = "ident,l,qload[1]\n";
        for (int i = 0; i < 300; ++i) {
            table += "member " + std::to_string(i) + ",4,10\n";
        }
        Write("t.csv", table);
        Write("a.csv", "member,verdict,ir\n1,within limits,0.5\n");
    }

    // Why this command cannot be tried here.
    static std::string Missing()
    {
        if (GetParam().renders && !std::filesystem::exists(KESTRUM_BIN "/kestrum-render.so")) {
            return "built without the renderer";
        }
        return {};
    }

    std::string CommandIn(const std::string& folder) const
    {
        std::string command = GetParam().command;
        const std::size_t at = command.find('@');
        return command.replace(at, 1, folder);
    }

    // The file that is to be kept; a project where the command reads it.
    std::string Old() const
    {
        return GetParam().file == "a.kst" ? Read("p.kst") : std::string(500, 'o');
    }
};

TEST_P(FullDisk, KeepsTheOldFileUntilThereIsRoom)
{
    const SmallDisk disk;
    if (!disk.refusal().empty() || !Missing().empty()) {
        GTEST_SKIP() << disk.refusal() << Missing();
    }
    const std::string file = disk.File(GetParam().file), command = CommandIn(disk.path());
    WriteBytes(file, Old());
    bool batch = GetParam().name == "Batch", written = false;
    for (int pages = 0; !written && pages < 200; pages += std::max(1, pages)) {
        SCOPED_TRACE(pages);
        disk.FillBut(pages);
        const Said said = Kestrum(command);
        written = said.exit == 0;
        ASSERT_GE(pages, written ? 1 : 0);
        if (!written) {
            EXPECT_EQ(said.exit, 2);
            EXPECT_THAT(said.err, HasSubstr(file + ":"));
            EXPECT_THAT(said.err, HasSubstr("No space left on device"));
            EXPECT_EQ(std::count(said.err.begin(), said.err.end(), '\n'), 1) << said.err;
            EXPECT_EQ(ReadBytes(file), Old());
            // A batch keeps the answers that there was room for, and what they belong to.
            const bool part = batch && said.err.find(".part keeps") != std::string::npos;
            EXPECT_EQ(disk.FilesThere(), part ? 3U : 1U);
        }
        disk.Empty();
    }
    EXPECT_TRUE(written);
    EXPECT_NE(ReadBytes(file), Old());
    EXPECT_EQ(disk.FilesThere(), 1U);
}

// Linux counts in blocks of 512 bytes; the messages need the first.
TEST_P(FullDisk, KeepsTheOldFileAtALimitOfItsSize)
{
    if (!Missing().empty()) {
        GTEST_SKIP() << Missing();
    }
    Write("old", Old());
    bool written = false;
    for (int blocks = 1; !written && blocks < 2000; blocks += blocks) {
        SCOPED_TRACE(blocks);
        std::filesystem::create_directory(Path("out"));
        Write("out/" + GetParam().file, Old());
        const Said said = Shell("ulimit -f " + std::to_string(blocks) +
                                "; " KESTRUM_BIN "/kestrum " + CommandIn("out"));
        written = said.exit == 0;
        if (!written) {
            EXPECT_EQ(said.exit, 2);
            EXPECT_THAT(said.err, HasSubstr("out/" + GetParam().file + ":"));
            EXPECT_THAT(said.err, HasSubstr("File too large"));
            EXPECT_EQ(Read("out/" + GetParam().file), Old());
        }
    }
    EXPECT_TRUE(written);
}

INSTANTIATE_TEST_SUITE_P(Commands, FullDisk, ::testing::ValuesIn(kWriters),
                         [](const auto& writer) { return writer.param.name; });

// A batch that ran into the full disk goes on when there is room, with the same bytes in the end.
TEST_F(CommandLine, ABatchOnAFullDiskIsTakenUpAgain)
{
    const SmallDisk disk;
    if (!disk.refusal().empty()) {
        GTEST_SKIP() << disk.refusal();
    }
    std::string table = "l,qload[1]\n";
    for (int i = 0; i < 3000; ++i) {
        table += std::to_string(2 + i % 9) + ",10\n";
    }
    Write("t.csv", table);
    ASSERT_EQ(Kestrum("batch t.csv -o whole.csv").exit, 0);
    const std::string out = disk.File("o.csv");
    disk.FillBut(5);
    const Said stopped = Kestrum("batch t.csv -o " + out);
    EXPECT_EQ(stopped.exit, 2);
    EXPECT_THAT(stopped.err, EndsWith("o.csv: No space left on device; " + out +
                                      ".part keeps the answers so far for --resume\n"));
    EXPECT_FALSE(std::filesystem::exists(out));
    disk.Empty();
    EXPECT_EQ(Kestrum("batch t.csv --resume -o " + out).exit, 0);
    Shell("cp " + out + " o.csv");
    EXPECT_EQ(Read("o.csv"), Read("whole.csv"));
    EXPECT_EQ(disk.FilesThere(), 1U);
}

// Temporary files that are cut short would make a sheet that ends in the middle.
TEST_F(CommandLine, ASpreadsheetNeedsRoomForTemporaryFiles)
{
    const SmallDisk disk;
    if (!disk.refusal().empty()) {
        GTEST_SKIP() << disk.refusal();
    }
    ASSERT_EQ(Kestrum("new -o a.kst").exit, 0);
    const std::string command = "TMPDIR=" + disk.path() + " " KESTRUM_BIN "/kestrum table a.kst ";
    disk.FillBut(1);
    const Said said = Shell(command + "-o a.xlsx");
    if (said.err.find("built without libxlsxwriter") != std::string::npos) {
        GTEST_SKIP() << "built without libxlsxwriter";
    }
    EXPECT_EQ(said.exit, 2);
    EXPECT_THAT(said.err, HasSubstr("temporary files: No space left on device"));
    EXPECT_FALSE(std::filesystem::exists(Path("a.xlsx")));
    disk.Empty();
    EXPECT_EQ(Shell(command + "-o a.xlsx").exit, 0);
    EXPECT_EQ(disk.FilesThere(), 0U);
}

// What is printed and not taken is no success.
TEST_F(CommandLine, AFullStandardOutputIsTold)
{
    if (!std::filesystem::exists("/dev/full")) {
        GTEST_SKIP() << "no /dev/full";
    }
    ASSERT_EQ(Kestrum("new -o a.kst").exit, 0);
    for (const std::string command :
         {"check a.kst", "check a.kst --json", "dump a.kst", "table a.kst", "sections", "new",
          "set a.kst l=4 -o -", "batch a.kst --quiet", "--help", "--version", "check --help"}) {
        SCOPED_TRACE(command);
        const Said said = Shell(KESTRUM_BIN "/kestrum " + command + " >/dev/full");
        EXPECT_EQ(said.exit, 2);
        EXPECT_EQ(said.err, "kestrum: standard output: No space left on device\n");
    }
}

}  // namespace
}  // namespace kestrum
