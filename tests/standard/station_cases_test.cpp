#include "standard/station_cases.h"

#include "standard/standard_member.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>
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

}  // namespace
}  // namespace kestrum
