// The summary of many members: answers read back, their order, counts, histogram, pages.

#include "app/answer_table.h"
#include "app/unloaded_member.h"
#include "report/page_checks.h"
#include "report/summary_chart.h"
#include "report/summary_pages.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

namespace kestrum {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

// The answers of both bases with their cases.
constexpr const char* kBoth =
    "member,verdict,ir,control,clause,case,x,verdict_standard,ir_standard,standard_check,"
    "standard_clause,case_standard,x_standard,cases,above,failed,above_standard,failed_standard,"
    "notes,message\n";

MemberSummary Read(const std::string& text)
{
    AnswerTable table;
    EXPECT_EQ(table.Take(text, "a.csv"), "");
    return table.summary;
}

std::vector<std::string> NamesOf(const MemberSummary& summary)
{
    std::vector<std::string> names;
    for (const SummaryMember& member : summary.members) {
        names.push_back(member.name);
    }
    return names;
}

// So many members with ratios from 0 upwards, the first two of them without one.
std::string Many(int count, const std::string& prefix)
{
    std::string text = kBoth;
    for (int i = 0; i < count; ++i) {
        const std::string ir = std::to_string(i * 0.0007), name = prefix + std::to_string(i);
        const bool failed = i<2, above = i * 0.0007> 1;
        const std::string verdict = failed ? "unstable" : above ? "above limit" : "within limits";
        text += name + "," + verdict + "," + (failed ? "" : ir) +
                ",\"NEd/Nb,z,Rd +kzy*My,Ed/(xLT*My,Rd)\",6.3.3,combination " + std::to_string(i) +
                ",1.25," + verdict + "," + (failed ? "" : ir) +
                ",eq661,\"Eq 6.61, Annex A\",combination 7,,100,1,1,1,1,D233; D26," +
                (failed ? "case 3: the axial force exceeds an elastic critical force\n" : "\n");
    }
    return text;
}

TEST(AnswerTable, NoRatioComesFirstThenAboveThenByRatio)
{
    const MemberSummary summary = Read("member,verdict,ir\n"
                                       "a,within limits,0.4\n"
                                       "b,\"within limits, 2 notes on the unsafe side\",0.9\n"
                                       "c,above limit,1.2\n"
                                       "d,bad input,\n"
                                       "e,above limit,5\n"
                                       "f,unstable,1.7\n"
                                       "g,nothing acts,\n");
    EXPECT_THAT(NamesOf(summary), ElementsAre("d", "f", "g", "e", "c", "b", "a"));
    EXPECT_THAT(CountStandings(summary, &SummaryMember::result), ElementsAre(3, 2, 2));
    EXPECT_EQ(LargestRatio(summary, &SummaryMember::result), 5);  // that of f is none of a check
    EXPECT_FALSE(summary.both);
}

TEST(AnswerTable, TheWorseBasisRanks)
{
    const std::string ends = ",1,0,0,0,0,,\n";
    const MemberSummary summary =
        Read(kBoth + ("a,within limits,0.9,c,1,U1,,within limits,0.5,s,2,U1," + ends) +
             "b,within limits,0.3,c,1,U1,,above limit,1.1,s,2,U1," + ends +
             "c,within limits,0.2,c,1,U1,,not checked,,s,2,U2," + ends +
             "d,within limits,0.6,c,1,U1,,within limits,0.95,s,2,U1," + ends);
    EXPECT_THAT(NamesOf(summary), ElementsAre("c", "b", "d", "a"));
    EXPECT_EQ(summary.GoverningOf(summary.members[0]).verdict, "not checked");
    EXPECT_EQ(summary.GoverningOf(summary.members[3]).ir, 0.9);
    EXPECT_THAT(CountStandings(summary, &SummaryMember::result), ElementsAre(0, 0, 4));
    EXPECT_THAT(CountStandings(summary, &SummaryMember::standard), ElementsAre(1, 1, 2));
}

// `batch` has no verdict by the standard: its ratio is compared with the limit of the member.
TEST(AnswerTable, ARatioByTheStandardIsJudgedByTheLimit)
{
    const MemberSummary summary = Read("member,verdict,ir,ir_standard,irlimit\n"
                                       "a,within limits,0.4,0.97,0.95\n"
                                       "b,within limits,0.4,0.97,1\n"
                                       "c,within limits,0.4,,1\n");
    EXPECT_THAT(NamesOf(summary), ElementsAre("c", "a", "b"));
    EXPECT_THAT(CountStandings(summary, &SummaryMember::standard), ElementsAre(1, 1, 1));
    EXPECT_EQ(summary.members[0].standard.verdict, "no ratio");
}

TEST(AnswerTable, OfTheCasesOfAMemberTheWorstCounts)
{
    const MemberSummary summary = Read("member,verdict,ir,case,cases,notes\n"
                                       "a,within limits,0.4,U1,1,first\n"
                                       "a,within limits,0.8,U2,1,second\n"
                                       "b,within limits,0.5,U1,1,\n"
                                       "b,not checked,,U2,1,\n"
                                       "a,within limits,0.6,U3,1,third\n");
    EXPECT_THAT(NamesOf(summary), ElementsAre("b", "a"));
    EXPECT_EQ(summary.members[1].result.load_case, "U2");
    EXPECT_EQ(summary.members[1].notes, "second");
    EXPECT_EQ(summary.members[0].result.standing, Standing::unrated);
}

TEST(AnswerTable, WhatIsNoAnswerIsRefusedWithItsLine)
{
    const auto refusal = [](const std::string& text) {
        AnswerTable table;
        return table.Take(text, "a.csv");
    };
    EXPECT_THAT(refusal(""), HasSubstr("holds no answers"));
    EXPECT_THAT(refusal("member,verdict,ir\n"), HasSubstr("holds no answers"));
    EXPECT_THAT(refusal("{\"member\":1}\n"), HasSubstr("not from JSON"));
    EXPECT_EQ(refusal("id,section,l\nB1,IPE 300,4\n"),
              "a.csv:1: no answers: there is no column \"member\"");
    EXPECT_EQ(refusal("member,verdict,ir\na,within limits,0.5\nb,fine,1\n"),
              "a.csv:3: verdict \"fine\" is none");
    EXPECT_EQ(refusal("member,verdict,ir\na,within limits,0;5\n"), "a.csv:2: ir: 0;5 is no number");
    EXPECT_EQ(refusal("member,verdict,ir\na,within limits,nan\n"), "a.csv:2: ir: nan is no number");
    EXPECT_EQ(refusal("member,verdict,ir\na,within limits\n"),
              "a.csv:2: not as many cells as columns");
    EXPECT_EQ(refusal("member,verdict,ir\na,within limits,1,2\n"),
              "a.csv:2: not as many cells as columns");
    EXPECT_EQ(refusal("member,verdict,ir\n\"a,within limits,1\n"),
              "a.csv:2: a quote is not closed");
}

// Each ratio is in one interval, its upper end with it.
TEST(AnswerTable, TheHistogramCountsEachMemberOnce)
{
    const MemberSummary summary = Read("member,verdict,ir\n"
                                       "a,within limits,0\n"
                                       "b,within limits,0.1\n"
                                       "c,within limits,0.3\n"
                                       "d,within limits,0.30000001\n"
                                       "e,within limits,1\n"
                                       "f,above limit,1.0000001\n"
                                       "g,above limit,1.5\n"
                                       "h,above limit,1e30\n"
                                       "i,unstable,2\n");
    const std::vector<RatioBin> bins = Histogram(summary, &SummaryMember::result);
    ASSERT_EQ(bins.size(), 16U);
    const auto count = [&](std::size_t bin) { return bins[bin].within + bins[bin].above; };
    EXPECT_EQ(count(0), 2U);  // up to 0.1
    EXPECT_EQ(count(2), 1U);  // up to 0.3
    EXPECT_EQ(count(3), 1U);  // above it
    EXPECT_EQ(bins[9].within, 1U);
    EXPECT_EQ(bins[10].above, 1U);
    EXPECT_EQ(count(14), 1U);
    EXPECT_EQ(count(15), 1U);
    std::size_t all = 0;
    for (std::size_t i = 0; i < bins.size(); ++i) {
        all += count(i);
    }
    EXPECT_EQ(all, 8U);  // all but the unstable one
}

TEST(AnswerTable, NotesAreCountedOneByOne)
{
    const MemberSummary summary = Read("member,verdict,ir,notes\n"
                                       "a,within limits,0.1,D233 D26\n"
                                       "b,within limits,0.2,D233; N varies: as said\n"
                                       "c,within limits,0.3,\n");
    const std::vector<NoteCount> notes = CountNotes(summary);
    ASSERT_EQ(notes.size(), 3U);
    EXPECT_EQ(notes[0].note, "D233");
    EXPECT_EQ(notes[0].members, 2U);
    EXPECT_THAT(NoteSentence("D233"), HasSubstr("critical moment"));
    EXPECT_THAT(NoteSentence("N varies: as said"), IsEmpty());
}

TEST(AnswerTable, ASummaryReadsItsOwnTable)
{
    MemberSummary summary = Read(Many(300, "beam "));
    const std::string text = SummaryCsv(summary, CsvTexts::plain);
    EXPECT_EQ(SummaryCsv(Read(text), CsvTexts::plain), text);
    summary.top = 5;
    EXPECT_EQ(SummaryCsv(summary, CsvTexts::plain), text.substr(0, text.find("\n6,") + 1));
}

TEST(AnswerTable, MarksOfASafeTableAreTakenOff)
{
    const MemberSummary summary = Read("member,verdict,ir\n'=B1,within limits,1\n'B2,unstable,\n");
    EXPECT_THAT(NamesOf(summary), ElementsAre("'B2", "=B1"));
    EXPECT_THAT(SummaryCsv(summary, CsvTexts::safe), HasSubstr("\n2,'=B1,"));
}

// HEB 200 of 3.5 m weighs 61.3 kg/m by its table: 214.5 kg; RHS 90x5 of 2 m has 16.7 cm2 or so.
TEST(AnswerTable, MassesComeFromTheTableOfMembers)
{
    MemberList list;
    ASSERT_EQ(
        list.Take("id,section,l\nC1,HEB 200,3.5\n\"T, 1\",IPE 300,2\nX,NO 1,2\n", "m.csv", ""), "");
    const Manner manner(Assignment::checked);
    AnswerTable table;
    ASSERT_EQ(table.Take("member,verdict,ir,cases\n\"T, 1\",within limits,0.5,1\n"
                         "C1,within limits,0.7,1\nX,bad input,,1\nother,within limits,0.1,1\n",
                         "a.csv"),
              "");
    EXPECT_EQ(table.AddMembers(list, Delivered(), UnloadedMember(Delivered()), manner), 1U);
    const std::vector<SummaryMember>& members = table.summary.members;
    EXPECT_EQ(members[1].section, "HEB 200");
    EXPECT_NEAR(members[1].Mass(), 3.5 * 61.3, 0.1);
    EXPECT_NEAR(members[2].Mass(), 2 * 42.2, 0.1);
    EXPECT_TRUE(std::isnan(members[0].Mass()) && std::isnan(members[3].Mass()));
    const MassSum sum = SumOfMasses(table.summary);
    EXPECT_EQ(sum.members, 2U);
    EXPECT_NEAR(sum.mass, 3.5 * 61.3 + 2 * 42.2, 0.2);

    // Answers of `batch` have numbers of lines.
    AnswerTable numbered;
    ASSERT_EQ(
        numbered.Take("member,verdict,ir\n1,within limits,0.5\n2,within limits,0.6\n", "a.csv"),
        "");
    EXPECT_EQ(numbered.AddMembers(list, Delivered(), UnloadedMember(Delivered()), manner), 0U);
    EXPECT_THAT(NamesOf(numbered.summary), ElementsAre("T, 1", "C1"));
}

// Of the sections that would do the first counts; masses are those of the members with a section.
TEST(AnswerTable, AnOptimizationHasMassesBeforeAndAfter)
{
    const MemberSummary summary =
        Read("member,verdict,ir,rank,section,mass,section_before,mass_before,lighter,l\n"
             "a,within limits,0.9,1,IPE 200,22,IPE 300,42,IPE 180,5\n"
             "a,within limits,0.7,2,IPE 220,26,IPE 300,42,IPE 200,5\n"
             "b,within limits,0.5,1,IPE 300,42,IPE 270,36,IPE 270,10\n"
             "c,not checked,,,,,IPE 300,42,,10\n");
    EXPECT_THAT(NamesOf(summary), ElementsAre("c", "a", "b"));
    EXPECT_EQ(summary.members[1].section, "IPE 200");
    const MassSum sum = SumOfMasses(summary);
    EXPECT_EQ(sum.members, 2U);
    EXPECT_DOUBLE_EQ(sum.before, 42 * 5 + 36 * 10);
    EXPECT_DOUBLE_EQ(sum.mass, 22 * 5 + 42 * 10);
    const std::vector<std::string> lines = LinesOf(PrintSummary(summary, kStamp, "a.csv"));
    EXPECT_THAT(lines, ::testing::Contains("Mass before: 570.0 kg, after: 530.0 kg; 40.0 kg (7.0 "
                                           "percent) less, of 2 members"));
    EXPECT_THAT(SummaryCsv(summary, CsvTexts::plain),
                HasSubstr("\n2,a,within limits,0.9,,,IPE 200,IPE 300,42,210,22,5,110,,\n"));
}

// --- Pages ---------------------------------------------------------------------------------------

std::string LastLine(const Drawing& page)
{
    return LinesOf(page).back();
}

TEST(SummaryPages, OneMemberFillsOnePage)
{
    const PrintedReport report = PrintSummary(
        Read("member,verdict,ir,clause\nB1,within limits,0.5,6.3.3\n"), kStamp, "a.csv");
    ASSERT_EQ(report.pages.size(), 1U);
    ExpectLegible(report);
    EXPECT_THAT(report.missing, IsEmpty());
    EXPECT_EQ(LinesOf(report).front(), "Kestrum EC3Page 1 of 1");
    EXPECT_THAT(LastLine(report.pages[0]), HasSubstr("1B10.5006.3.3"));
}

TEST(SummaryPages, ManyMembersAreAllThereInTheirOrder)
{
    MemberSummary summary = Read(Many(400, "B"));
    const PrintedReport report = PrintSummary(summary, kStamp, "a.csv");
    ExpectLegible(report);
    EXPECT_THAT(report.missing, IsEmpty());
    const std::size_t pages = report.pages.size();
    ASSERT_GT(pages, 5U);
    std::size_t next = 1;
    for (std::size_t i = 0; i < pages; ++i) {
        const std::vector<std::string> lines = LinesOf(report.pages[i]);
        EXPECT_THAT(lines.front(),
                    HasSubstr("Page " + std::to_string(i + 1) + " of " + std::to_string(pages)));
        for (const std::string& line : lines) {
            const std::string wanted =
                std::to_string(next) +
                (next <= summary.members.size() ? summary.members[next - 1].name : "no more");
            next += line.starts_with(wanted) ? 1 : 0;
        }
    }
    EXPECT_EQ(next, 401U);
    summary.top = 10;
    const PrintedReport few = PrintSummary(summary, kStamp, "a.csv");
    EXPECT_EQ(few.pages.size(), 1U);
    EXPECT_THAT(LinesOf(few), ::testing::Contains(HasSubstr("390 members more")));
}

TEST(SummaryPages, LongNamesKeepBothEnds)
{
    std::string name = "storey 3, axis ";
    for (int i = 0; i < 2000; ++i) {
        name += "A";
    }
    const PrintedReport report =
        PrintSummary(Read("member,verdict,ir,message,section,l,weight,case\n\"" + name +
                          " beam 17\",bad input,," + std::string(1500, 'm') + ",IPE 300,4,42," +
                          std::string(300, 'c') + "\n"),
                     kStamp, std::string(400, 'f') + ".csv");
    ExpectLegible(report);
    EXPECT_THAT(report.missing, IsEmpty());
    EXPECT_THAT(LinesOf(report), ::testing::Contains(::testing::AllOf(
                                     HasSubstr("storey 3"), HasSubstr("..."), HasSubstr("m 17"))));
}

// A bar of twice the ratio is twice as long, and none leaves its column.
TEST(SummaryPages, BarsAreInProportion)
{
    const auto right_end = [](const std::string& ir, const std::string& verdict) {
        const PrintedReport report = PrintSummary(
            Read("member,verdict,ir\na," + verdict + "," + ir + "\n"), kStamp, "a.csv");
        double end = 0, start = 0;
        for (const Mark& mark : report.pages[0].marks) {
            const Bounds box = BoundsOf(mark);
            const auto* const area = std::get_if<PolygonMark>(&mark);
            if (area != nullptr && box.bottom - box.top < 3 && box.right - box.left > 3) {
                end = box.right;
                start = box.left;
            }
        }
        return end - start;
    };
    EXPECT_NEAR(right_end("1", "within limits"), 2 * right_end("0.5", "within limits"), 0.2);
    EXPECT_NEAR(right_end("2", "above limit"), right_end("1e9", "above limit"), 0.2);
}

TEST(SummaryPages, LargeRatiosStayShort)
{
    EXPECT_EQ(RatioText(0.9995), "1.000");
    EXPECT_EQ(RatioText(1234567), "1.23E+6");
    EXPECT_EQ(RatioText(std::numeric_limits<double>::infinity()), "infinite");
}

}  // namespace
}  // namespace kestrum
