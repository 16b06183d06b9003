#include "analysis/stations.h"

#include "analysis/member.h"
#include "core/member_choices.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

namespace kestrum {
namespace {

using test::Beam;

struct Lines {
    Forces forces{};
    StationLines lines;
};

Lines LinesOf(const ProjectState& s, const std::vector<Station>& stations)
{
    Lines out;
    out.lines.Fill(s, s, stations, out.forces);
    return out;
}

StationFault FaultOf(const std::vector<Station>& stations, double l = 6)
{
    return CheckStations(stations, l).fault;
}

TEST(Stations, RunFromEndToEnd)
{
    EXPECT_EQ(FaultOf({{.x = 0}, {.x = 6}}), StationFault::none);
    EXPECT_EQ(FaultOf({{.x = 0}, {.x = 2}, {.x = 2}, {.x = 6}}), StationFault::none);
    EXPECT_EQ(FaultOf({{.x = -0.0009}, {.x = 6.0009}}), StationFault::none);
    EXPECT_EQ(FaultOf({}), StationFault::no_station);
    EXPECT_EQ(FaultOf({{.x = 0}, {.x = 6.0011}}), StationFault::off_member);
    EXPECT_EQ(FaultOf({{.x = -0.0011}, {.x = 6}}), StationFault::off_member);
    EXPECT_EQ(FaultOf({{.x = 0}, {.x = 3}, {.x = 2.9}, {.x = 6}}), StationFault::not_rising);
    EXPECT_EQ(FaultOf({{.x = 0.5}, {.x = 6}}), StationFault::short_of_start);
    EXPECT_EQ(FaultOf({{.x = 0}, {.x = 5.9}}), StationFault::short_of_end);
    EXPECT_EQ(FaultOf({{.x = 0}, {.x = 2}, {.x = 2}, {.x = 2}, {.x = 6}}), StationFault::repeated);
    EXPECT_EQ(FaultOf({{.x = 0}, {.x = 0}, {.x = 6}}), StationFault::repeated);
    EXPECT_EQ(FaultOf({{.x = 0}, {.x = 6}, {.x = 6}}), StationFault::repeated);
    EXPECT_EQ(FaultOf({{.x = 0}}, 0.0005), StationFault::repeated);
    for (const double bad :
         {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity()}) {
        EXPECT_EQ(FaultOf({{.x = 0}, {.x = 6, .mz = bad}}), StationFault::not_finite);
        EXPECT_EQ(FaultOf({{.x = bad}, {.x = 6}}), StationFault::not_finite);
    }
}

TEST(Stations, FaultsNameThePlace)
{
    const std::vector<Station> off = {{.x = 0}, {.x = 7.25}};
    EXPECT_EQ(StationFaultText(CheckStations(off, 6), off, 6),
              "the station x 7.25 m lies off the member of 6 m");
    EXPECT_EQ(StationFaultText(CheckStations({}, 6), {}, 6), "no stations");
}

TEST(Stations, AreStraightBetween)
{
    const Lines one = LinesOf(Beam(0), {{.x = 0, .n = 5, .my = 10, .mz = -4},
                                        {.x = 3, .n = 5, .my = 40, .mz = -4},
                                        {.x = 6, .n = 5, .my = -20, .mz = 2}});
    EXPECT_FLOAT_EQ(one.forces.mydiag[0], 10);
    EXPECT_FLOAT_EQ(one.forces.mydiag[10], 10 + 30 * 1.2F / 3);  // x = 1.2 m
    EXPECT_FLOAT_EQ(one.forces.mydiag[25], 40);
    EXPECT_FLOAT_EQ(one.forces.mydiag[40], 40 - 60 * 1.8F / 3);  // x = 4.8 m
    EXPECT_FLOAT_EQ(one.forces.mydiag[50], -20);
    EXPECT_FLOAT_EQ(one.forces.mzdiag[50], 2);
    EXPECT_DOUBLE_EQ(one.forces.mymax, 40);
    EXPECT_DOUBLE_EQ(one.forces.xmymax, 0.5);
    EXPECT_DOUBLE_EQ(one.forces.mydesign, 40);
    EXPECT_DOUBLE_EQ(one.forces.ned, 5);
    EXPECT_DOUBLE_EQ(one.forces.psiy, -0.5);
}

TEST(Stations, TwoAtAPlaceAreAJump)
{
    const Lines one = LinesOf(Beam(0), {{.x = 0, .vz = 8},
                                        {.x = 2.4, .vz = 8, .my = 19.2},
                                        {.x = 2.4, .vz = -4, .my = 14.4},
                                        {.x = 6, .vz = -4}});
    EXPECT_FLOAT_EQ(one.forces.vzdiag[19], 8);
    EXPECT_FLOAT_EQ(one.forces.vzdiag[20], -4);  // the right side at 2.4 m
    EXPECT_FLOAT_EQ(one.forces.mydiag[20], 14.4F);
    ASSERT_EQ(one.lines.Sections().size(), 13U);  // eleven and the pair
    EXPECT_FLOAT_EQ(one.lines.Sections()[11].xi, 0.999F * 0.4F);
    EXPECT_NEAR(one.lines.Sections()[11].my, 8 * 0.999 * 2.4, 1e-6);
    EXPECT_DOUBLE_EQ(one.lines.Sections()[12].vz, -4);
}

TEST(Stations, BetweenTheEvenSectionsAreCheckedToo)
{
    const std::vector<Station> stations = {{.x = 0}, {.x = 2.47, .my = 9}, {.x = 3}, {.x = 6}};
    const Lines one = LinesOf(Beam(0), stations);
    ASSERT_EQ(one.lines.Sections().size(), 12U);
    EXPECT_DOUBLE_EQ(one.forces.mymax, 9);
    Member own = Beam(0);
    own.cpmode = 1;
    own.cpcount = 1;
    own.cp[1] = 3;
    EXPECT_EQ(LinesOf(own, stations).lines.Sections().size(), 1U);
}

TEST(Stations, LargestCompressionIsThatOfTheCase)
{
    EXPECT_EQ(LinesOf(Beam(0), {{.x = 0, .n = -3}, {.x = 6, .n = 12}}).forces.ned, 12);
    EXPECT_EQ(LinesOf(Beam(0), {{.x = 0, .n = -3}, {.x = 6, .n = -8}}).forces.ned, -3);
}

TEST(Stations, AnAxisCountsAsLoadedWhereForcesBendAboutIt)
{
    const Lines one = LinesOf(Beam(0), {{.x = 0, .mz = 1}, {.x = 6}});
    EXPECT_EQ(one.forces.hasyloads, kFalse);
    EXPECT_EQ(one.forces.haszloads, kTrue);
}

// Uniform moment: d = M l^2/(8 EI) in the middle; of a cantilever M l^2/(2 EI) at the tip, upwards.
TEST(Stations, DeflectionsOfAnnexABelongToTheMoments)
{
    Member s = Beam(0);
    s.method = Method::annex_a;
    const std::vector<Station> even = {{.x = 0, .my = 20}, {.x = 6, .my = 20}};
    const double middle = 20.0 * 36 / 8 / test::kStiffnessY * 1000;  // mm
    EXPECT_NEAR(LinesOf(s, even).forces.dzdiag[25], middle, 1e-5);
    EXPECT_NEAR(LinesOf(s, even).forces.dzmaxabs, middle, 1e-5);
    s.supportcase = SupportCase::cantilever;
    EXPECT_NEAR(LinesOf(s, even).forces.dzdiag[50], -4 * middle, 1e-4);
    s.method = Method::annex_b;
    EXPECT_EQ(LinesOf(s, even).forces.dzmaxabs, 0);
}

// A triangle on two supports: P l^3/(48 EI).
TEST(Stations, DeflectionUnderAForceInTheMiddle)
{
    Member s = Beam(0);
    s.method = Method::annex_a;
    const std::vector<Station> force = {{.x = 0}, {.x = 3, .my = 15}, {.x = 6}};  // P 10 kN
    EXPECT_NEAR(LinesOf(s, force).forces.dzdiag[25], 10.0 * 216 / 48 / test::kStiffnessY * 1000,
                1e-5);
}

TEST(Stations, SteepestFallOfShearIsTheLoadOfHatBeams)
{
    Member s = Beam(0);
    s.family = 24;
    const Lines one = LinesOf(
        s, {{.x = 0, .vz = 30}, {.x = 2, .vz = 20}, {.x = 2, .vz = -2}, {.x = 6, .vz = -10}});
    EXPECT_DOUBLE_EQ(one.forces.qsum, 5);
}

TEST(Stations, WhatTheFamilyDoesNotCarryCountsAsNothingAndIsTold)
{
    Member s = Beam(0);
    s.family = 24;  // My and Vz only
    const std::vector<Station> stations = {{.x = 0, .n = 7, .my = 3, .mz = -2}, {.x = 6, .vy = 4}};
    const Lines one = LinesOf(s, stations);
    EXPECT_EQ(one.forces.ned, 0);
    EXPECT_EQ(one.forces.mzmin, 0);
    EXPECT_EQ(one.forces.mymax, 3);
    const NotCarried beyond = NotCarriedBy(s, stations);
    EXPECT_TRUE(beyond.any());
    EXPECT_EQ(beyond.n, 7);
    EXPECT_EQ(beyond.y, 0);
    EXPECT_EQ(beyond.z, 4);
    EXPECT_FALSE(NotCarriedBy(Beam(0), stations).any());
}

TEST(Stations, NewPlacesAreFoundAgain)
{
    const Member s = Beam(0);
    Lines one = LinesOf(s, {{.x = 0}, {.x = 3, .my = 10}, {.x = 6}});
    one.lines.Fill(s, s, std::vector<Station>{{.x = 0}, {.x = 1.5, .my = 10}, {.x = 6}},
                   one.forces);
    EXPECT_FLOAT_EQ(one.forces.mydiag[25], 10 * 3 / 4.5F);
    ProjectState longer = s;
    longer.l = 12;
    one.lines.Fill(longer, longer, std::vector<Station>{{.x = 0}, {.x = 1.5, .my = 9}, {.x = 12}},
                   one.forces);
    EXPECT_FLOAT_EQ(one.forces.mydiag[25], 9 * 6 / 10.5F);
}

}  // namespace
}  // namespace kestrum
