#include "analysis/exact_line.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <new>
#include <vector>

namespace kestrum {
namespace {

constexpr double kL = 6;
constexpr EndFixity kPinned{0, 0, false}, kFixed{1, 1, false}, kPropped{0, 1, false},
    kCantilever{1, 0, true};

struct Member {
    std::vector<LineLoad> lines;
    std::vector<PointLoad> points;
    LineGrid grid{};

    LineGrid& Grid()
    {
        LineGridMaker maker(kL);
        for (const LineLoad& load : lines) {
            maker.Add(load.x1);
            maker.Add(load.x2);
        }
        for (const PointLoad& load : points) {
            maker.Add(load.x);
        }
        grid = maker.Grid();
        return grid;
    }
    MomentPolynomials Line(const EndFixity& ends) { return MomentsOf(Grid(), lines, points, ends); }
};

double At(const Member& member, const MomentPolynomials& line, double x)
{
    return MomentAt(member.grid, line, PieceAt(member.grid, x), x);
}

Member Uniform(double q)
{
    return {{{0, kL, q, q}}, {}};
}

// q L^2/8, -q L^2/12 with q L^2/24, -q L^2/8, -q L^2/2.
TEST(ExactLine, UniformLoadOnEverySupport)
{
    Member m = Uniform(10);
    const double ql2 = 10 * kL * kL;
    MomentPolynomials line = m.Line(kPinned);
    EXPECT_NEAR(At(m, line, 3), ql2 / 8, 1e-12);
    EXPECT_NEAR(ExtremesOfShear(m.grid, line).most.value, 30, 1e-12);
    line = m.Line(kFixed);
    EXPECT_NEAR(At(m, line, 0), -ql2 / 12, 1e-12);
    EXPECT_NEAR(At(m, line, 3), ql2 / 24, 1e-12);
    line = m.Line(kPropped);
    EXPECT_NEAR(At(m, line, kL), -ql2 / 8, 1e-12);
    EXPECT_NEAR(ExtremesOfMoment(m.grid, line).most.value, 9 * ql2 / 128, 1e-12);
    EXPECT_NEAR(ExtremesOfMoment(m.grid, line).most.x, 3 * kL / 8, 1e-12);
    EXPECT_EQ(ExtremesOfMoment(m.grid, line).least.x, kL);
    line = m.Line(kCantilever);
    EXPECT_NEAR(At(m, line, 0), -ql2 / 2, 1e-12);
    EXPECT_NEAR(At(m, line, kL), 0, 1e-12);
    line = m.Line({1, 0, false});  // the propped end at the start
    EXPECT_NEAR(At(m, line, 0), -ql2 / 8, 1e-12);
    EXPECT_NEAR(At(m, line, kL), 0, 1e-12);
    line = m.Line({0.5, 0.5, false});  // half of the fixed end's moments
    EXPECT_NEAR(At(m, line, 0), -ql2 / 24, 1e-12);
}

// Triangle from 0 to q on a simple beam: largest moment q L^2/(9 sqrt 3) at L/sqrt 3.
TEST(ExactLine, TriangularLoad)
{
    Member m{{{0, kL, 0, 12}}, {}};
    const LineExtremes extremes = ExtremesOfMoment(m.Grid(), m.Line(kPinned));
    EXPECT_NEAR(extremes.most.value, 12 * kL * kL / (9 * std::sqrt(3.0)), 1e-12);
    EXPECT_NEAR(extremes.most.x, kL / std::sqrt(3.0), 1e-12);
    Member falling{{{0, kL, 24, 0}}, {}};
    const LineExtremes mirrored = ExtremesOfMoment(falling.Grid(), falling.Line(kPinned));
    EXPECT_NEAR(mirrored.most.value, 24 * kL * kL / (9 * std::sqrt(3.0)), 1e-12);
    EXPECT_NEAR(mirrored.most.x, kL - kL / std::sqrt(3.0), 1e-12);
    Member rising{{{0, kL, 0, 24}}, {}};
    EXPECT_NEAR(ExtremesOfMoment(rising.Grid(), rising.Line(kPinned)).most.x, kL / std::sqrt(3.0),
                1e-12);
    const MomentPolynomials fixed = m.Line(kFixed);  // -q L^2/30 and -q L^2/20
    EXPECT_NEAR(At(m, fixed, 0), -12 * kL * kL / 30, 1e-12);
    EXPECT_NEAR(At(m, fixed, kL), -12 * kL * kL / 20, 1e-12);
}

// The same: 12 kN/m at the end, V = 12 at the start and -24 at the end. From -12 to 12 kN/m
// the reactions are -12 kN: V = -12 + 12 x - 2 x^2, at most 6 kN in the middle, where the load is
// 0.
TEST(ExactLine, ShearOfTriangularLoads)
{
    Member rising{{{0, kL, 0, 12}}, {}};
    LineExtremes shear = ExtremesOfShear(rising.Grid(), rising.Line(kPinned));
    EXPECT_NEAR(shear.most.value, 12, 1e-12);
    EXPECT_EQ(shear.most.x, 0);
    EXPECT_NEAR(shear.least.value, -24, 1e-12);
    EXPECT_EQ(shear.least.x, kL);
    Member turning{{{0, kL, -12, 12}}, {{1, 0, 0}}};  // two pieces
    shear = ExtremesOfShear(turning.Grid(), turning.Line(kPinned));
    EXPECT_NEAR(shear.most.value, 6, 1e-12);
    EXPECT_NEAR(shear.most.x, 3, 1e-12);
    EXPECT_EQ(shear.most.piece, 1U);
}

// M = 3 s^2 - s^3 on 4 m: level at the start, largest with 4 at 2 m, -16 at the end.
TEST(ExactLine, APieceMayBeginWithoutShear)
{
    LineGridMaker maker(4);
    MomentPolynomials line{};
    line.m[0] = {0, 0, 3, -1};
    const LineExtremes extremes = ExtremesOfMoment(maker.Grid(), line);
    EXPECT_NEAR(extremes.most.value, 4, 1e-12);
    EXPECT_NEAR(extremes.most.x, 2, 1e-12);
    EXPECT_NEAR(extremes.least.value, -16, 1e-12);
}

TEST(ExactLine, TheFirstOfEqualMomentsCounts)
{
    Member m = Uniform(8);
    const LineExtremes extremes = ExtremesOfMoment(m.Grid(), m.Line(kPinned));
    EXPECT_EQ(extremes.least.value, 0);
    EXPECT_EQ(extremes.least.x, 0);  // and at the end
    Member up = Uniform(-8);
    const LineExtremes turned = ExtremesOfMoment(up.Grid(), up.Line(kPinned));
    EXPECT_EQ(turned.most.value, 0);
    EXPECT_EQ(turned.most.x, 0);
}

// P a b/L; fixed ends -P a b^2/L^2, -P a^2 b/L^2.
TEST(ExactLine, PointLoad)
{
    Member m{{}, {{2, 30, 0}}};
    MomentPolynomials line = m.Line(kPinned);
    EXPECT_NEAR(At(m, line, 2), 30.0 * 2 * 4 / 6, 1e-12);
    EXPECT_NEAR(ShearAt(m.grid, line, 0, 2), 20, 1e-12);
    EXPECT_NEAR(ShearAt(m.grid, line, 1, 2), -10, 1e-12);
    line = m.Line(kFixed);
    EXPECT_NEAR(At(m, line, 0), -30.0 * 2 * 16 / 36, 1e-12);
    EXPECT_NEAR(At(m, line, kL), -30.0 * 4 * 4 / 36, 1e-12);
    line = m.Line(kCantilever);  // -P a
    EXPECT_NEAR(At(m, line, 0), -60, 1e-12);
    EXPECT_NEAR(At(m, line, 4), 0, 1e-12);
    EXPECT_EQ(PieceAt(m.grid, 2), 0U);  // a border belongs to the left
    EXPECT_EQ(PieceAt(m.grid, 2.1), 1U);
}

// A moment on a pinned support goes straight to the other end; a spring of s percent leaves (1 -
// s).
TEST(ExactLine, MomentOnASupport)
{
    Member m{{}, {{0, 0, 50}}};
    MomentPolynomials line = m.Line(kPinned);
    EXPECT_NEAR(At(m, line, 0), 50, 1e-12);
    EXPECT_NEAR(At(m, line, 3), 25, 1e-12);
    line = m.Line({0.3, 0.3, false});
    EXPECT_NEAR(At(m, line, 0), 35, 1e-12);
    m.points = {{kL, 0, 50}};
    line = m.Line(kPinned);
    EXPECT_NEAR(At(m, line, kL), -50, 1e-12);
}

// 5 q L^4/(384 E I), q L^4/(384 E I), q L^4/(8 E I), P L^3/(48 E I).
TEST(ExactLine, Deflections)
{
    constexpr double kE = 210000;
    constexpr double kI = 8.356e7;
    const double ei = kE * kI * 1e-9;  // kNm2
    const auto largest = [&](Member& m, const EndFixity& ends) {
        const MomentPolynomials line = m.Line(ends);
        return DeflectionLine(m.grid, line, ends.cantilever, kE, kI).Largest();
    };
    Member uniform = Uniform(10);
    const double ql4 = 10 * std::pow(kL, 4) / ei * 1e3;  // mm
    EXPECT_NEAR(largest(uniform, kPinned).value, 5 * ql4 / 384, 1e-9);
    EXPECT_NEAR(largest(uniform, kFixed).value, ql4 / 384, 1e-9);
    EXPECT_NEAR(largest(uniform, kPropped).value, ql4 / 184.6, 1e-3 * ql4 / 184.6);
    EXPECT_NEAR(largest(uniform, kCantilever).value, ql4 / 8, 1e-9);
    EXPECT_NEAR(largest(uniform, kPinned).x, 3, 1e-9);
    Member middle{{}, {{3, 20, 0}}};
    EXPECT_NEAR(largest(middle, kPinned).value, 20 * std::pow(kL, 3) / (48 * ei) * 1e3, 1e-9);
}

// The middle of a 16 m beam is the border of two of its steps, that of an 11 m beam the middle of
// one of the eight steps from 0 to 8 m; with E I = 1000 kNm2 and 24 kN/m all slopes are whole
// numbers, 0 in the middle: 5 q L^4/(384 E I).
TEST(ExactLine, TheDeflectionIsLargestWhereTheSlopeIsExactlyNothing)
{
    for (const double length : {16.0, 11.0}) {
        LineGridMaker maker(length);
        if (length < 16) {
            maker.Add(8);
        }
        const LineGrid grid = maker.Grid();
        const LineLoad load{0, length, 24, 24};
        const MomentPolynomials line = MomentsOf(grid, {&load, 1}, {}, kPinned);
        const LineExtreme largest = DeflectionLine(grid, line, false, 1e5, 1e7).Largest();
        EXPECT_NEAR(largest.x, length / 2, 1e-9);
        EXPECT_NEAR(largest.value, 5 * 24 * std::pow(length, 4) / 384 / 1000 * 1000, 1e-7);
    }
}

// 5 q L^4/(768 E I) in the middle of a beam under a triangle.
TEST(ExactLine, DeflectionUnderATriangularLoad)
{
    Member m{{{0, kL, 0, 12}}, {}};
    const MomentPolynomials line = m.Line(kPinned);
    const DeflectionLine deflection(m.grid, line, false, 1e5, 1e7);  // EI 1000 kNm2
    EXPECT_NEAR(deflection.At(0, 3), 5 * 12 * std::pow(kL, 4) / 768, 1e-9);
    EXPECT_NEAR(deflection.At(0, kL), 0, 1e-9);
}

// No point of the line lies lower, also where a force acts just ahead of the lowest one.
TEST(ExactLine, NoPointDeflectsMoreThanTheLargest)
{
    for (const double force : {-30.0, -5.0, 5.0, 30.0}) {
        for (const double at : {2.5, 2.9, 3.1, 3.5}) {
            Member m{{{0, kL, 10, 10}}, {{at, force, 0}}};
            const MomentPolynomials line = m.Line(kPinned);
            const DeflectionLine deflection(m.grid, line, false, 1e5, 1e7);
            const LineExtreme largest = deflection.Largest();
            double most = 0;
            for (int j = 0; j <= 6000; ++j) {
                const double x = 0.001 * j;
                most = std::max(most, std::abs(deflection.At(PieceAt(m.grid, x), x)));
            }
            EXPECT_NEAR(std::abs(largest.value), most, 1e-5 * most) << force << ' ' << at;
            EXPECT_EQ(largest.piece, PieceAt(m.grid, largest.x)) << force << ' ' << at;
        }
    }
}

// End moments of 8 and -10 kNm: M = 8 - 3 x, EI d = 6 x - 4 x^2 + x^3/2. The slope 6 - 8 x + 1.5
// x^2 vanishes twice, at (8 -+ sqrt 28)/3; the second place, upwards, is the larger one.
TEST(ExactLine, TheLargerOfTwoDeflectionsCounts)
{
    Member m{{}, {{0, 0, 8}, {kL, 0, 10}}};
    const MomentPolynomials line = m.Line(kPinned);
    const LineExtreme largest = DeflectionLine(m.grid, line, false, 1e5, 1e7).Largest();
    const double x = (8 + std::sqrt(28.0)) / 3;
    EXPECT_NEAR(largest.x, x, 1e-9);
    EXPECT_NEAR(largest.value, 6 * x - 4 * x * x + x * x * x / 2, 1e-9);  // EI 1000 kNm2, mm
}

// Only the pieces of the grid are set: what the memory behind them held plays no part.
TEST(ExactLine, NothingBehindTheLastPieceCounts)
{
    Member m{{{0, kL, 8, 8}}, {{3, 0, 0}}};
    const LineGrid grid = m.Grid();
    alignas(MomentPolynomials) std::array<unsigned char, sizeof(MomentPolynomials)> memory;
    for (const EndFixity& ends : {kPinned, kFixed}) {
        memory.fill(0x7f);  // numbers of 1e306
        const auto* const line =
            new (memory.data()) MomentPolynomials(MomentsOf(grid, m.lines, m.points, ends));
        const double at_end = ends.start > 0 ? -24 : 0;  // -q L^2/12
        const LineExtremes moment = ExtremesOfMoment(grid, *line);
        EXPECT_NEAR(moment.most.value, at_end + 36, 1e-9);
        EXPECT_NEAR(moment.least.value, at_end, 1e-9);
        const LineExtremes shear = ExtremesOfShear(grid, *line);
        EXPECT_NEAR(shear.most.value, 24, 1e-9);
        EXPECT_NEAR(shear.least.value, -24, 1e-9);
        EXPECT_NEAR(ShearAt(grid, *line, 1, 4), -8, 1e-9);
    }
}

TEST(ExactLine, WithoutLoadsTheLargestDeflectionIsAtTheStart)
{
    Member m = Uniform(0);
    const MomentPolynomials line = m.Line(kPinned);
    const LineExtreme largest = DeflectionLine(m.grid, line, false, 1e5, 1e7).Largest();
    EXPECT_EQ(largest.value, 0);
    EXPECT_EQ(largest.x, 0);
}

// One load or the same cut in two: the same line.
TEST(ExactLine, SplittingALoadChangesNothing)
{
    Member whole{{{1, 5, 4, 12}}, {{2.5, 10, 3}}};
    Member split{{{1, 3, 4, 8}, {3, 5, 8, 12}}, {{2.5, 4, 3}, {2.5, 6, 0}}};
    for (const EndFixity& ends : {kPinned, kFixed, kPropped, kCantilever}) {
        const MomentPolynomials a = whole.Line(ends);
        const MomentPolynomials b = split.Line(ends);
        for (int j = 0; j <= 60; ++j) {
            const double x = kL * j / 60 + (j < 60 ? 1e-7 : 0);
            EXPECT_NEAR(At(whole, a, x), At(split, b, x), 1e-9) << x;
        }
    }
}

// Reactions balance the loads; the mirrored load mirrors the line.
TEST(ExactLine, BalanceAndMirror)
{
    Member m{{{0.5, 2, 3, 9}}, {{4, 12, 0}, {1.5, 0, 7}}};
    Member mirrored{{{4, 5.5, 9, 3}}, {{2, 12, 0}, {4.5, 0, -7}}};
    for (const EndFixity& ends : {kPinned, kFixed}) {
        const MomentPolynomials line = m.Line(ends);
        const MomentPolynomials turned = mirrored.Line(ends);
        const std::size_t last = m.grid.pieces - 1;
        EXPECT_NEAR(ShearAt(m.grid, line, 0, 0) - ShearAt(m.grid, line, last, kL), 9 + 12, 1e-9);
        for (int j = 0; j <= 60; ++j) {
            const double x = kL * j / 60 + 1e-7;
            if (x < kL) {
                EXPECT_NEAR(At(m, line, x), At(mirrored, turned, kL - x), 1e-9) << x;
            }
        }
    }
}

TEST(ExactLine, GridKeepsEachPlaceOnceAndSaysWhenItIsFull)
{
    LineGridMaker maker(kL);
    for (const double x : {3.0, 0.0, 6.0, 3.0, 1.0, 7.0, -1.0}) {
        maker.Add(x);
    }
    EXPECT_EQ(maker.Grid().pieces, 3u);
    EXPECT_EQ(maker.Grid().x[1], 1);
    EXPECT_TRUE(maker.Complete());
    for (int i = 1; i < 300; ++i) {
        maker.Add(i * 0.02);
    }
    EXPECT_FALSE(maker.Complete());
    EXPECT_EQ(maker.Grid().Length(), kL);
}

}  // namespace
}  // namespace kestrum
