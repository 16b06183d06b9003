#include "run.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace kestrum {
namespace {

using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::StartsWith;

class Reports : public CommandLine {
protected:
    // Output of another program, run in the folder.
    std::string Shell(const std::string& command) const
    {
        const std::string all = "cd '" + Path(".") + "' && " + command + " >.shell 2>/dev/null";
        return std::system(all.c_str()) == 0 ? Read(".shell") : "failed: " + command;
    }
    static bool HasRenderer() { return std::filesystem::exists(KESTRUM_BIN "/kestrum-render.so"); }
    static bool Has(const std::string& program)
    {
        return std::system(("command -v " + program + " >/dev/null").c_str()) == 0;
    }
};

TEST_F(Reports, TableIsTextWithoutAFile)
{
    ASSERT_EQ(Kestrum("new -o a.kst").exit, 0);
    const Said said = Kestrum("table a.kst");
    EXPECT_EQ(said.exit, 0);
    EXPECT_THAT(said.out, StartsWith(" Parameter"));
    EXPECT_THAT(said.out, HasSubstr("\n Ncr,y "));
    EXPECT_THAT(said.out, HasSubstr("\n Other\n"));
    EXPECT_THAT(said.err, IsEmpty());
}

TEST_F(Reports, TableWritesCsv)
{
    ASSERT_EQ(Kestrum("new -o a.kst").exit, 0);
    const Said said = Kestrum("table a.kst -o a.csv");
    EXPECT_EQ(said.exit, 0);
    EXPECT_THAT(said.out, IsEmpty());
    EXPECT_THAT(Read("a.csv"), StartsWith(" Parameter,Value,unit, Reference\r\n"));
}

TEST_F(Reports, TableWritesASpreadsheetWithNumbers)
{
    ASSERT_EQ(Kestrum("new -o a.kst").exit, 0);
    const Said said = Kestrum("table a.kst -o a.xlsx");
    if (said.err.find("built without libxlsxwriter") != std::string::npos) {
        GTEST_SKIP() << "built without libxlsxwriter";
    }
    ASSERT_EQ(said.exit, 0) << said.err;
    if (!Has("unzip")) {
        GTEST_SKIP() << "no unzip";
    }
    const std::string sheet = Shell("unzip -p a.xlsx xl/worksheets/sheet1.xml");
    // Row 17 is " Ncr,y": headings in row 1, then the sixteenth row. A number has no t="s".
    EXPECT_THAT(sheet, ::testing::ContainsRegex("<c r=\"B17\" s=\"[0-9]+\"><v>[0-9.]+</v></c>"));
    EXPECT_THAT(sheet, ::testing::ContainsRegex("<c r=\"A17\" t=\"s\"><v>"));
    EXPECT_THAT(sheet, HasSubstr("<cols>"));
    EXPECT_THAT(Shell("unzip -p a.xlsx xl/sharedStrings.xml"), HasSubstr(" Buckling Factors"));
    EXPECT_THAT(Shell("unzip -p a.xlsx xl/styles.xml"), HasSubstr("formatCode=\"#0.000\""));
}

// A copy of the program has no module beside it; what needs none goes on.
TEST_F(Reports, TableSaysThatTheModuleOfWorkbooksIsMissing)
{
    ASSERT_EQ(Kestrum("new -o a.kst").exit, 0);
    std::filesystem::create_directory(Path("bin"));
    std::filesystem::copy_file(KESTRUM_BIN "/kestrum", Path("bin/kestrum"));
    const auto table = [this](const std::string& out) {
        const std::string command = "'" + Path("bin/kestrum") +
                                    "' --data '" KESTRUM_SHARE "' table '" + Path("a.kst") +
                                    "' -o '" + Path(out) + "' 2>'" + Path("err") + "'";
        return WEXITSTATUS(std::system(command.c_str()));
    };
    EXPECT_EQ(table("a.xlsx"), 2);
    if (Read("err").find("built without libxlsxwriter") != std::string::npos) {
        GTEST_SKIP() << "built without libxlsxwriter";
    }
    EXPECT_THAT(Read("err"), HasSubstr("workbooks need the module kestrum-spreadsheet.so"));
    EXPECT_THAT(Read("err"), HasSubstr(".csv needs nothing more"));
    EXPECT_FALSE(std::filesystem::exists(Path("a.xlsx")));
    EXPECT_EQ(table("a.csv"), 0);

    Write("bin/kestrum-spreadsheet.so", "no library");
    EXPECT_EQ(table("a.xlsx"), 2);
    EXPECT_THAT(Read("err"), HasSubstr("cannot be loaded"));
}

// What the table belongs to is on sheets of its own, and other sheets can refer to it by name.
TEST_F(Reports, TheSpreadsheetSaysWhatItBelongsTo)
{
    ASSERT_EQ(Kestrum("new --set l=7.25 --set 'projname=Hall & yard' -o a.kst").exit, 0);
    const Said said = Kestrum("table a.kst -o a.xlsx");
    if (said.err.find("built without libxlsxwriter") != std::string::npos || !Has("unzip")) {
        GTEST_SKIP() << "built without libxlsxwriter, or no unzip";
    }
    ASSERT_EQ(said.exit, 0) << said.err;
    const std::string book = Shell("unzip -p a.xlsx xl/workbook.xml");
    EXPECT_THAT(book, ::testing::ContainsRegex("\"Detailed results\".*\"Project\".*\"Ratios\".*"
                                               "\"Inputs\".*\"Section\""));
    for (const char* name : {"ir_program", "ir_standard", "in_l", "section_Iy", "detail_Ncr_y",
                             "_xlnm.Print_Area", "_xlnm.Print_Titles"}) {
        EXPECT_THAT(book, HasSubstr("name=\"" + std::string(name) + "\"")) << name;
    }
    // The named cell of an input holds its value.
    const std::string key = "name=\"in_l\">'Inputs'!$B$";
    const std::size_t at = book.find(key);
    ASSERT_NE(at, std::string::npos);
    const std::string row = book.substr(at + key.size(), book.find('<', at) - at - key.size());
    EXPECT_THAT(Shell("unzip -p a.xlsx xl/worksheets/sheet4.xml"),
                HasSubstr("<c r=\"B" + row + "\"><v>7.25</v></c>"));
    const std::string texts = Shell("unzip -p a.xlsx xl/sharedStrings.xml");
    for (const std::string& text :
         {std::string("Hall &amp; yard"), std::string("a.kst"),
          Shell("sha256sum a.kst").substr(0, 64), std::string("EN 1993-1-1")}) {
        EXPECT_THAT(texts, HasSubstr(text));
    }
    for (const char* sheet : {"1", "2", "3", "4", "5"}) {
        EXPECT_THAT(Shell("unzip -p a.xlsx xl/worksheets/sheet" + std::string(sheet) + ".xml"),
                    HasSubstr("orientation=\"landscape\""));
    }
}

TEST_F(Reports, SummaryIsAWorkbookWithBarsAndFilters)
{
    Write("a.csv", "member,verdict,ir,ir_standard,notes,message\n"
                   "B1,within limits,0.5,0.6,D233,\n=B2,bad input,,,,no such section\n");
    const Said said = Kestrum("summary a.csv -o a.xlsx");
    if (said.err.find("built without libxlsxwriter") != std::string::npos) {
        GTEST_SKIP() << "built without libxlsxwriter";
    }
    ASSERT_EQ(said.exit, 0) << said.err;
    EXPECT_EQ(said.err, "program: 1 without a ratio, 0 above limit, 1 within limits\n"
                        "EN 1993-1-1: 1 without a ratio, 0 above limit, 1 within limits\n");
    if (!Has("unzip")) {
        GTEST_SKIP() << "no unzip";
    }
    const std::string sheet = Shell("unzip -p a.xlsx xl/worksheets/sheet1.xml");
    EXPECT_THAT(sheet, HasSubstr("xSplit=\"2\" ySplit=\"1\""));
    EXPECT_THAT(sheet, HasSubstr("state=\"frozen\""));
    EXPECT_THAT(sheet, HasSubstr("<autoFilter ref=\"A1:L3\"/>"));
    EXPECT_THAT(sheet,
                HasSubstr("<conditionalFormatting sqref=\"D2:D3\"><cfRule type=\"dataBar\""));
    EXPECT_THAT(sheet,
                HasSubstr("<conditionalFormatting sqref=\"H2:H3\"><cfRule type=\"dataBar\""));
    EXPECT_THAT(sheet, Not(HasSubstr("<f>")));
    EXPECT_THAT(Shell("unzip -p a.xlsx xl/workbook.xml"),
                ::testing::ContainsRegex("\"Members\".*\"Counts\".*\"Notes\""));
    EXPECT_THAT(Shell("unzip -p a.xlsx xl/sharedStrings.xml"), HasSubstr("<t>=B2</t>"));
}

TEST_F(Reports, SummaryRefusesWhatItCannotUse)
{
    Write("a.csv", "member,verdict,ir\n1,within limits,0.5\n");
    Write("m.csv", "id,section,l\nB1,IPE 300,4\nB1,IPE 300,4\n");
    const auto refused = [this](const std::string& arguments, const std::string& why) {
        const Said said = Kestrum("summary " + arguments);
        EXPECT_EQ(said.exit, 2) << arguments;
        EXPECT_THAT(said.err, HasSubstr(why)) << arguments;
    };
    refused("b.csv", "b.csv: No such file");
    refused(".", "directory");
    refused("a.csv -o a.txt", "has to end in .csv, .xlsx, .pdf, .svg or .png");
    refused("a.csv -o a.csv", "would overwrite the input");
    refused("a.csv --members m.csv -o m.csv", "would overwrite the input");
    refused("- --members - <a.csv", "standard input cannot be both tables");
    refused("m.csv", "m.csv:1: no answers: there is no column \"member\"");
    refused("a.csv -o nowhere/a.svg", "nowhere/a.svg: ");
    refused("a.csv --members m.csv -o s.csv", "m.csv:3: member \"B1\" is in line 2 already");
    EXPECT_THAT(Read("s.csv"), HasSubstr("\n1,B1,within limits,0.5,"));  // the rest is there
    EXPECT_EQ(Kestrum("summary - <a.csv").out,
              "order,member,verdict,ir,control,clause,notes,message\n1,1,within limits,0.5,,,,\n");
}

TEST_F(Reports, TableThatCannotBeWrittenTellsSo)
{
    ASSERT_EQ(Kestrum("new -o a.kst").exit, 0);
    const Said said = Kestrum("table a.kst -o nowhere/a.xlsx");
    EXPECT_EQ(said.exit, 2);
    EXPECT_THAT(said.err, HasSubstr(" Error on tranfere data to Excel "));
    EXPECT_EQ(Kestrum("table a.kst -o a.txt").exit, 2);
    EXPECT_EQ(Kestrum("table a.kst -o nowhere/a.csv").exit, 2);
}

TEST_F(Reports, ControlAsSvgNeedsNoRenderer)
{
    ASSERT_EQ(Kestrum("new -o a.kst --set 'projname=Hall 7'").exit, 0);
    const Said said = Kestrum("report control a.kst -o a.svg");
    EXPECT_EQ(said.exit, 0);
    EXPECT_THAT(said.err, IsEmpty());
    const std::string svg = Read("a.svg");
    EXPECT_THAT(svg, HasSubstr("Hall 7"));
    EXPECT_THAT(svg, HasSubstr("Governing Loadcase:"));
    EXPECT_THAT(svg, HasSubstr("File: "));
}

// Where there is no /proc the program still knows where it lies, and takes no module from the
// folder that the user is in.
TEST_F(Reports, TheRendererIsFoundWithoutProc)
{
    constexpr const char* kHide = "unshare -m sh -c 'mount -t tmpfs none /proc && \"$@\"' sh ";
    if (!HasRenderer() || Kestrum("--version").exit != 0 ||
        std::system((std::string(kHide) + "true 2>/dev/null").c_str()) != 0) {
        GTEST_SKIP() << "no renderer, or mounting is not allowed";
    }
    ASSERT_EQ(Kestrum("new -o a.kst").exit, 0);
    Write("kestrum-render.so", "planted");
    EXPECT_EQ(
        Shell(std::string(kHide) + "'" KESTRUM_BIN "/kestrum' report control a.kst -o a.pdf 2>&1"),
        "");
    EXPECT_THAT(Read("a.pdf"), ::testing::StartsWith("%PDF-"));
}

TEST_F(Reports, PdfHasItsTextsAndItsFonts)
{
    if (!HasRenderer() || !Has("pdftotext")) {
        GTEST_SKIP() << "no renderer or no pdftotext";
    }
    ASSERT_EQ(Kestrum("new -o a.kst --family 7 --set 'projname=Hall 7' --set checksls=1").exit, 0);
    for (const std::string kind : {"control", "section", "vortex"}) {
        SCOPED_TRACE(kind);
        const Said said = Kestrum("report " + kind + " a.kst -o " + kind + ".pdf");
        ASSERT_EQ(said.exit, 0) << said.err;
        const std::string text = Shell("pdftotext -layout " + kind + ".pdf -");
        EXPECT_THAT(text, HasSubstr("Kestrum EC3"));
        EXPECT_THAT(text, HasSubstr("Version 1.3.1"));
        EXPECT_THAT(text, HasSubstr("Hall 7"));
        EXPECT_THAT(text, HasSubstr("1/1"));
        const std::string info = Shell("pdfinfo " + kind + ".pdf");
        EXPECT_THAT(info, HasSubstr("A4"));
        EXPECT_THAT(info, ::testing::ContainsRegex("Pages: +1\n"));
    }
    const std::string text = Shell("pdftotext -layout control.pdf -");
    EXPECT_THAT(text, HasSubstr("Governing Loadcase:"));
    EXPECT_THAT(text, HasSubstr("SECTION CONTROL:"));
    EXPECT_THAT(text, HasSubstr("BUCKLING CONTROL:"));
    const Said check = Kestrum("check --basis program a.kst");
    for (std::size_t at = check.out.find("IR = "); at != std::string::npos;
         at = check.out.find("IR = ", at + 1)) {
        const std::string head = check.out.substr(at, check.out.find(" =", at + 5) - at);
        EXPECT_THAT(text, HasSubstr(head));
    }
}

// A name wider than the head of the page.
TEST_F(Reports, WhatHasNoRoomIsToldAndTheFileStands)
{
    const std::string name = std::string(120, 'W') + ".kst";
    ASSERT_EQ(Kestrum("new -o " + name).exit, 0);
    const Said said = Kestrum("report control " + name + " -o a.svg");
    EXPECT_EQ(said.exit, 0);
    EXPECT_THAT(said.err, StartsWith("kestrum: a.svg: no room on the page for: "));
    EXPECT_THAT(Read("a.svg"), HasSubstr("Governing Loadcase:"));
}

// Head and foot of the three pages: what the office writes, and the digest of the project file.
TEST_F(Reports, TheOfficeIsOnEachPage)
{
    ASSERT_EQ(Kestrum("new -o a.kst").exit, 0);
    Write("logo.svg", "<svg xmlns='http://www.w3.org/2000/svg' viewBox='0 0 60 20'/>");
    Write("office.txt", "company = Hansen & Co\nauthor = J. H.\nlogo = logo.svg\n");
    for (const char* kind : {"control", "section"}) {
        const std::string report = std::string("report ") + kind +
                                   " a.kst --office office.txt --checker 'M. B.' --projectnumber "
                                   "4711 --revision C --decimal comma --reproducible -o ";
        ASSERT_EQ(Kestrum(report + "a.svg").err, "");
        const std::string page = Read("a.svg");
        for (const std::string& text :
             {std::string(">Hansen &amp; Co<"), std::string(">Author: J. H.  <"),
              std::string(">Checker: M. B.  <"), std::string(">Project no. 4711  Rev. C  <"),
              "a.kst, SHA-256 " + Shell("sha256sum a.kst").substr(0, 64),
              std::string("data:image/svg+xml;base64,"), std::string("2,100E+5")}) {
            EXPECT_THAT(page, HasSubstr(text)) << kind;
        }
        EXPECT_THAT(page, Not(::testing::ContainsRegex(">20[0-9][0-9]-[0-9][0-9]-[0-9][0-9]<")));
        ASSERT_EQ(Kestrum(report + "b.svg").exit, 0);
        EXPECT_EQ(Read("b.svg"), page);
    }
    EXPECT_EQ(Kestrum("report control a.kst --logo a.kst -o c.svg").err,
              "kestrum: a.kst: neither PNG nor SVG\n");
}

// Neither the clock, nor the zone, nor the order in which the toolkit keeps its fonts.
TEST_F(Reports, ReproducibleFilesAreTheSameEachTime)
{
    if (!HasRenderer()) {
        GTEST_SKIP() << "no renderer";
    }
    ASSERT_EQ(Kestrum("new -o a.kst").exit, 0);
    for (const char* report : {"section a.kst", "full a.kst"}) {
        std::string first;
        for (const char* zone : {"UTC", "Asia/Tokyo", "America/Caracas", "UTC"}) {
            Shell(std::string("TZ=") + zone + " '" KESTRUM_BIN "/kestrum' report " + report +
                  " --reproducible -o r.pdf 2>&1");
            const std::string bytes = Read("r.pdf");
            ASSERT_THAT(bytes, StartsWith("%PDF-"));
            first = first.empty() ? bytes : first;
            EXPECT_TRUE(bytes == first) << report << " " << zone;
        }
    }
}

TEST_F(Reports, ASecondPageIsPartOfThePicture)
{
    // All rows of all tables, loads in both directions.
    std::string loads;
    const auto set = [&loads](const char* field, int row, const char* value) {
        loads += " --set " + std::string(field) + "[" + std::to_string(row) + "]=" + value;
    };
    for (int i = 1; i <= 8; ++i) {
        set("pmx", i, "1");
        set("pm", i, "0.1");
        set("pmdir", i, i > 4 ? "0" : "1");
    }
    for (int i = 1; i <= 4; ++i) {
        set("qload", i, "0.1");
        set("qdir", i, i > 2 ? "0" : "1");
    }
    for (int i = 1; i <= 3; ++i) {
        set("nload", i, "1");
        set("qtx1", i, "0.125");
        set("qtx2", i, "1.125");
        set("qt1", i, "11111.5");
        set("qt2", i, "12345.5");
        set("qtdir", i, i > 1 ? "0" : "1");
    }
    loads += " --set modal=1 --set selfweight=1";
    ASSERT_EQ(Kestrum("new -o a.kst" + loads).exit, 0);
    const Said said = Kestrum("report control a.kst -o a.svg");
    EXPECT_EQ(said.exit, 0);
    EXPECT_EQ(said.err, "");
    EXPECT_THAT(Read("a.svg"), HasSubstr("Governing Loadcase:"));
    EXPECT_THAT(Read("a.svg"), HasSubstr(">2/2</text>"));
}

TEST_F(Reports, BadRequestsWriteNothing)
{
    ASSERT_EQ(Kestrum("new -o a.kst").exit, 0);
    EXPECT_EQ(Kestrum("report control a.kst -o a.doc").exit, 2);
    EXPECT_EQ(Kestrum("report control a.kst").exit, 2);
    EXPECT_EQ(Kestrum("report summary a.kst -o a.svg").exit, 2);
    EXPECT_EQ(Kestrum("report control none.kst -o a.svg").exit, 2);
    const Said vortex = Kestrum("report vortex a.kst -o a.svg");
    EXPECT_EQ(vortex.exit, 2);
    EXPECT_THAT(vortex.err, HasSubstr("Only valid for boxes and tubes"));
    ASSERT_EQ(Kestrum("set a.kst 'nload[1]=1e6' -o b.kst --raw").exit, 0);
    EXPECT_EQ(Kestrum("report control b.kst -o a.svg").exit, 3);
    EXPECT_EQ(Kestrum("table b.kst").exit, 3);
    EXPECT_FALSE(std::filesystem::exists(Path("a.svg")));
}

}  // namespace
}  // namespace kestrum
