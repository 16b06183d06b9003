#include "app/load_commands.h"

#include "app/member_commands.h"
#include "app/session_fixture.h"
#include "core/project_state.h"
#include "sections/families.h"

#include <limits>

namespace kestrum {
namespace {

// Opening puts the kind of load in force

TEST(LoadForms, OpeningSetsTheMode)
{
    Program program;
    EXPECT_TRUE(program.Calculates([&] { OpenEndForces(program.session); }));
    EXPECT_EQ(program.state().loadmode, 0);
    EXPECT_EQ(program.state().ned, 100);
    EXPECT_TRUE(program.Calculates([&] { OpenLoading(program.session); }));
    EXPECT_EQ(program.state().loadmode, 1);
}

TEST(LoadForms, TheMenuEntryOfTheEndForcesAlsoPinsBothEnds)
{
    Program program;
    ChooseSupport(program.session, 4);
    OpenEndForces(program.session);  // from a picture
    EXPECT_EQ(program.state().supportcase, 4);
    EXPECT_TRUE(program.Calculates([&] { OpenEndForcesFromMenu(program.session); }));
    EXPECT_EQ(program.state().supportcase, 0);
    EXPECT_EQ(program.state().loadmode, 0);
}

TEST(LoadForms, LoadsAndEndForcesAreKeptSideBySide)
{
    Program program;
    program.Type("Loading", "iq", "12");
    OpenEndForcesFromMenu(program.session);
    program.Type("endforce", "imy2", "-30");
    OpenLoading(program.session);
    EXPECT_EQ(program.state().qload[1], 12);
    EXPECT_EQ(program.state().my2, -30);
}

TEST(EndForces, AreOfferedAsTheFamilyCarriesThem)
{
    for (const int family : {24, 25, 27, 51, 52, 53, 54, 56}) {
        const Actions& fields = TraitsOf(family).carries.offered;
        EXPECT_FALSE(fields.n) << family;
        EXPECT_TRUE(fields.y);
        EXPECT_FALSE(fields.z);
    }
    const Actions& t = TraitsOf(26).carries.offered;
    EXPECT_TRUE(t.n);
    EXPECT_FALSE(t.y);
    EXPECT_FALSE(t.z);
    for (const int family : {1, 5, 6, 10, 16, 21, 22, 23, 28, 31, 41, 101, 103}) {
        const Actions& fields = TraitsOf(family).carries.offered;
        EXPECT_TRUE(fields.n && fields.y && fields.z) << family;
    }
}

// Buttons of the rows

TEST(RotateCategory, GoesRoundInEveryTable)
{
    struct Row {
        LoadRow kind;
        int last;
        double (*category)(const ProjectState&, std::size_t);
    };
    const Row rows[] = {
        {LoadRow::axial, 3,
         [](const ProjectState& s, std::size_t k) { return double{s.ntype[k]}; }},
        {LoadRow::uniform, 4,
         [](const ProjectState& s, std::size_t k) { return double(s.qtype[k]); }},
        {LoadRow::trapezoid, 3,
         [](const ProjectState& s, std::size_t k) { return double{s.qttype[k]}; }},
        {LoadRow::point, 8,
         [](const ProjectState& s, std::size_t k) { return double(s.pmtype[k]); }},
    };
    Program program;
    for (const Row& row : rows) {
        for (int k = 1; k <= row.last; ++k) {
            for (const double expected : {1, 2, 0}) {
                EXPECT_TRUE(
                    program.Calculates([&] { RotateCategory(program.session, row.kind, k); }));
                EXPECT_EQ(row.category(program.state(), static_cast<std::size_t>(k)), expected);
            }
        }
    }
    EXPECT_EQ(CategoryName(0), "G");
    EXPECT_EQ(CategoryName(1), "Q1");
    EXPECT_EQ(CategoryName(2), "Q2");
}

// A file can hold any number here; none of these can be made a whole number of 0 to 2.
TEST(RotateCategory, StartsAgainFromWhatIsNoCategory)
{
    Program program;
    constexpr float kInfinite = std::numeric_limits<float>::infinity();
    for (const float odd : {1e30F, -1e30F, 0.5F, 3.0F, -1.0F, kInfinite}) {
        EXPECT_EQ(CategoryName(odd), "");
        program.session.edit().ntype[2] = program.session.edit().qttype[3] = odd;
        RotateCategory(program.session, LoadRow::axial, 2);
        RotateCategory(program.session, LoadRow::trapezoid, 3);
        EXPECT_EQ(program.state().ntype[2], 0);
        EXPECT_EQ(program.state().qttype[3], 0);
    }
    for (const i16 odd : {i16{-32768}, i16{32767}, i16{3}, i16{-1}}) {
        program.session.edit().qtype[4] = program.session.edit().pmtype[8] = odd;
        RotateCategory(program.session, LoadRow::uniform, 4);
        RotateCategory(program.session, LoadRow::point, 8);
        EXPECT_EQ(program.state().qtype[4], 0);
        EXPECT_EQ(program.state().pmtype[8], 0);
    }
}

TEST(ToggleDirection, ChangesBetweenZAndY)
{
    Program program;
    for (const LoadRow kind : {LoadRow::uniform, LoadRow::trapezoid, LoadRow::point}) {
        EXPECT_EQ(DirectionText(program.state(), kind, 2), "Z");
        EXPECT_TRUE(program.Calculates([&] { ToggleDirection(program.session, kind, 2); }));
        EXPECT_EQ(DirectionText(program.state(), kind, 2), "Y");
        EXPECT_EQ(DirectionText(program.state(), kind, 1), "Z");
        ToggleDirection(program.session, kind, 2);
        EXPECT_EQ(DirectionText(program.state(), kind, 2), "Z");
    }
    EXPECT_EQ(DirectionText(program.state(), LoadRow::axial, 1), "");
    EXPECT_FALSE(program.Calculates([&] { ToggleDirection(program.session, LoadRow::axial, 1); }));
}

TEST(TogglePointKind, NamesTheDirectionAfterIt)
{
    Program program;
    EXPECT_EQ(PointKindText(program.state(), 8), "P");
    EXPECT_TRUE(program.Calculates([&] { TogglePointKind(program.session, 8); }));
    EXPECT_EQ(program.state().pmkind[8], 1);
    EXPECT_EQ(PointKindText(program.state(), 8), "M");
    EXPECT_EQ(DirectionText(program.state(), LoadRow::point, 8), "My");
    ToggleDirection(program.session, LoadRow::point, 8);
    EXPECT_EQ(DirectionText(program.state(), LoadRow::point, 8), "Mz");
    TogglePointKind(program.session, 8);
    EXPECT_EQ(DirectionText(program.state(), LoadRow::point, 8), "Y");
}

// Ticks and self-weight

TEST(TickRow, StoresTruthAsTheFileDoes)
{
    Program program;
    EXPECT_TRUE(program.Calculates([&] { TickRow(program.session, LoadRow::axial, 2, true); }));
    TickRow(program.session, LoadRow::uniform, 3, true);
    TickRow(program.session, LoadRow::trapezoid, 1, false);
    TickRow(program.session, LoadRow::point, 8, true);
    EXPECT_EQ(program.state().nchecked[2], -1);
    EXPECT_EQ(program.state().qchecked[3], -1);
    EXPECT_EQ(program.state().qtchecked[1], 0);
    EXPECT_EQ(program.state().pmchecked[8], -1);
}

TEST(TickRow, OnlyTickedRowsCountAsBasicLoads)
{
    Program program;
    ChooseLoadCombination(program.session, 5);
    EXPECT_EQ(program.state().ned, 100);
    TickRow(program.session, LoadRow::axial, 1, false);
    EXPECT_EQ(program.state().ned, 0);
}

TEST(RowTicks, AreShownForBasicLoadsOnly)
{
    ProjectState s{};
    for (i16 comb = 0; comb <= 5; ++comb) {
        s.loadcomb = comb;
        EXPECT_EQ(RowTicksShown(s), comb == 5);
    }
}

TEST(TickSelfweight, LoadsTheMember)
{
    Program program;
    const double before = program.state().mymax;
    EXPECT_TRUE(program.Calculates([&] { TickSelfweight(program.session, true); }));
    EXPECT_EQ(program.state().selfweight, 1);
    EXPECT_GT(program.state().mymax, before);
    TickSelfweight(program.session, false);
    EXPECT_EQ(program.state().selfweight, 0);
    EXPECT_EQ(program.state().mymax, before);
}

// Positions

TEST(Positions, AChangeOfTheirDisplayRunsNoPass)
{
    Program program;
    program.edit().l = 6;
    EXPECT_FALSE(program.Calculates([&] { ChoosePointRelative(program.session, true); }));
    EXPECT_FALSE(program.Calculates([&] { ChooseTrapezoidRelative(program.session, true); }));
    EXPECT_EQ(PositionHeading(false), "x(m)");
    EXPECT_EQ(PositionHeading(true), "x/L");
    program.Type("Loading", "ipmx", "0.5", 2);
    EXPECT_EQ(program.state().pmx[2], 3);
    EXPECT_EQ(BoxText(program.state(), *FindBox("Loading", "ipmx"), 2), "0.500");
    ChoosePointRelative(program.session, false);
    EXPECT_EQ(program.state().pmx[2], 3);
    EXPECT_EQ(BoxText(program.state(), *FindBox("Loading", "ipmx"), 2), "3.000");
}

TEST(Positions, BeyondTheEndAreToldByTheirMode)
{
    const std::pair<const char*, const char*> boxes[] = {
        {"ipmx", "x"}, {"iqtx1", "x1"}, {"iqtx2", "x2"}};
    for (const auto& [id, name] : boxes) {
        Program program;
        ChoosePointRelative(program.session, true);
        ChooseTrapezoidRelative(program.session, true);
        EXPECT_FALSE(program.Type("Loading", id, "1.2").taken);
        EXPECT_EQ(program.Told(), Texts{std::string(" 0 < ") + name + " <= 1 "});
        ChoosePointRelative(program.session, false);
        ChooseTrapezoidRelative(program.session, false);
        EXPECT_FALSE(program.Type("Loading", id, "5.001").taken);
        EXPECT_EQ(program.Told(), Texts{std::string(" 0 < ") + name + " <= l "});
        EXPECT_EQ(BoxText(program.state(), *FindBox("Loading", id), 1), "0.000");
    }
}

// Remove

TEST(RemoveChecked, EmptiesTickedRowsAndCalculates)
{
    Program program;
    program.edit().qload[2] = 3;
    EXPECT_TRUE(program.Calculates([&] { RemoveChecked(program.session); }));
    EXPECT_EQ(program.state().nload[1], 0);
    EXPECT_EQ(program.state().qload[1], 0);
    EXPECT_EQ(program.state().qload[2], 3);
    EXPECT_EQ(program.state().nchecked[1], -1);
}

TEST(RemoveChecked, WithoutTicksResetsModesAndSelfweightOnly)
{
    Program program;
    program.edit().nchecked = program.edit().qtchecked = {};
    program.edit().qchecked = {};
    program.edit().pmchecked = {};
    TickSelfweight(program.session, true);
    ChoosePointRelative(program.session, true);
    ChooseTrapezoidRelative(program.session, true);
    ChooseLoadLevel(program.session, 3);
    RemoveChecked(program.session);
    EXPECT_EQ(program.state().nload[1], 100);
    EXPECT_EQ(program.state().qload[1], 10);
    EXPECT_EQ(program.state().selfweight, 0);
    EXPECT_EQ(program.state().pmrelative, 0);
    EXPECT_EQ(program.state().qtrelative, 0);
    EXPECT_EQ(program.state().loadlevel, 1);
}

// Closing

TEST(CloseLoading, SettlesTheRowsAndCalculates)
{
    Program program;
    program.edit().qt1[1] = 4;
    program.edit().qt2[1] = 9;
    program.edit().qtx1[1] = 2;
    program.edit().qtx2[1] = 6;
    program.edit().pm[1] = 10;
    program.edit().pmx[1] = 5;  // on the support
    program.edit().pm[2] = 10;
    program.edit().pmx[2] = 2;
    CloseOutcome outcome;
    EXPECT_TRUE(program.Calculates([&] { outcome = CloseLoading(program.session); }));
    EXPECT_TRUE(outcome.close);
    EXPECT_EQ(program.state().qtx2[1], 5);
    EXPECT_EQ(program.state().qt2[1], 9);
    EXPECT_EQ(program.state().pm[1], 0);
    EXPECT_EQ(program.state().pmx[1], 0);
    EXPECT_EQ(program.state().pm[2], 10);
    EXPECT_TRUE(program.Told().empty());
}

TEST(CloseLoading, AMomentAtTheFirstEndStaysOnAPinOnly)
{
    for (int support = 0; support <= 5; ++support) {
        Program program;
        program.edit().supportcase = static_cast<i16>(support);
        program.edit().pmkind[1] = 1;
        program.edit().pm[1] = 10;
        CloseLoading(program.session);
        const bool kept = support != 2 && support != 4;
        EXPECT_EQ(program.state().pm[1], kept ? 10 : 0) << support;
    }
}

TEST(CloseLoading, RefusesMixedSignsAndNamesTheRow)
{
    for (const float sign : {1.0F, -1.0F}) {
        Program program;
        program.edit().qt1[3] = 5 * sign;
        program.edit().qt2[3] = -5 * sign;
        program.edit().qtx2[3] = 5;
        const CloseOutcome outcome = CloseLoading(program.session);
        EXPECT_FALSE(outcome.close);
        EXPECT_EQ(outcome.box, "iqt1");
        EXPECT_EQ(outcome.row, 3);
        EXPECT_EQ(program.Told(), Texts{" Trapezoidal load: One positive and one negative value "});
    }
}

TEST(CloseLoading, RefusesARowThatRunsBackwards)
{
    Program program;
    program.edit().qt1[2] = 5;
    program.edit().qt2[2] = 5;
    program.edit().qtx1[2] = 3;
    program.edit().qtx2[2] = 3;
    const CloseOutcome outcome = CloseLoading(program.session);
    EXPECT_FALSE(outcome.close);
    EXPECT_EQ(outcome.box, "iqtx1");
    EXPECT_EQ(outcome.row, 2);
    EXPECT_EQ(program.Told(), Texts{" x1 < x2 "});
}

TEST(CloseLoading, ClearsTheEndsOfAnEmptyRow)
{
    Program program;
    program.edit().qtx1[1] = 1;
    program.edit().qtx2[1] = 2;
    program.edit().qt2[2] = 5;
    program.edit().qtx2[2] = 4;
    EXPECT_TRUE(CloseLoading(program.session).close);
    EXPECT_EQ(program.state().qtx1[1], 0);
    EXPECT_EQ(program.state().qtx2[1], 0);
    EXPECT_EQ(program.state().qt2[2], 5);  // one end value alone is a load
}

}  // namespace
}  // namespace kestrum
