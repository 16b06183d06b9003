// Elements of the numerical critical moment: places as shares of a length of 8000 mm.

#include "clauses/lateral_mesh.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <vector>

namespace kestrum {
namespace {

constexpr double kLength = 8000;
constexpr double kLayer = 0.002;

// The largest element at all is 0.05.
constexpr double kCoarse = 0.05;

// Of the elements on both sides of a place of the mesh; 0 where it is none.
double SmallestBeside(const LateralMesh& mesh, double x)
{
    for (std::size_t i = 1; i < mesh.elements; ++i) {
        if (std::abs(mesh.x[i] - x) < 1e-9) {
            return std::min(mesh.x[i] - mesh.x[i - 1], mesh.x[i + 1] - mesh.x[i]);
        }
    }
    return 0;
}

// M = m0 + m1 x + m2 x^2 + m3 x^3 in two pieces that meet at x1; the second one is `jump` larger.
LateralMesh MeshOfTwo(const std::array<double, 4>& m, double x1, double jump,
                      std::vector<double> held = {})
{
    const double value = m[0] + x1 * (m[1] + x1 * (m[2] + x1 * m[3]));
    const double slope = m[1] + x1 * (2 * m[2] + 3 * x1 * m[3]);
    const double bend = m[2] + 3 * x1 * m[3];
    const std::array<MomentPiece, 2> pieces = {
        {{0, x1, m, 0, 0}, {x1, kLength, {value + jump, slope, bend, m[3]}, 0, 0}}};
    return MeshOf({LateralEnd::fork, LateralEnd::fork, held}, {kLength, pieces, {}}, kLayer);
}

constexpr std::array<double, 4> kCubic = {1e8, 5e4, -20, 1e-3};

// A smooth line has no place where warping is disturbed, wherever it is cut; a jump is one.
TEST(LateralMesh, JumpsOfTheMomentAreRefined)
{
    for (const double x1 : {1200.0, 2800.0, 5600.0}) {
        SCOPED_TRACE(x1);
        EXPECT_GT(SmallestBeside(MeshOfTwo(kCubic, x1, 0), x1 / kLength), 0.9 * kCoarse / 2);
        EXPECT_NEAR(SmallestBeside(MeshOfTwo(kCubic, x1, 1e7), x1 / kLength), kLayer, 1e-9);
        EXPECT_NEAR(SmallestBeside(MeshOfTwo(kCubic, x1, -1e7), x1 / kLength), kLayer, 1e-9);
    }
}

// Three pieces: none of the later ones begins at 0.
TEST(LateralMesh, PiecesAreMeasuredFromTheirStart)
{
    std::vector<MomentPiece> pieces;
    for (const auto [x0, x1] : {std::array{0.0, 2000.0}, {2000.0, 5000.0}, {5000.0, kLength}}) {
        const auto& m = kCubic;
        pieces.push_back({x0,
                          x1,
                          {m[0] + x0 * (m[1] + x0 * (m[2] + x0 * m[3])),
                           m[1] + x0 * (2 * m[2] + 3 * x0 * m[3]), m[2] + 3 * x0 * m[3], m[3]},
                          0,
                          0});
    }
    const LateralMesh mesh =
        MeshOf({LateralEnd::fork, LateralEnd::fork, {}}, {kLength, pieces, {}}, kLayer);
    EXPECT_GT(SmallestBeside(mesh, 0.25), 0.9 * kCoarse / 2);
    EXPECT_GT(SmallestBeside(mesh, 0.625), 0.9 * kCoarse / 2);
}

// Beside 1e8 Nmm the rounding of 0.01 Nmm is no jump; beside 1 Nmm it is one.
TEST(LateralMesh, JumpsAreMeasuredByTheLargestMoment)
{
    EXPECT_GT(SmallestBeside(MeshOfTwo({1e8, 0, 0, 0}, 4000, 0.01), 0.5), 0.9 * kCoarse / 2);
    EXPECT_NEAR(SmallestBeside(MeshOfTwo({1, 0, 0, 0}, 4000, 0.01), 0.5), kLayer, 1e-9);
}

// Six elements at least between two restraints, none longer than 0.05: 6, 6 and 15.
TEST(LateralMesh, ElementsBetweenRestraints)
{
    const std::vector<double> held = {0.05 * kLength, 0.25 * kLength};
    const std::array<MomentPiece, 1> pieces = {{{0, kLength, {1e8, 0, 0, 0}, 0, 0}}};
    const LateralMesh mesh =
        MeshOf({LateralEnd::fork, LateralEnd::fork, held}, {kLength, pieces, {}}, 0);
    EXPECT_EQ(mesh.elements, 27U);
    EXPECT_NEAR(mesh.x[6], 0.05, 1e-12);
    EXPECT_NEAR(mesh.x[12], 0.25, 1e-12);
    EXPECT_NEAR(mesh.x[27], 1, 1e-12);
}

// --- Meshes of one even moment -------------------------------------------------------------------

LateralMesh MeshOfEven(const std::vector<double>& held, const std::vector<double>& points,
                       double layer)
{
    const std::array<MomentPiece, 1> pieces = {{{0, kLength, {1e8, 0, 0, 0}, 0, 0}}};
    std::vector<double> places = held;
    std::vector<PointTorque> torques;
    for (double& x : places) {
        x *= kLength;
    }
    for (const double x : points) {
        torques.push_back({x * kLength, 1e6});
    }
    return MeshOf({LateralEnd::fork, LateralEnd::fork, places}, {kLength, pieces, torques}, layer);
}

// Rises from 0 to 1.
void ExpectRising(const LateralMesh& mesh)
{
    ASSERT_LE(mesh.elements, kMaxElements);
    EXPECT_EQ(mesh.x[0], 0);
    EXPECT_NEAR(mesh.x[mesh.elements], 1, 1e-12);
    for (std::size_t i = 0; i < mesh.elements; ++i) {
        EXPECT_GT(mesh.x[i + 1], mesh.x[i]);
    }
}

// Without warping the elements of an interval are alike and not longer than 0.05: 0.8535 takes 18.
TEST(LateralMesh, ElementsWithoutWarpingAreAlike)
{
    const double held = 1 - 0.8535;
    const LateralMesh mesh = MeshOfEven({held}, {}, 0);
    ExpectRising(mesh);
    ASSERT_EQ(mesh.elements, 24U);
    for (std::size_t i = 0; i < 24; ++i) {
        EXPECT_NEAR(mesh.x[i + 1] - mesh.x[i], i < 6 ? held / 6 : 0.8535 / 18, 1e-12);
    }
}

// From a place where warping is disturbed each element is 2.5 times as long as the one before.
TEST(LateralMesh, ElementsGrowAwayFromADisturbance)
{
    const LateralMesh mesh = MeshOfEven({}, {0.4}, kLayer);
    ExpectRising(mesh);
    EXPECT_NEAR(mesh.x[1], kLayer, 1e-12);
    EXPECT_NEAR(mesh.x[2] - mesh.x[1], 2.5 * kLayer, 1e-12);
    EXPECT_NEAR(mesh.x[3] - mesh.x[2], 6.25 * kLayer, 1e-12);
    EXPECT_NEAR(SmallestBeside(mesh, 0.4), kLayer, 1e-12) << "a torque";
}

// The end is refined although the neighbouring break, where only the line goes on, is not.
TEST(LateralMesh, OneSideOfAnIntervalIsRefinedAlone)
{
    const LateralMesh mesh = MeshOfTwo(kCubic, 2800, 0);
    ExpectRising(mesh);
    EXPECT_NEAR(mesh.x[1], kLayer, 1e-12);
    EXPECT_NEAR(mesh.x[mesh.elements] - mesh.x[mesh.elements - 1], kLayer, 1e-12);
    EXPECT_GT(SmallestBeside(mesh, 0.35), 0.9 * kCoarse / 2);
}

// Two torques 0.0161 apart: layers of 0.004 leave room for each other above 2 (0.004 + 0.004), and
// not at 0.0159.
TEST(LateralMesh, LayersOfNeighboursDoNotMeet)
{
    const auto between = [](double apart) {
        const LateralMesh mesh = MeshOfEven({}, {0.5, 0.5 + apart}, 0.004);
        ExpectRising(mesh);
        return std::count_if(mesh.x.begin(), mesh.x.begin() + mesh.elements + 1,
                             [&](double x) { return x > 0.5 + 1e-9 && x < 0.5 + apart - 1e-9; });
    };
    EXPECT_EQ(between(0.0161), 2);
    EXPECT_EQ(between(0.0159), 0);
}

// 16 restraints and as many torques with layers need more elements than there are: all places stay,
// the layers are left out.
TEST(LateralMesh, MorePlacesThanElementsLeaveTheLayersOut)
{
    std::vector<double> held, points;
    for (int i = 1; i <= 16; ++i) {
        held.push_back(i / 17.0);
        points.push_back((i - 0.5) / 17.0);
    }
    const LateralMesh mesh = MeshOfEven(held, points, 1e-4);
    ExpectRising(mesh);
    EXPECT_LT(mesh.elements, kMaxElements);
    for (const double x : held) {
        EXPECT_GT(SmallestBeside(mesh, x), 1e-3);
    }
    for (const double x : points) {
        EXPECT_GT(SmallestBeside(mesh, x), 1e-3);
    }
}

// Up to 47 pieces each beginning is a place of the mesh; more are no lines of a member.
TEST(LateralMesh, BeginningsOfPiecesArePlaces)
{
    for (const int count : {47, 48}) {
        std::vector<MomentPiece> pieces;
        double x = 0;
        for (int i = 0; i < count; ++i) {  // the first 150 mm long, all others alike
            const double to = i == 0 ? 150 : 150 + (kLength - 150) * i / (count - 1);
            pieces.push_back({x, to, {1e8, 0, 0, 0}, 0, 0});
            x = to;
        }
        const LateralMesh mesh =
            MeshOf({LateralEnd::fork, LateralEnd::fork, {}}, {kLength, pieces, {}}, 0);
        ExpectRising(mesh);
        EXPECT_EQ(SmallestBeside(mesh, 150 / kLength) > 0, count == 47);
    }
}

}  // namespace
}  // namespace kestrum
