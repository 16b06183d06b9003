#include "app/finder.h"

#include "app/section_commands.h"
#include "app/session_fixture.h"
#include "app/view_section.h"

#include <gmock/gmock.h>

namespace kestrum {
namespace {

using ::testing::HasSubstr;

Finding First(const Program& program, std::string_view typed)
{
    const auto findings = FindByWords(program.session, typed);
    EXPECT_FALSE(findings.empty()) << typed;
    return findings.empty() ? Finding{} : findings.front();
}

TEST(Finder, TakesASectionByItsName)
{
    Program program;
    for (const auto& [typed, name] : {std::pair{"ipe 330", "IPE 330"},
                                      {"HEB200", "HEB 200"},
                                      {"uc 203x203x46", "UC 203x203x46"}}) {
        const Finding found = First(program, typed);
        EXPECT_EQ(found.kind, Finding::Kind::section);
        ASSERT_TRUE(Take(program.session, found)) << typed;
        EXPECT_EQ(SectionName(Delivered(), program.state()), name);
    }
    program.session.Undo();
    EXPECT_EQ(SectionName(Delivered(), program.state()), "HEB 200");
}

// The factor is the user's own from then on, as if he had chosen so and typed it.
TEST(Finder, TakesAValueBehindTheWords)
{
    Program program;
    ASSERT_TRUE(Take(program.session, First(program, "k y 0.7")));
    EXPECT_EQ(program.state().ly, 0.7F);
    EXPECT_EQ(program.state().lz, 1);
    ASSERT_TRUE(Take(program.session, First(program, "length 7.5")));
    EXPECT_EQ(program.state().l, 7.5F);
    EXPECT_EQ(program.session.shown().l, 7.5F);
    EXPECT_EQ(program.session.history().UndoText(), "length of the member: 5 to 7.5 m");
    const Finding load = First(program, "line load 12");
    EXPECT_THAT(load.text, HasSubstr("12 kN/m"));
    ASSERT_TRUE(Take(program.session, load));
    EXPECT_EQ(program.state().qload[1], 12);
}

TEST(Finder, ReadsTheDecimalCommaAndShowsIt)
{
    Program program(true);
    const Finding found = First(program, "length 7,5");
    EXPECT_THAT(found.text, HasSubstr("5,000 to 7,5 m"));
    ASSERT_TRUE(Take(program.session, found));
    EXPECT_EQ(program.state().l, 7.5F);
}

TEST(Finder, RefusesWhatTheBoxRefuses)
{
    Program program;
    const ProjectState before = program.state();
    EXPECT_FALSE(Take(program.session, First(program, "length of the member 0.01")));
    ASSERT_EQ(program.Told().size(), 1U);
    EXPECT_TRUE(program.state() == before);
}

TEST(Finder, LeadsToABox)
{
    Program program;
    const Finding found = First(program, "wind veloc");
    EXPECT_EQ(found.kind, Finding::Kind::box);
    ASSERT_NE(found.box, nullptr);
    EXPECT_EQ(found.box->id, "ivb");
    EXPECT_FALSE(Take(program.session, found));
}

// Dimensions are those of the section in hand.
TEST(Finder, LeavesOtherFamiliesOut)
{
    Program program;
    ChooseFamily(program.session, 21);
    for (const Finding& found : FindByWords(program.session, "thickness")) {
        EXPECT_EQ(found.box->form, "p21") << found.text;
    }
    EXPECT_FALSE(FindByWords(program.session, "thickness").empty());
}

TEST(Finder, FindsNothingByNothing)
{
    Program program;
    EXPECT_TRUE(FindByWords(program.session, "").empty());
    EXPECT_TRUE(FindByWords(program.session, "   ").empty());
    EXPECT_TRUE(FindByWords(program.session, "xyzzy").empty());
    EXPECT_TRUE(FindByWords(program.session, "xyzzy 3").empty());
}

TEST(Finder, MatchesPartsOfWords)
{
    EXPECT_TRUE(HasWords("Buckling length Y-axis", "buck y"));
    EXPECT_FALSE(HasWords("Buckling length Y-axis", "buck x 3"));
}

}  // namespace
}  // namespace kestrum
