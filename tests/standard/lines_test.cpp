// Loads and lines as the standard basis takes them from a member.

#include "standard/lines.h"

#include "standard/lateral_line.h"
#include "standard/standard_member.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <string>

namespace kestrum {
namespace {

using standard::LoadsOf;

// One row of each kind.
Member EveryKind()
{
    Member s = Unloaded(6, 235).Section("IPE 300");
    s.nload[1] = 10;
    s.qload[1] = 1;
    s.qt1[1] = 2;
    s.qt2[1] = 0;  // of a triangle
    s.qtx1[1] = 1;
    s.qtx2[1] = 3;
    s.pm[1] = 5;
    s.pmx[1] = 2;
    return s;
}

void Tick(ProjectState& s, i16 ticked)
{
    s.nchecked[1] = s.qchecked[1] = s.qtchecked[1] = s.pmchecked[1] = ticked;
}

// Ticks are asked for where the basic loads are taken alone; every other combination takes all.
TEST(Lines, TicksCountWithTheBasicLoadsOnly)
{
    ProjectState s = EveryKind();
    for (const i16 combination : {kEq610, kEq610a, kEq610b, kEq610ab, kUserFactors, kBasicLoads}) {
        for (const i16 ticked : {i16{0}, i16{1}}) {
            SCOPED_TRACE(std::to_string(combination) + " " + std::to_string(ticked));
            s.loadcomb = combination;
            Tick(s, ticked);
            const bool counts = combination != kBasicLoads || ticked == 1;
            const auto loads = LoadsOf(s, Basis::Standard());
            EXPECT_EQ(loads.count, counts ? 3U : 0U);
            EXPECT_EQ(loads.present.g, counts);
        }
    }
}

// An axial load alone tells of its category.
TEST(Lines, AxialLoadsMakeTheirCategoryPresent)
{
    for (const float category : {0.0F, 1.0F, 2.0F}) {
        SCOPED_TRACE(category);
        Member s = Unloaded(6, 235).Section("IPE 300");
        s.nload[1] = 10;
        s.ntype[1] = category;
        const auto present = LoadsOf(s, Basis::Standard()).present;
        EXPECT_EQ(present.g, category == 0);
        EXPECT_EQ(present.q1, category == 1);
        EXPECT_EQ(present.q2, category == 2);
    }
}

// An axial load of another category leaves a present one as it is.
TEST(Lines, CategoriesOfAxialLoadsAddUp)
{
    Member s = Unloaded(6, 235).Section("IPE 300");
    for (const std::size_t k : {1U, 2U, 3U}) {
        s.nload[k] = 10;
        s.ntype[k] = static_cast<float>(k - 1);
    }
    const auto present = LoadsOf(s, Basis::Standard()).present;
    EXPECT_TRUE(present.g && present.q1 && present.q2);
}

// Each border by itself; rows without a size are no loads, wherever they lie.
TEST(Lines, LoadsOffTheMemberHaveAReason)
{
    Member s = Unloaded(6, 235).Section("IPE 300");
    const auto trapezoid = [&](float from, float to) {
        s.qtx1[1] = from;
        s.qtx2[1] = to;
        return standard::NoLoadsReason(s);
    };
    EXPECT_EQ(trapezoid(4, 7), "");
    for (const bool at_start : {true, false}) {
        s.qt1[1] = at_start ? 5.0F : 0.0F;
        s.qt2[1] = at_start ? 0.0F : 5.0F;
        EXPECT_EQ(trapezoid(0, 6), "");
        EXPECT_EQ(trapezoid(-1, 6), "a trapezoidal load lies off the member");
        EXPECT_EQ(trapezoid(0, 7), "a trapezoidal load lies off the member");
        EXPECT_EQ(trapezoid(4, 3), "a trapezoidal load ends before it starts");
    }
    EXPECT_EQ(trapezoid(0, 6), "");
    s.pmx[1] = 9;
    EXPECT_EQ(standard::NoLoadsReason(s), "");
    s.pm[1] = 5;
    for (const float x : {-0.1F, 6.1F}) {
        s.pmx[1] = x;
        EXPECT_EQ(standard::NoLoadsReason(s), "a point load lies off the member");
    }
}

// M = 4 + 3 x + 2 x^2 + x^3 (kNm, m), cut at 1 m: 10 + 10 s + 5 s^2 + s^3.
standard::CombinedLines Cubic()
{
    standard::CombinedLines lines{};
    lines.grid.pieces = 1;
    lines.grid.x = {0, 4};
    lines.y.m.m[0] = {4, 3, 2, 1};
    return lines;
}

void ExpectPiece(const MomentPiece& piece, double x0, double x1, const std::array<double, 4>& m)
{
    EXPECT_DOUBLE_EQ(piece.x0, x0);
    EXPECT_DOUBLE_EQ(piece.x1, x1);
    for (std::size_t k = 0; k < 4; ++k) {
        EXPECT_NEAR(piece.m[k], m[k], 1e-12 * std::abs(m[k])) << k;
    }
}

TEST(Lines, PartOfAMomentLineInNewtonsAndMillimetres)
{
    const standard::LateralLine line(Cubic(), 1, 3, 1);
    ASSERT_EQ(line.Line().pieces.size(), 1U);
    EXPECT_DOUBLE_EQ(line.Line().length, 2000);
    ExpectPiece(line.Line().pieces[0], 0, 2000, {10e6, 10e3, 5, 1e-3});
}

// Twice as long with the same moments.
TEST(Lines, StretchedMomentLine)
{
    const standard::LateralLine line(Cubic(), 1, 3, 2);
    EXPECT_DOUBLE_EQ(line.Line().length, 4000);
    ExpectPiece(line.Line().pieces[0], 0, 4000, {10e6, 5e3, 1.25, 1e-3 / 8});
}

// 80 mm above the shear centre (level 100, centre 20): 2 kN at 2 m of G, 6 kN/m at 0 m falling to 2
// at 4 m of Q1 with the factor 1.5, from 1 m to 3 m of the member: 1.5 (5, 3) 80 N and 2000 80 Nmm.
TEST(Lines, LevelsOfThePartOfALoad)
{
    standard::MemberLoads loads{};
    loads.count = 2;
    loads.load[0] = {0, true, true, false, {}, {2, 2, 0}};
    loads.load[1] = {1, true, false, false, {0, 4, 6, 2}, {}};
    standard::LateralLine line(Cubic(), 1, 3, 1);
    line.AddLevels(loads, {1, 1.5, 0}, 100, 20);
    const MomentLine found = line.Line();
    ASSERT_EQ(found.points.size(), 1U);
    EXPECT_DOUBLE_EQ(found.points[0].x, 1000);
    EXPECT_DOUBLE_EQ(found.points[0].pz, 160e3);
    EXPECT_DOUBLE_EQ(found.pieces[0].qz0, 1.5 * 5 * 80);
    EXPECT_DOUBLE_EQ(found.pieces[0].qz1, 1.5 * 3 * 80);
}

}  // namespace
}  // namespace kestrum
