#include "standard/station_cases.h"

#include "standard/standard_member.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace kestrum {
namespace {

using standard::CheckId;
using standard::StationCases;
using standard::StationResult;

StationResult RatedAt(const ProjectState& s, const std::vector<Station>& stations)
{
    StationCases cases(Delivered(), s);
    EXPECT_EQ(cases.reason(), "");
    return cases.Case(stations);
}

// Uniform load on two supports.
std::vector<Station> Uniform(double l, double n, double q, int pieces)
{
    std::vector<Station> stations;
    for (int i = 0; i <= pieces; ++i) {
        const double x = l * i / pieces;
        stations.push_back({.x = x, .n = n, .vz = q * (l / 2 - x), .my = q * x * (l - x) / 2});
    }
    return stations;
}

Member Beam(std::string_view name, float length, i16 method)
{
    Member s = Unloaded(length, 235).Section(name);
    s.ltb = 1;
    s.ltbcurve = 3;
    s.method = method;
    s.pmdir.fill(1);
    return s;
}

// A moment line that is straight is the same line from loads, end forces and stations. Forces are
// kept in single precision where they are inputs.
TEST(StationCases, StraightLinesGiveTheResultOfEndForces)
{
    std::mt19937 random(31);
    std::uniform_real_distribution<float> end(-60, 60), axial(-200, 300);
    for (int turn = 0; turn < 60; ++turn) {
        SCOPED_TRACE(turn);
        Member s = Beam(turn % 3 == 0   ? "IPE 300"
                        : turn % 3 == 1 ? "HEB 200"
                                        : "UPE 200",
                        5, turn % 2 == 0 ? 1 : 2);
        s.restraints = turn % 4 == 3 ? 2 : 0;
        s.loadlevel = static_cast<i16>(1 + turn % 3);
        s.loadmode = 0;
        s.ne = axial(random);
        s.my1 = end(random);
        s.my2 = end(random);
        s.mz1 = 0.1F * end(random);
        s.mz2 = 0.1F * end(random);
        s.vz1 = s.vz2 = (s.my2 - s.my1) / 5;
        s.vy1 = s.vy2 = (s.mz2 - s.mz1) / 5;
        const auto whole = Rated(s);
        std::vector<Station> stations;
        for (const double t : {0.0, 0.3, 0.5, 1.0}) {
            stations.push_back({.x = 5 * t,
                                .n = s.ne,
                                .vy = s.vy1,
                                .vz = s.vz1,
                                .my = s.my1 + t * (static_cast<double>(s.my2) - s.my1),
                                .mz = s.mz1 + t * (static_cast<double>(s.mz2) - s.mz1)});
        }
        const StationResult result = RatedAt(s, stations);
        ASSERT_TRUE(whole.rated && result.rated);
        EXPECT_NEAR(result.ir, whole.ir, 1e-5 * whole.ir);
        EXPECT_EQ(result.governing, whole.governing);
    }
}

// A force on the beam: its place is a jump of the shear, its height above the shear centre counts.
TEST(StationCases, AForceGivesTheResultOfTheLoadAtEveryLevel)
{
    for (const i16 level : {i16{1}, i16{2}, i16{3}}) {
        for (const float a : {1.5F, 2.4F, 4.1F}) {
            SCOPED_TRACE(std::to_string(level) + " at " + std::to_string(a));
            Member s = Beam("IPE 300", 6, 2);
            s.loadlevel = level;
            s.pm[1] = 30;
            s.pmx[1] = a;
            s.nload[1] = 60;
            const auto whole = Rated(s);
            const double top = 30.0 * a * (6.0 - a) / 6;
            const StationResult result =
                RatedAt(s, {{.x = 0, .n = 60, .vz = 30 * (6.0 - a) / 6},
                            {.x = a, .n = 60, .vz = 30 * (6.0 - a) / 6, .my = top},
                            {.x = a, .n = 60, .vz = -30.0 * a / 6, .my = top},
                            {.x = 6, .n = 60, .vz = -30.0 * a / 6}});
            EXPECT_NEAR(result.ir, whole.ir, 1e-5 * whole.ir);
            EXPECT_EQ(result.governing, whole.governing);
        }
    }
}

// More stations on the straight parts of the same line change nothing.
TEST(StationCases, StationsOnAStraightPartAreNoLoads)
{
    Member s = Beam("IPE 300", 6, 2);
    s.pm[1] = 30;
    s.pmx[1] = 2;
    s.nload[1] = 60;
    const auto whole = Rated(s);
    std::vector<Station> stations;
    for (const double x : {0.0, 1.0, 2.0}) {
        stations.push_back({.x = x, .n = 60, .vz = 20, .my = 20 * x});
    }
    for (const double x : {2.0, 3.0, 4.0, 5.0, 6.0}) {
        stations.push_back({.x = x, .n = 60, .vz = -10, .my = 10 * (6 - x)});
    }
    const StationResult result = RatedAt(s, stations);
    EXPECT_NEAR(result.ir, whole.ir, 1e-5 * whole.ir);
    EXPECT_EQ(result.governing, whole.governing);
}

// The chords of a parabola miss 1 percent of its rise with ten of them, a quarter of that with 20.
TEST(StationCases, UniformLoadsComeWithinTheChordErrorAtEveryLevel)
{
    for (const i16 level : {i16{1}, i16{2}, i16{3}}) {
        for (const i16 method : {i16{1}, i16{2}}) {
            SCOPED_TRACE(level);
            Member s = Beam("IPE 330", 7, method);
            s.loadlevel = level;
            s.qload[1] = 9;
            s.nload[1] = 80;
            const auto whole = Rated(s);
            const StationResult ten = RatedAt(s, Uniform(7, 80, 9, 10));
            const StationResult twenty = RatedAt(s, Uniform(7, 80, 9, 20));
            EXPECT_NEAR(ten.ir, whole.ir, 0.01 * whole.ir);
            EXPECT_NEAR(twenty.ir, whole.ir, 0.0025 * whole.ir);
            EXPECT_EQ(ten.governing, whole.governing);
        }
    }
}

// A load on the top flange lowers the critical moment: it is found in the lines.
TEST(StationCases, TheLevelOfTheLoadsActs)
{
    Member s = Beam("IPE 300", 8, 2);
    const auto ratio = [&](i16 level) {
        s.loadlevel = level;
        return RatedAt(s, Uniform(8, 0, 8, 10)).ir;
    };
    EXPECT_GT(ratio(1), 1.1 * ratio(2));
    EXPECT_LT(ratio(3), 0.95 * ratio(2));
}

// Four digits of a table bend a straight line: they must not make a loaded one of it.
TEST(StationCases, RoundedStraightLinesAreStraight)
{
    Member s = Beam("HEB 200", 4, 2);
    s.ly = s.lz = 1;
    std::vector<Station> rounded, exact;
    for (int i = 0; i <= 10; ++i) {
        const double my = 33.333 - 33.333 * i / 10;
        exact.push_back({.x = 0.4 * i, .n = 500, .vz = -8.33325, .my = my});
        rounded.push_back({.x = 0.4 * i, .n = 500, .vz = -8.333, .my = std::round(100 * my) / 100});
    }
    EXPECT_NEAR(RatedAt(s, rounded).ir, RatedAt(s, exact).ir, 2e-4);
}

// 6.2.4 at the place; 6.3 under the largest compression.
TEST(StationCases, VaryingAxialForce)
{
    Member s = Beam("HEB 200", 4, 2);
    const StationResult varied = RatedAt(s, {{.x = 0, .n = 800}, {.x = 4, .n = -900}});
    const StationResult even = RatedAt(s, {{.x = 0, .n = 800}, {.x = 4, .n = 800}});
    EXPECT_DOUBLE_EQ(varied.ir, even.ir);  // flexural buckling about z
    EXPECT_EQ(varied.governing, CheckId::flexural_z);
    const StationResult pulled = RatedAt(s, {{.x = 0, .n = -100}, {.x = 4, .n = -900}});
    EXPECT_EQ(pulled.governing, CheckId::section_n);
    EXPECT_NEAR(pulled.ir, 900e3 / (7808 * 235), 1e-3);  // A of an HEB 200
    EXPECT_DOUBLE_EQ(pulled.check.place, 1);
}

// A thousand stations of a parabola are no more than a few chords.
TEST(StationCases, ManyStationsAreThinnedWhereTheyBendLittle)
{
    Member s = Beam("IPE 300", 6, 2);
    s.qload[1] = 5;
    const auto whole = Rated(s);
    const StationResult many = RatedAt(s, Uniform(6, 0, 5, 1000));
    EXPECT_TRUE(many.rated);
    EXPECT_NEAR(many.ir, whole.ir, 1e-3 * whole.ir);
    auto peak = Uniform(6, 0, 5, 1000);
    peak[317].my = 60;  // stays, whatever is left out
    EXPECT_GT(RatedAt(s, peak).ir, 1.5 * many.ir);
}

TEST(StationCases, ManyJumpsAreRefusedByName)
{
    std::vector<Station> jumps = {{.x = 0}};
    for (int i = 1; i < 150; ++i) {
        jumps.push_back({.x = 0.04 * i, .vz = 1});
        jumps.push_back({.x = 0.04 * i, .vz = -1});
    }
    jumps.push_back({.x = 6});
    const StationResult result = RatedAt(Beam("IPE 300", 6, 2), jumps);
    EXPECT_FALSE(result.rated);
    EXPECT_EQ(result.reason, "more stations than the standard basis takes");
}

TEST(StationCases, GoOnWhereTheyAreMoved)
{
    const std::vector<Station> stations = {{.x = 0, .n = 50, .my = 20},
                                           {.x = 6, .n = 50, .my = 20}};
    StationCases first(Delivered(), Beam("IPE 300", 6, 2)),
        second(Delivered(), Beam("HEB 200", 6, 2));
    const double ratio = first.Case(stations).ir;
    ASSERT_GT(ratio, 0);
    StationCases moved = std::move(first);
    EXPECT_EQ(moved.Case(stations).ir, ratio);
    second = std::move(moved);
    EXPECT_EQ(second.Case(stations).ir, ratio);
}

TEST(StationCases, AMemberThatCannotBeCalculatedHasItsReasonInEveryCase)
{
    Member s = Beam("IPE 300", 6, 2);
    s.gammam1 = 0;
    StationCases cases(Delivered(), s);
    ASSERT_FALSE(cases.reason().empty());
    const StationResult result =
        cases.Case(std::vector<Station>{{.x = 0, .n = 5}, {.x = 6, .n = 5}});
    EXPECT_FALSE(result.rated);
    EXPECT_EQ(result.reason, cases.reason());
}

TEST(StationCases, NoForceGivesNoRatio)
{
    const StationResult result = RatedAt(Beam("IPE 300", 6, 2), {{.x = 0}, {.x = 6}});
    EXPECT_FALSE(result.rated);
    EXPECT_EQ(result.reason, "no force acts");
}

TEST(StationCases, AFloorLeavesLargerRatiosAsTheyAre)
{
    Member s = Beam("IPE 300", 6, 1);
    StationCases cases(Delivered(), s);
    const auto stations = Uniform(6, 150, 9, 10);
    const double ir = cases.Case(stations).ir;
    EXPECT_EQ(cases.Case(stations, 0.5 * ir).ir, ir);
    EXPECT_EQ(cases.Case(stations, ir).ir, ir);
    EXPECT_LE(cases.Case(stations, 2 * ir).ir, 2 * ir);
}

// --- Straight lines and loads that are found -----------------------------------------------------

double Interaction(const ProjectState& s, const std::vector<Station>& stations)
{
    StationCases cases(Delivered(), s);
    return cases.ResultOf(stations).checks[CheckId::eq661].ir;
}

// A line from `start` to 0 that leaves its chord by `off` in the middle.
std::vector<Station> BentLine(double length, double n, double start, double off,
                              double Station::*moment)
{
    std::vector<Station> stations;
    for (const double t : {0.0, 0.5, 1.0}) {
        Station at{.x = length * t, .n = n};
        at.*moment = start * (1 - t) + (t == 0.5 ? off : 0);
        stations.push_back(at);
    }
    return stations;
}

// Just within the limit the line counts as the straight one, just beyond it does not.
void ExpectStraightWithin(double limit, const ProjectState& s, double n, double start,
                          double Station::*moment)
{
    const double l = s.l;
    const double straight = Interaction(s, BentLine(l, n, start, 0, moment));
    EXPECT_NEAR(Interaction(s, BentLine(l, n, start, 0.996 * limit, moment)) / straight, 1, 1e-12);
    EXPECT_GT(std::abs(Interaction(s, BentLine(l, n, start, 1.004 * limit, moment)) - straight),
              1e-7 * straight);
}

// 0.2 percent of the largest moment; of small ones 1.1 Nm, but at most a thousandth of the elastic
// resistance about the same axis.
TEST(StationCases, HowFarAStraightLineMayBeRounded)
{
    Member s = Beam("HEB 200", 4, 2);
    ExpectStraightWithin(0.002 * 10, s, 500, 10, &Station::my);
    ExpectStraightWithin(0.002 * 6, s, 500, 6, &Station::mz);
    ExpectStraightWithin(1.1e-3, s, 500, 0.5, &Station::my);
    ExpectStraightWithin(1.1e-3, s, 500, 0.5, &Station::mz);
    Member small = Beam("IPE 80", 1, 2).Measured();
    ASSERT_LT(small.welz * 235e-6, 1);
    ExpectStraightWithin(1.1e-3, small, 50, 0.3, &Station::my);
    ExpectStraightWithin(small.welz * 235e-9, small, 50, 0.3, &Station::mz);
}

std::vector<Station> Mirrored(const std::vector<Station>& stations)
{
    std::vector<Station> other(stations.rbegin(), stations.rend());
    for (Station& at : other) {
        at.x = stations.back().x - at.x;
        at.vz = -at.vz;
        at.vy = -at.vy;
    }
    return other;
}

// Loads that rise along the member, a force, and half of it loaded evenly beyond the force: seen
// from the other end the same beam.
TEST(StationCases, MirroredStationsGiveTheSameRatio)
{
    constexpr double l = 8;
    std::vector<Station> rising, half;
    for (int i = 0; i <= 4; ++i) {  // 6 x/L: RA = L
        const double x = l * i / 4;
        rising.push_back({.x = x, .vz = l - 3 * x * x / l, .my = l * x - x * x * x / l});
    }
    // 10 in the middle and 12 on the right half of 4 m: the ends carry 5 + 12 and 5 + 36.
    for (const double x : {0.0, 4.0}) {
        half.push_back({.x = x, .vz = 17, .my = 17 * x});
    }
    for (const double x : {4.0, 6.0, 8.0}) {
        half.push_back(
            {.x = x, .vz = 7 - 12 * (x - 4), .my = 17 * x - 10 * (x - 4) - 6 * (x - 4) * (x - 4)});
    }
    ASSERT_NEAR(half.back().my, 0, 1e-9);
    for (const auto& stations : {rising, half}) {
        for (const i16 level : {i16{1}, i16{3}}) {
            Member s = Beam("IPE 300", l, 2);
            s.loadlevel = level;
            StationCases cases(Delivered(), s);
            const auto one = cases.ResultOf(stations), other = cases.ResultOf(Mirrored(stations));
            const double ltb = one.checks[CheckId::ltb].ir;
            EXPECT_NEAR(other.checks[CheckId::ltb].ir / ltb, 1, 1e-6);
        }
    }
}

// A force with a moment: the moment line jumps, its straight parts are none the less straight.
TEST(StationCases, AMomentBesideAForceIsNoLineLoad)
{
    for (const i16 level : {i16{1}, i16{3}}) {
        Member s = Beam("IPE 300", 6, 2);
        s.loadlevel = level;
        const auto line = [](bool more) {
            std::vector<Station> stations;
            for (const double x : {0.0, 1.0, 3.0}) {
                if (more || x != 1) {
                    stations.push_back({.x = x, .n = 60, .vz = 12, .my = 12 * x});
                }
            }
            for (const double x : {3.0, 5.0, 6.0}) {
                if (more || x != 5) {
                    stations.push_back({.x = x, .n = 60, .vz = -16, .my = 16 * (6 - x)});
                }
            }
            return stations;
        };
        EXPECT_NEAR(RatedAt(s, line(true)).ir, RatedAt(s, line(false)).ir, 2e-7);
    }
}

// Restraints between stations: more stations, where they are, change nothing.
TEST(StationCases, RestraintsNeedNoStations)
{
    for (const i16 restraints : {i16{1}, i16{2}, i16{5}}) {
        SCOPED_TRACE(restraints);
        Member s = Beam("IPE 300", 6, 2);
        s.restraints = restraints;
        const auto line = [&](bool more) {
            std::vector<Station> stations = {{.x = 0, .n = 60, .vz = -10, .my = 40}};
            for (int i = 1; i <= restraints && more; ++i) {
                const double x = 6.0 * i / (restraints + 1);
                stations.push_back({.x = x, .n = 60, .vz = -10, .my = 40 - 10 * x});
            }
            stations.push_back({.x = 6, .n = 60, .vz = -10, .my = -20});
            return stations;
        };
        EXPECT_NEAR(RatedAt(s, line(false)).ir, RatedAt(s, line(true)).ir, 1e-9);
    }
}

// 100 stations are taken as they are: a tip 0.004 percent above an even part of the line counts.
// With one more it is left out.
TEST(StationCases, AHundredStationsAreTakenAsTheyAre)
{
    StationCases cases(Delivered(), Unloaded(6, 235).Section("IPE 300"));
    const auto ratio = [&](const std::vector<Station>& stations) {
        return cases.ResultOf(stations).checks[CheckId::section_my].ir;
    };
    const double even = ratio({{.x = 0, .my = 40}, {.x = 6, .my = 40}});
    for (const int pieces : {99, 100}) {
        std::vector<Station> stations;
        for (int i = 0; i <= pieces; ++i) {
            stations.push_back({.x = 6.0 * i / pieces, .my = std::min(40.0, 20.0 + i)});
        }
        stations[60].my *= 1 + 4e-5;
        EXPECT_NEAR(ratio(stations) / even, pieces == 99 ? 1 + 4e-5 : 1, 1e-9) << pieces;
    }
}

// More loads than there is room for, forces in both planes at every second of 100 stations and
// bends between them: those across the member come last and are left out, which lateral torsional
// buckling does not ask for.
TEST(StationCases, MoreLoadsThanThereIsRoomFor)
{
    std::vector<Station> stations;
    for (int i = 0; i < 100; ++i) {
        const double x = 6.0 * i / 99;
        const double my = 5 + (i % 2 == 0 ? 0.0 : 2.0), mz = 1 + (i % 2 == 0 ? 0.0 : 0.5);
        stations.push_back({.x = x, .vy = 1, .vz = 1, .my = my, .mz = mz});
        if (i % 2 == 0 && i > 0) {
            stations.push_back({.x = x, .vy = -1, .vz = -1, .my = my, .mz = mz});
        }
    }
    Member s = Beam("IPE 300", 6, 2);
    s.loadlevel = 1;
    StationCases cases(Delivered(), s);
    const auto buckles = [&] { return cases.ResultOf(stations).checks[CheckId::ltb].ir; };
    const double both = buckles();
    for (Station& at : stations) {
        at.vy = at.mz = 0;
    }
    EXPECT_EQ(both, buckles());
    EXPECT_GT(both, 0);
}

// --- What is told --------------------------------------------------------------------------------

TEST(StationCases, AllChecksOfACaseHoldTheGoverningOne)
{
    Member s = Beam("IPE 300", 6, 2);
    StationCases cases(Delivered(), s);
    const auto stations = Uniform(6, 150, 9, 10);
    const StationResult worst = cases.Case(stations);
    const auto all = cases.ResultOf(stations);
    EXPECT_TRUE(all.rated);
    EXPECT_EQ(all.ir, worst.ir);
    EXPECT_EQ(all.checks[worst.governing].ir, worst.ir);
}

// Of a hat beam the steepest fall of Vz is the load on its flange: as under the uniform load, whose
// chords reach the whole moment in the middle.
TEST(StationCases, TheFallOfTheShearForceBendsTheFlangeOfAHatBeam)
{
    Member s = Unloaded(6, 355).Section(FormP24{.isth = 420,
                                                .istb1 = 200,
                                                .istb2 = 350,
                                                .isttw = 12,
                                                .isttf1 = 20,
                                                .isttf2 = 15,
                                                .hsqc = 5});
    s.hsqopt = 0;
    s.flangeload = 90;
    s.Load(40);
    const double whole = Rated(s).checks[CheckId::section_nm].ir;
    StationCases cases(Delivered(), s);
    EXPECT_NEAR(cases.ResultOf(Uniform(6, 0, 40, 20)).checks[CheckId::section_nm].ir / whole, 1,
                1e-6);
}

// What a case leaves out is named once, however many cases there are.
TEST(StationCases, WhatIsOutsideIsNamedOnce)
{
    const std::string named = "lateral torsional buckling of T sections: no input, not checked";
    Member s =
        Unloaded(3, 235).Section(FormP26{.isth = 200, .istb1 = 150, .isttw = 10, .isttf1 = 15});
    StationCases cases(Delivered(), s);
    for (int turn = 0; turn < 3; ++turn) {
        EXPECT_EQ(std::count(cases.outside().begin(), cases.outside().end(), named),
                  turn == 0 ? 0 : 1);
        EXPECT_TRUE(cases.Case(Uniform(3, 0, 2, 4)).rated);
    }
}

}  // namespace
}  // namespace kestrum
