#include "member.h"

#include "core/project_state.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace kestrum::test {
namespace {

Member Spring(int supportcase, int percent, void (*apply)(ProjectState&))
{
    Member s = Beam(supportcase);
    s.spring = static_cast<i16>(percent);
    apply(s);
    Analyse(s);
    return s;
}

void ApplyUniform(ProjectState& s)
{
    s.qload[1] = 10;
}

void ApplyForce(ProjectState& s)
{
    AddForce(s, 1, 30, 2.2F);
}

void ApplyMoment(ProjectState& s)
{
    AddMoment(s, 1, 12, 4.1F);
}

void ApplyTrapezoid(ProjectState& s)
{
    AddTrapezoid(s, 1, 2, 9, 1, 4.4F);
}

// D102: each line lies between the two limits by the percentage of the spring.
void ExpectMix(const ProjectState& mixed, const ProjectState& free, const ProjectState& fixed)
{
    const double s = mixed.spring / 100.0;
    const auto expect = [s](double value, double low, double high, double scale) {
        EXPECT_NEAR(value, (1 - s) * low + s * high, 2e-6 * scale);
    };
    for (std::size_t j = 0; j <= 50; ++j) {
        expect(mixed.mydiag[j], free.mydiag[j], fixed.mydiag[j], Largest(free.mydiag));
        expect(mixed.vzdiag[j], free.vzdiag[j], fixed.vzdiag[j], Largest(free.vzdiag));
        expect(mixed.dzdiag[j], free.dzdiag[j], fixed.dzdiag[j], Largest(free.dzdiag));
    }
    for (std::size_t k = 0; k <= static_cast<std::size_t>(mixed.npts); ++k) {
        expect(mixed.mysec[k], free.mysec[k], fixed.mysec[k], Largest(free.mydiag));
        expect(mixed.vzsec[k], free.vzsec[k], fixed.vzsec[k], Largest(free.vzdiag));
    }
}

TEST(SpringSupports, MixTheLimitsByPercentD102)
{
    for (const auto apply : {ApplyUniform, ApplyForce, ApplyMoment, ApplyTrapezoid}) {
        const Member pinned = Spring(0, 50, apply);
        const Member propped = Spring(1, 50, apply);
        const Member fixed = Spring(2, 50, apply);
        for (const int percent : {1, 37, 50, 99}) {
            SCOPED_TRACE(percent);
            ExpectMix(Spring(3, percent, apply), pinned, fixed);
            ExpectMix(Spring(5, percent, apply), pinned, propped);
        }
    }
}

// -qL2/24 = -10*36/24 = -15; half of 5qL4/384EI = 10.04464 and qL4/384EI = 2.008929 mm.
TEST(SpringSupports, HalfFixityGivesHalfTheEndMoment)
{
    const Member s = Spring(3, 50, ApplyUniform);
    EXPECT_FLOAT_EQ(s.mydiag[0], -15);
    EXPECT_FLOAT_EQ(s.mydiag[50], -15);
    EXPECT_NEAR(s.dzdiag[25], (10.04464 + 2.008929) / 2, 1e-5);
}

TEST(SpringSupports, OnePercentDiffersByOnePercentOfTheDifference)
{
    const Member s = Spring(5, 1, ApplyUniform);
    EXPECT_NEAR(s.mydiag[50], -0.01 * 45, 1e-6);        // qL2/8 = 45
    EXPECT_NEAR(s.vzdiag[0], 30 - 0.01 * 7.5, 1e-5);    // qL/2 = 30, 3qL/8 = 22.5
    EXPECT_NEAR(s.vzdiag[50], -30 - 0.01 * 7.5, 1e-5);  // 5qL/8 = 37.5
}

// D104: with 30 percent, 0.7 Mo + 0.3 (-Mo) = 0.4 Mo on the support; beside it 0.7 Mo.
TEST(SpringSupports, MomentOnTheSupportMixesTheEndValuesD104)
{
    Member s = Beam(3);
    s.spring = 30;
    AddMoment(s, 1, 10, 0);
    Analyse(s);
    EXPECT_FLOAT_EQ(s.mydiag[0], 4);
    EXPECT_NEAR(s.mydiag[1], 7 * 49.0 / 50, 1e-5);
    EXPECT_NEAR(s.mysec[0], 7, 1e-6);

    AddMoment(s, 1, 10, 6);
    Analyse(s);
    EXPECT_FLOAT_EQ(s.mydiag[50], -4);
    EXPECT_NEAR(s.mydiag[49], -7 * 49.0 / 50, 1e-5);
    EXPECT_NEAR(s.mysec[10], -4, 1e-6);
}

// The load of a strip acts in its middle: the moment is off by at most q dx2/8 inside a strip, plus
// (q2 - q1) dx2/12 for the whole load, since a strip's own slope shifts its resultant; the shear by
// half a strip.
TEST(TrapezoidalLoad, LiesWithinItsStripsOfTheExactLines)
{
    const double q1 = 3, q2 = 11, x1 = 0.7F, x2 = 5.2F;
    Member s = Beam(0);
    AddTrapezoid(s, 1, 3, 11, 0.7F, 5.2F);
    Analyse(s);

    const double c = x2 - x1, slope = (q2 - q1) / c, l = s.l;
    const double total = (q1 + q2) / 2 * c;
    const double lever = l - x1 - c * (q1 + 2 * q2) / (3 * (q1 + q2));  // of the resultant, to L
    const double reaction = total * lever / l;
    const double dx = c / 20;
    const double moff = q2 * dx * dx / 8 + (q2 - q1) * dx * dx / 12;
    const double voff = q2 * dx / 2 + moff / l;
    double largest = 0;
    for (std::size_t j = 0; j <= 50; ++j) {
        const double x = static_cast<double>(j) * l / 50;
        const double t = std::clamp(x - x1, 0.0, c);
        const double load = q1 * t + slope * t * t / 2;
        const double beyond = std::max(0.0, x - x2);
        const double m = reaction * x - q1 * t * t / 2 - slope * t * t * t / 6 - load * beyond;
        EXPECT_NEAR(s.mydiag[j], m, moff) << j;
        EXPECT_NEAR(s.vzdiag[j], reaction - load, voff) << j;
        largest = std::max(largest, std::abs(s.mydiag[j] - m));
    }
    EXPECT_GT(largest, moff / 20);  // D101: not the integral
}

// A trapezoid of one height over the whole length is the uniform load, within the strips: the fixed
// end moment of 20 forces is that of q with the factor 1 + 1/(2*400).
TEST(TrapezoidalLoad, EvenOneComesCloseToTheUniformLoad)
{
    for (int supportcase = 0; supportcase < kSupportCases; ++supportcase) {
        Member q = Beam(supportcase), qt = Beam(supportcase);
        q.qload[1] = 10;
        AddTrapezoid(qt, 1, 10, 10, 0, 6);
        Analyse(q);
        Analyse(qt);
        const double dx = 0.3;
        for (std::size_t j = 0; j <= 50; ++j) {
            EXPECT_NEAR(qt.mydiag[j], q.mydiag[j], 10 * dx * dx / 8 + 1e-5) << supportcase;
            EXPECT_NEAR(qt.vzdiag[j], q.vzdiag[j], 10 * dx / 2 + 0.1) << supportcase;
            EXPECT_NEAR(qt.dzdiag[j], q.dzdiag[j], 2e-3 * Largest(q.dzdiag)) << supportcase;
        }
    }
    Member fixed = Beam(2);
    AddTrapezoid(fixed, 1, 10, 10, 0, 6);
    Analyse(fixed);
    EXPECT_NEAR(fixed.mydiag[0], -30 * (1 + 1.0 / 800), 1e-4);
}

TEST(TrapezoidalLoad, TheDirectionOfEntryDoesNotMatterForTheLines)
{
    Member up = Beam(1), down = Beam(1);
    AddTrapezoid(up, 1, 2, 8, 1, 5);
    AddTrapezoid(down, 1, -8, -2, 5, 1);  // x2 below x1: the strips have a negative width
    Analyse(up);
    Analyse(down);
    for (std::size_t j = 0; j <= 50; ++j) {
        EXPECT_NEAR(up.mydiag[j], down.mydiag[j], 1e-5 * Largest(up.mydiag));
        EXPECT_NEAR(up.dzdiag[j], down.dzdiag[j], 1e-5 * Largest(up.dzdiag));
    }
}

// D110: P = 30 at a = 9 m on a pinned member of 6 m. R0 = P b/L = 30*(-3)/6 = -15 all along, with
// the reaction R0 - P at the last point.
TEST(LoadOffTheMember, GoesThroughTheFormulasD110)
{
    Member s = Beam(0);
    AddForce(s, 1, 30, 9);
    Analyse(s);
    EXPECT_FLOAT_EQ(s.vzdiag[0], -15);
    EXPECT_FLOAT_EQ(s.vzdiag[49], -15);
    EXPECT_FLOAT_EQ(s.vzdiag[50], -45);
    EXPECT_FLOAT_EQ(s.mydiag[25], -45);
    EXPECT_EQ(s.mydiag[50], 0);
}

// The check section of an empty row at 0.999*9 = 8.991 m: M = 30 x - 5 x2 = 269.73 - 404.19.
TEST(LoadOffTheMember, ItsCheckSectionsLeaveTheMemberTooD110)
{
    Member s = Beam(0);
    s.qload[1] = 10;
    AddForce(s, 1, 0, 9);
    Analyse(s);
    EXPECT_NEAR(s.mysec[11], 269.73 - 5 * 8.991 * 8.991, 1e-3);
}

// A mirrored load gives the mirrored lines where the supports are alike.
TEST(Lines, MirrorWithTheLoad)
{
    struct Pair {
        void (*apply)(ProjectState&);
        void (*mirror)(ProjectState&);
    };
    const Pair pairs[] = {
        {[](ProjectState& s) { AddForce(s, 1, 20, 1.27F); },
         [](ProjectState& s) { AddForce(s, 1, 20, 6 - 1.27F); }},
        {[](ProjectState& s) { AddMoment(s, 1, 20, 1.27F); },
         [](ProjectState& s) { AddMoment(s, 1, -20, 6 - 1.27F); }},
        {[](ProjectState& s) { AddTrapezoid(s, 1, 5, 9, 0.37F, 3.31F); },
         [](ProjectState& s) { AddTrapezoid(s, 1, 9, 5, 6 - 3.31F, 6 - 0.37F); }},
    };
    for (const int supportcase : {0, 2, 3}) {
        for (const Pair& pair : pairs) {
            Member s = Beam(supportcase), mirrored = Beam(supportcase);
            pair.apply(s);
            pair.mirror(mirrored);
            Analyse(s);
            Analyse(mirrored);
            for (std::size_t j = 0; j <= 50; ++j) {
                EXPECT_NEAR(s.mydiag[j], mirrored.mydiag[50 - j], 5e-6 * Largest(s.mydiag));
                EXPECT_NEAR(s.vzdiag[j], -mirrored.vzdiag[50 - j], 5e-6 * Largest(s.vzdiag));
                EXPECT_NEAR(s.dzdiag[j], mirrored.dzdiag[50 - j], 5e-6 * Largest(s.dzdiag));
            }
        }
    }
}

TEST(Lines, DeflectionVanishesAtTheSupports)
{
    for (int supportcase = 0; supportcase < kSupportCases; ++supportcase) {
        Member s = Beam(supportcase);
        s.qload[1] = 3;
        AddForce(s, 1, 5, 1.9F);
        AddMoment(s, 2, 4, 2.9F);
        AddTrapezoid(s, 1, 1, 3, 2, 5);
        Analyse(s);
        EXPECT_EQ(s.dzdiag[0], 0);
        EXPECT_EQ(s.dzdiag[50] == 0, supportcase != 4);
    }
}

}  // namespace
}  // namespace kestrum::test
