#include "app/session_fixture.h"

#include "app/box_cases.h"
#include "app/load_commands.h"
#include "app/member_commands.h"
#include "app/section_commands.h"
#include "core/material.h"
#include "core/project_state.h"
#include "design/hat_beam_section.h"
#include "report/panel.h"

#include <algorithm>
#include <cmath>
#include <filesystem>

namespace kestrum {
namespace {

TEST(Session, StartsWithTheDefaults)
{
    Program program;
    const ProjectState& s = program.state();
    EXPECT_EQ(s.family, 1);
    EXPECT_EQ(s.row[static_cast<std::size_t>(Table::hea)], 10);
    EXPECT_EQ(s.l, 5);
    EXPECT_EQ(s.nload[1], 100);
    EXPECT_EQ(s.qload[1], 10);
    EXPECT_EQ(program.session.title(), "Kestrum EC3: New File");
    EXPECT_EQ(program.session.curdir, std::filesystem::current_path().string());
    EXPECT_FALSE(program.session.failed());
    EXPECT_FALSE(ShowResults(program.session.shown()).empty());
    EXPECT_TRUE(program.Told().empty());
}

// A list that a refresh sets raises the event of a choice in some toolkits.
TEST(Session, ARefreshThatRaisesEventsRunsOnePassOnly)
{
    Program program;
    int refreshes = 0;
    bool again = false;
    program.session.changed = [&] {
        ++refreshes;
        again = program.Calculates([&] { ChooseLoadCombination(program.session, 4); });
    };
    program.session.Calculate();
    EXPECT_EQ(refreshes, 1);
    EXPECT_FALSE(again);
}

TEST(Session, AFailedPassKeepsTheLastResultUntilTheNextGoodOne)
{
    Program program;
    const PanelBlock before = ShowResults(program.session.shown()).front();
    const auto diagram = program.session.shown().mydiag;
    program.Type("Loading", "inn", "100000");  // far above every critical force
    EXPECT_TRUE(program.session.failed());
    EXPECT_EQ(program.state().nload[1], 100000);
    const PanelBlock after = ShowResults(program.session.shown()).front();
    ASSERT_EQ(after.size(), before.size());
    EXPECT_EQ(after[0].left, before[0].left);
    EXPECT_EQ(program.session.shown().mydiag, diagram);
    EXPECT_EQ(program.session.shown().nload[1], 100);
    EXPECT_TRUE(program.Told().empty());  // a label tells it, no message box

    program.Type("Loading", "inn", "50");
    EXPECT_FALSE(program.session.failed());
    EXPECT_EQ(program.session.shown().nload[1], 50);
}

TEST(Session, TheOtherMethodCalculatesTheSameColumn)
{
    Program program;
    program.edit().method = 2;
    program.Type("Loading", "inn", "100000");
    EXPECT_FALSE(program.session.failed());
    EXPECT_EQ(program.session.shown().nload[1], 100000);
}

TEST(Session, ANumberWithoutSectionFailsSilently)
{
    Program program;
    ChooseFamily(program.session, 55);
    EXPECT_FALSE(program.session.failed());
    EXPECT_TRUE(program.Told().empty());
}

TEST(Session, TellsEveryPassThatRemovesTheFlangeLoading)
{
    Program program;
    ChooseFamily(program.session, 25);
    program.edit().loadcomb = 5;
    program.Type("Loading", "iq", "5000");
    EXPECT_EQ(program.Told(), Texts{std::string(kFlangeOverload)});
    EXPECT_EQ(program.state().hsqopt, 1);
    program.session.Calculate();
    EXPECT_TRUE(program.Told().empty());
    ChooseSectionOption(program.session, SectionOption::hsqload, 0);  // the user tries again
    EXPECT_EQ(program.Told(), Texts{std::string(kFlangeOverload)});
    EXPECT_EQ(program.state().hsqopt, 1);
}

// Every box through the session

std::string InConvention(std::string text, bool comma)
{
    if (comma) {
        std::replace(text.begin(), text.end(), '.', ',');
    }
    return text;
}

double Stored(const Program& program, const Box& box)
{
    const Field& field = *FindField(box.field);
    ProjectState s = program.state();
    return NumberOf(s, field, field.shape == FieldShape::array ? 1 : 0);
}

// The number in a test text, in the precision of the field.
double Typed(std::string text, const Box& box)
{
    std::replace(text.begin(), text.end(), ',', '.');
    const float value = text.empty() ? 0.0F : std::stof(text);
    return FindField(box.field)->kind == FieldKind::integer ? std::nearbyint(value) : value;
}

void Prepare(Program& program, const Box& box)
{
    if (box.field == "fyk") {
        ChooseMaterial(program.session, LastMaterial(Delivered()));
    }
}

class SessionBoxes : public testing::TestWithParam<bool> {};

TEST_P(SessionBoxes, TakeWhatIsWithinTheLimits)
{
    for (const BoxCase& c : BoxCases()) {
        const Box& box = *FindBox(c.form, c.id);
        for (const char* text : c.good) {
            SCOPED_TRACE(std::string(c.form) + "." + c.id + " " + text);
            Program program(GetParam());
            Prepare(program, box);
            BoxOutcome outcome;
            EXPECT_TRUE(program.Calculates(
                [&] { outcome = program.Type(c.form, c.id, InConvention(text, GetParam())); }));
            EXPECT_TRUE(outcome.taken);
            EXPECT_EQ(program.Told(), Texts{});
            EXPECT_FLOAT_EQ(static_cast<float>(Stored(program, box)),
                            static_cast<float>(Typed(text, box)));
        }
    }
}

TEST_P(SessionBoxes, RefuseWhatIsBeyondThem)
{
    for (const BoxCase& c : BoxCases()) {
        const Box& box = *FindBox(c.form, c.id);
        for (const char* text : c.bad) {
            SCOPED_TRACE(std::string(c.form) + "." + c.id + " '" + text + "'");
            Program program(GetParam());
            Prepare(program, box);
            BoxOutcome outcome;
            EXPECT_FALSE(program.Calculates(
                [&] { outcome = program.Type(c.form, c.id, InConvention(text, GetParam())); }));
            EXPECT_FALSE(outcome.taken);
            EXPECT_EQ(program.Told(), Texts{c.message});
            const double kept = box.rule == BoxRule::position ? 0 : Typed(text, box);
            EXPECT_FLOAT_EQ(static_cast<float>(Stored(program, box)), static_cast<float>(kept));
        }
    }
}

TEST_P(SessionBoxes, TakeAnyNumberWhereThereIsNoLimit)
{
    for (const Box* const box : FreeBoxes()) {
        for (const char* text : {"-12.5", "0", "", "12.5"}) {
            SCOPED_TRACE(std::string(box->id) + " '" + text + "'");
            Program program(GetParam());
            const int row = FindField(box->field)->shape == FieldShape::array ? 1 : 0;
            EXPECT_TRUE(program.Calculates(
                [&] { program.session.CommitBox(*box, row, InConvention(text, GetParam())); }));
            EXPECT_EQ(program.Told(), Texts{});
            EXPECT_EQ(Stored(program, *box), Typed(text, *box));
        }
    }
}

INSTANTIATE_TEST_SUITE_P(PointAndComma, SessionBoxes, testing::Bool());

TEST(SessionBoxes, ATextThatIsNoNumberIsToldUnderACommaLocale)
{
    for (const Box& box : InputBoxes()) {
        SCOPED_TRACE(std::string(box.form) + "." + std::string(box.id));
        Program program(true);
        const double before = Stored(program, box);
        const int row = FindField(box.field)->shape == FieldShape::array ? 1 : 0;
        for (const char* text : {"abc", "1x", "1,2,3", "--1"}) {
            BoxOutcome outcome;
            EXPECT_FALSE(
                program.Calculates([&] { outcome = program.session.CommitBox(box, row, text); }));
            EXPECT_FALSE(outcome.taken);
            EXPECT_EQ(program.Told(), Texts{"Input string mismatch "});
            EXPECT_EQ(Stored(program, box), before);
        }
    }
}

TEST(SessionBoxes, ATextThatIsNoNumberReadsAsZeroUnderAPointLocale)
{
    Program program;
    EXPECT_FALSE(program.Type("kestrum", "il", "abc").taken);
    EXPECT_EQ(program.Told(), Texts{" L >= 0.050 "});
    EXPECT_EQ(program.state().l, 0);
    EXPECT_TRUE(program.Type("Loading", "iq", "abc").taken);
    EXPECT_EQ(program.state().qload[1], 0);
}

TEST(SessionBoxes, BothSeparatorsAreReadInBothConventions)
{
    for (const bool comma : {false, true}) {
        Program program(comma);
        EXPECT_TRUE(program.Type("kestrum", "il", "0,05").taken);
        EXPECT_EQ(program.state().l, 0.05F);
        EXPECT_TRUE(program.Type("kestrum", "il", "1.5").taken);
        EXPECT_EQ(program.state().l, 1.5F);
        EXPECT_TRUE(program.Told().empty());
    }
}

TEST(SessionBoxes, TheTypedStrengthIsShownWithThreeDigits)
{
    Program program;
    ChooseMaterial(program.session, 26);
    const Box& box = *FindBox("kestrum", "ifyk");
    EXPECT_TRUE(program.Type("kestrum", "ifyk", "50").taken);
    EXPECT_EQ(BoxText(program.state(), box, 0), "050");
    EXPECT_FALSE(program.Type("kestrum", "ifyk", "5").taken);
    EXPECT_EQ(BoxText(program.state(), box, 0), "05");
}

TEST(SessionBoxes, AWholeNumberOutOfRangeIsAMismatch)
{
    Program program;
    EXPECT_FALSE(program.Type("kestrum", "ispring", "40000").taken);
    EXPECT_EQ(program.Told(), Texts{"Input string mismatch "});
    EXPECT_EQ(program.state().spring, 50);
}

TEST(SessionBoxes, ANarrowBoxGirderMovesItsOverhangAndCalculates)
{
    Program program;
    ChooseFamily(program.session, 27);
    EXPECT_TRUE(program.Calculates([&] { program.Type("p27", "istb1", "60"); }));
    EXPECT_EQ(program.Told(), Texts{" c adjusted "});
    EXPECT_EQ(program.state().p27.istc, 20);  // 60/2 - 10
}

TEST(SessionBoxes, AWiderOverhangOfTheHatBeamIsNotHeldAgainstItsTopFlange)
{
    Program program;
    ChooseFamily(program.session, 25);
    program.Type("p25", "istc", "140");  // 300/2 is the limit; 300 is no longer below 430 - 140
    EXPECT_TRUE(program.Told().empty());
    program.Type("p25", "istb1", "300");
    EXPECT_EQ(program.Told(), Texts{" 5 < b1 < (b2-c) "});
}

// Loads that no longer fit the member

TEST(SessionBoxes, AShorterMemberCutsItsLoads)
{
    Program program;
    program.edit().qt1[1] = 4;
    program.edit().qt2[1] = 8;
    program.edit().qtx1[1] = 1;
    program.edit().qtx2[1] = 4;
    program.edit().pm[1] = 10;
    program.edit().pmx[1] = 4;
    program.edit().cp[3] = 4.5F;
    program.Type("kestrum", "il", "3");
    EXPECT_EQ(program.state().qtx2[1], 3);
    EXPECT_EQ(program.state().qt2[1], 8);  // the end value stays as entered
    EXPECT_EQ(program.state().pm[1], 0);
    EXPECT_EQ(program.state().pmx[1], 0);
    EXPECT_EQ(program.state().cp[3], 3);
    EXPECT_EQ(program.state().webstiffa, 1500);  // half the length, no stiffeners
    EXPECT_EQ(program.state().webstiff, 0);
    EXPECT_TRUE(program.Told().empty());
}

TEST(SessionBoxes, LengthAndBucklingFactorsTellOfMixedSignsAndCalculate)
{
    for (const auto& [id, text] :
         {std::pair("il", "5"), std::pair("ibly", "1"), std::pair("iblz", "1")}) {
        Program program;
        program.edit().qt1[2] = 5;
        program.edit().qt2[2] = -5;
        program.edit().qtx2[2] = 4;
        EXPECT_TRUE(program.Calculates([&, id = id, text = text] {
            program.Type("kestrum", id, text);
        })) << id;
        EXPECT_EQ(program.Told(), Texts{" Trapezoidal load: One positive and one negative value "});
    }
}

TEST(SessionBoxes, ATrapezoidalRowCanBeTypedInAnyOrder)
{
    const std::pair<const char*, const char*> boxes[] = {
        {"iqt1", "4"}, {"iqt2", "8"}, {"iqtx1", "1"}, {"iqtx2", "3"}};
    std::array<int, 4> order{0, 1, 2, 3};
    do {
        Program program;
        for (const int i : order) {
            program.Type("Loading", boxes[i].first, boxes[i].second, 2);
            EXPECT_FALSE(program.session.failed());
        }
        EXPECT_EQ(program.state().qt1[2], 4);
        EXPECT_EQ(program.state().qt2[2], 8);
        EXPECT_EQ(program.state().qtx1[2], 1);
        EXPECT_EQ(program.state().qtx2[2], 3);
        EXPECT_TRUE(program.Told().empty());
    } while (std::next_permutation(order.begin(), order.end()));
}

TEST(SessionBoxes, AFinishedTrapezoidalRowOfMixedSignsIsTold)
{
    Program program;
    program.Type("Loading", "iqt1", "5");
    program.Type("Loading", "iqtx2", "4");
    EXPECT_TRUE(program.Told().empty());
    std::string focus;
    program.session.showrow = [&](std::string_view box, int row) {
        focus = std::string(box) + std::to_string(row);
    };
    program.Type("Loading", "iqt2", "-5");
    EXPECT_EQ(program.Told(), Texts{" Trapezoidal load: One positive and one negative value "});
    EXPECT_EQ(focus, "iqt11");  // the box of the first row
    focus.clear();
    program.Type("kestrum", "il", "6");
    EXPECT_EQ(focus, "iqt11");
    focus.clear();
    ChooseSupport(program.session, 1);
    EXPECT_EQ(focus, "iqt11");
}

// Vortex shedding

TEST(SessionBoxes, WindAndHeightRefreshTheVortexValues)
{
    Program program;
    ChooseFamily(program.session, 31);
    ASSERT_TRUE(OpenVortex(program.session));
    const double vm = program.state().vm, vcrit = program.state().vcrit;
    ASSERT_GT(vm, 0);
    EXPECT_TRUE(program.Calculates([&] { program.Type("frmVortex", "ivb", "50"); }));
    EXPECT_NEAR(program.state().vm, 2 * vm, 1e-5 * vm);  // proportional to the basic velocity
    EXPECT_EQ(program.state().vcrit, vcrit);
    program.Type("frmVortex", "iz", "100");
    EXPECT_GT(program.state().vm, 2 * vm);
}

TEST(SessionBoxes, AModalAnalysisDoesNotMixWithTheVortexFrequency)
{
    Program program;
    ChooseFamily(program.session, 31);
    TickModal(program.session, true);
    ASSERT_TRUE(OpenVortex(program.session));
    const float frequency = program.state().freq[1];
    program.Type("frmVortex", "ivb", "30");
    EXPECT_EQ(program.state().freq[1], frequency);
}

}  // namespace
}  // namespace kestrum
