// Shapes of a moment line: Table 6.6 and Table B.3 of EN 1993-1-1. Lines are straight between 41
// even places, so that one place alone can be moved.

#include "standard/moment_shape.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <functional>
#include <optional>

namespace kestrum {
namespace {

using clauses::MomentShape;
using standard::Axis;
using standard::CombinedLines;
using standard::kShapeSamples;

constexpr double kLength = 6;

using Samples = std::array<double, kShapeSamples>;

Samples SamplesOf(const std::function<double(double)>& moment)
{
    Samples m{};
    for (std::size_t i = 0; i < kShapeSamples; ++i) {
        m[i] = moment(static_cast<double>(i) / (kShapeSamples - 1));
    }
    return m;
}

CombinedLines Through(const Samples& m)
{
    CombinedLines lines{};
    lines.grid.pieces = kShapeSamples - 1;
    for (std::size_t i = 0; i < kShapeSamples; ++i) {
        lines.grid.x[i] = kLength * static_cast<double>(i) / (kShapeSamples - 1);
    }
    for (std::size_t i = 0; i + 1 < kShapeSamples; ++i) {
        const double h = lines.grid.x[i + 1] - lines.grid.x[i];
        lines.y.m.m[i] = {m[i], (m[i + 1] - m[i]) / h, 0, 0};
    }
    return lines;
}

std::optional<standard::TabulatedShape> ShapeOf(const Samples& m)
{
    return TabulatedShapeOf(Through(m), Axis::y, 0, kLength);
}

// Beams of length 1 under q = 1 or P = 1 at mid-span, sagging positive, t from the pinned end.
struct Row {
    MomentShape shape;
    double largest;  // in size
    std::function<double(double)> moment;
};
const std::array<Row, 6>& Rows()
{
    static const std::array<Row, 6> rows = {{
        {MomentShape::uniform_pinned, 1.0 / 8, [](double t) { return t / 2 - t * t / 2; }},
        {MomentShape::uniform_fixed, 1.0 / 12,
         [](double t) { return -1.0 / 12 + t / 2 - t * t / 2; }},
        {MomentShape::uniform_one_end_fixed, 1.0 / 8,
         [](double t) { return 3 * t / 8 - t * t / 2; }},
        {MomentShape::point_pinned, 1.0 / 4, [](double t) { return std::min(t, 1 - t) / 2; }},
        {MomentShape::point_fixed, 1.0 / 8,
         [](double t) { return std::min(t, 1 - t) / 2 - 1.0 / 8; }},
        {MomentShape::point_one_end_fixed, 3.0 / 16,
         [](double t) { return 5 * t / 16 - std::max(0.0, t - 0.5); }},
    }};
    return rows;
}

void ExpectShape(const Samples& m, MomentShape shape)
{
    const auto found = ShapeOf(m);
    ASSERT_TRUE(found.has_value());
    EXPECT_EQ(found->shape, shape);
}

TEST(MomentShapes, EveryRowIsFoundFromBothEndsAndUpsideDown)
{
    for (const Row& row : Rows()) {
        SCOPED_TRACE(static_cast<int>(row.shape));
        for (const double times : {1.0, -1.0, 75.0, -0.02}) {
            ExpectShape(SamplesOf([&](double t) { return times * row.moment(t); }), row.shape);
            ExpectShape(SamplesOf([&](double t) { return times * row.moment(1 - t); }), row.shape);
        }
    }
}

// One place is off by a share of the largest moment: 1.99 percent is within the 2, 2.01 is not.
TEST(MomentShapes, NoPlaceIsOffByMoreThanTwoPercent)
{
    for (const Row& row : Rows()) {
        SCOPED_TRACE(static_cast<int>(row.shape));
        const Samples exact = SamplesOf([&](double t) { return 40 * row.moment(t); });
        const double largest = 40 * row.largest;
        for (std::size_t i = 0; i < kShapeSamples; ++i) {
            if (std::abs(exact[i]) > 0.95 * largest) {
                continue;  // a bump there would be the largest moment
            }
            for (const double side : {1.0, -1.0}) {
                Samples near = exact, far = exact;
                near[i] += 0.0199 * side * largest;
                far[i] += 0.0201 * side * largest;
                ExpectShape(near, row.shape);
                EXPECT_FALSE(ShapeOf(far).has_value()) << i;
            }
        }
    }
}

TEST(MomentShapes, StraightLinesAreStraightWithinTwoPercent)
{
    const Samples exact = SamplesOf([](double t) { return -20 + 50 * t; });
    const auto found = ShapeOf(exact);
    ASSERT_TRUE(found.has_value());
    EXPECT_EQ(found->shape, MomentShape::straight);
    EXPECT_NEAR(found->psi, -20.0 / 30, 1e-12);
    EXPECT_NEAR(ShapeOf(SamplesOf([](double t) { return 40 - 30 * t; }))->psi, 0.25, 1e-12);
    for (const double side : {1.0, -1.0}) {
        Samples near = exact, far = exact;
        near[20] += 0.0199 * side * 30;
        far[20] += 0.0201 * side * 30;
        ExpectShape(near, MomentShape::straight);
        EXPECT_FALSE(ShapeOf(far).has_value());
    }
}

// Exactly 2 percent of 50 are within: one place of an even line at 49 and one of a triangle, 25, at
// 26.
TEST(MomentShapes, TwoPercentAreWithin)
{
    Samples even = SamplesOf([](double) { return 50; });
    even[20] = 49;
    ExpectShape(even, MomentShape::straight);
    Samples triangle = SamplesOf([](double t) { return 100 * std::min(t, 1 - t); });
    triangle[10] = 26;
    ExpectShape(triangle, MomentShape::point_pinned);
}

// A couple at 2 m: the piece on its left ends with what is left of it, the piece on its right
// begins with what is right of it.
CombinedLines Couple()
{
    CombinedLines lines{};
    lines.grid.pieces = 2;
    lines.grid.x = {0, 2, kLength};
    lines.y.m.m[0] = {0, 5, 0, 0};
    lines.y.m.m[1] = {-20, 5, 0, 0};
    return lines;
}

TEST(MomentShapes, AJumpBelongsToThePieceBesideIt)
{
    const CombinedLines lines = Couple();
    const auto left = SampledMoments(lines, Axis::y, 0, 2);
    const auto right = SampledMoments(lines, Axis::y, 2, kLength);
    EXPECT_DOUBLE_EQ(left.front(), 0);
    EXPECT_DOUBLE_EQ(left.back(), 10);
    EXPECT_DOUBLE_EQ(right.front(), -20);
    EXPECT_DOUBLE_EQ(right.back(), 0);
    EXPECT_EQ(TabulatedShapeOf(lines, Axis::y, 2, kLength)->shape, MomentShape::straight);
    const auto span = SpanMomentsOf(lines, Axis::y, 2, kLength);
    EXPECT_DOUBLE_EQ(span.mh, -20);
    EXPECT_DOUBLE_EQ(span.psi, 0);
    EXPECT_TRUE(span.straight);
}

// Straight is what no load bends, however large: rounding is, 1.005e-9 of the largest moment is
// not.
TEST(MomentShapes, StraightWhateverTheSize)
{
    for (const double size : {1e-3, 1.0, 3e5}) {
        SCOPED_TRACE(size);
        const auto straight = [size](double off) {
            Samples m = SamplesOf([size](double t) { return size * (1 - t / 3); });
            m[20] -= size * off;
            return SpanMomentsOf(Through(m), Axis::y, 0, kLength).straight;
        };
        EXPECT_TRUE(straight(0));
        EXPECT_TRUE(straight(0.99e-9));
        EXPECT_FALSE(straight(1.005e-9));
    }
}

// What lies right of the couple is not of the piece on its left.
TEST(MomentShapes, PieceEndsLeftOfTheCouple)
{
    const auto span = SpanMomentsOf(Couple(), Axis::y, 0, 2);
    EXPECT_DOUBLE_EQ(span.mh, 10);
    EXPECT_TRUE(span.straight);
}

// Ends of one size: the first is Mh. Two places as far from the chord: Ms is at the first.
TEST(MomentShapes, FirstOfEqualMoments)
{
    const auto turned = SamplesOf([](double t) { return 10 - 20 * t; });
    const auto span = SpanMomentsOf(Through(turned), Axis::y, 0, kLength);
    EXPECT_EQ(span.mh, 10);
    EXPECT_EQ(span.psi, -1);
    for (const double bump : {5.0, -5.0}) {  // 10, 15, 10, 5, 10 at whole metres
        CombinedLines lines{};
        lines.grid.pieces = 4;
        lines.grid.x = {0, 1, 2, 3, 4};
        lines.y.m.m[0] = {10, bump, 0, 0};
        lines.y.m.m[1] = {10 + bump, -bump, 0, 0};
        lines.y.m.m[2] = {10, -bump, 0, 0};
        lines.y.m.m[3] = {10 - bump, bump, 0, 0};
        EXPECT_EQ(SpanMomentsOf(lines, Axis::y, 0, 4).ms, 10 + bump);
    }
}

// The whole member: furthest from the chord, here the axis, right of the couple.
TEST(MomentShapes, SpanMomentIsFurthestFromTheChord)
{
    const auto span = SpanMomentsOf(Couple(), Axis::y, 0, kLength);
    EXPECT_DOUBLE_EQ(span.ms, -20);
    EXPECT_FALSE(span.straight);
}

}  // namespace
}  // namespace kestrum
