#include "report/diagrams.h"

#include "core/load_combination.h"
#include "core/project_state.h"
#include "report/drawing_checks.h"
#include "report/pane_diagrams.h"
#include "support/members.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cfenv>
#include <limits>

namespace kestrum {
namespace {

using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

// HEA, 5 m, q = 10 kN/m along z, basic loads: M = 10 25/8 = 31.25 kNm, V = 25 kN.
Member Calculated(i16 supportcase = 0)
{
    return Member().BasicLoads().Supports(supportcase).Calculated();
}

TEST(MomentDiagram, RunsFrom16To86AndItsLargestOrdinateIsTenUnits)
{
    const std::vector<PolylineMark> curves = ResultCurves(DrawMyVz(Calculated()));
    ASSERT_EQ(curves.size(), 3U);  // moment, shear, deflection
    for (const PolylineMark& curve : curves) {
        const std::vector<Point>& p = curve.points;
        const double axis = p.front().y;
        EXPECT_EQ(p.front().x, 16);
        EXPECT_EQ(p.back(), (Point{86, axis}));
        double most = 0;
        for (int j = 0; j <= 50; ++j) {
            const Point at = p[static_cast<std::size_t>(j + 1)];
            EXPECT_NEAR(at.x, 16 + 70.0 * j / 50, 1e-9);
            most = std::max(most, std::abs(at.y - axis));
        }
        EXPECT_NEAR(most, 10, 1e-6);
    }
}

TEST(MomentDiagram, PutsPositiveValuesBelowTheAxis)
{
    const std::vector<PolylineMark> curves = ResultCurves(DrawMyVz(Calculated()));
    const double axis = curves[0].points.front().y;
    EXPECT_NEAR(curves[0].points[26].y, axis + 10, 1e-6);  // sagging at midspan
    const double shear = curves[1].points.front().y;
    EXPECT_NEAR(curves[1].points[1].y, shear + 10, 1e-6);
    EXPECT_NEAR(curves[1].points[51].y, shear - 10, 1e-6);
}

TEST(MomentDiagram, IsSymmetricForASymmetricLoad)
{
    const std::vector<Point> p = ResultCurves(DrawMyVz(Calculated(2)))[0].points;
    for (std::size_t i = 0; i < p.size(); ++i) {
        EXPECT_NEAR(p[i].y, p[p.size() - 1 - i].y, 1e-5);
        EXPECT_NEAR(p[i].x + p[p.size() - 1 - i].x, 102, 1e-9);
    }
}

TEST(MomentDiagram, NamesExtremesAndTheirPositions)
{
    const Drawing d = DrawMyVz(Calculated());
    EXPECT_TRUE(HasText(d, "My/Vz/Deflection (kNm/kN/mm)"));
    EXPECT_TRUE(HasText(d, "M"));
    EXPECT_TRUE(HasText(d, "V"));
    EXPECT_TRUE(HasText(d, "31.3  x=2.500 m"));  // 31.25, the half rounded away from zero
    EXPECT_TRUE(HasText(d, "25.0  x=0.000 m"));
    EXPECT_TRUE(HasText(d, "-25.0  x=5.000 m"));
}

// Pinned and fixed: M = 3qL x/8 - q x2/2 is zero at 3L/4 = 3.75 m.
TEST(MomentDiagram, NamesZeroCrossings)
{
    const Drawing d = DrawMyVz(Calculated(1));
    std::string found;
    for (const std::string& text : TextsOf(d)) {
        found = text.starts_with("x=3.7") ? text : found;
    }
    EXPECT_THAT(found, ::testing::AnyOf("x=3.750 m", "x=3.749 m"));
}

// A cantilever: M = -q L2/2 = -125 kNm at its fixed end.
TEST(MomentDiagram, OfACantileverHasItsExtremeAtTheStart)
{
    const Member s = Calculated(4);
    const Drawing d = DrawMyVz(s);
    const std::vector<Point> p = ResultCurves(d)[0].points;
    EXPECT_NEAR(p[1].y, p[0].y - 10, 1e-6);
    EXPECT_TRUE(HasText(d, "-125.0  x=0.000 m"));
}

TEST(MomentDiagram, IsFlatWithoutMomentAndDividesByNothing)
{
    Member s = Member().BasicLoads();
    s.qload = {};
    ASSERT_TRUE(EndsWell(s));
    std::feclearexcept(FE_ALL_EXCEPT);
    const Drawing d = DrawMyVz(s);
    EXPECT_EQ(std::fetestexcept(FE_DIVBYZERO | FE_INVALID), 0);
    for (const PolylineMark& curve : ResultCurves(d)) {
        for (const Point& p : curve.points) {
            EXPECT_EQ(p.y, curve.points.front().y);
        }
    }
    for (const std::string& text : TextsOf(d)) {
        EXPECT_THAT(text, Not(HasSubstr("x=")));
        EXPECT_THAT(text, Not(HasSubstr("l/")));
    }
}

TEST(MomentDiagram, ShowsSelfweightAlone)
{
    Member s = Member().BasicLoads();
    s.qload = {};
    s.selfweight = 1;
    ASSERT_TRUE(EndsWell(s));
    const std::vector<Point> p = ResultCurves(DrawMyVz(s))[0].points;
    EXPECT_NEAR(p[26].y - p[0].y, 10, 1e-6);
    EXPECT_EQ(ResultCurves(DrawMzVy(s))[0].points[26].y, ResultCurves(DrawMzVy(s))[0].points[0].y);
}

TEST(MomentDiagram, OfTheOtherAxisReadsTheOtherResults)
{
    Member s = Member().BasicLoads();
    s.qdir[1] = 0;
    s.qload[1] = 4;  // M = 4 25/8 = 12.5 kNm about z
    s.qload[2] = s.qload[3] = s.qload[4] = 0;
    ASSERT_TRUE(EndsWell(s));
    const Drawing d = DrawMzVy(s);
    EXPECT_TRUE(HasText(d, "Mz/Vy/Deflection (kNm/kN/mm)"));
    EXPECT_TRUE(HasText(d, "12.5  x=2.500 m"));
}

// P = 10 kN at 1.23 m of 5 m, between the points 12 and 13: the shear falls from 7.54 to -2.46 kN
// at one place, and the moment has its peak there, not beside it.
TEST(ShearDiagram, StepsAtThePlaceOfAForce)
{
    Member s = Member().BasicLoads();
    s.qload = {};
    s.pm[1] = 10;
    s.pmx[1] = 1.23F;
    s.pmdir[1] = 1;
    s.pmchecked[1] = kTrue;
    ASSERT_TRUE(EndsWell(s));
    const std::vector<PolylineMark> curves = ResultCurves(DrawMyVz(s));
    const double place = 16 + 70 * 1.23 / 5;
    const std::vector<Point>& v = curves[1].points;
    std::vector<Point> step;
    for (const Point& p : v) {
        if (std::abs(p.x - place) < 1e-3) {
            step.push_back(p);
        }
    }
    ASSERT_EQ(step.size(), 2U);
    EXPECT_NEAR(step[0].y - v[0].y, 10, 1e-4);
    EXPECT_NEAR(step[1].y - v[0].y, -10 * 2.46 / 7.54, 1e-4);
    const std::vector<Point>& m = curves[0].points;
    const auto lower = [](const Point& a, const Point& b) { return a.y < b.y; };
    const Point peak = *std::max_element(m.begin(), m.end(), lower);
    EXPECT_NEAR(peak.x, place, 1e-3);
    EXPECT_NEAR(peak.y - m[0].y, 10, 0.02);  // the extreme is that of the section at 0.999 x
}

// A uniform trapezoid between two points of the diagram: the shear never rises, as it would where
// its strips fall into the grid by chance.
TEST(ShearDiagram, HasNoTeethThatTheLoadDoesNotHave)
{
    Member s = Member().BasicLoads();
    s.qload = {};
    s.qt1[1] = s.qt2[1] = 10;
    s.qtx1[1] = 0.33F;
    s.qtx2[1] = 4.87F;
    s.qtdir[1] = 1;
    s.qtchecked[1] = kTrue;
    ASSERT_TRUE(EndsWell(s));
    const std::vector<Point> v = ResultCurves(DrawMyVz(s))[1].points;
    int steps = 0;
    for (std::size_t i = 2; i + 1 < v.size(); ++i) {
        EXPECT_LE(v[i].y, v[i - 1].y + 1e-4);
        if (v[i].y < v[i - 1].y - 0.1) {
            ++steps;
            EXPECT_LT(v[i].x - v[i - 1].x, 1e-6);  // upright
        }
    }
    EXPECT_EQ(steps, 20);
}

// A short strong load between two points: its own peak, higher than the stored extreme, stays in
// the band of the curve.
TEST(MomentDiagram, KeepsPeaksBetweenThePointsInItsBand)
{
    Member s = Member().BasicLoads();
    s.l = 50;
    s.qload = {};
    s.nload = {};
    for (const std::size_t k : {1U, 2U}) {
        s.qt1[k] = s.qt2[k] = k == 1 ? 1000.0F : -1000.0F;
        s.qtx1[k] = k == 1 ? 10.1F : 10.6F;
        s.qtx2[k] = k == 1 ? 10.3F : 10.8F;
        s.qtdir[k] = 1;
        s.qtchecked[k] = kTrue;
    }
    ASSERT_TRUE(EndsWell(s));
    for (const PolylineMark& curve : ResultCurves(DrawMyVz(s))) {
        for (const Point& p : curve.points) {
            EXPECT_LE(std::abs(p.y - curve.points.front().y), 12 + 1e-9);
        }
    }
}

TEST(DeflectionText, GivesSizeAndPartOfTheLength)
{
    ProjectState s{};
    s.l = 5;
    EXPECT_EQ(DeflectionText(s, 12.3), "Deflection: 12.3 mm  = l/407");  // 5000/12.3 = 406.5
    EXPECT_THAT(DeflectionText(s, 0), IsEmpty());
}

TEST(EndForceDiagram, IsStraightWithItsOwnTitlesAndReference)
{
    Member s = Member().BasicLoads();
    s.loadmode = 0;
    s.my1 = -20;
    s.my2 = 40;
    s.vz1 = s.vz2 = 12;
    ASSERT_TRUE(EndsWell(s));
    const Drawing d = DrawEndMyVz(s);
    EXPECT_TRUE(HasText(d, "Bending moment (My, kNm)"));
    EXPECT_TRUE(HasText(d, "Shear (Vz, kN)"));
    EXPECT_TRUE(HasText(DrawEndMzVy(s), "Bending moment (Mz, kNm)"));
    EXPECT_TRUE(HasText(DrawEndMzVy(s), "Shear (Vy, kN)"));
    EXPECT_TRUE(HasText(d, "-20.0"));
    EXPECT_TRUE(HasText(d, "40.0"));
    const std::vector<PolylineMark> curves = ResultCurves(d);
    ASSERT_EQ(curves.size(), 2U);
    const std::vector<Point>& p = curves[0].points;
    EXPECT_NEAR(p[1].y - p[0].y, -5, 1e-6);  // -20/40 of ten units
    EXPECT_NEAR(p[26].y - p[0].y, 2.5, 1e-5);
    EXPECT_NEAR(p[51].y - p[0].y, 10, 1e-6);
}

// 2.35 in single precision lies below the half, but was entered as one.
TEST(EndForceDiagram, RoundsAsTheEndForcesBesideIt)
{
    Member s = Member().BasicLoads();
    s.loadmode = 0;
    s.my1 = 2.35F;
    s.my2 = -1.05F;
    ASSERT_TRUE(EndsWell(s));
    EXPECT_TRUE(HasText(DrawLoadZ(s), "My1 = 2.4 kNm"));
    EXPECT_TRUE(HasText(DrawEndMyVz(s), "2.4"));
    EXPECT_TRUE(HasText(DrawLoadZ(s), "My2 = -1.1 kNm"));
    EXPECT_TRUE(HasText(DrawEndMyVz(s), "-1.1"));
}

TEST(DrawAll, FollowsTheModeOfLoading)
{
    Member s = Calculated();
    EXPECT_TRUE(HasText(DrawAll(s, LoadAxis::z).load, "Lateral Load"));
    EXPECT_TRUE(HasText(DrawAll(s, LoadAxis::z).moment, "My/Vz/Deflection (kNm/kN/mm)"));
    EXPECT_TRUE(HasText(DrawAll(s, LoadAxis::y).moment, "Mz/Vy/Deflection (kNm/kN/mm)"));
    s.loadmode = 0;
    EXPECT_TRUE(HasText(DrawAll(s, LoadAxis::y).moment, "Shear (Vy, kN)"));
}

Member Counted()
{
    Member s = Member::Bare();
    for (std::size_t j = 0; j < s.mydiag.size(); ++j) {
        s.mydiag[j] = static_cast<float>(j);
        s.vzdiag[j] = -static_cast<float>(j);
        s.mzdiag[j] = 100;
        s.vydiag[j] = 0.25F;
    }
    return s;
}

TEST(HoverText, ReadsTheNearestPoint)
{
    const Member s = Counted();
    EXPECT_EQ(HoverText(s, LoadAxis::z, 16), " x = 0.000 m  My = 0.0 kNm  Vz = 0.0 kNm ");
    EXPECT_EQ(HoverText(s, LoadAxis::z, 51), " x = 2.500 m  My = 25.0 kNm  Vz = -25.0 kNm ");
    EXPECT_EQ(HoverText(s, LoadAxis::y, 51), " x = 2.500 m  Mz = 100.0 kNm  Vy = 0.3 kNm ");
}

// 3.5 units are 2.5 intervals, 10.5 units are 7.5.
TEST(HoverText, TakesTheEvenPointHalfWay)
{
    const Member s = Counted();
    EXPECT_THAT(HoverText(s, LoadAxis::z, 19.5), HasSubstr("My = 2.0 kNm"));
    EXPECT_THAT(HoverText(s, LoadAxis::z, 26.5), HasSubstr("My = 8.0 kNm"));
}

TEST(HoverText, IsEmptyOutsideTheMember)
{
    const Member s = Counted();
    EXPECT_THAT(HoverText(s, LoadAxis::z, std::nextafter(86.0, 0.0)), HasSubstr("My = 50.0 kNm"));
    EXPECT_THAT(HoverText(s, LoadAxis::z, 86), IsEmpty());
    EXPECT_THAT(HoverText(s, LoadAxis::z, 15.999), IsEmpty());
    EXPECT_THAT(HoverText(s, LoadAxis::z, std::numeric_limits<double>::quiet_NaN()), IsEmpty());
}

// Kinds of loading, one a bit: uniform; second uniform and self-weight; trapezoid and axial;
// points.

void Load(ProjectState& s, int kinds, i16 direction)
{
    s.qload = {};
    s.nload = {};
    if ((kinds & 1) != 0) {
        s.qload[1] = 10;
        s.qdir[1] = direction;
    }
    if ((kinds & 2) != 0) {
        s.qload[2] = -4;
        s.qdir[2] = direction;
        s.qtype[2] = 1;
        s.selfweight = 1;
    }
    if ((kinds & 4) != 0) {
        s.qt1[1] = 2;
        s.qt2[1] = 8;
        s.qtx1[1] = 1;
        s.qtx2[1] = 4;
        s.qtdir[1] = direction;
        s.nload[1] = 5;
        s.nload[2] = -25;
        s.ntype[2] = 1;
    }
    if ((kinds & 8) != 0) {
        for (std::size_t k = 1; k <= 8; ++k) {  // crowded, of both kinds and signs
            s.pm[k] = k % 3 == 0 ? -120.5F : 33.3F;
            s.pmx[k] = static_cast<float>(k) * (k > 5 ? 0.55F : 0.2F);
            s.pmkind[k] = k % 2 == 0;
            s.pmdir[k] = direction;
            s.pmtype[k] = static_cast<i16>(k % 3);
        }
    }
}

void ExpectAllLegible(const ProjectState& s)
{
    for (const LoadAxis axis : {LoadAxis::z, LoadAxis::y}) {
        const AxisPictures pictures = DrawAll(s, axis);
        ExpectLegible(pictures.load);
        ExpectLegible(pictures.moment);
        ExpectLegible(DrawSheet(s, axis));
    }
    ExpectLegible(DrawMember(s));
}

TEST(Diagrams, AreLegibleForEverySupportAndKindOfLoading)
{
    for (i16 supportcase = 0; supportcase <= 5; ++supportcase) {
        for (int kinds = 0; kinds < 1 << 4; ++kinds) {
            for (const i16 direction : {kFalse, i16{1}}) {
                Member s = Member().BasicLoads();
                s.loadcomb = kEq610;
                s.supportcase = supportcase;
                s.spring = 50;
                s.row[0] = 20;
                Load(s, kinds, direction);
                SCOPED_TRACE(testing::Message() << "support " << supportcase << " kinds " << kinds
                                                << " direction " << direction);
                ASSERT_TRUE(EndsWell(s));
                ExpectAllLegible(s);
            }
        }
    }
}

TEST(Diagrams, AreLegibleForGivenEndForces)
{
    for (i16 supportcase = 0; supportcase <= 5; ++supportcase) {
        for (const float m1 : {-1234.5F, 0.0F, 20.0F}) {
            for (const float m2 : {-30.0F, 0.0F, 9876.5F}) {
                Member s = Member().BasicLoads();
                s.row[0] = 20;
                s.supportcase = supportcase;
                s.spring = 50;
                s.loadmode = 0;
                s.my1 = s.mz2 = m1;
                s.my2 = s.mz1 = m2;
                s.vz1 = s.vy2 = (m2 - m1) / 5;
                s.vz2 = s.vy1 = -s.vz1;
                s.ne = 10;
                SCOPED_TRACE(testing::Message() << supportcase << " " << m1 << " " << m2);
                ASSERT_TRUE(EndsWell(s));
                ExpectAllLegible(s);
            }
        }
    }
}

TEST(Diagrams, AreLegibleForEveryFamily)
{
    constexpr i16 kFamilies[] = {1,  2,  3,  4,  5,  6,  7,  8,  9,  10, 11, 15, 16,  21,  22, 23,
                                 24, 25, 26, 27, 28, 31, 41, 51, 52, 53, 54, 56, 101, 102, 103};
    for (const i16 family : kFamilies) {
        Member s = Member().Family(family).BasicLoads();
        Load(s, 15, 1);
        s.nload = {};
        s.l = 5;
        SCOPED_TRACE(family);
        ASSERT_TRUE(EndsWell(s));
        ExpectAllLegible(s);
    }
}

// A pane is filled from edge to edge; the member has what its surroundings, 102 - 70 units, leave.
TEST(Pane, IsFilledByItsCurves)
{
    const Member s = Calculated();
    for (const PaneRoom room : {PaneRoom{102, 60}, PaneRoom{160, 90}, PaneRoom{300, 200}}) {
        const Drawing d = DrawPaneCurves(s, LoadAxis::z, {}, room);
        EXPECT_DOUBLE_EQ(d.width, room.width);
        EXPECT_NEAR(d.height, room.height, 1e-9);
        for (const PolylineMark& curve : ResultCurves(d)) {
            EXPECT_DOUBLE_EQ(curve.points.front().x, 16);
            EXPECT_DOUBLE_EQ(curve.points.back().x, room.width - 16);
        }
        ExpectLegible(d);
        EXPECT_DOUBLE_EQ(DrawPaneLoads(s, LoadAxis::z, room).width, room.width);
    }
}

// M = 31.25 kNm all on one side, V = 25 kN on both: each curve has the same height in all, its axis
// where that leaves it.
TEST(Pane, GivesEveryCurveTheSameHeight)
{
    const std::vector<PolylineMark> curves =
        ResultCurves(DrawPaneCurves(Calculated(), LoadAxis::z, {}, {160, 90}));
    ASSERT_EQ(curves.size(), 3U);
    std::vector<double> heights;
    for (const PolylineMark& curve : curves) {
        const auto [top, bottom] =
            std::minmax_element(curve.points.begin(), curve.points.end(),
                                [](const Point& a, const Point& b) { return a.y < b.y; });
        heights.push_back(bottom->y - top->y);
    }
    EXPECT_NEAR(heights[0], heights[1], 1e-4);
    EXPECT_NEAR(heights[0], heights[2], 1e-4);
}

TEST(Pane, NamesUnitsAndSigns)
{
    std::vector<std::string> texts;
    for (const Mark& mark : DrawPaneCurves(Calculated(), LoadAxis::z, {}, {160, 90}).marks) {
        if (const auto* const text = std::get_if<TextMark>(&mark)) {
            texts.push_back(text->text);
        }
    }
    for (const char* const text : {"M", "kNm", "V", "kN", "d", "mm", "+", "\u2212",
                                   "My/Vz/Deflection (kNm/kN/mm)", "31.3  x=2.500 m"}) {
        EXPECT_THAT(texts, testing::Contains(text));
    }
}

TEST(Pane, OfGivenEndForcesHasHeadingsOfItsOwn)
{
    Member s = Calculated();
    s.loadmode = 0;
    s.my1 = 30;
    s.vz1 = 6;
    s.vz2 = -6;
    ASSERT_TRUE(EndsWell(s));
    const Drawing d = DrawPaneCurves(s, LoadAxis::z, {}, {160, 90});
    EXPECT_NEAR(d.height, 90, 1e-9);
    ExpectLegible(d);
    std::string texts;
    for (const Mark& mark : d.marks) {
        const auto* const text = std::get_if<TextMark>(&mark);
        texts += text != nullptr ? text->text + "\n" : "";
    }
    EXPECT_THAT(texts, HasSubstr("Bending moment (My, kNm)\n"));
    EXPECT_THAT(texts, HasSubstr("Shear (Vz, kN)\n"));
    EXPECT_THAT(texts, Not(HasSubstr("Deflection")));
}

TEST(Pane, SaysOfWhichCombinationsTheUtilisationIs)
{
    Utilisation along{AlongMember{}, AlongMember{}, 1, "EN 1990 Eq 6.10", "all combinations"};
    along.program->at(3) = 0.25;
    along.standard->at(4) = 0.5;
    const auto legend = [&](double width) {
        std::string all;
        for (const Mark& mark :
             DrawPaneCurves(Calculated(), LoadAxis::z, along, {width, 90}).marks) {
            const auto* const text = std::get_if<TextMark>(&mark);
            all += text != nullptr ? text->text + "\n" : "";
        }
        return all;
    };
    EXPECT_THAT(legend(160), HasSubstr("program (EN 1990 Eq 6.10): 0.25"));
    EXPECT_THAT(legend(160), HasSubstr("EN 1993-1-1 (all combinations): 0.50"));
    EXPECT_THAT(legend(80), HasSubstr("program (EN 1990 Eq 6.10): 0.25"));  // in two lines
    EXPECT_THAT(legend(80), HasSubstr("EN 1993-1-1 (all combinations): 0.50"));
    along.programof = std::string(60, 'x');
    EXPECT_THAT(legend(80), HasSubstr("program: 0.25"));  // no room for it
}

TEST(Pane, KnowsAnAxisWithoutAnythingToSee)
{
    Member s = Calculated();
    EXPECT_TRUE(IsAxisLoaded(s, LoadAxis::z));
    EXPECT_FALSE(IsAxisLoaded(s, LoadAxis::y));
    s.pm[1] = 2;
    s.pmx[1] = 1;
    s.pmdir[1] = 0;
    EXPECT_TRUE(IsAxisLoaded(s, LoadAxis::y));  // also before a pass
}

TEST(Pane, IsLegibleForEveryKindOfLoading)
{
    for (int kinds = 0; kinds < 1 << 4; ++kinds) {
        Member s = Member().BasicLoads();
        s.loadcomb = kEq610;
        s.supportcase = 1;
        s.row[0] = 20;
        Load(s, kinds, 1);
        SCOPED_TRACE(kinds);
        ASSERT_TRUE(EndsWell(s));
        for (const double width : {102.0, 200.0}) {
            const Drawing wide = DrawPaneLoads(s, LoadAxis::z, {width, 0});
            const Drawing close = DrawPaneLoads(s, LoadAxis::z, {width, 20});
            ExpectLegible(wide);
            ExpectLegible(close);
            EXPECT_LT(close.height, 0.85 * wide.height);
            ExpectLegible(DrawPaneCurves(s, LoadAxis::z, {}, {width, 110}));
        }
    }
}

}  // namespace
}  // namespace kestrum
