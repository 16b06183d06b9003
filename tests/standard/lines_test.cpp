// Loads and lines as the standard basis takes them from a member.

#include "standard/lines.h"

#include "core/member_choices.h"
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
            EXPECT_EQ(LinesOf(s, loads, {1, 1, 1}, Basis::Standard()).n, counts ? 10 : 0);
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

// The last row of each kind counts like the first and is looked at like it.
TEST(Lines, LastRowsCount)
{
    Member s = Unloaded(6, 235).Section("IPE 300");
    s.nload[3] = 1;
    s.ntype[3] = 2;
    s.qload[4] = 1;
    s.qdir[4] = 1;
    s.qt1[3] = 1;
    s.qtx1[3] = 1;
    s.qtx2[3] = 2;
    s.pm[8] = 1;
    s.pmx[8] = 3;
    const auto loads = LoadsOf(s, Basis::Standard());
    EXPECT_EQ(loads.count, 3U);
    EXPECT_TRUE(loads.present.q2);
    EXPECT_EQ(LinesOf(s, loads, {0, 0, 1}, Basis::Standard()).n, 1);
    EXPECT_EQ(standard::NoLoadsReason(s), "");
    s.qtx2[3] = 1;
    EXPECT_EQ(standard::NoLoadsReason(s), "a trapezoidal load ends before it starts");
    s.qtx2[3] = 2;
    s.pmx[8] = 7;
    EXPECT_EQ(standard::NoLoadsReason(s), "a point load lies off the member");
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

// Of two pieces that meet at 2 m a part holds those that it touches by more than a point.
TEST(Lines, PartHoldsThePiecesThatItTouches)
{
    standard::CombinedLines lines{};
    lines.grid.pieces = 2;
    lines.grid.x = {0, 2, 4};
    lines.y.m.m[0] = {0, 1, 0, 0};
    lines.y.m.m[1] = {2, -1, 0, 0};
    const auto pieces = [&](double x0, double x1) {
        return standard::LateralLine(lines, x0, x1, 1).Line().pieces.size();
    };
    EXPECT_EQ(pieces(0, 1), 1U);
    EXPECT_EQ(pieces(0, 2), 1U);
    EXPECT_EQ(pieces(2, 4), 1U);
    EXPECT_EQ(pieces(1, 3), 2U);
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

// The same of a load from 0.5 m, 6 kN/m, to 4.5 m, 2 kN/m: 5.5 and 3.5 kN/m at the ends of the
// part, which is stretched to twice its length: loads a quarter, forces half. Loads across and
// those with the factor 0 have no level.
TEST(Lines, LevelsOfAStretchedPart)
{
    standard::MemberLoads loads{};
    loads.count = 4;
    loads.load[0] = {0, true, true, false, {}, {2, 2, 0}};
    loads.load[1] = {1, true, false, false, {0.5, 4.5, 6, 2}, {}};
    loads.load[2] = {1, false, false, false, {0.5, 4.5, 6, 2}, {}};
    loads.load[3] = {2, true, false, false, {0.5, 4.5, 6, 2}, {}};
    standard::LateralLine line(Cubic(), 1, 3, 2);
    line.AddLevels(loads, {1, 1.5, 0}, 100, 20);
    const MomentLine found = line.Line();
    ASSERT_EQ(found.points.size(), 1U);
    EXPECT_DOUBLE_EQ(found.points[0].x, 2000);
    EXPECT_DOUBLE_EQ(found.points[0].pz, 80e3);
    EXPECT_DOUBLE_EQ(found.pieces[0].qz0, 1.5 * 5.5 * 80 / 4);
    EXPECT_DOUBLE_EQ(found.pieces[0].qz1, 1.5 * 3.5 * 80 / 4);
}

// A load on the last tenth of a metre has its level there and nowhere before.
TEST(Lines, LevelOfAShortLoad)
{
    standard::CombinedLines lines{};
    lines.grid.pieces = 3;
    lines.grid.x = {0, 3, 5.9, 6};
    standard::MemberLoads loads{};
    loads.count = 1;
    loads.load[0] = {0, true, false, false, {5.9, 6, 2, 2}, {}};
    standard::LateralLine line(lines, 0, 6, 1);
    line.AddLevels(loads, {1, 1, 1}, 100, 0);
    const auto pieces = line.Line().pieces;
    ASSERT_EQ(pieces.size(), 3U);
    EXPECT_EQ(pieces[0].qz0, 0);
    EXPECT_EQ(pieces[1].qz1, 0);
    EXPECT_DOUBLE_EQ(pieces[2].qz0, 200);
    EXPECT_DOUBLE_EQ(pieces[2].qz1, 200);
}

// A couple of 10 in the middle: 5 on either side, of which the sagging one is named.
TEST(Lines, SaggingMomentOfTwoEqualOnes)
{
    standard::CombinedLines lines{};
    lines.grid.pieces = 2;
    lines.grid.x = {0, 2, 4};
    lines.y.m.m[0] = {0, -2.5, 0, 0};
    lines.y.m.m[1] = {5, -2.5, 0, 0};
    EXPECT_EQ(lines.LargestMoment(standard::Axis::y).value, 5);
}

// A member that does not bend has no place of its largest deflection.
TEST(Lines, LargestDeflectionOfAStraightMember)
{
    LineGrid grid{};
    grid.pieces = 1;
    grid.x = {0, 6};
    const DeflectionLine line(grid, MomentPolynomials{}, false, 210000, 1e8);
    const LineExtreme largest = standard::LargestAtPoints(line, grid);
    EXPECT_EQ(largest.value, 0);
    EXPECT_EQ(largest.x, 0);
}

// Entered from end to end: Vz 10 and 22 kN, Vy 4 and -8; straight between, a quarter of the way 13
// and 1.
TEST(Lines, EnteredShearIsStraight)
{
    Member s = Unloaded(6, 235).Section("IPE 300").EndForces(0, 0, 0);
    s.vz1 = 10;
    s.vz2 = 22;
    s.vy1 = 4;
    s.vy2 = -8;
    const auto lines = LinesOf(s, LoadsOf(s, Basis::Standard()), {1, 1, 1}, Basis::Standard());
    EXPECT_NEAR(lines.Shear(standard::Axis::y, 0, 1.5), 13, 1e-12);
    EXPECT_NEAR(lines.Shear(standard::Axis::z, 0, 1.5), 1, 1e-12);
}

// Each force at an end by itself acts in the standard where the family does not take it (D178: a
// flat bar, D106: a T); the program leaves all of them out.
TEST(Lines, EveryEndForceActsWhateverTheFamilyTakes)
{
    const auto acts = [](const ProjectState& s, const Basis& basis) {
        const auto lines = LinesOf(s, LoadsOf(s, Basis::Standard()), {1, 1, 1}, basis);
        double sum = std::abs(lines.n);
        for (const standard::Axis axis : {standard::Axis::y, standard::Axis::z}) {
            sum += std::abs(lines.LargestMoment(axis).value);
            sum += std::abs(lines.Shear(axis, 0, 0)) + std::abs(lines.Shear(axis, 0, 6));
        }
        return sum > 0;
    };
    int left_out = 0;
    for (const int family : {1, 24, 26, 28}) {
        for (const char* force : {"ne", "my1", "my2", "vz1", "vz2", "mz1", "mz2", "vy1", "vy2"}) {
            SCOPED_TRACE(std::string(force) + " " + std::to_string(family));
            Member s = Unloaded(6, 235).Family(family).EndForces(0, 0, 0);
            EXPECT_FALSE(acts(s, Basis::Standard()));
            SetFields(s, std::string(force) + "=5");
            EXPECT_TRUE(acts(s, Basis::Standard()));
            const Dev rule = family == 28 ? Dev::d178 : family == 26 ? Dev::d106 : Dev::d189;
            left_out += acts(s, Basis::StandardBut(rule)) ? 0 : 1;
        }
    }
    EXPECT_GT(left_out, 0);
}

// D101: 2 kN/m at 1 m rising to 6 at 5 m, in 20 strips of 0.2 m: 2.1 kN/m at 1.1 m are 0.42 kN, 5.9
// at 4.9 m are 1.18 kN, all of them 16 kN.
TEST(Lines, StripsOfATrapezoidalLoad)
{
    Member s = Unloaded(6, 235).Section("IPE 300");
    s.qt1[1] = 2;
    s.qt2[1] = 6;
    s.qtx1[1] = 1;
    s.qtx2[1] = 5;
    const auto loads = LoadsOf(s, Basis::StandardBut(Dev::d101));
    ASSERT_EQ(loads.count, 20U);
    double sum = 0;
    for (std::size_t i = 0; i < loads.count; ++i) {
        EXPECT_TRUE(loads.load[i].point && loads.load[i].strip);
        sum += loads.load[i].at.force;
    }
    EXPECT_NEAR(sum, 16, 1e-9);
    EXPECT_NEAR(loads.load[0].at.x, 1.1, 1e-6);
    EXPECT_NEAR(loads.load[0].at.force, 0.42, 1e-9);
    EXPECT_NEAR(loads.load[19].at.x, 4.9, 1e-6);
    EXPECT_NEAR(loads.load[19].at.force, 1.18, 1e-9);
}

TEST(Lines, RestraintsDivideTheMember)
{
    Member s = Unloaded(6, 235).Section("IPE 300");
    s.restraints = 2;
    const LineGrid grid = LoadsOf(s, Basis::Standard()).grid;
    ASSERT_EQ(grid.pieces, 3U);
    for (std::size_t i = 0; i <= 3; ++i) {
        EXPECT_NEAR(grid.x[i], 2.0 * static_cast<double>(i), 1e-9);
    }
    s.restraints = static_cast<i16>(kMaxHeld);  // as many as the numerical solution takes
    EXPECT_EQ(LoadsOf(s, Basis::Standard()).grid.pieces, kMaxHeld + 1);
}

TEST(Lines, SpringsByTheirShare)
{
    Member s = Unloaded(6, 235);
    s.spring = 40;
    const auto fixity = [&](i16 supports) {
        s.supportcase = supports;
        const EndFixity ends = standard::FixityOf(s);
        return std::array{ends.start, ends.end, ends.cantilever ? 1.0 : 0.0};
    };
    EXPECT_EQ(fixity(SupportCase::pinned), (std::array{0.0, 0.0, 0.0}));
    EXPECT_EQ(fixity(SupportCase::pinned_fixed), (std::array{0.0, 1.0, 0.0}));
    EXPECT_EQ(fixity(SupportCase::fixed), (std::array{1.0, 1.0, 0.0}));
    EXPECT_EQ(fixity(SupportCase::springs), (std::array{0.4, 0.4, 0.0}));
    EXPECT_EQ(fixity(SupportCase::cantilever), (std::array{1.0, 0.0, 1.0}));
    EXPECT_EQ(fixity(SupportCase::pinned_spring), (std::array{0.0, 0.4, 0.0}));
}

// Forces at stations run from end to end of each piece, 1 to 3 m: half of the way at 2 m.
TEST(Lines, ForcesAtStationsAreStraightBetweenThem)
{
    standard::StationPieces stations{};
    stations.n[1] = {10, 40};
    stations.vz[1] = {6, 2};
    stations.vy[1] = {-3, 5};
    standard::CombinedLines lines{};
    lines.grid.pieces = 2;
    lines.grid.x = {0, 1, 3};
    lines.stations = &stations;
    EXPECT_DOUBLE_EQ(lines.Axial(1, 1.5), 17.5);
    EXPECT_DOUBLE_EQ(lines.Shear(standard::Axis::y, 1, 1.5), 5);
    EXPECT_DOUBLE_EQ(lines.Shear(standard::Axis::z, 1, 1.5), -1);
}

}  // namespace
}  // namespace kestrum
