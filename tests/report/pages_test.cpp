#include "report/pages.h"

#include "core/load_combination.h"
#include "core/number_format.h"
#include "core/project_state.h"
#include "report/page_checks.h"
#include "report/page_header.h"
#include "report/panel.h"
#include "sections/families.h"
#include "sections/family_table.h"
#include "service/vortex.h"
#include "support/rows.h"

namespace kestrum {
namespace {

using ::testing::Contains;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::SizeIs;
using ::testing::StartsWith;

void ExpectHead(const PrintedReport& report, std::string_view title)
{
    const std::vector<std::string> lines = LinesOf(report);
    ASSERT_GE(lines.size(), 6U);
    EXPECT_THAT(lines[0], StartsWith("Kestrum EC3Page:1/1"));
    EXPECT_EQ(lines[1], std::string(title) + "Date: 2024-05-17");
    EXPECT_EQ(lines[2], "Version 1.3.1 Time: 14:05");
    EXPECT_THAT(lines[3], HasSubstr("File: hall.kst"));
    EXPECT_EQ(lines[4], "Project: Hall 7");
    EXPECT_EQ(lines[5], "Identification: B-101");
}

TEST(Pages, ControlOfEveryFamilyIsCompleteAndLegible)
{
    for (const int family : FamilyNumbers()) {
        SCOPED_TRACE(family);
        const ProjectState s = Designed(family);
        const PrintedReport report = PrintControl(Delivered(), s, kStamp);
        EXPECT_THAT(report.missing, IsEmpty());
        ExpectLegible(report);
        ExpectHead(report, "Member Design Program incl updates til Jan 2021");
        const std::vector<std::string> lines = LinesOf(report);
        EXPECT_THAT(lines, Contains(GoverningText(s)));
        EXPECT_THAT(lines, Contains(StartsWith("SECTION CONTROL:")));
        for (const std::size_t i : {1U, 2U, 3U}) {
            ExpectRow(lines, SectionRow(s, i));
        }
        if (HasBuckleBlock(s.family)) {
            ExpectRow(lines, RowY(s));
            ExpectRow(lines, RowZ(s));
            ExpectRow(lines, LateralRow(s));
        }
        const auto deflection = [&](const Check& row) {
            if (!row.empty()) {
                const RowText text = TextOf(row);
                EXPECT_THAT(lines,
                            Contains(StartsWith(text.label + text.calculation + text.result)));
            }
        };
        deflection(DeflectionZ(s));
        deflection(DeflectionY(s));
    }
}

TEST(Pages, PropertiesOfEveryFamilyAreCompleteAndLegible)
{
    for (const int family : FamilyNumbers()) {
        SCOPED_TRACE(family);
        const ProjectState s = Designed(family);
        const PrintedReport report = PrintProperties(Delivered(), s, kStamp);
        EXPECT_THAT(report.missing, IsEmpty());
        ExpectLegible(report);
        ExpectHead(report, "Member Design Program incl updates til Jan 2021");
        const std::vector<std::string> lines = LinesOf(report);
        EXPECT_THAT(lines, Contains("Dimensions and weight:"));
        EXPECT_THAT(lines, Contains("Section property:"));
        EXPECT_THAT(lines, Contains("Material: fy=355MPafd=355.0MPaE=2.100E+5MPagm0=1.00"));
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
        CalcVortexFrequency(s, s, s);
        CalcVortex(s, s, s);
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
        EXPECT_THAT(lines, Contains("Member Restraint:fixed-pinned"));
        const std::string own = "but the member itself:" + std::string(MemberSupport(s));
        EXPECT_THAT(lines, Contains(own));
        s.vortexcase = 0;
        ASSERT_EQ(s.supportcase, 0);
        EXPECT_THAT(LinesOf(PrintVortex(Delivered(), s, kStamp)), Not(Contains(own)));
        EXPECT_THAT(lines, Contains("Wind speed vb (10min, 10 m)25.0m/s "));
    }
}

// Each page ends with the largest ratios of both sets of rules.
TEST(Pages, BothRatiosStandBelowTheProperties)
{
    const std::vector<std::string> lines =
        LinesOf(PrintProperties(Delivered(), Designed(1), kStamp));
    EXPECT_THAT(lines, Contains(testing::AllOf(StartsWith("Program: IR "),
                                               HasSubstr("By EN 1993-1-1 as written: IR "))));
}

// Elastic shear of each leg, EN 1993-1-1, 6.2.6 (4): a parabola, two thirds of (c - t) t
// fy/sqrt(3).
TEST(Pages, AnglesShowTheResistancesThatTheirChecksUse)
{
    const ProjectState s = Designed(11);
    ASSERT_GT(s.h, s.b);
    const auto leg = [&s](double c) {
        return FormatNum((c - s.tw) * s.tw * s.fyk / std::sqrt(3.0) / 1.5 / 1000, "#0.0");
    };
    std::string all;
    for (const std::string& line : LinesOf(PrintProperties(Delivered(), s, kStamp))) {
        all += line + "\n";
    }
    EXPECT_THAT(all, HasSubstr("Vz,Rd=" + leg(s.h) + "kN"));
    EXPECT_THAT(all, HasSubstr("Vy,Rd=" + leg(s.b) + "kN"));
    for (const char* moment : {"My,Rd,1=", "My,Rd,2/3=", "Mz,Rd,1/2=", "Mz,Rd,3="}) {
        EXPECT_THAT(all, HasSubstr(moment));
    }
}

// Resistances of five digits: 1800/600/400/12/40/30, S355, has A = 56760 mm2, Nt,Rd = 20149.8 kN
// and My,Rd above 10000 kNm. The columns make room for them.
TEST(Pages, LongValuesKeepTheirUnits)
{
    const ProjectState s =
        Designed(22, [](ProjectState& p) { p.p22 = {1800, 600, 400, 12, 40, 30}; });
    const PrintedReport report = PrintProperties(Delivered(), s, kStamp);
    EXPECT_THAT(report.missing, IsEmpty());
    ExpectLegible(report);
    const std::vector<std::string> lines = LinesOf(report);
    EXPECT_THAT(lines, Contains(StartsWith("Nt,Rd=20149.8kN")));
    // c/t of the web is 144.2. Half the area is the top flange and 365 mm of web, alpha = 0.211,
    // and the limits are 36*0.8136/0.211 = 138.8 and 41.5*0.8136/0.211 = 160.0. The centroid lies
    // 716.8 mm below the top: compressed at the bottom psi = -0.643, limit 42*0.8136/(0.67 -
    // 0.33*0.643).
    EXPECT_THAT(lines, Contains("My,Rd,top: My positive, top flange compressed, class 2"));
    EXPECT_THAT(lines, Contains("My,Rd,bottom: My negative, bottom flange compressed, class 4"));
    EXPECT_THAT(lines, Contains(testing::EndsWith("kNm")));
    for (const std::string& line : lines) {
        EXPECT_THAT(line, Not(HasSubstr("...")));
    }
}

TEST(Pages, WindDataStandInTheirOrder)
{
    ProjectState s = Designed(31);
    CalcVortexFrequency(s, s, s);
    CalcVortex(s, s, s);
    const std::vector<std::string> lines = LinesOf(PrintVortex(Delivered(), s, kStamp));
    const auto row = [&](const char* name) {
        return std::find_if(lines.begin(), lines.end(),
                            [&](const std::string& line) { return line.starts_with(name); });
    };
    EXPECT_LT(row("Wind speed vb"), row("Heigth, z"));
    EXPECT_LT(row("Heigth, z"), row("Wind speed Vm"));
    EXPECT_LT(row("Wind speed Vm"), row("Terrain category"));
    EXPECT_NE(row("Terrain category"), lines.end());
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
    EXPECT_THAT(name(10, false), StartsWith("  L "));
    for (const int family : {6, 7, 8, 9, 22, 23, 27, 28, 31}) {
        EXPECT_EQ(name(family, true).substr(0, 2), "  ") << family;
        EXPECT_NE(name(family, true)[2], ' ') << family;
        EXPECT_NE(name(family, false)[0], ' ') << family;
    }
    EXPECT_THAT(name(6, true), StartsWith("  RHS "));
    EXPECT_THAT(name(22, true), StartsWith("  I "));
    EXPECT_THAT(name(24, true), StartsWith(" HSQ "));
    EXPECT_THAT(name(26, true), StartsWith(" T "));
    EXPECT_THAT(name(28, true), StartsWith("  Fb "));
}

// A warning on the whole page stands below the head, in as many rows as it takes.
TEST(Pages, AWarningStandsBelowTheHeadOfEveryReport)
{
    ProjectState s = Designed(31);
    CalcVortexFrequency(s, s, s);
    CalcVortex(s, s, s);
    PrintStamp stamp = kStamp;
    stamp.warning = "Beware: " + std::string(60, 'n') + " " + std::string(60, 'm');
    for (const PrintedReport& report :
         {PrintControl(Delivered(), s, stamp), PrintProperties(Delivered(), s, stamp),
          PrintVortex(Delivered(), s, stamp)}) {
        ExpectLegible(report);
        const std::vector<std::string> lines = LinesOf(report);
        EXPECT_EQ(lines[6], "Beware: " + std::string(60, 'n'));
        EXPECT_EQ(lines[7], std::string(60, 'm'));
    }
}

// Figures that are not the delivered ones are named on every report.
TEST(Pages, OwnProfileTablesAreNamed)
{
    ProjectState s = Designed(31);
    CalcVortexFrequency(s, s, s);
    CalcVortex(s, s, s);
    Library own = Delivered();
    own.own.push_back({"hea.dat", "/home/a/hea.dat", std::string(64, 'a')});
    for (const PrintedReport& report :
         {PrintControl(own, s, kStamp), PrintProperties(own, s, kStamp),
          PrintVortex(own, s, kStamp)}) {
        ExpectLegible(report);
        EXPECT_EQ(LinesOf(report)[6], "own data: hea.dat (SHA-256 aaaaaaaaaaaaaaaa)");
    }
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
