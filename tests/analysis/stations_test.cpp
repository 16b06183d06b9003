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
    EXPECT_EQ(FaultOf({{.x = -kStationReach}, {.x = 6 + kStationReach}}), StationFault::none);
    EXPECT_EQ(FaultOf({{.x = kStationReach}, {.x = 6 - kStationReach}}), StationFault::none);
    EXPECT_EQ(FaultOf({}), StationFault::no_station);
    EXPECT_EQ(FaultOf({{.x = 0}, {.x = 6.0011}}), StationFault::off_member);
    EXPECT_EQ(FaultOf({{.x = -0.0011}, {.x = 6}}), StationFault::off_member);
    EXPECT_EQ(FaultOf({{.x = 0}, {.x = 3}, {.x = 2.9}, {.x = 6}}), StationFault::not_rising);
    EXPECT_EQ(FaultOf({{.x = 0.5}, {.x = 6}}), StationFault::short_of_start);
    EXPECT_EQ(FaultOf({{.x = 0}, {.x = 5.9}}), StationFault::short_of_end);
    EXPECT_EQ(FaultOf({{.x = 0}, {.x = 2}, {.x = 2}, {.x = 2}, {.x = 6}}), StationFault::repeated);
    EXPECT_EQ(FaultOf({{.x = 0}, {.x = 0}, {.x = 6}}), StationFault::repeated);
    EXPECT_EQ(FaultOf({{.x = 0}, {.x = 6}, {.x = 6}}), StationFault::repeated);
    EXPECT_EQ(FaultOf({{.x = 0}, {.x = kStationSame}, {.x = 6}}), StationFault::repeated);
    EXPECT_EQ(FaultOf({{.x = 0}, {.x = 2 * kStationSame}, {.x = 6}}), StationFault::none);
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
    const auto text = [](const std::vector<Station>& stations) {
        return StationFaultText(CheckStations(stations, 6), stations, 6);
    };
    EXPECT_EQ(text({{.x = 0}, {.x = 6}}), "");
    EXPECT_EQ(text({{.x = 0}, {.x = 3}, {.x = 2.9}, {.x = 6}}), "x falls to 2.9 m");
    EXPECT_EQ(text({{.x = 0}, {.x = 6}, {.x = 6}}),
              "the station x 6 m is repeated (a jump has two rows, inside the member)");
    EXPECT_EQ(text({{.x = 0.5}, {.x = 6}}),
              "the first station x 0.5 m is not the start of the member");
    EXPECT_EQ(text({{.x = 0}, {.x = 5.5}}),
              "the last station x 5.5 m is not the end of the member of 6 m");
    EXPECT_EQ(text({{.x = 0}, {.x = 6, .n = std::numeric_limits<double>::infinity()}}),
              "a force that is not a number");
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

// A pair less than a thousandth of a millimetre apart is one place, and what falls between the two
// rows lies on its right.
TEST(Stations, APairWithARoundingBetweenIsAJump)
{
    const Lines one = LinesOf(Beam(0), {{.x = 0, .vz = 8},
                                        {.x = 2.9999999, .vz = 8, .my = 24},
                                        {.x = 3.0000003, .vz = -5, .my = 15},
                                        {.x = 6, .vz = -5}});
    EXPECT_FLOAT_EQ(one.forces.vzdiag[25], -5);
    EXPECT_FLOAT_EQ(one.forces.mydiag[25], 15);
    EXPECT_NEAR(one.forces.vzdiag[24], 8, 1e-5);
}

TEST(Stations, BetweenTheEvenSectionsAreCheckedToo)
{
    const Lines hogging = LinesOf(Beam(0), {{.x = 0}, {.x = 2.47, .my = -9}, {.x = 3}, {.x = 6}});
    EXPECT_DOUBLE_EQ(hogging.forces.mymin, -9);
    EXPECT_NEAR(hogging.forces.xmymin, 2.47 / 6, 1e-7);
    EXPECT_DOUBLE_EQ(hogging.forces.mymax, 0);
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

TEST(Stations, ChosenCheckPointsReplaceTheSections)
{
    Member own = Beam(0);
    own.cpmode = 1;
    own.cp = {0, 1.5F, 3, 4.5F};
    for (const int count : {1, 2, 3}) {
        own.cpcount = static_cast<i16>(count);
        const Lines one = LinesOf(own, {{.x = 0}, {.x = 6, .my = 12}});
        ASSERT_EQ(one.lines.Sections().size(), static_cast<std::size_t>(count));
        for (std::size_t k = 0; k < one.lines.Sections().size(); ++k) {
            const double share = 0.25 * static_cast<double>(k + 1);
            EXPECT_EQ(one.lines.Sections()[k].xi, share);
            EXPECT_DOUBLE_EQ(one.lines.Sections()[k].my, 12 * share);
        }
    }
}

// Places are one when they are not further apart than 1e-6 m.
TEST(Stations, BesideAnEvenSectionIsASectionOfItsOwn)
{
    EXPECT_EQ(LinesOf(Beam(0), {{.x = 0}, {.x = 2.4000005}, {.x = 6}}).lines.Sections().size(),
              11U);
    EXPECT_EQ(LinesOf(Beam(0), {{.x = 0}, {.x = 2.40001}, {.x = 6}}).lines.Sections().size(), 12U);
}

// 49 stations between the eleven even places, more than the forces can hold; the largest value of
// each line stands behind the others, the first of equal ones counts.
TEST(Stations, ExtremesLookAtEverySection)
{
    std::vector<Station> stations = {{.x = 0}};
    for (int k = 1; k < 50; ++k) {
        stations.push_back({.x = 0.12 * k + 0.05, .vy = 1, .vz = 2, .my = 3, .mz = 4});
    }
    stations.push_back({.x = 6});
    const Lines level = LinesOf(Beam(0), stations);
    ASSERT_GT(level.lines.Sections().size(), 41U);
    EXPECT_EQ(level.forces.mymax, 3);
    EXPECT_EQ(level.forces.xmymax, 0.04);  // the second point of the diagram, 0.24 m
    EXPECT_EQ(level.forces.xvymax, 0.04);
    for (Station& at : stations) {
        at = {.x = at.x, .vy = -at.vy, .vz = -at.vz, .my = -at.my, .mz = -at.mz};
    }
    const Lines low = LinesOf(Beam(0), stations);
    EXPECT_EQ(low.forces.mymin, -3);
    EXPECT_EQ(low.forces.xmymin, 0.04);
    EXPECT_EQ(low.forces.xvymin, 0.04);
    stations[48] = {.x = stations[48].x, .vy = 2, .vz = 3, .my = 5, .mz = 6};
    const Lines peak = LinesOf(Beam(0), stations);
    const double x = static_cast<float>(stations[48].x / 6);
    EXPECT_EQ(peak.forces.vymax, 2);
    EXPECT_EQ(peak.forces.vzmax, 3);
    EXPECT_EQ(peak.forces.mymax, 5);
    EXPECT_EQ(peak.forces.mzmax, 6);
    EXPECT_EQ(peak.forces.xvymax, x);
    EXPECT_EQ(peak.forces.xmymax, x);
    EXPECT_EQ(peak.forces.mymaxabs, 5);
}

// Behind the last station, as far as it may fall short of the end, its values hold; it is no
// section beside that at the end, nor does the pair at a jump leave the member.
TEST(Stations, TheLastStationHoldsToTheEnd)
{
    const Lines one = LinesOf(Beam(0), {{.x = 0}, {.x = 5.9995, .my = 6000}});
    EXPECT_EQ(one.forces.mydiag[50], 6000);
    EXPECT_EQ(one.lines.Sections().size(), 11U);
    const Lines jump = LinesOf(Beam(0), {{.x = 0}, {.x = 5.998, .vz = 1}, {.x = 5.998}, {.x = 6}});
    ASSERT_EQ(jump.lines.Sections().size(), 13U);
    EXPECT_EQ(jump.lines.Sections()[12].xi, 1);
}

TEST(Stations, TheForcesHoldTheSections)
{
    const Lines one = LinesOf(Beam(0), {{.x = 0, .vy = 1, .vz = 2, .my = 3, .mz = 4},
                                        {.x = 6, .vy = 5, .vz = 6, .my = 7, .mz = 8}});
    ASSERT_EQ(one.forces.npts, 10);
    for (std::size_t k = 0; k < one.lines.Sections().size(); ++k) {
        const StationSection& at = one.lines.Sections()[k];
        EXPECT_EQ(one.forces.xi[k], at.xi);
        EXPECT_EQ(one.forces.vysec[k], at.vy);
        EXPECT_EQ(one.forces.vzsec[k], at.vz);
        EXPECT_EQ(one.forces.mysec[k], at.my);
        EXPECT_EQ(one.forces.mzsec[k], at.mz);
    }
    EXPECT_EQ(one.forces.vzsec[0], 2);
    EXPECT_EQ(one.forces.vysec[0], 1);
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
    const Forces forces = LinesOf(s, force).forces;
    EXPECT_NEAR(forces.dzdiag[25], 10.0 * 216 / 48 / test::kStiffnessY * 1000, 1e-5);
    // P x (3 l^2 - 4 x^2)/48 EI on either side, here x = 1.2 m.
    const double at = 10.0 * 1.2 * (3 * 36 - 4 * 1.44) / 48 / test::kStiffnessY * 1000;
    EXPECT_NEAR(forces.dzdiag[10], at, 1e-5);
    EXPECT_NEAR(forces.dzdiag[40], at, 1e-5);
}

// A moment at one end: M l^2/(16 EI) in the middle; about z I is a quarter.
TEST(Stations, DeflectionUnderAMomentThatFallsToNothing)
{
    Member s = Beam(0);
    s.method = Method::annex_a;
    const double middle = 20.0 * 36 / 16 / test::kStiffnessY * 1000;  // mm
    const Forces y = LinesOf(s, {{.x = 0}, {.x = 6, .my = 20}}).forces;
    EXPECT_NEAR(y.dzdiag[25], middle, 1e-5);
    EXPECT_EQ(y.dymaxabs, 0);
    const Forces z = LinesOf(s, {{.x = 0, .mz = 20}, {.x = 6}}).forces;
    EXPECT_NEAR(z.dydiag[25], 4 * middle, 1e-4);
    EXPECT_EQ(z.dzmaxabs, 0);
}

// The line is held where the stations begin and end: M s (l - s)/(2 EI).
TEST(Stations, DeflectionCountsFromTheFirstStation)
{
    Member s = Beam(0);
    s.method = Method::annex_a;
    constexpr double kOff = 0.0009;  // m
    const Forces forces = LinesOf(s, {{.x = kOff, .my = 20}, {.x = 6, .my = 20}}).forces;
    EXPECT_NEAR(forces.dzdiag[25], 20.0 * (3 - kOff) * 3 / 2 / test::kStiffnessY * 1000, 1e-6);
}

TEST(Stations, SteepestFallOfShearIsTheLoadOfHatBeams)
{
    Member s = Beam(0);
    s.family = 24;
    const Lines one = LinesOf(
        s, {{.x = 0, .vz = 30}, {.x = 2, .vz = 20}, {.x = 2, .vz = -2}, {.x = 6, .vz = -10}});
    EXPECT_DOUBLE_EQ(one.forces.qsum, 5);
    // Of equal sizes the first: down, not up.
    EXPECT_DOUBLE_EQ(
        LinesOf(s, {{.x = 0, .vz = 9}, {.x = 3, .vz = -6}, {.x = 6, .vz = 9}}).forces.qsum, 5);
    // Of a case with fewer stations than the one before: 30 kN over 6 m.
    Lines kept = LinesOf(s, {{.x = 0, .vz = 30}, {.x = 2, .vz = 10}, {.x = 6.0005, .vz = -300}});
    kept.lines.Fill(s, s, std::vector<Station>{{.x = 0, .vz = 15}, {.x = 5.9995, .vz = -15}},
                    kept.forces);
    EXPECT_DOUBLE_EQ(kept.forces.qsum, 30 / 5.9995);
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
    s.family = 28;  // N, My and Vz
    const Lines flat = LinesOf(s, stations);
    EXPECT_EQ(flat.forces.ned, 7);
    EXPECT_EQ(flat.forces.mymax, 3);
    EXPECT_EQ(flat.forces.mzmin, 0);
    EXPECT_EQ(flat.forces.vymax, 0);
    EXPECT_EQ(flat.forces.haszloads, kFalse);
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

// A case after another one reads its lines as if it were the first.
TEST(Stations, NothingIsKeptThatTheNextCaseDoesNotShare)
{
    const auto same = [](const ProjectState& before, const std::vector<Station>& first,
                         const ProjectState& now, const std::vector<Station>& next) {
        Lines kept = LinesOf(before, first);
        kept.lines.Fill(now, now, next, kept.forces);
        Lines fresh = LinesOf(now, next);
        return kept.forces == fresh.forces &&
               kept.lines.Sections().size() == fresh.lines.Sections().size();
    };
    const std::vector<Station> stations = {{.x = 0.0005, .my = 5}, {.x = 3, .my = 9}, {.x = 6}};
    const std::vector<Station> moved = {{.x = 0, .my = 5}, {.x = 2, .my = 9}, {.x = 6.0005}};
    Member own = Beam(0);
    own.cpmode = 1;
    own.cpcount = 2;
    own.cp = {0, 1, 2, 4};
    Member two = own, three = own, longer = own;
    two.cp[2] = 2.5F;
    three.cpcount = 3;
    longer.l = 6.0008F;
    EXPECT_TRUE(same(Beam(0), stations, Beam(0), stations));
    EXPECT_TRUE(same(Beam(0), stations, Beam(0), moved));
    EXPECT_TRUE(same(Beam(0), {{.x = 0}, {.x = 3, .my = 9}, {.x = 5.9995}}, Beam(0),
                     {{.x = 0}, {.x = 3, .my = 9}, {.x = 5.9995, .my = 4}, {.x = 6.0005}}));
    EXPECT_TRUE(same(Beam(0), stations, own, stations));
    EXPECT_TRUE(same(own, stations, Beam(0), stations));
    EXPECT_TRUE(same(own, stations, two, stations));
    EXPECT_TRUE(same(own, stations, three, stations));
    EXPECT_TRUE(same(own, stations, longer, stations));
    EXPECT_TRUE(same(Beam(0), stations, Beam(0, 6.0008F), stations));
}

}  // namespace
}  // namespace kestrum
