#include "report/pages.h"

#include "core/annexes.h"
#include "core/file_io.h"
#include "core/load_combination.h"
#include "core/project_file.h"
#include "core/project_state.h"
#include "report/design_notes.h"
#include "report/outcome.h"
#include "report/page_checks.h"
#include "report/panel.h"
#include "report/standard_text.h"
#include "sections/families.h"
#include "sections/family_table.h"
#include "standard/costs.h"
#include "support/rows.h"

#include <cmath>
#include <limits>
#include <random>

namespace kestrum {
namespace {

using ::testing::Contains;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::StartsWith;

TEST(PageControl, WithoutLoadsTheHeadingsStandAlone)
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
TEST(PageControl, RatiosOfWideRowsKeepTheirText)
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
    for (const Check* row : {&RowY(s), &RowZ(s), &LateralRow(s)}) {
        const RowText text = TextOf(*row);
        EXPECT_THAT(lines, Contains(HasSubstr(text.result + "  ABOVE" + text.limit)));
    }
}

// Every kind of load, with category, position and value as entered.
TEST(PageControl, LoadsAreListedByDirection)
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

TEST(PageControl, GivenEndForcesTakeThePlaceOfLoads)
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

TEST(PageControl, WithoutDeflectionControlThereIsNoBlockOfIt)
{
    const ProjectState s = Designed(1, [](ProjectState& p) { p.checksls = kFalse; });
    const std::vector<std::string> lines = LinesOf(PrintControl(Delivered(), s, kStamp));
    EXPECT_THAT(lines, Not(Contains(StartsWith("DEFLECTION CONTROL:"))));
    EXPECT_THAT(lines, Contains(StartsWith("SECTION CONTROL:")));
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

TEST(PageControl, FullTablesOfOneDirectionKeepEveryPicture)
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
    for (const char* label : {"0.11 kN/m (G) ", "0.14 kN/m (G) ", "0.21/0.3 kN/m (G) ",
                              "0.31 kN (G) ", "0.38 kN (G) "}) {
        EXPECT_THAT(texts, Contains(label));  // in the picture
    }
    for (const char* title : {"My/Vz/Deflection (kNm/kN/mm)", "Mz/Vy/Deflection (kNm/kN/mm)"}) {
        EXPECT_THAT(texts, Contains(title));
    }
    const std::vector<std::string> lines = LinesOf(report);
    ExpectRow(lines, RowY(s));
    EXPECT_THAT(lines, Contains(StartsWith("Mass m = ")));
}

// Values with too many digits for two tables side by side: one below the other, and room is short.
// The figures of the loads go on a second page, and the first says so.
TEST(PageControl, FullTablesOfBothDirectionsPutTheLoadsOnASecondPage)
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
    EXPECT_THAT(report.missing, IsEmpty());
    ASSERT_THAT(report.pages, testing::SizeIs(2));
    EXPECT_THAT(LinesOf(report.pages[0]), Contains("Kestrum EC3Page:1/2"));
    EXPECT_THAT(LinesOf(report.pages[0]), Contains("Figures of the loads: page 2"));
    EXPECT_THAT(LinesOf(report.pages[0]), Contains(HasSubstr("My/Vz/Deflection (kNm/kN/mm)")));
    EXPECT_THAT(LinesOf(report.pages[1]), Contains("Kestrum EC3Page:2/2"));
    for (const char* label : {"0.11 kN/m (G) ", "11111.5/12345.5 kN/m (G) ", "0.31 kN (G) "}) {
        EXPECT_THAT(LinesOf(report.pages[1]), Contains(HasSubstr(label)));
    }
    const std::vector<std::string> lines = LinesOf(report.pages[0]);
    EXPECT_THAT(lines, Contains(GoverningText(s)));
    EXPECT_THAT(lines, Contains(HasSubstr("11111.5/12345.5")));
    ExpectRow(lines, RowY(s));
    EXPECT_THAT(lines, Contains(StartsWith("Mass m = ")));
}

// Random loads in every row of both directions and of any size, on every family: nothing is left
// out, cut, outside its page or over another text.
TEST(PageControl, RandomMembersKeepEveryTextAndFigure)
{
    std::mt19937 random(20260101);
    const auto pick = [&random](int count) {
        return static_cast<int>(random() % static_cast<unsigned>(count));
    };
    const auto size = [&](int most) {  // 0.1 to 10^most, either sign
        const float value = std::pow(10.0F, static_cast<float>(pick(most + 2)) - 1.0F);
        return (pick(3) == 0 ? -1.0F : 1.0F) * value * static_cast<float>(1 + pick(9)) * 1.07F;
    };
    for (const int family : FamilyNumbers()) {
        for (int variant = 0; variant < 8; ++variant) {
            ProjectState s = Designed(family);
            s.l = 1.0F + static_cast<float>(pick(20));
            s.supportcase = static_cast<i16>(pick(6));
            s.spring = 30;
            s.loadcomb = static_cast<i16>(pick(6));
            s.selfweight = static_cast<i16>(pick(2));
            s.modal = static_cast<i16>(pick(2));
            s.nload = {};
            s.nload[1] = pick(2) == 0 ? -size(5) : 0;
            const auto row = [&](auto& values, auto& directions, auto& ticked, std::size_t k) {
                values[k] = pick(4) == 0 ? 0.0F : size(4);
                directions[k] = static_cast<i16>(pick(2));
                ticked[k] = pick(2) == 0 ? kTrue : kFalse;
            };
            for (std::size_t k = 1; k <= 4; ++k) {
                row(s.qload, s.qdir, s.qchecked, k);
            }
            for (std::size_t k = 1; k <= 3; ++k) {
                row(s.qt1, s.qtdir, s.qtchecked, k);
                s.qt2[k] = 2 * s.qt1[k];
                s.qtx1[k] = 0.1F * s.l;
                s.qtx2[k] = 0.7F * s.l;
            }
            for (std::size_t k = 1; k <= 8; ++k) {
                row(s.pm, s.pmdir, s.pmchecked, k);
                s.pmkind[k] = static_cast<i16>(pick(2));
                s.pmx[k] = s.l * static_cast<float>(k) / 9;
            }
            SCOPED_TRACE(std::to_string(family) + " " + std::to_string(variant));
            if (Calculate(Delivered(), s)) {
                const PrintedReport report = PrintControl(Delivered(), s, kStamp);
                EXPECT_THAT(report.missing, IsEmpty());
                ExpectLegible(report);
            }
        }
    }
}

// Three notes and three lines on the costs below full figures: what the deviations cost fits the
// page in short, so that no second one is needed for it.
TEST(PageControl, AFewLinesOnCostsTakeNoSecondPage)
{
    Member s;
    std::string bytes;
    ASSERT_EQ(ReadWholeFile(KESTRUM_SOURCE "/examples/f022_crane_girder.kst", bytes), "");
    ASSERT_FALSE(ReadProject(s, bytes));
    ASSERT_TRUE(Calculate(Delivered(), s));
    const PrintedReport report = PrintControl(Delivered(), s, kStamp);
    ASSERT_THAT(report.pages, testing::SizeIs(1));
    EXPECT_THAT(report.missing, IsEmpty());
    ExpectLegible(report);
    EXPECT_THAT(LinesOf(report), Contains("Kestrum EC3Page:1/1"));
    EXPECT_THAT(LinesOf(report), Contains(StartsWith("Deviations from EN 1993-1-1 that act")));
    EXPECT_THAT(LinesOf(report), Contains(HasSubstr("In checks that do not govern: D")));
}

// Axial force and loads in both directions, as most pages have them.
TEST(PageControl, TextsOfAnOrdinaryPageHaveSevenPoints)
{
    constexpr double kSevenPoints = 7 * 25.4 / 72;  // mm
    for (const int family : {1, 6, 22}) {
        for (const TextMark& text : TextsOf(PrintControl(Delivered(), Designed(family), kStamp))) {
            EXPECT_GE(text.size, kSevenPoints) << text.text;
        }
    }
}

struct Annexed {
    i16 annex, cls;
    const char* text;
};

TEST(PageControl, ClassOfTheAnnexStandsInTheGeneralBlock)
{
    const Annexed cases[] = {{1, 1, "Reliability Class: 1"},   {1, 2, "Reliability Class: 2-4"},
                             {1, 3, "Reliability Class: 2-4"}, {2, 3, "Safety Class: 3"},
                             {3, 2, "Consequences Class: 2"},  {5, 1, "Reliability Class: 1"}};
    for (const Annexed& annexed : cases) {
        ProjectState s = Designed(1);
        s.annexindex = annexed.annex;
        s.safetyclass = annexed.cls;
        EXPECT_THAT(LinesOf(PrintControl(Delivered(), s, kStamp)),
                    Contains(HasSubstr(annexed.text + std::string("    gm0/gm1 ="))));
    }
    ProjectState s = Designed(1);
    s.annexindex = 0;
    EXPECT_THAT(LinesOf(PrintControl(Delivered(), s, kStamp)),
                Not(Contains(HasSubstr("Class: 2"))));
}

// Lengths first, their unit once behind them; the angle keeps its own.
TEST(PageControl, UnitOfTheProfileStandsBehindItsLengths)
{
    EXPECT_THAT(LinesOf(PrintControl(Delivered(), Designed(11), kStamp)),
                Contains(testing::AllOf(HasSubstr(" (mm)  alfa="), testing::EndsWith(" deg"))));
    EXPECT_THAT(LinesOf(PrintControl(Delivered(), Designed(26), kStamp)),
                Contains(testing::EndsWith("ez-el=53.7 mm (elastic)  ez-pl=9.8 mm (plastic)")));
}

// Of basic loads only ticked rows act; the page lists all and marks the others.
TEST(PageControl, BasicLoadsThatAreNotTickedAreMarked)
{
    const auto page = [](i16 ticked, i16 loadcomb) {
        ProjectState s = Designed(1);
        s.loadcomb = loadcomb;
        s.nchecked[1] = s.qchecked[1] = ticked;
        s.qchecked[2] = kTrue;
        s.qt1[1] = s.qt2[1] = 3;
        s.qtx2[1] = 1;
        s.qtchecked[1] = ticked;
        s.pm[1] = 4;
        s.pmx[1] = 1;
        s.pmchecked[1] = ticked;
        s.qtdir[1] = s.pmdir[1] = 1;
        EXPECT_TRUE(Calculate(Delivered(), s));
        return LinesOf(PrintControl(Delivered(), s, kStamp));
    };
    const std::vector<std::string> lines = page(kFalse, kBasicLoads);
    EXPECT_THAT(lines, Contains(HasSubstr("N = 1.0 (G)*")));
    EXPECT_THAT(lines, Contains(HasSubstr("q 1.0G*")));
    EXPECT_THAT(lines, Contains(HasSubstr("q3.0/3.00.000/1.000G*")));
    EXPECT_THAT(lines, Contains(HasSubstr("P4.01.000G*")));
    EXPECT_THAT(lines, Not(Contains(HasSubstr("q 0.5G*"))));
    EXPECT_THAT(lines, Contains(HasSubstr("* not ticked: does not act")));
    for (const auto& unmarked : {page(kTrue, kBasicLoads), page(kFalse, kEq610)}) {
        EXPECT_THAT(unmarked, Not(Contains(HasSubstr("not ticked"))));
        EXPECT_THAT(unmarked, Not(Contains(HasSubstr("G*"))));
    }
}

// Annex UD takes permanent loads with 1.1 in Eq 6.10a (D26); the sentence is wider than the page.
TEST(PageControl, NotesOnTheUnsafeSideArePrintedWhole)
{
    ProjectState s = Designed(1);
    s.annexindex = kAnnexUd;
    s.loadcomb = kEq610a;
    ApplyAnnexLoads(s, s, s.annexindex);
    ASSERT_TRUE(Calculate(Delivered(), s));
    MeasureNotes(Delivered(), s);
    const std::vector<DesignNote> notes = DesignNotes(s);
    ASSERT_THAT(notes, Contains(testing::Field(&DesignNote::id, "D26")));
    for (const PrintedReport& report :
         {PrintControl(Delivered(), s, kStamp), PrintProperties(Delivered(), s, kStamp)}) {
        std::string all;
        for (const TextMark& text : TextsOf(report)) {
            all += text.text + " ";
        }
        EXPECT_THAT(all, HasSubstr("Notes on the unsafe side:"));
        for (const DesignNote& note : notes) {
            EXPECT_THAT(all, HasSubstr(std::string(note.id) + " " + std::string(note.text)));
        }
    }
}

TEST(PageControl, VerdictStandsInWords)
{
    const ProjectState light = Designed(1);
    EXPECT_THAT(LinesOf(PrintControl(Delivered(), light, kStamp)),
                Contains("Verdict: " + VerdictText(OutcomeOf(light, true))));
    const ProjectState heavy = Designed(1, [](ProjectState& p) { p.qload[1] = 5000; });
    EXPECT_THAT(LinesOf(PrintControl(Delivered(), heavy, kStamp)),
                Contains(StartsWith("Verdict: above limit")));
}

// A box of unequal flanges takes no axial force and no loads along y: the page names both.
TEST(PageControl, DroppedLoadsAreNamed)
{
    const ProjectState s = Designed(27);
    const std::vector<std::string> dropped = OutcomeOf(s, true).dropped;
    ASSERT_THAT(dropped, testing::SizeIs(2));
    const PrintedReport report = PrintControl(Delivered(), s, kStamp);
    const std::vector<std::string> lines = LinesOf(report);
    EXPECT_THAT(lines, Contains(StartsWith("Verdict: loads dropped")));
    for (const std::string& load : dropped) {
        EXPECT_THAT(lines, Contains("Not in this result: " + load));
    }
}

TEST(PageControl, LateralBucklingThatIsSwitchedOffIsSaidToBeUnchecked)
{
    const auto lines = [](int family, i16 ltb) {
        ProjectState s = Designed(family);
        s.ltb = ltb;
        EXPECT_TRUE(Calculate(Delivered(), s));
        return LinesOf(PrintControl(Delivered(), s, kStamp));
    };
    constexpr const char* kText = "Lateral torsional buckling: not checked";
    EXPECT_THAT(lines(1, 0), Contains(HasSubstr(kText)));
    EXPECT_THAT(lines(1, 1), Not(Contains(HasSubstr(kText))));
    EXPECT_THAT(lines(6, 0), Not(Contains(HasSubstr(kText))));  // RHS
}

TEST(PageControl, OptionsOfTheDesignAreNamed)
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

TEST(PageControl, GeometryTellsRestraintsAndStiffeners)
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

TEST(PageControl, ModalBlockHasThreeModes)
{
    const ProjectState s = Designed(1, [](ProjectState& p) { p.modal = 1; });
    const std::vector<std::string> lines = LinesOf(PrintControl(Delivered(), s, kStamp));
    EXPECT_THAT(lines, Contains("Modal analysis: (Selfweigth + q-loads)"));
    EXPECT_THAT(lines, Contains(testing::AllOf(StartsWith("Mass m = "), HasSubstr("Mode 1: "),
                                               HasSubstr("Mode 2: "), HasSubstr("Mode 3: "))));
}

TEST(PageControl, AnglesBuckleAboutTheirPrincipalAxes)
{
    EXPECT_THAT(LinesOf(PrintControl(Delivered(), Designed(10), kStamp)),
                Contains("Buckling parameters:U-axisV-axis"));
    EXPECT_THAT(LinesOf(PrintControl(Delivered(), Designed(1), kStamp)),
                Contains(StartsWith("Buckling parameters:Y-axisZ-axis")));
}

// British channels keep the curve of the member before them.
TEST(PageControl, AMemberWithoutABucklingCurveSaysSo)
{
    const ProjectState s = Designed(103, [](ProjectState& p) {
        p.curvey = {};
        p.curvez = {};
    });
    EXPECT_THAT(LinesOf(PrintControl(Delivered(), s, kStamp)),
                Contains(StartsWith("Buckling Curvenonenone")));
}

// Loads of both signs, every support and load combination: texts keep clear of each other.
TEST(PageControl, StaysLegibleUnderAnySupportAndCombination)
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
            ApplyAnnexLoads(s, s, s.annexindex);
            ASSERT_TRUE(Calculate(Delivered(), s));
            const PrintedReport report = PrintControl(Delivered(), s, kStamp);
            ExpectLegible(report);
            EXPECT_THAT(LinesOf(report), Contains(GoverningText(s)));
        }
    }
}

// The page gives both results, and every deviation that acts with what it costs, largest first.
TEST(PageControl, StandardsResultIsBesideTheProgramsWithTheCosts)
{
    const ProjectState s = Designed(26, [](ProjectState& p) {  // a T section
        p.nload[1] = 300;
        p.selfweight = 1;
    });
    standard::StandardResult result = standard::CalculateStandard(Delivered(), AsGiven(s));
    standard::CalculateCosts(Delivered(), AsGiven(s), &s, result);
    ASSERT_TRUE(result.rated);
    const PrintedReport report = PrintControl(Delivered(), s, kStamp);
    ExpectLegible(report);
    EXPECT_THAT(report.missing, IsEmpty());
    std::string whole;
    for (const std::string& line : LinesOf(report)) {
        whole += line + " ";
    }
    EXPECT_THAT(whole, HasSubstr("Program: " + ProgramWords(OutcomeOf(s, true)) +
                                 ".  By EN 1993-1-1 as written: " + StandardWords(result)));
    const CostList costs = CostsOf(result);
    ASSERT_GT(costs.lines.size(), 1U);
    std::size_t before = whole.find("By EN 1993-1-1 as written");
    for (const CostLine& line : costs.lines) {
        const std::size_t at = whole.find(std::string(line.id) + "  " + line.cost);
        ASSERT_NE(at, std::string::npos) << line.id;
        EXPECT_GT(at, before) << line.id;
        before = at;
    }
    for (std::size_t i = 1; i < result.deviations.size(); ++i) {
        EXPECT_GE(result.deviations[i - 1].cost, result.deviations[i].cost);
    }
}

// What the standard's result does not cover is said in its place.
TEST(PageControl, StandardsResultThatIsNotCoveredSaysWhy)
{
    standard::StandardResult none;
    none.outside.push_back("a reason");
    EXPECT_EQ(StandardWords(none), "not covered: a reason");
    none.rated = none.above = true;
    none.ir = std::numeric_limits<double>::infinity();
    EXPECT_THAT(StandardWords(none), StartsWith("IR infinite ABOVE, section N"));
}

// Three decimals where they say something, a sign in any case.
TEST(StandardText, CostsHaveASign)
{
    EXPECT_EQ(CostFigure(0.0754), "+0.075");
    EXPECT_EQ(CostFigure(-0.0016), "-0.002");
    EXPECT_EQ(CostFigure(48565.5), "+48566");
    EXPECT_EQ(CostFigure(std::numeric_limits<double>::infinity()), "+inf");
    EXPECT_EQ(CostFigure(std::nan("")), "");
    EXPECT_EQ(RatioFigure(1.176, true), "1.18 ABOVE");
}

}  // namespace
}  // namespace kestrum
