#include "analysis/load_model.h"

#include "core/project_state.h"
#include "member.h"

#include <gtest/gtest.h>

#include <cmath>
#include <utility>

namespace kestrum::test {
namespace {

constexpr float kLength = 5;

TEST(ValidateLoads, AnEmptyTableIsInOrder)
{
    Member s = Beam(0, kLength);
    const ProjectState before = s;
    EXPECT_EQ(ValidateLoads(s, s, s, s.dropped), LoadCheck{});
    EXPECT_EQ(s, before);
}

struct PointCase {
    bool moment;
    int supportcase;
    bool atstart, inside, atend, beyond;  // whether a load there stays
};

const PointCase kPointCases[] = {
    {false, 0, false, true, false, false}, {false, 1, false, true, false, false},
    {false, 2, false, true, false, false}, {false, 3, false, true, false, false},
    {false, 4, false, true, true, false},  {false, 5, false, true, false, false},
    {true, 0, true, true, true, false},    {true, 1, true, true, false, false},
    {true, 2, false, true, false, false},  {true, 3, true, true, true, false},
    {true, 4, false, true, true, false},   {true, 5, true, true, false, false},
};

TEST(ValidateLoads, AForceNeverStandsOnASupportAMomentOnAPinnedEndOnly)
{
    for (const PointCase& c : kPointCases) {
        const std::pair<float, bool> positions[] = {
            {0.0F, c.atstart}, {2.0F, c.inside}, {5.0F, c.atend}, {5.1F, c.beyond}};
        for (const auto& [a, stays] : positions) {
            SCOPED_TRACE(testing::Message() << "support case " << c.supportcase << ", moment "
                                            << c.moment << ", at " << a);
            Member s = Beam(c.supportcase, kLength);
            s.pmkind[8] = c.moment;
            s.pm[8] = 10;
            s.pmx[8] = a;
            EXPECT_TRUE(ValidateLoads(s, s, s, s.dropped).ok);  // without a message
            EXPECT_EQ(s.pm[8], stays ? 10 : 0);
            EXPECT_EQ(s.pmx[8], stays ? a : 0);
        }
    }
}

TEST(ValidateLoads, APositionWithoutALoadIsForgotten)
{
    Member s = Beam(0, kLength);
    s.pmx[3] = 2;
    ValidateLoads(s, s, s, s.dropped);
    EXPECT_EQ(s.pmx[3], 0);
}

struct TrapezoidCase {
    const char* name;
    float q1, q2, x1, x2;
    float r1, r2, rx1, rx2;  // afterwards
    const char* message;
};

const TrapezoidCase kTrapezoids[] = {
    {"inside", 3, 4, 1, 2, 3, 4, 1, 2, ""},
    {"cut to the member with its end value", 3, 4, 2, 6, 3, 4, 2, 5, ""},
    {"from nothing", 0, 5, 1, 3, 0, 5, 1, 3, ""},
    {"to nothing", 5, 0, 1, 3, 5, 0, 1, 3, ""},
    {"from nothing, cut", 0, 5, 2, 6, 0, 5, 2, 5, ""},
    {"to nothing, cut", 5, 0, 2, 6, 5, 0, 2, 5, ""},
    {"from nothing, beyond the member", 0, 5, 6, 7, 0, 0, 0, 0, ""},
    {"empty", 0, 0, 1, 3, 0, 0, 0, 0, ""},
    {"without a position", 3, 4, 0, 0, 0, 0, 0, 0, ""},
    {"beyond the member", 3, 4, 6, 7, 0, 0, 0, 0, ""},
    {"at the end of the member", 3, 4, 5, 5, 0, 0, 0, 0, ""},
    {"both negative", -3, -4, 1, 2, -3, -4, 1, 2, ""},
    {"to the whole length", 3, 4, 0, 5, 3, 4, 0, 5, ""},
    {"plus to minus", 5, -5, 1, 3, 5, -5, 1, 3,
     " Trapezoidal load: One positive and one negative value "},
    {"minus to plus", -5, 5, 1, 3, -5, 5, 1, 3,
     " Trapezoidal load: One positive and one negative value "},
    {"backwards", 3, 4, 2, 1, 3, 4, 2, 1, " x1 < x2 "},
    {"rising backwards", 0, 4, 2, 1, 0, 4, 2, 1, " x1 < x2 "},
    {"falling backwards", 4, 0, 2, 1, 4, 0, 2, 1, " x1 < x2 "},
    {"of no length", 3, 4, 2, 2, 3, 4, 2, 2, " x1 < x2 "},
    {"backwards from beyond", 3, 4, 6, 2, 3, 4, 5, 2, " x1 < x2 "},
};

TEST(ValidateLoads, TrapezoidsAreCutEmptiedOrRefused)
{
    for (const TrapezoidCase& c : kTrapezoids) {
        for (const std::size_t row : {1U, 2U, 3U}) {
            SCOPED_TRACE(testing::Message() << c.name << ", row " << row);
            Member s = Beam(0, kLength);
            AddTrapezoid(s, row, c.q1, c.q2, c.x1, c.x2);
            const LoadCheck check = ValidateLoads(s, s, s, s.dropped);
            EXPECT_EQ(check.message.text(), c.message);
            EXPECT_EQ(check.ok, check.message.empty());
            if (!check.ok) {
                EXPECT_EQ(check.row, static_cast<int>(row));
                const bool order = check.message.text() == " x1 < x2 ";
                EXPECT_EQ(check.box.text(), order ? "iqtx1" : "iqt1");
            }
            EXPECT_EQ(s.qt1[row], c.r1);
            EXPECT_EQ(s.qt2[row], c.r2);
            EXPECT_EQ(s.qtx1[row], c.rx1);
            EXPECT_EQ(s.qtx2[row], c.rx2);
        }
    }
}

TEST(CheckLoadPositions, ATriangleOfEitherSignHasOneSign)
{
    for (const auto& [q1, q2] :
         {std::pair{0.0f, -5.0f}, {-5.0f, 0.0f}, {0.0f, 5.0f}, {5.0f, 0.0f}}) {
        ProjectState s{};
        s.l = 6;
        s.qt1[1] = q1;
        s.qt2[1] = q2;
        s.qtx2[1] = 6;
        EXPECT_TRUE(CheckLoadPositions(s, s, s.dropped).ok) << q1 << " to " << q2;
    }
}

TEST(ValidateLoads, TheFirstFaultIsNamedAndSignsComeBeforeOrder)
{
    Member s = Beam(0, kLength);
    AddTrapezoid(s, 1, 3, 4, 2, 1);
    AddTrapezoid(s, 2, -3, 4, 1, 2);
    AddTrapezoid(s, 3, 3, -4, 1, 2);
    EXPECT_EQ(ValidateLoads(s, s, s, s.dropped).row, 2);
    s.qt1[2] = s.qt1[3] = 0;
    s.qt2[3] = 0;
    EXPECT_EQ(ValidateLoads(s, s, s, s.dropped).row, 1);
}

TEST(ValidateLoads, AFaultLeavesNoOtherRowUnsettled)
{
    Member s = Beam(0, kLength);
    AddTrapezoid(s, 1, 3, -4, 1, 2);
    AddForce(s, 1, 10, 5);
    s.cp[2] = 9;
    s.webstiffa = 6000;
    EXPECT_FALSE(ValidateLoads(s, s, s, s.dropped).ok);
    EXPECT_EQ(s.pm[1], 0);
    EXPECT_EQ(s.cp[2], 5);
    EXPECT_EQ(s.webstiffa, 2500);
}

TEST(ValidateLoads, CheckPointsAreCutToTheMember)
{
    Member s = Beam(0, kLength);
    s.cp = {0, 1, 5, 5.5F};
    ValidateLoads(s, s, s, s.dropped);
    EXPECT_EQ(s.cp, (Rows<float, 3>{0, 1, 5, 5}));
}

TEST(ValidateLoads, StiffenersFartherApartThanTheMemberIsLongGoAway)
{
    Member s = Beam(0, kLength);
    s.webstiff = 1;
    s.webstiffa = 5000;  // exactly the length
    ValidateLoads(s, s, s, s.dropped);
    EXPECT_EQ(s.webstiff, 1);
    EXPECT_EQ(s.webstiffa, 5000);
    s.l = 4;
    ValidateLoads(s, s, s, s.dropped);
    EXPECT_EQ(s.webstiff, 0);
    EXPECT_EQ(s.webstiffa, 2000);
    s.l = 1;  // also without stiffeners
    ValidateLoads(s, s, s, s.dropped);
    EXPECT_EQ(s.webstiffa, 500);
}

TEST(ValidateLoads, StiffenersAsFarApartAsTheMemberIsLongStayAtAnyLength)
{
    for (const float l : {4.1F, 4.3F, 7.7F, 12.3F}) {  // above or below the decimal as floats
        SCOPED_TRACE(l);
        Member s = Beam(0, l);
        s.webstiff = 1;
        s.webstiffa = std::round(1000 * l);  // as typed, mm
        ValidateLoads(s, s, s, s.dropped);
        EXPECT_EQ(s.webstiff, 1);
        EXPECT_EQ(s.webstiffa, std::round(1000 * l));
    }
}

TEST(CheckLoadPositions, SettlesTrapezoidsOnly)
{
    Member s = Beam(0, kLength);
    AddTrapezoid(s, 1, 3, 4, 2, 6);
    AddTrapezoid(s, 2, 3, 4, 2, 1);
    AddForce(s, 1, 10, 5);
    s.cp[1] = 9;
    s.webstiffa = 9000;
    EXPECT_TRUE(CheckLoadPositions(s, s, s.dropped).ok);
    EXPECT_EQ(s.qtx2[1], 5);
    EXPECT_EQ(s.pm[1], 10);
    EXPECT_EQ(s.cp[1], 9);
    EXPECT_EQ(s.webstiffa, 9000);
    s.qt1[3] = -1;
    s.qt2[3] = 1;
    s.qtx2[3] = 1;
    EXPECT_EQ(CheckLoadPositions(s, s, s.dropped).row, 3);
}

Member FullTable()
{
    Member s = Beam(0, kLength);
    s.nload.fill(5);
    s.ntype.fill(2);
    s.qload.fill(5);
    s.qtype.fill(2);
    s.qdir.fill(0);
    s.qt1.fill(5);
    s.qt2.fill(6);
    s.qtx1.fill(1);
    s.qtx2.fill(2);
    s.qttype.fill(2);
    s.qtdir.fill(0);
    s.pmkind.fill(1);
    s.pm.fill(5);
    s.pmx.fill(1);
    s.pmtype.fill(2);
    s.pmdir.fill(0);
    s.pmrelative = s.qtrelative = s.selfweight = 1;
    s.loadlevel = 3;
    return s;
}

TEST(RemoveCheckedLoads, WithoutATickKeepsTheTableAndResetsTheSwitches)
{
    Member s = FullTable();
    RemoveCheckedLoads(s, s);
    Member expected = FullTable();
    expected.pmrelative = expected.qtrelative = expected.selfweight = 0;
    expected.loadlevel = 1;
    EXPECT_EQ(s, expected);
}

TEST(RemoveCheckedLoads, EmptiesTheTickedRowsAndKeepsTheTicks)
{
    Member s = FullTable();
    s.nchecked[2] = s.qchecked[4] = s.qtchecked[1] = kTrue;
    s.pmchecked[8] = 1;
    ProjectState expected = s;
    RemoveCheckedLoads(s, s);
    expected.pmrelative = expected.qtrelative = expected.selfweight = 0;
    expected.loadlevel = 1;
    expected.nload[2] = expected.ntype[2] = 0;
    expected.qload[4] = 0;
    expected.qtype[4] = 0;
    expected.qdir[4] = 1;
    expected.qt1[1] = expected.qt2[1] = expected.qtx1[1] = expected.qtx2[1] = 0;
    expected.qttype[1] = 0;
    expected.qtdir[1] = 1;
    expected.pm[8] = expected.pmx[8] = 0;
    expected.pmkind[8] = expected.pmtype[8] = 0;
    expected.pmdir[8] = 1;
    EXPECT_EQ(s, expected);
}

TEST(RemoveCheckedLoads, EveryTickedRowGoes)
{
    Member s = FullTable();
    s.nchecked.fill(kTrue);
    s.qchecked.fill(kTrue);
    s.qtchecked.fill(kTrue);
    s.pmchecked.fill(kTrue);
    RemoveCheckedLoads(s, s);
    for (std::size_t k = 1; k <= 8; ++k) {
        EXPECT_EQ(s.pm[k], 0) << k;
        EXPECT_TRUE(k > 4 || s.qload[k] == 0) << k;
        EXPECT_TRUE(k > 3 || (s.nload[k] == 0 && s.qt1[k] == 0 && s.qt2[k] == 0)) << k;
    }
}

TEST(RemoveCheckedLoads, NeverTouchesTheSelfweightRow)
{
    Member s = FullTable();
    s.qchecked[0] = kTrue;
    RemoveCheckedLoads(s, s);
    EXPECT_EQ(s.qload[0], 5);
}

}  // namespace
}  // namespace kestrum::test
