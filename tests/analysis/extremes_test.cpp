#include "member.h"

#include "analysis/extremes.h"
#include "core/project_state.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace kestrum::test {
namespace {

// A state whose moment line is given by a function of the index; no check section beyond the first.
template <class Line> ProjectState WithMoment(Line line, int supportcase = 0)
{
    ProjectState s{};
    s.supportcase = static_cast<i16>(supportcase);
    for (std::size_t j = 0; j < s.mydiag.size(); ++j) {
        s.mydiag[j] = static_cast<float>(line(static_cast<double>(j)));
        s.mzdiag[j] = -s.mydiag[j];
    }
    FindExtremes(s, s);
    return s;
}

double Triangle(double j)  // peak 25 in the middle
{
    return j <= 25 ? j : 50 - j;
}

TEST(Extremes, StartAtZero)
{
    const ProjectState s = WithMoment([](double j) { return -1 - j; });
    EXPECT_EQ(s.mymax, 0);
    EXPECT_EQ(s.xmymax, 0);
    EXPECT_EQ(s.mymin, -51);
    EXPECT_EQ(s.xmymin, 1);
    EXPECT_EQ(s.mzmax, 51);
    EXPECT_EQ(s.mymaxabs, 51);
    EXPECT_EQ(s.mzmaxabs, 51);
}

TEST(Extremes, TheFirstOfEqualValuesStays)
{
    const ProjectState s = WithMoment([](double j) { return j >= 10 && j <= 40 ? 3 : 0; });
    EXPECT_EQ(s.xmymax, 0.2);
}

TEST(Extremes, OfALevelLineAreAtItsStart)
{
    const ProjectState s = WithMoment([](double) { return 3; });
    EXPECT_EQ(s.mymax, 3);
    EXPECT_EQ(s.xmymax, 0);
    EXPECT_EQ(s.xmzmin, 0);
}

// Where nothing lies on the other side of 0 its extreme is 0 at the start.
TEST(Extremes, OnOneSideOfZeroTheOtherIsAtTheStart)
{
    for (const double end : {0.0, 1.0}) {
        const ProjectState s = WithMoment([end](double j) { return end + (50 - j); });
        EXPECT_EQ(s.mymin, 0);
        EXPECT_EQ(s.xmymin, 0) << end;
        EXPECT_EQ(s.xmzmax, 0) << end;
    }
}

// The same ordinate at the ends of the other lines, which lie next to it.
TEST(Extremes, EachLineHasItsOwnPlace)
{
    for (std::size_t own = 0; own < 4; ++own) {
        Member s = Beam(0);
        std::size_t i = 0;
        for (auto* const line : {&s.mydiag, &s.vzdiag, &s.mzdiag, &s.vydiag}) {
            std::fill(line->begin(), line->end(), 1.0F);
            (*line)[i++ == own ? 20 : 50] = 7;
        }
        FindExtremes(s, s);
        const double x[] = {s.xmymax, s.xvzmax, s.xmzmax, s.xvymax};
        for (std::size_t line = 0; line < 4; ++line) {
            EXPECT_EQ(x[line], line == own ? 0.4 : 1.0) << own << line;
        }
    }
}

TEST(Extremes, TheDiagramWinsOverAnEqualSection)
{
    Member s = Beam(0);
    s.mydiag[30] = 8;
    s.mysec[0] = 8;
    s.xi[0] = 0.55F;
    FindExtremes(s, s);
    EXPECT_EQ(s.xmymax, 0.6);
    s.mydiag[30] = -8;
    s.mysec[0] = -8;
    FindExtremes(s, s);
    EXPECT_EQ(s.xmymin, 0.6);
    s.mydiag[30] = 8;
    s.mysec[0] = 8.5;
    FindExtremes(s, s);
    EXPECT_EQ(s.mymax, 8.5);
    EXPECT_EQ(s.xmymax, static_cast<double>(0.55F));
}

TEST(Extremes, LookAtTheSectionsInUseOnly)
{
    Member s = Beam(0);
    s.npts = 1;
    s.vzsec[1] = 3;
    s.vzsec[2] = 9;
    s.vysec[1] = -4;
    FindExtremes(s, s);
    EXPECT_EQ(s.vzmax, 3);
    EXPECT_EQ(s.vymin, -4);
}

TEST(Extremes, DeflectionsHaveSizesOnly)
{
    Member s = Beam(0);
    s.dzdiag[7] = -5;
    s.dzdiag[9] = 4;
    s.dydiag[3] = 2;
    FindExtremes(s, s);
    EXPECT_EQ(s.dzmax, 4);
    EXPECT_EQ(s.dzmin, -5);
    EXPECT_EQ(s.dzmaxabs, 5);
    EXPECT_EQ(s.dymaxabs, 2);
}

TEST(DesignMoments, KeepTheSignOfMyAndTheSizeOfMz)
{
    ProjectState s{};
    s.mymax = 5;
    s.mymin = -7;
    s.mzmax = 2;
    s.mzmin = -3;
    SetDesignMoments(s);
    EXPECT_EQ(s.mydesign, -7);
    EXPECT_EQ(s.mzdesign, 3);
    s.mymax = 7;  // a tie gives the lowest
    SetDesignMoments(s);
    EXPECT_EQ(s.mydesign, -7);
    s.mymax = 7.5;
    SetDesignMoments(s);
    EXPECT_EQ(s.mydesign, 7.5);
}

TEST(QuarterPoints, LieBetweenTheirNeighbours)
{
    const ProjectState s = WithMoment([](double j) { return 100 + j * j; });
    EXPECT_EQ(s.my0, 100);
    EXPECT_EQ(s.myq1, 100 + (144 + 169) / 2.0);
    EXPECT_EQ(s.mymid, 725);
    EXPECT_EQ(s.myq3, 100 + (37 * 37 + 38 * 38) / 2.0);
    EXPECT_EQ(s.myl, 2600);
    EXPECT_EQ(s.mz0, -100);
    EXPECT_EQ(s.mzq1, -s.myq1);
    EXPECT_EQ(s.mzmid, -725);
    EXPECT_EQ(s.mzq3, -s.myq3);
    EXPECT_EQ(s.mzl, -2600);
}

// A fixed beam under q has no moment at (3 -+ sqrt 3)/6 of its length. The line between two grid
// points is straight: off by less than (h2/8) M''/M' = (1/2500/8)*2/0.577.
TEST(ZeroCrossings, OfAFixedBeam)
{
    Member s = Beam(2);
    s.qload[1] = 10;
    Analyse(s);
    EXPECT_NEAR(s.x0my1, (3 - std::sqrt(3.0)) / 6, 1.8e-4);
    EXPECT_NEAR(s.x0my2, (3 + std::sqrt(3.0)) / 6, 1.8e-4);
    EXPECT_EQ(s.x0mz1, 0);
    EXPECT_EQ(s.x0mz2, 0);
}

TEST(ZeroCrossings, OnlyWithRestrainedEnds)
{
    for (int supportcase = 0; supportcase <= 6; ++supportcase) {
        const ProjectState s = WithMoment([](double j) { return 10.5 - j; }, supportcase);
        const bool restrained = supportcase != 0 && supportcase != 4 && supportcase != 6;
        EXPECT_FLOAT_EQ(s.x0my1, restrained ? 0.21F : 0) << supportcase;
        EXPECT_FLOAT_EQ(s.x0mz1, restrained ? 0.21F : 0) << supportcase;
        EXPECT_EQ(s.x0my2, 0);
    }
}

TEST(ZeroCrossings, TheLastOneOfAHalfStays)
{
    const ProjectState s =
        WithMoment([](double j) { return std::cos(j / 50 * 4 * 3.14159265358979); }, 2);
    EXPECT_NEAR(s.x0my1, 0.375, 1e-3);  // crossings at 0.125, 0.375, 0.625, 0.875
    EXPECT_NEAR(s.x0my2, 0.875, 1e-3);
}

TEST(ZeroCrossings, TheStartCountsAsNone)
{
    EXPECT_EQ(WithMoment([](double j) { return j; }, 1).x0my1, 0);
    EXPECT_EQ(WithMoment([](double j) { return j < 1 ? -1 : 3; }, 1).x0my1, 0);
    EXPECT_EQ(WithMoment([](double) { return 0; }, 1).x0my2, 0);
}

// A half reaches to the point behind the middle, the other to the end.
TEST(ZeroCrossings, EachHalfIncludesItsLastStep)
{
    const ProjectState middle = WithMoment([](double j) { return 25.5 - j; }, 2);
    EXPECT_FLOAT_EQ(middle.x0my1, 0.51F);
    EXPECT_FLOAT_EQ(middle.x0my2, 0.51F);
    const ProjectState end = WithMoment([](double j) { return j - 49.5; }, 2);
    EXPECT_EQ(end.x0my1, 0);
    EXPECT_FLOAT_EQ(end.x0my2, 0.99F);
}

// Where a line reaches zero it crosses it, though it goes on at zero; where it leaves zero too.
TEST(ZeroCrossings, ALineThatStaysAtZeroCrossesWhereItBends)
{
    for (const double sign : {1.0, -1.0}) {
        const auto reached = [sign](double j) { return sign * std::max(10 - j, 0.0); };
        EXPECT_FLOAT_EQ(WithMoment(reached, 2).x0my1, 0.2F) << sign;
        const auto left = [sign](double j) { return sign * std::max(j - 10, 0.0); };
        EXPECT_FLOAT_EQ(WithMoment(left, 2).x0my1, 0.2F) << sign;
    }
}

TEST(EndRatio, IsTheSmallerOverTheLarger)
{
    const auto ratio = [](double start, double end) {
        return WithMoment([=](double j) { return start + (end - start) * j / 50; }).psiy;
    };
    EXPECT_EQ(ratio(10, -10), -1);
    EXPECT_EQ(ratio(10, 5), 0.5);
    EXPECT_EQ(ratio(-2, 8), -0.25);
    EXPECT_EQ(ratio(0, 8), 0);
    EXPECT_EQ(ratio(8, 0), 0);
    EXPECT_EQ(ratio(0, 0), 0);
    EXPECT_EQ(ratio(6, 6), 1);
}

TEST(Shape, TellsACurveFromStraightLines)
{
    EXPECT_EQ(WithMoment(Triangle).mycurved, kFalse);
    EXPECT_EQ(WithMoment([](double j) { return j * (50 - j); }).mycurved, kTrue);
    EXPECT_EQ(WithMoment([](double j) { return -j * (50 - j); }).mycurved, kTrue);
    EXPECT_EQ(WithMoment([](double j) { return j * (50 - j); }).mzcurved, kTrue);
    // A level line has an empty band; so has no moment at all.
    EXPECT_EQ(WithMoment([](double) { return 7; }).mycurved, kTrue);
    EXPECT_EQ(WithMoment([](double) { return 0; }).mycurved, kTrue);
}

// Peak at 25, slope 1, distance 38 - 25 = 13: the band at the point 38 (37.5, halves to the even)
// is 12.5 -+ 2.6, its ends not included.
TEST(Shape, TheBandAroundTheChordIsOpen)
{
    const auto curved = [](std::size_t at, double value) {
        return WithMoment(
                   [=](double j) { return j == static_cast<double>(at) ? value : Triangle(j); })
            .mycurved;
    };
    EXPECT_EQ(curved(38, 15.0), kFalse);
    EXPECT_EQ(curved(38, 15.09), kFalse);
    EXPECT_EQ(curved(38, 15.11), kTrue);
    EXPECT_EQ(curved(38, 10.0), kFalse);
    EXPECT_EQ(curved(38, 9.91), kFalse);
    EXPECT_EQ(curved(38, 9.89), kTrue);
    EXPECT_EQ(curved(37, 20.0), kFalse);  // not the point that is looked at
    EXPECT_EQ(curved(12, 20.0), kFalse);
}

// Five times the line: chord 62.5, band 0.2 * 13 * 5 = 13.
TEST(Shape, OnTheEdgeOfTheBandALineIsCurved)
{
    for (const double value : {75.5, 49.5}) {
        EXPECT_EQ(WithMoment([=](double j) { return j == 38 ? value : 5 * Triangle(j); }).mycurved,
                  kTrue);
    }
}

// D107: a uniform load on the left half bends the left half of the line only.
TEST(Shape, TheRightHalfAloneDecidesD107)
{
    Member s = Beam(0);
    AddTrapezoid(s, 1, 10, 10, 0, 3);
    Analyse(s);
    EXPECT_TRUE(CurvedHalf(s.mydiag, Half::left));
    EXPECT_FALSE(CurvedHalf(s.mydiag, Half::right));
    EXPECT_EQ(s.mycurved, kFalse);

    s = Beam(0);
    AddTrapezoid(s, 1, 10, 10, 3, 6);
    Analyse(s);
    EXPECT_FALSE(CurvedHalf(s.mydiag, Half::left));
    EXPECT_EQ(s.mycurved, kTrue);
}

TEST(Shape, ThePeakIsSoughtInTheMiddleHalf)
{
    // Points beyond 12..38 and equal ones that come later do not count: the peak is at 14, the
    // point looked at 32.
    const auto line = [](double j) {
        return j == 5 || j == 45 ? 90.0 : j == 14 || j == 20 ? -40.0 : 0.0;
    };
    EXPECT_EQ(WithMoment(line).mycurved, kTrue);
    const auto chord = [line](double j) { return j == 32 ? -20.0 : line(j); };
    EXPECT_EQ(WithMoment(chord).mycurved, kFalse);
}

// The peak is at 38, the last point of the middle half, and the point looked at 44: half of 40.
TEST(Shape, ThePeakMayBeTheLastPointOfTheMiddleHalf)
{
    const auto line = [](double j) { return j == 38 ? -40.0 : j == 44 ? -20.0 : 0.0; };
    EXPECT_EQ(WithMoment(line).mycurved, kFalse);
}

// The shear in front of it is as large as the moment: no part of the search.
TEST(Shape, ThePeakIsThatOfItsOwnLine)
{
    ProjectState s{};
    for (std::size_t j = 0; j < s.mzdiag.size(); ++j) {
        s.mzdiag[j] = static_cast<float>(Triangle(static_cast<double>(j)));
    }
    s.vzdiag.fill(25);
    FindExtremes(s, s);
    EXPECT_EQ(s.mzcurved, kFalse);
}

// Without a moment in the middle half the chord runs from end to end: through 0 in the middle.
TEST(Shape, MomentsAtTheEndsAloneHaveNoPeak)
{
    const auto line = [](double j) { return j < 5 ? 8.0 : j > 45 ? -8.0 : 0.0; };
    EXPECT_EQ(WithMoment(line).mycurved, kFalse);
}

TEST(Shape, EndsAboveTheMiddle)
{
    const auto big = [](double start, double mid, double end) {
        return WithMoment([=](double j) { return j == 0 ? start : j == 50 ? end : mid; }).myendsbig;
    };
    EXPECT_EQ(big(5, 4, -6), kTrue);
    EXPECT_EQ(big(5, 5, 6), kFalse);
    EXPECT_EQ(big(0, 5, 6), kFalse);
    EXPECT_EQ(big(6, 5, -5), kFalse);
}

TEST(Shape, ALineIsStraightWhenTheMiddleLiesBetween)
{
    const auto linear = [](double start, double mid, double end) {
        return WithMoment([=](double j) { return j == 0 ? start : j == 50 ? end : mid; }).mylinear;
    };
    EXPECT_EQ(linear(0, 5, 10), kTrue);
    EXPECT_EQ(linear(0, 3.0001, 10), kTrue);
    EXPECT_EQ(linear(0, 2.9999, 10), kFalse);
    EXPECT_EQ(linear(10, 7.0001, 0), kFalse);
    EXPECT_EQ(linear(0, 6.9999, 10), kTrue);
    EXPECT_EQ(linear(0, 7.0001, 10), kFalse);
    EXPECT_EQ(linear(10, 10, 10), kTrue);  // both limits included
    EXPECT_EQ(linear(0, 0, 0), kFalse);
}

TEST(Shape, RatiosTakeTheSmallerEnd)
{
    const auto shape = [](double start, double mid, double end) {
        return WithMoment([=](double j) { return j == 0 ? start : j == 50 ? end : mid; });
    };
    EXPECT_EQ(shape(2, 4, 8).myendratio, 0.5);
    EXPECT_EQ(shape(2, 4, 8).mypeakratio, 2);
    EXPECT_EQ(shape(8, 4, 2).myendratio, 0.5);
    EXPECT_EQ(shape(8, 4, -2).mypeakratio, -2);
    EXPECT_EQ(shape(0, 4, 8).mypeakratio, 0);
    EXPECT_EQ(shape(8, 4, 0).mypeakratio, 0);
    EXPECT_EQ(shape(8, 0, 2).myendratio, 0);
    EXPECT_EQ(shape(8, 4, 2).mzendratio, 0.5);
    EXPECT_EQ(shape(8, 4, -8).myendratio, -2);  // of two equal sizes that of the end
    EXPECT_EQ(shape(-8, 4, 8).myendratio, 2);
}

}  // namespace
}  // namespace kestrum::test
