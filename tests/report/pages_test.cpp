#include "report/pages.h"

#include "core/load_combination.h"
#include "core/row_text.h"
#include "engine/calculate.h"
#include "engine/family_routines.h"
#include "engine/new_project.h"
#include "report/page_header.h"
#include "report/panel.h"
#include "sections/family_table.h"
#include "sections/load_library.h"
#include "service/vortex.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace kestrum {
namespace {

using ::testing::Contains;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::SizeIs;
using ::testing::StartsWith;

const PrintStamp kStamp{"2024-05-17", "14:05"};

const Library& Delivered()
{
    static const Library kLibrary = LoadLibrary(KESTRUM_SHARE);
    return kLibrary;
}

// A short member under small loads in both directions, so that every family carries them.
ProjectState Designed(int family, void (*change)(ProjectState&) = nullptr)
{
    ProjectState s{};
    StartUp(Delivered(), s);
    s.family = static_cast<i16>(family);
    s.projname = "Hall 7";
    s.ident = "B-101";
    s.filename = "hall.kst";
    s.l = 2;
    s.nload[1] = 1;
    s.qload[1] = 1;
    s.qload[2] = 0.5F;
    s.qdir[2] = 0;
    s.checksls = kTrue;
    s.checkconsercontrol = family == 28 ? kTrue : kFalse;  // flat bar: the linear form
    if (change != nullptr) {
        change(s);
    }
    EXPECT_TRUE(Calculate(Delivered(), s)) << "family " << family;
    return s;
}

std::vector<TextMark> TextsOf(const PrintedReport& report)
{
    std::vector<TextMark> texts;
    for (const Mark& mark : report.pages.front().marks) {
        if (const auto* text = std::get_if<TextMark>(&mark)) {
            texts.push_back(*text);
        }
    }
    return texts;
}

// The texts of each row, from left to right, joined as they follow each other.
std::vector<std::string> LinesOf(const PrintedReport& report)
{
    std::vector<TextMark> texts = TextsOf(report);
    std::stable_sort(texts.begin(), texts.end(), [](const TextMark& a, const TextMark& b) {
        return a.at.y != b.at.y ? a.at.y < b.at.y : BoundsOf(a).left < BoundsOf(b).left;
    });
    std::vector<std::string> lines;
    double y = -1;
    for (const TextMark& text : texts) {
        if (text.at.y != y) {
            lines.emplace_back();
            y = text.at.y;
        }
        lines.back() += text.text;
    }
    return lines;
}

// Nothing outside the page, no text over another, all of it large enough to read.
void ExpectLegible(const PrintedReport& report)
{
    ASSERT_THAT(report.pages, SizeIs(1));
    const Drawing& page = report.pages.front();
    EXPECT_EQ(page.width, 210);
    EXPECT_EQ(page.height, 297);
    constexpr double kSixPoints = 6 * 25.4 / 72;  // mm
    const Bounds sheet{5, 5, 205, 292};
    for (const Mark& mark : page.marks) {
        EXPECT_TRUE(BoundsOf(mark).Inside(sheet));
    }
    const std::vector<TextMark> texts = TextsOf(report);
    for (std::size_t i = 0; i < texts.size(); ++i) {
        EXPECT_GE(texts[i].size, kSixPoints) << texts[i].text;
        Bounds box = BoundsOf(texts[i]);
        constexpr double kTouch = 0.1;  // runs of one line touch each other
        box = {box.left + kTouch, box.top + kTouch, box.right - kTouch, box.bottom - kTouch};
        for (std::size_t j = i + 1; j < texts.size(); ++j) {
            EXPECT_FALSE(box.Overlaps(BoundsOf(texts[j])))
                << texts[i].text << " | " << texts[j].text;
        }
    }
}

void ExpectHead(const PrintedReport& report, std::string_view title)
{
    const std::vector<std::string> lines = LinesOf(report);
    ASSERT_GE(lines.size(), 6U);
    EXPECT_EQ(lines[0], "Kestrum EC3Page:1/1");
    EXPECT_EQ(lines[1], std::string(title) + "Date: 2024-05-17");
    EXPECT_EQ(lines[2], "Version 1.3.1 Time: 14:05");
    EXPECT_THAT(lines[3], HasSubstr("File: hall.kst"));
    EXPECT_EQ(lines[4], "Project: Hall 7");
    EXPECT_EQ(lines[5], "Identification: B-101");
}

void ExpectRow(const std::vector<std::string>& lines, const ResultRow& row, float limit)
{
    if (row.empty()) {
        return;
    }
    const RowText text = TextOf(row, limit);
    const auto at = std::find_if(lines.begin(), lines.end(), [&](const std::string& line) {
        return line.starts_with(text.label) && line.find(text.calculation) != std::string::npos;
    });
    ASSERT_NE(at, lines.end()) << text.label;
    if (row.judged) {
        EXPECT_THAT(*at, HasSubstr(text.result + text.limit));
    }
}

TEST(Pages, ControlOfEveryFamilyIsCompleteAndLegible)
{
    for (const FamilyRoutines& routines : AllRoutines()) {
        SCOPED_TRACE(routines.family);
        const ProjectState s = Designed(routines.family);
        const PrintedReport report = PrintControl(Delivered(), s, kStamp);
        EXPECT_THAT(report.missing, IsEmpty());
        ExpectLegible(report);
        ExpectHead(report, "Member Design Program incl updates til Jan 2021");
        const std::vector<std::string> lines = LinesOf(report);
        EXPECT_THAT(lines, Contains(GoverningText(s)));
        EXPECT_THAT(lines, Contains(StartsWith("SECTION CONTROL:")));
        for (const std::size_t i : {1U, 2U, 3U}) {
            ExpectRow(lines, s.secline[i], s.irlimit);
        }
        if (HasBuckleBlock(s.family)) {
            ExpectRow(lines, s.yline, s.irlimit);
            ExpectRow(lines, s.zline, s.irlimit);
            ExpectRow(lines, s.ltline, s.irlimit);
        }
        const auto deflection = [&](const ResultRow& row) {
            if (!row.empty()) {
                const RowText text = TextOf(row, s.irlimit);
                EXPECT_THAT(lines,
                            Contains(StartsWith(text.label + text.calculation + text.result)));
            }
        };
        deflection(s.deflinez);
        deflection(s.defliney);
    }
}

TEST(Pages, PropertiesOfEveryFamilyAreCompleteAndLegible)
{
    for (const FamilyRoutines& routines : AllRoutines()) {
        SCOPED_TRACE(routines.family);
        const ProjectState s = Designed(routines.family);
        const PrintedReport report = PrintProperties(Delivered(), s, kStamp);
        EXPECT_THAT(report.missing, IsEmpty());
        ExpectLegible(report);
        ExpectHead(report, "Member Design Program incl updates til Jan 2021");
        const std::vector<std::string> lines = LinesOf(report);
        EXPECT_THAT(lines, Contains("Dimensions and weight:"));
        EXPECT_THAT(lines, Contains("Section property:"));
        EXPECT_THAT(lines, Contains("fy=355MPafd=355.0MPaE=2.100E+5MPagm0=1.00"));
        EXPECT_THAT(lines, Contains(HasSubstr("My,Rd=")));
        EXPECT_THAT(lines, Contains(HasSubstr("Iy=")));
        EXPECT_FALSE(ProfileText(Delivered(), s, false).empty());
        EXPECT_THAT(lines, Contains(HasSubstr(ProfileText(Delivered(), s, false))));
    }
}

TEST(Pages, VortexOfEveryFamilyCovered)
{
    for (const int family : {6, 7, 8, 9, 23, 31}) {
        SCOPED_TRACE(family);
        ProjectState s = Designed(family);
        CalcVortexFrequency(s);
        CalcVortex(s);
        const PrintedReport report = PrintVortex(Delivered(), s, kStamp);
        EXPECT_THAT(report.missing, IsEmpty());
        ExpectLegible(report);
        ExpectHead(report, "Vortex shedding according to EN 1991-1-4");
        const std::vector<std::string> lines = LinesOf(report);
        for (const char* head : {"Profile/Member", "Wind data", "Results:"}) {
            EXPECT_THAT(lines, Contains(head));
        }
        EXPECT_THAT(lines, Contains(std::string("Control eq E.1: Vcrit >= 1.25Vm") +
                                    std::string(VortexVerdict(s))));
        EXPECT_THAT(lines, Contains("Terrain categoryII"));
        EXPECT_THAT(lines, Contains("Wind speed vb (10min, 10 m)25.0m/s "));
    }
}

TEST(Pages, ProfilesAreNamedAsTheirFamilyAsks)
{
    const auto name = [](int family, bool brief) {
        return ProfileText(Delivered(), Designed(family), brief);
    };
    EXPECT_THAT(name(1, false), StartsWith("HEA "));
    EXPECT_THAT(name(6, false), testing::EndsWith(" (Hot finished)"));
    EXPECT_THAT(name(6, true), testing::EndsWith(" (Hotf.)"));
    EXPECT_THAT(name(8, false), StartsWith("CFRHS "));
    EXPECT_THAT(name(9, false), testing::EndsWith(" (Cold formed)"));
    EXPECT_THAT(name(9, true), testing::EndsWith(" (Coldf.)"));
    EXPECT_THAT(name(25, false), testing::EndsWith("  (Non symm fl)"));
    EXPECT_THAT(name(27, false), testing::EndsWith(" (Single sym)"));
    EXPECT_THAT(name(28, false), StartsWith("Fb "));
    EXPECT_THAT(name(51, false), HasSubstr(" + Fb"));
    EXPECT_THAT(name(52, false), HasSubstr(" + L "));
    EXPECT_THAT(name(54, false), HasSubstr(" + BF "));
}

TEST(Pages, WithoutLoadsTheHeadingsStandAlone)
{
    const ProjectState s = Designed(1, [](ProjectState& p) {
        p.nload[1] = 0;
        p.qload[1] = 0;
        p.qload[2] = 0;
    });
    const std::vector<std::string> lines = LinesOf(PrintControl(Delivered(), s, kStamp));
    EXPECT_THAT(lines, Contains(HasSubstr("Loading in z-direction:")));
    EXPECT_THAT(lines, Contains(HasSubstr("Loading in y-direction:")));
    EXPECT_THAT(lines, Contains(HasSubstr("Psi(Q1/Q2) = ")));
    EXPECT_THAT(lines, Not(Contains(StartsWith("q "))));
    EXPECT_THAT(lines, Not(Contains(HasSubstr("N = "))));
}

// Large numbers: a row wider than the page has its ratio on a line of its own, whole.
TEST(Pages, RatiosOfWideRowsKeepTheirText)
{
    const ProjectState s = Designed(4, [](ProjectState& p) {
        p.row[static_cast<std::size_t>(TableOf(p))] = 16;  // IPE 550
        p.l = 3;
        p.loadmode = 0;
        p.ne = 1234.5F;
        p.my1 = 12345.6F;
        p.my2 = -23456.7F;
        p.mz1 = 3456.78F;
        p.mz2 = -1234.5F;
        p.ltb = 1;
        p.restraints = 4;
    });
    const PrintedReport report = PrintControl(Delivered(), s, kStamp);
    EXPECT_THAT(report.missing, IsEmpty());
    const std::vector<std::string> lines = LinesOf(report);
    for (const ResultRow* row : {&s.yline, &s.zline, &s.ltline}) {
        const RowText text = TextOf(*row, s.irlimit);
        EXPECT_THAT(lines, Contains(HasSubstr(text.result + text.limit)));
    }
}

// Every kind of load, with category, position and value as entered.
TEST(Pages, LoadsAreListedByDirection)
{
    const ProjectState s = Designed(2, [](ProjectState& p) {
        p.nload[2] = 20;
        p.ntype[2] = 1;
        p.qt1[1] = 1;
        p.qt2[1] = 2.25F;
        p.qtx1[1] = 0.5F;
        p.qtx2[1] = 1.5F;
        p.qttype[1] = 2;
        p.qtdir[1] = 1;
        p.pm[1] = 3;
        p.pmx[1] = 1;
        p.pmdir[1] = 1;
        p.pmkind[1] = 1;
        p.pm[2] = 4;
        p.pmx[2] = 1;
        p.pmdir[2] = 0;
        p.pmtype[2] = 1;
    });
    const std::vector<std::string> lines = LinesOf(PrintControl(Delivered(), s, kStamp));
    EXPECT_THAT(lines, Contains(HasSubstr("N = 1.0 (G)    N = 20.0 (Q1)")));
    EXPECT_THAT(lines, Contains(HasSubstr("q 1.0G")));
    EXPECT_THAT(lines, Contains(HasSubstr("q1.0/2.250.500/1.500Q2")));
    EXPECT_THAT(lines, Contains(HasSubstr("My3.01.000G")));
    EXPECT_THAT(lines, Contains(HasSubstr("P4.01.000Q1")));
}

TEST(Pages, GivenEndForcesTakeThePlaceOfLoads)
{
    const ProjectState s = Designed(1, [](ProjectState& p) {
        p.loadmode = 0;
        p.ne = 12;
        p.my1 = 5;
        p.vz2 = -3;
    });
    const PrintedReport report = PrintControl(Delivered(), s, kStamp);
    ExpectLegible(report);
    const std::vector<std::string> lines = LinesOf(report);
    EXPECT_THAT(lines, Contains(HasSubstr("Endforces: (kN/kNm/m)")));
    EXPECT_THAT(lines, Contains(HasSubstr("My1=5.0kNm")));
    EXPECT_THAT(lines, Contains(HasSubstr("Vz2=-3.0kN")));
    EXPECT_THAT(lines, Not(Contains(HasSubstr("Loading information"))));
}

TEST(Pages, WithoutDeflectionControlThereIsNoBlockOfIt)
{
    const ProjectState s = Designed(1, [](ProjectState& p) { p.checksls = kFalse; });
    const std::vector<std::string> lines = LinesOf(PrintControl(Delivered(), s, kStamp));
    EXPECT_THAT(lines, Not(Contains(StartsWith("DEFLECTION CONTROL:"))));
    EXPECT_THAT(lines, Contains(StartsWith("SECTION CONTROL:")));
}

TEST(Pages, LongTextsOfTheHeadAreCut)
{
    ProjectState s = Designed(1);
    s.projname = std::string(46, 'p') + "qqqq";
    s.ident = std::string(38, 'i') + "\xC3\xB8" + "jj";  // the 39th character takes two bytes
    s.filename = "/a/very/long/folder/name/for/a/project/beam.kst";
    const PrintedReport report = PrintControl(Delivered(), s, kStamp);
    ExpectLegible(report);
    const std::vector<std::string> lines = LinesOf(report);
    EXPECT_EQ(lines[4], "Project: " + std::string(46, 'p'));
    EXPECT_EQ(lines[5], "Identification: " + std::string(38, 'i') + "\xC3\xB8");
    EXPECT_THAT(lines[3], testing::EndsWith("File: beam.kst"));
}

TEST(Pages, FileNameKeepsItsFolderUpTo40Characters)
{
    const std::string forty = "/folder/" + std::string(28, 'f') + ".kst";
    ASSERT_EQ(forty.size(), 40U);
    EXPECT_EQ(FileText(forty), forty);
    EXPECT_EQ(FileText("/x" + forty), std::string(28, 'f') + ".kst");
    EXPECT_EQ(FileText("C:\\Projects\\A hall far away in the north\\b.kst"), "b.kst");
    EXPECT_EQ(FileText("/home/meyer/jobs/WWWWWWWW/hall_mmmm.kst"),
              "hall_mmmm.kst");  // 39 characters, too wide
}

TEST(Pages, WhatTheHeadCannotHoldIsTold)
{
    ProjectState s = Designed(1);
    s.filename = "/tmp/" + std::string(200, 'W') + ".kst";
    const PrintedReport report = PrintControl(Delivered(), s, kStamp);
    ExpectLegible(report);
    EXPECT_THAT(report.missing, Contains(HasSubstr("WWW")));
}

// A row of every table has its own value: 0.11 to 0.14 kN/m, 0.21 to 0.23 kN/m, 0.31 to 0.38 kN.
void FillTables(ProjectState& p)
{
    for (const std::size_t i : {1U, 2U, 3U, 4U}) {
        p.qload[i] = 0.1F + 0.01F * static_cast<float>(i);
        p.qdir[i] = 1;
    }
    for (const std::size_t i : {1U, 2U, 3U}) {
        p.nload[i] = 1;
        p.qt1[i] = 0.2F + 0.01F * static_cast<float>(i);
        p.qt2[i] = 0.3F;
        p.qtx2[i] = 1;
        p.qtdir[i] = 1;
    }
    for (const std::size_t i : {1U, 2U, 3U, 4U, 5U, 6U, 7U, 8U}) {
        p.pm[i] = 0.3F + 0.01F * static_cast<float>(i);
        p.pmx[i] = 0.2F * static_cast<float>(i);
        p.pmdir[i] = 1;
    }
    p.selfweight = 1;
    p.modal = 1;
}

TEST(Pages, FullTablesOfOneDirectionKeepEveryPicture)
{
    const ProjectState s = Designed(2, FillTables);
    const PrintedReport report = PrintControl(Delivered(), s, kStamp);
    ExpectLegible(report);
    EXPECT_THAT(report.missing, IsEmpty());
    std::vector<std::string> texts;
    for (const TextMark& text : TextsOf(report)) {
        texts.push_back(text.text);
    }
    for (const char* load : {"0.11", "0.14", "0.21/0.3", "0.23/0.3", "0.31", "0.38"}) {
        EXPECT_THAT(texts, Contains(load));  // in the table
    }
    for (const char* label : {"0.11 kN/m (G) ", "0.14 kN/m (G) ", "0.21 - 0.3 kN/m (G) ",
                              "0.31 kN (G) ", "0.38 kN (G) "}) {
        EXPECT_THAT(texts, Contains(label));  // in the picture
    }
    for (const char* title : {"My/Vz/Deflection (kNm/kN/mm)", "Mz/Vy/Deflection (kNm/kN/mm)"}) {
        EXPECT_THAT(texts, Contains(title));
    }
    const std::vector<std::string> lines = LinesOf(report);
    ExpectRow(lines, s.yline, s.irlimit);
    EXPECT_THAT(lines, Contains(StartsWith("Mass m = ")));
}

// Values with too many digits for two tables side by side: one below the other, and room is short.
TEST(Pages, FullTablesOfBothDirectionsPushPicturesOffThePageAndTellSo)
{
    const ProjectState s = Designed(2, [](ProjectState& p) {
        FillTables(p);
        for (const std::size_t i : {1U, 2U, 3U}) {
            p.qt1[i] = 11111.5F;
            p.qt2[i] = 12345.5F;
            p.qtx1[i] = 0.125F;
        }
        p.qtdir[3] = 0;
        p.pmdir[7] = p.pmdir[8] = 0;
        p.qdir[4] = 0;
    });
    const PrintedReport report = PrintControl(Delivered(), s, kStamp);
    ExpectLegible(report);
    EXPECT_THAT(report.missing, testing::ElementsAre(HasSubstr("diagrams")));
    const std::vector<std::string> lines = LinesOf(report);
    EXPECT_THAT(lines, Contains(GoverningText(s)));
    EXPECT_THAT(lines, Contains(HasSubstr("11111.5/12345.5")));
    ExpectRow(lines, s.yline, s.irlimit);
    EXPECT_THAT(lines, Contains(StartsWith("Mass m = ")));
}

// Axial force and loads in both directions, as most pages have them.
TEST(Pages, TextsOfAnOrdinaryPageHaveSevenPoints)
{
    constexpr double kSevenPoints = 7 * 25.4 / 72;  // mm
    for (const int family : {1, 6, 22}) {
        for (const TextMark& text : TextsOf(PrintControl(Delivered(), Designed(family), kStamp))) {
            EXPECT_GE(text.size, kSevenPoints) << text.text;
        }
    }
}

TEST(Pages, AWritingBelowTheEdgeIsKeptOutAndTold)
{
    PageWriter page("trial");
    page.MoveTo(kPageBottom + 0.1);
    page.Write(kPageLeft, "too low");
    page.MoveTo(100);
    page.Write(kPageLeft, std::string(300, 'x'));
    const PrintedReport report = page.Take();
    EXPECT_THAT(report.missing, testing::ElementsAre("too low", std::string(300, 'x')));
    ExpectLegible(report);
    EXPECT_THAT(TextsOf(report), SizeIs(1));
    EXPECT_THAT(TextsOf(report).front().text, testing::EndsWith("x..."));
}

// Default T 200/200/10/10: zcog = (2000*5 + 1900*105)/3900 = 53.7, zpl = 1950/200 = 9.75.
TEST(Pages, TNamesItsTwoNeutralAxesAndItsClass)
{
    const ProjectState s = Designed(26);
    const std::vector<std::string> section = LinesOf(PrintProperties(Delivered(), s, kStamp));
    EXPECT_THAT(section, Contains(HasSubstr("53.7mm (elastic)")));
    EXPECT_THAT(section, Contains(HasSubstr("9.8mm (plastic)")));
    EXPECT_THAT(section, Contains(StartsWith("Cross Section Class: 4/")));
    const std::vector<std::string> control = LinesOf(PrintControl(Delivered(), s, kStamp));
    EXPECT_THAT(control, Contains(HasSubstr("53.7 mm (elastic)")));
    EXPECT_THAT(control, Contains(HasSubstr("9.8 mm (plastic)")));
    EXPECT_THAT(control, Contains(HasSubstr("Cross Section Class: 4/")));
}

// 800/400/200/8/30/15, S355: the wide top compressed is class 1, the narrow bottom class 4 (the
// plastic axis lies in the top flange, alpha 1: 747/8 = 93.4 above every limit). Load in either
// direction: the class is the larger one, as My,Rd is the smaller.
TEST(Pages, SingleSymmetricIShowsTheLargerClassOfItsSigns)
{
    const auto wide = [](ProjectState& s) {
        s.p22 = {800, 400, 200, 8, 30, 15};
        s.nload[1] = 0;
    };
    const auto lifted = [](ProjectState& s) {
        s.p22 = {800, 400, 200, 8, 30, 15};
        s.nload[1] = 0;
        s.qload[1] = -1;
    };
    for (const ProjectState& s : {Designed(22, wide), Designed(22, lifted)}) {
        ASSERT_EQ(s.classmytop, 1);
        ASSERT_EQ(s.classmybot, 4);
        EXPECT_THAT(LinesOf(PrintProperties(Delivered(), s, kStamp)),
                    Contains(StartsWith("Section class: 4/4/1")));
        EXPECT_THAT(LinesOf(PrintControl(Delivered(), s, kStamp)),
                    Contains(HasSubstr("Section class: 4/4/1")));
    }
}

// Default stiffener, web 284x11.5 and flange 100x16 whose centre lies 44.25 aside: y = 1600*44.25/
// 4866 = 14.55; Iz = 284*11.5^3/12 + 16*100^3/12 + 3266*14.55^2 + 1600*29.70^2 = 3.472e6 mm4.
TEST(Pages, StiffenedPlatesTellThatIzIsThatOfTheStiffener)
{
    const ProjectState s = Designed(53);
    const std::vector<std::string> section = LinesOf(PrintProperties(Delivered(), s, kStamp));
    EXPECT_THAT(section, Contains(HasSubstr("Iz=3.472E+6mm4 (profile)")));
    EXPECT_THAT(section, Contains(HasSubstr("mm3 (profile)")));
    EXPECT_THAT(LinesOf(PrintControl(Delivered(), s, kStamp)),
                Contains(HasSubstr("Iz = 3.472E+6 mm4 (profile)")));
    EXPECT_THAT(LinesOf(PrintProperties(Delivered(), Designed(1), kStamp)),
                Not(Contains(HasSubstr("(profile)"))));
}

struct Annexed {
    i16 annex, cls;
    const char* text;
};

TEST(Pages, ClassOfTheAnnexStandsInTheGeneralBlock)
{
    const Annexed cases[] = {{1, 1, "Reliability Class: 1"},   {1, 2, "Reliability Class: 2-4"},
                             {1, 3, "Reliability Class: 2-4"}, {2, 3, "Safety Class: 3"},
                             {3, 2, "Consequences Class: 2"},  {5, 1, "Reliability Class: 1"}};
    for (const Annexed& annexed : cases) {
        ProjectState s = Designed(1);
        s.annexindex = annexed.annex;
        s.safetyclass = annexed.cls;
        EXPECT_THAT(LinesOf(PrintControl(Delivered(), s, kStamp)),
                    Contains(testing::EndsWith(annexed.text)));
    }
    ProjectState s = Designed(1);
    s.annexindex = 0;
    EXPECT_THAT(LinesOf(PrintControl(Delivered(), s, kStamp)),
                Not(Contains(HasSubstr("Class: 2"))));
}

TEST(Pages, OptionsOfTheDesignAreNamed)
{
    const auto lines = [](i16 elastic, i16 flange, i16 web) {
        ProjectState s = Designed(1);
        s.checkelastic = elastic;
        s.checkflangebuck = flange;
        s.checkwebbuck = web;
        return LinesOf(PrintControl(Delivered(), s, kStamp));
    };
    EXPECT_THAT(lines(kTrue, kFalse, kFalse),
                Contains("Cross Section Class 1-2: Elastic design   "));
    EXPECT_THAT(lines(kFalse, kTrue, kTrue),
                Contains(" Flange/Web buckling not taken into account"));
    EXPECT_THAT(lines(kFalse, kFalse, kTrue), Contains(" Web buckling not taken into account"));
    EXPECT_THAT(lines(kFalse, kTrue, kFalse), Contains(" Flange buckling not taken into account"));
}

TEST(Pages, GeometryTellsRestraintsAndStiffeners)
{
    const ProjectState s = Designed(1, [](ProjectState& p) {
        p.supportcase = 3;
        p.spring = 5;
        p.endstiff = 1;
        p.webstiff = 1;
        p.webstiffa = 1500;
        p.modal = 1;
    });
    const std::vector<std::string> lines = LinesOf(PrintControl(Delivered(), s, kStamp));
    EXPECT_THAT(lines, Contains(HasSubstr("Spring restraint: 05%")));
    EXPECT_THAT(lines, Contains(HasSubstr("End Supports: Rigid")));
    EXPECT_THAT(lines, Contains(HasSubstr("Web stiffener: c/c 1500 mm")));
    EXPECT_THAT(lines, Contains(" Modal analysis not possible for spring supports "));
}

TEST(Pages, ModalBlockHasThreeModes)
{
    const ProjectState s = Designed(1, [](ProjectState& p) { p.modal = 1; });
    const std::vector<std::string> lines = LinesOf(PrintControl(Delivered(), s, kStamp));
    EXPECT_THAT(lines, Contains("Modal analysis: (Selfweigth + q-loads)"));
    EXPECT_THAT(lines, Contains(testing::AllOf(StartsWith("Mass m = "), HasSubstr("Mode 1: "),
                                               HasSubstr("Mode 2: "), HasSubstr("Mode 3: "))));
}

TEST(Pages, AnglesBuckleAboutTheirPrincipalAxes)
{
    EXPECT_THAT(LinesOf(PrintControl(Delivered(), Designed(10), kStamp)),
                Contains("Buckling parameters:U-axisV-axis"));
    EXPECT_THAT(LinesOf(PrintControl(Delivered(), Designed(1), kStamp)),
                Contains(StartsWith("Buckling parameters:Y-axisZ-axis")));
}

// British channels keep the curve of the member before them.
TEST(Pages, AMemberWithoutABucklingCurveSaysSo)
{
    const ProjectState s = Designed(103, [](ProjectState& p) {
        p.curvey = {};
        p.curvez = {};
    });
    EXPECT_THAT(LinesOf(PrintControl(Delivered(), s, kStamp)),
                Contains(StartsWith("Buckling Curvenonenone")));
}

// Loads of both signs, every support and load combination: texts keep clear of each other.
TEST(Pages, StaysLegibleUnderAnySupportAndCombination)
{
    for (const int family : {1, 10, 22, 41, 52}) {
        for (i16 supports = 0; supports <= 5; ++supports) {
            SCOPED_TRACE(std::to_string(family) + ", supports " + std::to_string(supports));
            ProjectState s = Designed(family);
            s.annexindex = 1;
            s.supportcase = supports;
            s.spring = 50;
            s.loadcomb = supports;
            s.qload[1] = -2;
            s.qload[3] = 3;  // more than the uplift, for a positive mass
            s.qtype[3] = 1;
            s.pm[1] = 1;
            s.pmx[1] = 0.5F;
            s.pmdir[1] = 1;
            s.pm[2] = -0.5F;
            s.pmx[2] = 1.5F;
            s.pmdir[2] = 0;
            s.modal = 1;
            s.selfweight = 1;
            ApplyAnnexLoads(s, s.annexindex);
            ASSERT_TRUE(Calculate(Delivered(), s));
            const PrintedReport report = PrintControl(Delivered(), s, kStamp);
            ExpectLegible(report);
            EXPECT_THAT(LinesOf(report), Contains(GoverningText(s)));
        }
    }
}

TEST(Pages, PrintingChangesNothing)
{
    const ProjectState s = Designed(1);
    const ProjectState before = s;
    PrintControl(Delivered(), s, kStamp);
    PrintProperties(Delivered(), s, kStamp);
    EXPECT_EQ(s, before);
}

}  // namespace
}  // namespace kestrum
