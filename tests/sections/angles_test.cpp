#include "sections/angles.h"

#include "core/arithmetic_trap.h"
#include "core/project_state.h"
#include "support/members.h"
#include "support/worked.h"

#include <cmath>
#include <numbers>

namespace kestrum {
namespace {

using std::numbers::pi;
using std::numbers::sqrt2;

Member AngleOf(int family, std::string_view key)
{
    return Member::Bare(family).Row(key).Measured();
}

// L 100x10: A 1915, e 28.22, v1 39.92, Iy 176.7, Iu 280.3, Iv 73.01 cm4, r 12, by hand.
TEST(EqualAngle, DerivesGeometryAndModuli)
{
    const ProjectState s = AngleOf(10, "100x10");
    EXPECT_EQ(s.b, 100);
    EXPECT_EQ(s.tf, 10);
    EXPECT_EQ(s.tmax, 10);
    EXPECT_EQ(s.hw, 90);
    EXPECT_EQ(s.d, 78);  // 100 - 10 - 12
    EXPECT_EQ(s.cflange, 78);
    EXPECT_EQ(s.aflange, 1000);
    EXPECT_EQ(s.aweb, 900);
    EXPECT_EQ(s.alfa, 45);
    EXPECT_EQ(s.iz, s.iy);
    EXPECT_EQ(s.ez, s.ey);
    ExpectWorked(s.wy1, 1.767e6 / 71.78, "wy1");
    ExpectWorked(s.wy2, 1.767e6 / 28.22, "wy2");
    ExpectWorked(s.wz1, s.wy2, "wz1");
    ExpectWorked(s.wz2, s.wy1, "wz2");
    ExpectWorked(s.it, 1000 * 95 * 2 / 3.0, "it");
    ExpectWorked(s.iw, 1e6 * 1000 / 18, "iw");
    ExpectWorked(s.surface, (400 - 24 + 6 * pi) / 1000, "surface");
    ExpectWorked(s.weight, s.a * 7850e-6, "weight");
}

// One elastic modulus serves all classes, that of the tips.
TEST(EqualAngle, HasElasticModuliOnly)
{
    const ProjectState s = AngleOf(10, "100x10");
    for (const float w : {s.wely, s.wply, s.weffy}) {
        EXPECT_EQ(w, s.wy1);
    }
    for (const float w : {s.welz, s.wplz, s.weffz}) {
        EXPECT_EQ(w, s.wz2);
    }
    EXPECT_EQ(s.aeff, s.a);
}

// Tips at mid-thickness: u = (100 - 5)/sqrt 2, v = (100 + 5)/sqrt 2 - v1. The heel has no distance
// from the u axis and no modulus there.
TEST(EqualAngle, PointsLieSymmetricAboutTheStrongAxisD55)
{
    const ProjectState s = AngleOf(10, "100x10");
    ExpectWorked(s.u1, 95 / sqrt2, "u1");
    EXPECT_EQ(s.u2, s.u1);
    ExpectWorked(s.v3, 105 / sqrt2 - 39.92, "v3", 3e-4);
    EXPECT_EQ(s.v2, s.v3);
    EXPECT_EQ(s.cu, 0);
    EXPECT_EQ(s.wu[2], 0);
    ExpectWorked(s.wu[1], 2.803e6 / 67.175, "wu1");
    EXPECT_EQ(s.wu[3], s.wu[1]);
    ExpectWorked(s.wv[2], 730.1e3 / 39.92, "wv2", 3e-4);
    EXPECT_EQ(s.wv[1], s.wv[3]);
    // The outermost corner of the tip lies 100/sqrt 2 off: 5 % less than the modulus in use.
    EXPECT_NEAR(s.wu[1] / (2.803e6 / (100 / sqrt2)), 1.0526, 0.0005);
}

// L 200x100x10: A 2924, ey 69.3, ez 20.13, v1 37.11, tan 0.2633, r 15, by hand.
TEST(UnequalAngle, DerivesGeometryAndModuli)
{
    const ProjectState s = AngleOf(11, "200x100x10");
    EXPECT_EQ(s.h, 200);
    EXPECT_EQ(s.b, 100);
    EXPECT_EQ(s.cb, 75);  // 100 - 10 - 15
    EXPECT_EQ(s.ch, 175);
    EXPECT_EQ(s.cflange, 75);
    ExpectWorked(s.alfa, std::atan(0.2633) * 180 / pi, "alfa");
    ExpectWorked(s.wy1, 12.19e6 / (200 - 69.3), "wy1", 5e-4);
    ExpectWorked(s.wy2, 12.19e6 / 69.3, "wy2", 5e-4);
    ExpectWorked(s.wz1, 2.103e6 / 20.13, "wz1", 5e-4);
    ExpectWorked(s.wz2, 2.103e6 / (100 - 20.13), "wz2", 5e-4);
    ExpectWorked(s.it, 1000 * (95 + 195) / 3.0, "it");
    ExpectWorked(s.iw, (8e6 * 1000 + 1e6 * 1000) / 9, "iw");
    ExpectWorked(s.surface, (600 - 30 + 7.5 * pi) / 1000, "surface");
}

TEST(UnequalAngle, PointsLieAtMidThicknessOfTheTipsD55)
{
    const ProjectState s = AngleOf(11, "200x100x10");
    const double cosine = 1 / std::sqrt(1 + 0.2633 * 0.2633);
    const double sine = 0.2633 * cosine;
    const double c = 69.3 * cosine - 20.13 * sine;
    ExpectWorked(s.cu, c, "cu", 3e-4);
    ExpectWorked(s.u1, 100 * sine + c - 5 * cosine, "u1", 3e-4);
    ExpectWorked(s.u2, 200 * cosine - c - 5 * sine, "u2", 3e-4);
    ExpectWorked(s.v2, 200 * sine - 37.11 + 5 * cosine, "v2", 1e-3);
    ExpectWorked(s.v3, 100 * cosine - 37.11 + 5 * sine, "v3", 3e-4);
    ExpectWorked(s.wu[1] * s.u2, s.iu, "point 1, u");
    ExpectWorked(s.wv[1] * s.v2, s.iv, "point 1, v");
    ExpectWorked(s.wu[2] * s.cu, s.iu, "point 2, u");
    ExpectWorked(s.wv[2] * s.v1, s.iv, "point 2, v");
    ExpectWorked(s.wu[3] * s.u1, s.iu, "point 3, u");
    ExpectWorked(s.wv[3] * s.v3, s.iv, "point 3, v");
}

// All rows: the points are on their sides of the axes.
TEST(UnequalAngle, DistancesArePositive)
{
    Member s = Member::Bare(11);
    for (int row = 0; row < RowCount(Table::l2); ++row) {
        s.Row(row);
        PropertiesAngle(Delivered(), s, s);
        for (const float distance : {s.u1, s.u2, s.v1, s.v2, s.v3, s.cu}) {
            EXPECT_GT(distance, 0) << RowName(Delivered(), Table::l2, row);
        }
    }
}

TEST(Angle, BehindTheTableDividesByZero)
{
    for (const auto& [family, row] : {std::pair{10, 62}, {11, 49}}) {
        Member s = Member::Bare(family);
        s.Row(row);
        ArmTrap();
        PropertiesAngle(Delivered(), s, s);
        EXPECT_THROW(CheckTrap(), CalculationStop) << family;
    }
    ArmTrap();
}

}  // namespace
}  // namespace kestrum
