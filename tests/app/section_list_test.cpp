#include "app/section_list.h"

#include "app/member_commands.h"
#include "app/section_commands.h"
#include "app/session_fixture.h"
#include "engine/calculate.h"
#include "sections/family_table.h"
#include "standard/standard.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace kestrum {
namespace {

using ::testing::ElementsAre;

const RatedSection& Named(const std::vector<RatedSection>& sections, std::string_view name)
{
    const auto at = std::find_if(sections.begin(), sections.end(),
                                 [&](const RatedSection& s) { return s.name == name; });
    EXPECT_NE(at, sections.end()) << name;
    return at != sections.end() ? *at : sections.front();
}

// What choosing the row by hand gives.
TEST(SectionList, RatesEveryRowAsIfItWereChosen)
{
    Program program;
    for (const int family : FamilyNumbers()) {
        SCOPED_TRACE(family);
        if (!HasTable(family)) {
            continue;
        }
        ChooseFamily(program.session, family);
        const auto sections = RateSections(Delivered(), program.state());
        const Table table = TableOf(program.state());
        ASSERT_EQ(static_cast<int>(sections.size()), RowCount(table));
        for (const RatedSection& section : sections) {
            ChooseRow(program.session, table, section.row);
            const Outcome& outcome = program.session.outcome();
            EXPECT_EQ(section.verdict, outcome.verdict) << section.name;
            EXPECT_EQ(section.ir, outcome.ir) << section.name;
            EXPECT_EQ(section.control, outcome.control) << section.name;
            EXPECT_EQ(section.mass, program.state().weight) << section.name;
        }
    }
    ChooseFamily(program.session, 21);
    EXPECT_TRUE(RateSections(Delivered(), program.state()).empty());
}

// Masses and heights of EN 10365: IPE 300 has 42.2 kg/m and 300 mm, HEA 200 190 mm.
TEST(SectionList, GivesMassAndHeight)
{
    Program program;
    ChooseFamily(program.session, 4);
    const auto sections = RateSections(Delivered(), program.state());
    EXPECT_NEAR(Named(sections, "IPE 300").mass, 42.2, 0.1);
    EXPECT_EQ(Named(sections, "IPE 300").height, 300);
    ChooseFamily(program.session, 1);
    EXPECT_EQ(Named(RateSections(Delivered(), program.state()), "HEA 200").height, 190);
}

TEST(SectionList, LeavesTheMemberAlone)
{
    Program program;
    const ProjectState before = program.state();
    RateSections(Delivered(), program.state());
    EXPECT_TRUE(program.state() == before);
}

TEST(SectionList, FindsBySomeLetters)
{
    EXPECT_TRUE(Finds("", "IPE 450"));
    EXPECT_TRUE(Finds("45", "IPE 450"));
    EXPECT_TRUE(Finds("ipe450", "IPE 450"));
    EXPECT_TRUE(Finds(" 45  ipe ", "IPE 450"));
    EXPECT_FALSE(Finds("45 hea", "IPE 450"));
    EXPECT_TRUE(Finds("292x176", "UB 838x292x176"));
    EXPECT_FALSE(Finds("46", "IPE 450"));
}

std::vector<std::string> Names(const std::vector<RatedSection>& sections)
{
    std::vector<std::string> names;
    for (const RatedSection& section : sections) {
        names.push_back(section.name);
    }
    return names;
}

TEST(SectionList, SortsAndKeepsWhatHasNoRatioLast)
{
    std::vector<RatedSection> sections{
        {0, "a", 30, 300, Verdict::within, 0.5, "x"},
        {1, "b", 10, 200, Verdict::not_checked, 0, ""},
        {2, "c", 20, 100, Verdict::above, 1.5, "x"},
        {3, "d", 20, 400, Verdict::unstable, 1.1, ""},
    };
    SortSections(sections, SectionOrder::mass, false);
    EXPECT_THAT(Names(sections), ElementsAre("b", "c", "d", "a"));
    SortSections(sections, SectionOrder::height, true);
    EXPECT_THAT(Names(sections), ElementsAre("d", "a", "b", "c"));
    SortSections(sections, SectionOrder::ratio, false);
    EXPECT_THAT(Names(sections), ElementsAre("a", "c", "d", "b"));
    SortSections(sections, SectionOrder::ratio, true);
    EXPECT_THAT(Names(sections), ElementsAre("d", "c", "a", "b"));
    SortSections(sections, SectionOrder::table, false);
    EXPECT_THAT(Names(sections), ElementsAre("a", "b", "c", "d"));
}

TEST(SectionList, SaysInWordsWhatDoesNotPass)
{
    EXPECT_EQ(RatioText({0, "", 0, 0, Verdict::within, 0.634, ""}), "0.63");
    EXPECT_EQ(RatioText({0, "", 0, 0, Verdict::above, 1.236, ""}), "1.24 > limit");
    EXPECT_EQ(RatioText({0, "", 0, 0, Verdict::unstable, 1.2, ""}), "unstable");
    EXPECT_EQ(RatioText({0, "", 0, 0, Verdict::not_checked, 0, ""}), "not checked");
}

TEST(StandardRatings, HaveNoFiguresWithoutMeaning)
{
    RatedSection section;
    section.standard = {true, true, true, 99.994};
    EXPECT_EQ(StandardRatioText(section), "99.99 > limit");
    section.standard.ir = 1.4e9;
    EXPECT_EQ(StandardRatioText(section), "100+ > limit");
}

// The rating of a row is the standard's result of the member with that row.
TEST(StandardRatings, AreTheResultOfTheMemberWithTheRow)
{
    Program program;
    const ProjectState& s = program.state();
    for (RatedSection section : RateSections(Delivered(), s)) {
        ProjectState member = s;
        member.row[static_cast<std::size_t>(TableOf(s))] = section.row;
        const auto result = standard::CalculateStandard(Delivered(), member);
        EXPECT_EQ(StandardRatioText(section), "");
        section.standard = RateByStandard(Delivered(), s, section.row);
        EXPECT_EQ(section.standard.ir, result.ir) << section.name;
        EXPECT_EQ(section.standard.passes(), result.rated && !result.above);
        EXPECT_EQ(StandardRatioText(section).ends_with(" > limit"), result.above);
    }
}

}  // namespace
}  // namespace kestrum
