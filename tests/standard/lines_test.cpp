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

}  // namespace
}  // namespace kestrum
