#include "app/lightest.h"

#include "app/member_commands.h"
#include "app/section_commands.h"
#include "app/section_list.h"
#include "app/session_fixture.h"
#include "engine/calculate.h"
#include "sections/family_table.h"

#include <gmock/gmock.h>

#include <cmath>

namespace kestrum {
namespace {

using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::StartsWith;

const auto kNever = [] { return false; };

bool ChooseLightest(Session& session, LightestWish wish)
{
    LightestSearch search(session, std::move(wish));
    search.Run(kNever);
    return search.Take(session);
}

// No lighter row of any of the families passes, and the one that is taken does.
TEST(Lightest, TakesTheLightestThatPasses)
{
    Program program;
    program.Type("Loading", "iq", "25");
    const SectionGroup group{"I and H", {1, 2, 3, 4}};
    ASSERT_TRUE(ChooseLightest(program.session, {group}));
    EXPECT_EQ(program.session.outcome().verdict, Verdict::within);
    const double taken = program.state().weight;
    int lighter = 0;
    for (const int family : group.families) {
        ProjectState member = program.state();
        member.family = static_cast<i16>(family);
        for (const RatedSection& section : RateSections(Delivered(), member)) {
            lighter += section.mass < taken ? 1 : 0;
            EXPECT_FALSE(section.passes() && section.mass < taken) << section.name;
        }
    }
    EXPECT_GT(lighter, 5);
    program.session.Undo();
    EXPECT_EQ(program.state().family, 1);
}

// More load never asks for less steel.
TEST(Lightest, GrowsWithTheLoad)
{
    Program program;
    double before = 0;
    for (const char* const load : {"1", "5", "20", "60", "150"}) {
        program.Type("Loading", "iq", load);
        ASSERT_TRUE(ChooseLightest(program.session, {{"IPE", {4}}})) << load;
        EXPECT_GE(program.state().weight, before) << load;
        before = program.state().weight;
    }
}

TEST(Lightest, SaysThatNoSectionPassesAndWhatComesNearest)
{
    Program program;
    program.Type("Loading", "iq", "90000");
    const ProjectState before = program.state();
    EXPECT_FALSE(ChooseLightest(program.session, {SectionGroups(program.state()).front()}));
    EXPECT_THAT(program.Told(), ElementsAre(AllOf(StartsWith("HEA: no section passes; HEA "),
                                                  HasSubstr(" comes nearest: ratio "))));
    EXPECT_TRUE(program.state() == before);
}

// A hollow section in between switches the control off; an I section is not chosen without it.
TEST(Lightest, ControlsLateralTorsionalBucklingOfWhatNeedsIt)
{
    Program program;
    program.Type("kestrum", "il", "9");
    program.Type("Loading", "iq", "12");
    ASSERT_TRUE(ChooseLightest(program.session, {{"IPE", {4}}}));
    const i16 with = program.state().row[static_cast<std::size_t>(Table::ipe)];
    ChooseFamily(program.session, 6);
    ASSERT_EQ(program.state().ltb, 0);
    ASSERT_TRUE(ChooseLightest(program.session, {{"IPE", {4}}}));
    EXPECT_EQ(program.state().ltb, 1);
    EXPECT_EQ(program.state().row[static_cast<std::size_t>(Table::ipe)], with);
    TickLateralBuckling(program.session, false);  // the user's own choice holds
    ASSERT_TRUE(ChooseLightest(program.session, {{"IPE", {4}}}));
    EXPECT_EQ(program.state().ltb, 0);
}

// A T carries axial loads only; the section that is found carries the load that was emptied.
TEST(Lightest, BringsBackTheLoadsThatTheSectionInHandDoesNotTake)
{
    Program program;
    program.Type("Loading", "iq", "25");
    ChooseFamily(program.session, 26);
    ASSERT_EQ(program.state().qload[1], 0);
    ASSERT_TRUE(ChooseLightest(program.session, {{"IPE", {4}}}));
    EXPECT_EQ(program.state().qload[1], 25);
    EXPECT_EQ(program.session.outcome().verdict, Verdict::within);
    EXPECT_TRUE(program.session.outcome().dropped.empty());
}

TEST(Lightest, OffersTheFamilyInHandThenItsKind)
{
    Program program;
    auto groups = SectionGroups(program.state());
    ASSERT_GE(groups.size(), 3U);
    EXPECT_EQ(groups[0].name, "HEA");
    EXPECT_EQ(groups[1].name, "I and H sections");
    EXPECT_THAT(groups[1].families, ::testing::IsSupersetOf({1, 2, 3, 4}));
    ChooseFamily(program.session, 21);
    EXPECT_TRUE(SectionGroups(program.state()).empty());
}

// What passes by both is no lighter than what passes by the program alone.
TEST(Lightest, ByBothIsNeverLighter)
{
    Program program;
    for (const float load : {5.0F, 20.0F, 60.0F}) {
        program.session.edit().qload[1] = load;
        program.session.edit().restraints = 2;
        program.session.Calculate();
        const SectionGroup group{"I and channels", {1, 4, 5}};
        ASSERT_TRUE(ChooseLightest(program.session, {group}));
        const float one = program.state().weight;
        ASSERT_TRUE(ChooseLightest(program.session, {group, {}, true}));
        EXPECT_GE(program.state().weight, one);
        const i16 row = program.state().row[static_cast<std::size_t>(TableOf(program.state()))];
        EXPECT_TRUE(RateByStandard(Delivered(), program.state(), row).passes());
    }
}

const Box* BoxOfPlates(const char* id)
{
    return FindBox("p21", id);
}

// The grid gone through by hand: what is taken passes, and nothing lighter does.
TEST(Lightest, TriesTheSizesOfPlates)
{
    Program program;
    program.Type("Loading", "iq", "40");
    ChooseFamily(program.session, 21);
    LightestWish wish{{"I", {21}}};
    wish.sizes = {{BoxOfPlates("isth"), "250:450:100"},
                  {BoxOfPlates("istb1"), "150,200"},
                  {BoxOfPlates("isttw"), ""},
                  {BoxOfPlates("isttf"), "plates:8:15"}};
    double lightest = INFINITY;
    int failing = 0;
    const float tw = program.state().p21.isttw;
    for (const float h : {250.0F, 350.0F, 450.0F}) {
        for (const float b : {150.0F, 200.0F}) {
            for (const float t : {8.0F, 10.0F, 12.0F, 15.0F}) {  // EN 10058
                ProjectState s = program.state();
                s.p21.isth = h;
                s.p21.istb1 = b;
                s.p21.isttf = t;
                const bool well = Calculate(Delivered(), s);
                const bool passes = OutcomeOf(s, well).verdict == Verdict::within;
                lightest = passes ? std::min<double>(lightest, s.weight) : lightest;
                failing += passes ? 0 : 1;
            }
        }
    }
    ASSERT_GT(failing, 2);
    ASSERT_TRUE(ChooseLightest(program.session, wish));
    EXPECT_EQ(program.state().weight, lightest);
    EXPECT_EQ(program.state().p21.isttw, tw);
    EXPECT_EQ(program.session.outcome().verdict, Verdict::within);
}

TEST(Lightest, RefusesSizesByTheNameOfTheirBox)
{
    Program program;
    ChooseFamily(program.session, 21);
    EXPECT_FALSE(ChooseLightest(program.session, {{"I", {21}}, {{BoxOfPlates("isth"), "many"}}}));
    EXPECT_THAT(program.Told(), ElementsAre(StartsWith("I: h=many: expected FROM:TO:STEP")));
}

// What is proposed is a grid that the search takes.
TEST(Lightest, ProposesSizesForEveryFamilyOfPlates)
{
    int families = 0;
    for (const int family : FamilyNumbers()) {
        const std::vector<TriedSizes> sizes = ProposedSizes(family);
        if (sizes.empty()) {
            continue;
        }
        SCOPED_TRACE(family);
        ++families;
        Program program;
        ChooseFamily(program.session, family);
        LightestSearch search(program.session, {{"plates", {family}}, sizes});
        search.Run([] { return true; });
        EXPECT_FALSE(search.Take(program.session));
        EXPECT_THAT(program.Told(), ElementsAre("plates: the search was stopped"));
    }
    EXPECT_GE(families, 9);
}

TEST(Lightest, TellsWhyTheNextLighterFailsAndWhenTheAnswerIsOld)
{
    Program program;
    program.Type("Loading", "iq", "25");
    LightestSearch search(program.session, {{"IPE", {4}}});
    search.Run(kNever);
    ASSERT_TRUE(search.Take(program.session));
    EXPECT_THAT(search.Text(), AllOf(StartsWith("IPE "), HasSubstr(" kg/m, fails: ratio 1.")));
    EXPECT_TRUE(search.Concerns(program.session));
    program.Type("Loading", "iq", "26");
    EXPECT_FALSE(search.Concerns(program.session));
}

}  // namespace
}  // namespace kestrum
