#include "engine/prepared.h"

#include "core/load_combination.h"
#include "sections/families.h"
#include "support/members.h"
#include "support/rows.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <utility>
#include <vector>

namespace kestrum {
namespace {

// A pinned member with all load factors 1 and no loads. Values are stored in single precision once
// in a pass with loads and not at all in stations: 1e-6 is a few last bits of what follows.
constexpr double kLastBits = 2e-6;

Member Bare(i16 family)
{
    Member s = Member().Family(family).Unloaded().Length(3);
    s.checksls = kFalse;
    s.checkconsercontrol = family == 28 ? kTrue : kFalse;  // flat bar: the linear form
    return s;
}

bool TakesZ(const ProjectState& s)
{
    return Traits(s).carries.loads.z;
}
bool TakesN(const ProjectState& s)
{
    return Traits(s).carries.loads.n;
}
bool TakesY(const ProjectState& s)
{
    return Traits(s).carries.loads.y;
}

// Uniform loads on two supports: M = q x (l - x)/2, V = q (l/2 - x).
std::vector<Station> Uniform(double l, double n, double qz, double qy, int pieces)
{
    std::vector<Station> stations;
    for (int i = 0; i <= pieces; ++i) {
        const double x = l * i / pieces;
        stations.push_back({.x = x,
                            .n = n,
                            .vy = qy * (l / 2 - x),
                            .vz = qz * (l / 2 - x),
                            .my = qz * x * (l - x) / 2,
                            .mz = qy * x * (l - x) / 2});
    }
    return stations;
}

// A force p at a on two supports.
std::vector<Station> Force(double l, double n, double p, double a)
{
    const double top = p * a * (l - a) / l;
    return {{.x = 0, .n = n, .vz = p * (l - a) / l},
            {.x = a, .n = n, .vz = p * (l - a) / l, .my = top},
            {.x = a, .n = n, .vz = -p * a / l, .my = top},
            {.x = l, .n = n, .vz = -p * a / l}};
}

void ExpectSame(const ProjectState& loads, const StationRun& run, double rel)
{
    const ProjectState& s = run.state();
    const auto near = [rel](double a, double b) {
        EXPECT_NEAR(a, b, rel * std::max(std::abs(a), 1e-3));
    };
    near(loads.irrow1, s.irrow1);
    near(loads.irrow2, s.irrow2);
    near(loads.irrow3, s.irrow3);
    near(loads.irrow4, s.irrow4);
    near(loads.irrow5, s.irrow5);
    near(loads.irrow6, s.irrow6);
    near(loads.irsection, s.irsection);
    near(loads.maxirbuckling, s.maxirbuckling);
    near(loads.mydesign, s.mydesign);
    near(loads.cmy, s.cmy);
    near(loads.ltc1, s.ltc1);
    near(loads.kc, s.kc);
    for (std::size_t i = 1; i <= 3; ++i) {
        EXPECT_EQ(LabelOf(SectionRow(loads, i)), LabelOf(SectionRow(s, i)));
        EXPECT_EQ(LimitOf(SectionRow(loads, i)), LimitOf(SectionRow(s, i)));
    }
}

// Stations where the program reads its lines: every family, both annexes, with and without
// restraints.
TEST(Prepared, UniformLoadsGiveTheResultOfTheLoads)
{
    std::mt19937 random(4711);
    std::uniform_real_distribution<double> size(0.5, 4);
    for (const int family : FamilyNumbers()) {
        for (int turn = 0; turn < 8; ++turn) {
            SCOPED_TRACE(std::to_string(family) + " turn " + std::to_string(turn));
            Member s = Bare(static_cast<i16>(family));
            s.method = turn % 2 == 0 ? 1 : 2;
            s.restraints = turn % 4 < 2 ? 0 : 2;
            s.ltb = 1;
            s.nload[1] = TakesN(s) ? static_cast<float>(size(random)) : 0;
            s.qload[1] = TakesY(s) ? static_cast<float>(size(random)) : 0;
            s.qload[2] = TakesZ(s) && turn > 3 ? static_cast<float>(0.1 * size(random)) : 0;
            s.qdir[2] = 0;
            const PreparedMember member = Prepare(Delivered(), s);
            ASSERT_TRUE(member.usable);
            const auto stations = Uniform(s.l, s.nload[1], s.qload[1], s.qload[2], 50);
            ASSERT_EQ(CheckStations(stations, s.l).fault, StationFault::none);
            StationRun run;
            const bool well = run.Case(member, stations);
            ASSERT_EQ(EndsWell(s), well);
            if (well) {
                ExpectSame(s, run, kLastBits);
            }
        }
    }
}

// A line that is straight between stations needs no more of them.
TEST(Prepared, AForceGivesTheResultOfTheLoadFromFourStations)
{
    std::mt19937 random(815);
    std::uniform_real_distribution<double> share(0.05, 0.95), size(1, 20);
    for (int turn = 0; turn < 60; ++turn) {
        SCOPED_TRACE(turn);
        Member s = Bare(turn % 2 == 0 ? 1 : 6);
        s.method = turn % 4 < 2 ? 1 : 2;
        s.pmkind[1] = 0;
        s.pm[1] = static_cast<float>(size(random));
        s.pmx[1] = static_cast<float>(share(random) * s.l);
        s.nload[1] = static_cast<float>(10 * size(random));
        StationRun run;
        ASSERT_TRUE(run.Case(Prepare(Delivered(), s), Force(s.l, s.nload[1], s.pm[1], s.pmx[1])));
        ASSERT_TRUE(EndsWell(s));
        ExpectSame(s, run, 1e-5);
    }
}

// A parabola lies above its chords by q dx^2/8 at the most: 1 percent of q l^2/8 with ten of them.
TEST(Prepared, TenthsOfAParabolaComeWithinTheChordError)
{
    Member s = Bare(4);
    s.qload[1] = 6;
    s.nload[1] = 40;
    StationRun run;
    ASSERT_TRUE(run.Case(Prepare(Delivered(), s), Uniform(s.l, 40, 6, 0, 10)));
    ASSERT_TRUE(EndsWell(s));
    ExpectSame(s, run, 0.01);
    EXPECT_NEAR(run.state().irsection, s.irsection, 1e-6);  // the middle is a station
}

// 6.2.4 at the place, 6.3.1 under the largest compression.
TEST(Prepared, VaryingAxialForceIsTakenAtThePlaceAndLargestForBuckling)
{
    const PreparedMember member = Prepare(Delivered(), Bare(2));
    StationRun run;
    const std::vector<Station> uneven = {{.x = 0, .n = 300}, {.x = 3, .n = -200}};
    ASSERT_TRUE(run.Case(member, uneven));
    EXPECT_TRUE(run.NVaried());
    const ProjectState varied = run.state();
    ASSERT_TRUE(run.Case(member, std::vector<Station>{{.x = 0, .n = 300}, {.x = 3, .n = 300}}));
    EXPECT_FALSE(run.NVaried());
    EXPECT_EQ(varied.maxirbuckling, run.state().maxirbuckling);
    EXPECT_EQ(varied.irsection, run.state().irsection);
    ASSERT_TRUE(run.Case(member, std::vector<Station>{{.x = 0, .n = -200}, {.x = 3, .n = 100}}));
    EXPECT_NEAR(run.state().irsection, 200 / run.state().nplrd, 1e-12);
}

// Torsional buckling of a channel takes the lateral torsional buckling length of its own case
// (D228), not that of the case before; nor does a case that fails tell of N in the one before.
TEST(Prepared, TorsionalLengthAndVaryingNAreThoseOfTheCase)
{
    for (const i16 ltb : {i16{0}, i16{1}}) {
        SCOPED_TRACE(ltb);
        Member s = Bare(16);
        s.ltb = ltb;
        s.method = 1;
        const PreparedMember member = Prepare(Delivered(), s);
        const std::vector<Station> bent = {{.x = 0, .n = 46, .my = 10},
                                           {.x = 3, .n = 46, .my = 10}};
        StationRun fresh, used;
        ASSERT_TRUE(fresh.Case(member, bent));
        ASSERT_TRUE(used.Case(member, bent));
        ASSERT_TRUE(used.Case(member, bent));
        EXPECT_EQ(fresh.state().ncrt, used.state().ncrt);
        EXPECT_EQ(fresh.state().maxirbuckling, used.state().maxirbuckling);
    }
    const PreparedMember member = Prepare(Delivered(), Bare(2));
    StationRun run;
    ASSERT_TRUE(run.Case(member, std::vector<Station>{{.x = 0, .n = 300}, {.x = 3, .n = -200}}));
    const double beyond = 1e300;  // kNm, no number in single precision
    EXPECT_FALSE(
        run.Case(member, std::vector<Station>{{.x = 0, .my = beyond}, {.x = 3, .my = beyond}}));
    EXPECT_FALSE(run.NVaried());
}

// One moment all along, with another N in every section: of equal ratios the first place counts.
TEST(Prepared, TheFirstOfEqualSectionsGoverns)
{
    const PreparedMember member = Prepare(Delivered(), Bare(2));
    StationRun run;
    const double most = -0.6 * member.state->nplrd;  // tension
    const std::vector<Station> stations = {{.x = 0, .n = -10, .my = 20},
                                           {.x = 3, .n = most, .my = 20}};
    ASSERT_TRUE(run.Case(member, stations));
    const Check& check = run.state().checklist[CheckId::my];
    EXPECT_NEAR(check.ratio, 20 / run.state().myrd, 1e-9);
    EXPECT_EQ(check.place.x, 0);
    EXPECT_EQ(run.state().checklist[CheckId::n_my].place.x, 1);
}

// A case with fewer sections than the one before, whose last two had a large moment and the N that
// this one ends with.
TEST(Prepared, SectionsOfTheCaseBeforeAreForgotten)
{
    const PreparedMember member = Prepare(Delivered(), Bare(2));
    const std::vector<Station> many = {{.x = 0, .n = 40},
                                       {.x = 1.03, .n = 40, .my = 60},
                                       {.x = 1.07, .n = 40, .my = 60},
                                       {.x = 3, .n = 40}};
    const std::vector<Station> few = {{.x = 0, .n = 10, .my = 1}, {.x = 3, .n = 40, .my = 1}};
    StationRun used, fresh;
    ASSERT_TRUE(used.Case(member, many));
    ASSERT_TRUE(used.Case(member, few));
    ASSERT_TRUE(fresh.Case(member, few));
    EXPECT_EQ(used.state().irsection, fresh.state().irsection);
    EXPECT_EQ(used.state().checklist, fresh.state().checklist);
}

// Moment where there is no axial force and the other way round: the sections see no interaction.
TEST(Prepared, NAndMAtDifferentPlacesDoNotMeetInASection)
{
    const PreparedMember member = Prepare(Delivered(), Bare(2));
    StationRun run;
    const std::vector<Station> apart = {
        {.x = 0, .n = 400}, {.x = 1, .n = 400}, {.x = 1}, {.x = 2, .my = 40}, {.x = 3}};
    ASSERT_TRUE(run.Case(member, apart));
    EXPECT_EQ(run.state().irrow2, 0);
    EXPECT_NEAR(run.state().irrow1, std::max(400 / run.state().ncrd, 40 / run.state().myrd), 1e-9);
}

TEST(Prepared, NoCaseLeavesAnythingToTheNext)
{
    for (const int family : {1, 6, 10, 21, 22, 24, 26, 31}) {
        SCOPED_TRACE(family);
        const PreparedMember member = Prepare(Delivered(), Bare(static_cast<i16>(family)));
        ASSERT_TRUE(member.usable);
        const auto light = Uniform(3, 2, 1, 0.1, 10), heavy = Uniform(3, 5e5, 400, 30, 7);
        StationRun run, fresh;
        const bool first = run.Case(member, light);
        const ProjectState before = run.state();
        run.Case(member, heavy);
        EXPECT_EQ(run.Case(member, light), first);
        EXPECT_TRUE(run.state() == before);  // of 10 kB
        fresh.Case(member, light);
        EXPECT_TRUE(fresh.state() == before);
        StationRun moved = std::move(run);
        EXPECT_TRUE(moved.state() == before);
        fresh = std::move(moved);
        EXPECT_EQ(fresh.Case(member, light), first);
        EXPECT_TRUE(fresh.state() == before);
    }
}

TEST(Prepared, MoreStationsThanTheRecordHoldsChangeNothingOfAStraightLine)
{
    const PreparedMember member = Prepare(Delivered(), Bare(4));
    std::vector<Station> many;
    for (int i = 0; i <= 400; ++i) {
        const double x = 3.0 * i / 400;
        many.push_back({.x = x, .n = 50, .vz = -5, .my = 30 - 5 * x});
    }
    StationRun run;
    ASSERT_TRUE(run.Case(member, many));
    const ProjectState fine = run.state();
    ASSERT_TRUE(run.Case(member, std::vector<Station>{many.front(), many.back()}));
    EXPECT_NEAR(fine.irsection, run.state().irsection, 1e-7);
    EXPECT_NEAR(fine.maxirbuckling, run.state().maxirbuckling, 1e-6);
    // A peak that no even section and no diagram point sees.
    many[203].my = 60;
    ASSERT_TRUE(run.Case(member, many));
    EXPECT_NEAR(run.state().mymax, 60, 1e-9);
    EXPECT_GT(run.state().irsection, 1.5 * fine.irsection);
}

TEST(Prepared, CompressionAboveACriticalForceIsAFailedCase)
{
    Member s = Bare(1);
    s.l = 10;
    s.method = 1;
    const PreparedMember member = Prepare(Delivered(), s);
    StationRun run;
    const std::vector<Station> crushed = {{.x = 0, .n = 1e5, .my = 1},
                                          {.x = 10, .n = 1e5, .my = 1}};
    EXPECT_FALSE(run.Case(member, crushed));
    EXPECT_EQ(run.state().failure.cause, Cause::critical_force);
    EXPECT_FALSE(
        run.Case(member, std::vector<Station>{{.x = 0, .n = 1e300}, {.x = 10, .my = 1e300}}));
    EXPECT_TRUE(run.Case(member, std::vector<Station>{{.x = 0, .n = 1}, {.x = 10, .n = 1}}));
}

TEST(Prepared, AMemberThatCannotBeCalculatedSaysWhy)
{
    Member s = Bare(1);
    s.l = -1;
    const PreparedMember member = Prepare(Delivered(), s);
    EXPECT_FALSE(member.usable);
    EXPECT_EQ(member.state->failure.quantity, "l");
    StationRun run;
    EXPECT_FALSE(run.Case(member, std::vector<Station>{{.x = 0}, {.x = 1}}));
}

}  // namespace
}  // namespace kestrum
