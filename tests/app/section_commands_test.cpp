#include "app/section_commands.h"

#include "app/member_commands.h"
#include "app/session_fixture.h"
#include "core/project_state.h"
#include "sections/family_table.h"

namespace kestrum {
namespace {

TEST(ChooseFamily, CalculatesEveryFamilyWithItsDefaults)
{
    for (const FamilyTraits& family : Families()) {
        Program program;
        program.edit().nload[1] = family.id == 28 ? 0 : 1;  // a flat bar takes N or My
        EXPECT_TRUE(program.Calculates([&] { ChooseFamily(program.session, family.id); }))
            << family.id;
        EXPECT_EQ(program.state().family, family.id);
        EXPECT_FALSE(program.session.failed()) << family.id;
        EXPECT_GT(program.session.shown().irsection, 0) << family.id;
    }
}

TEST(ChooseFamily, AClosedSectionSwitchesLateralBucklingOffForGood)
{
    Program program;
    ChooseRestraints(program.session, 2);
    ChooseFamily(program.session, 6);
    EXPECT_EQ(program.state().ltb, 0);
    EXPECT_EQ(program.state().restraints, 0);
    ChooseFamily(program.session, 1);
    EXPECT_EQ(program.state().ltb, 0);
    TickLateralBuckling(program.session, true);
    EXPECT_EQ(program.state().ltb, 1);
}

TEST(ChooseRow, CalculatesWithTheRow)
{
    Program program;
    const float before = program.state().h;
    EXPECT_TRUE(program.Calculates([&] { ChooseRow(program.session, Table::hea, 15); }));
    EXPECT_EQ(program.state().row[static_cast<std::size_t>(Table::hea)], 15);
    EXPECT_GT(program.state().h, before);
}

TEST(ChooseSeries, BelongsToTheFamily)
{
    Program program;
    ChooseFamily(program.session, 101);
    EXPECT_TRUE(program.Calculates([&] { ChooseSeries(program.session, 3); }));
    EXPECT_EQ(program.state().series101, 3);
    EXPECT_EQ(program.state().series103, 1);
    ChooseFamily(program.session, 103);
    ChooseSeries(program.session, 2);
    EXPECT_EQ(program.state().series103, 2);
    EXPECT_EQ(program.state().series101, 3);
}

TEST(SectionOptions, StoreAndCalculate)
{
    const std::tuple<SectionOption, int, i16 ProjectState::*> options[] = {
        {SectionOption::rectaxis, 2, &ProjectState::rectaxis},
        {SectionOption::bolts, 2, &ProjectState::lopt},
        {SectionOption::weld, 1, &ProjectState::weldopt},
        {SectionOption::tube, 2, &ProjectState::tubehot},
        {SectionOption::hsqload, 1, &ProjectState::hsqopt},
        {SectionOption::upgrade, 0, &ProjectState::class23},
    };
    Program program;
    for (const auto& [option, value, field] : options) {
        EXPECT_TRUE(program.Calculates([&, option = option, value = value] {
            ChooseSectionOption(program.session, option, value);
        }));
        EXPECT_EQ(program.state().*field, value);
    }
}

TEST(ToggleRectangularAxis, ExchangesHeightAndWidth)
{
    Program program;
    ChooseFamily(program.session, 7);
    const float h = program.state().h, b = program.state().b;
    ASSERT_NE(h, b);
    EXPECT_TRUE(program.Calculates([&] { ToggleRectangularAxis(program.session); }));
    EXPECT_EQ(program.state().rectaxis, 2);
    EXPECT_EQ(program.state().h, b);
    EXPECT_EQ(program.state().b, h);
    ToggleRectangularAxis(program.session);
    EXPECT_EQ(program.state().rectaxis, 1);
    EXPECT_EQ(program.state().h, h);
}

TEST(GeneralProfile, ClassesAndName)
{
    Program program;
    ChooseFamily(program.session, 41);
    EXPECT_TRUE(program.Calculates([&] { ChooseGeneralClass(program.session, Effect::n, 1); }));
    ChooseGeneralClass(program.session, Effect::my, 3);
    ChooseGeneralClass(program.session, Effect::mz, 3);
    EXPECT_EQ(program.state().p41.opn, 1);
    EXPECT_EQ(program.state().p41.opmy, 3);
    EXPECT_EQ(program.state().p41.opmz, 3);
    EXPECT_EQ(program.state().classn, 1);
    EXPECT_EQ(program.state().classmy, 3);
    SetGeneralIdent(program.session, "Crane rail");
    EXPECT_EQ(program.state().p41ident, "Crane rail");
}

TEST(SectionBoxes, EveryChangeOfADimensionReachesTheResult)
{
    Program program;
    ChooseFamily(program.session, 21);
    const float before = program.session.shown().iy;
    program.Type("p21", "isth", "700");
    EXPECT_EQ(program.session.shown().h, 700);
    EXPECT_GT(program.session.shown().iy, before);
}

}  // namespace
}  // namespace kestrum
