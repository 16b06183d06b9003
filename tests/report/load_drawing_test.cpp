#include "report/load_drawing.h"

#include "core/project_state.h"
#include "report/drawing_checks.h"
#include "support/members.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <array>

namespace kestrum {
namespace {

using ::testing::IsEmpty;

// Tips of the arrows: the first corner of every filled triangle.
std::vector<Point> Tips(const Drawing& d, Ink ink)
{
    std::vector<Point> tips;
    for (const PolygonMark& mark : MarksOf<PolygonMark>(d)) {
        if (mark.filled && mark.fill == ink && mark.rings[0].size() == 3) {
            tips.push_back(mark.rings[0][0]);
        }
    }
    return tips;
}

std::vector<double> HeightsOfMember(const Drawing& d)
{
    std::vector<double> heights;
    for (const LineMark& line : MarksOf<LineMark>(d)) {
        if (line.ink == Ink::member && line.from.x == 16 && line.to.x == 86) {
            heights.push_back(line.from.y);
        }
    }
    return heights;
}

TEST(DrawMember, SpansSeventyUnitsFrom16AndNamesItsLength)
{
    const Drawing d = DrawMember(Member());
    EXPECT_EQ(HeightsOfMember(d).size(), 1U);
    EXPECT_TRUE(HasText(d, "L = 5.000 m"));
}

TEST(DrawMember, TellsThePercentageOfEachSpring)
{
    const auto springs = [](i16 supportcase) {
        Member s = Member::Bare();
        s.supportcase = supportcase;
        s.spring = 35;
        const std::vector<std::string> texts = TextsOf(DrawMember(s));
        return std::count(texts.begin(), texts.end(), "35 %");
    };
    EXPECT_EQ(springs(3), 2);
    EXPECT_EQ(springs(5), 1);
    for (const i16 supportcase : std::array<i16, 4>{0, 1, 2, 4}) {
        EXPECT_EQ(springs(supportcase), 0);
    }
}

TEST(DrawMember, DiffersBetweenTheSupportCases)
{
    std::vector<std::size_t> marks;
    for (i16 supportcase = 0; supportcase <= 5; ++supportcase) {
        Member s = Member::Bare();
        s.supportcase = supportcase;
        const Bounds all = BoundsOf(DrawMember(s));
        EXPECT_TRUE(all.Inside({0, 0, 102, 17})) << supportcase;
        marks.push_back(DrawMember(s).marks.size());
    }
    EXPECT_LT(marks[4], marks[2]);  // a free end has no support
}

TEST(DrawLoad, NamesEveryKindWithValueAndCategory)
{
    Member s = Member::Bare();
    s.qload[1] = 10;
    s.qdir[1] = 1;
    s.qt1[1] = 5;
    s.qt2[1] = 15;
    s.qtx1[1] = 1;
    s.qtx2[1] = 4;
    s.qtdir[1] = 1;
    s.qttype[1] = 1;
    s.pm[1] = 25;
    s.pmx[1] = 2;
    s.pmdir[1] = 1;
    s.pmtype[1] = 2;
    s.pm[2] = -8;
    s.pmx[2] = 4;
    s.pmdir[2] = 1;
    s.pmkind[2] = 1;
    const Drawing d = DrawLoadZ(s);
    EXPECT_TRUE(HasText(d, "Lateral Load"));
    EXPECT_TRUE(HasText(d, "10.0 kN/m (G) "));
    EXPECT_TRUE(HasText(d, "5.0/15.0 kN/m (Q1) "));
    EXPECT_TRUE(HasText(d, "25.0 kN (Q2) "));
    EXPECT_TRUE(HasText(d, "-8.0 kNm (G) "));

    const std::vector<std::string> other = TextsOf(DrawLoadY(s));
    EXPECT_EQ(other, (std::vector<std::string>{"Lateral Load", "L = 5.000 m"}));
}

// The label of a uniform load stands in its band; the arrows leave it free.
TEST(DrawLoad, KeepsArrowsOffTheLabelInABand)
{
    Member s = Member::Bare();
    s.qload[1] = 12345.125F;
    s.qload[2] = 2;
    s.qdir[1] = s.qdir[2] = 1;
    const Drawing d = DrawLoadZ(s);
    std::size_t labels = 0;
    for (const TextMark& text : MarksOf<TextMark>(d)) {
        if (text.ink != Ink::load) {
            continue;
        }
        ++labels;
        for (const PolygonMark& head : MarksOf<PolygonMark>(d)) {
            EXPECT_FALSE(BoundsOf(text).Overlaps(BoundsOf(Mark(head)))) << text.text;
        }
    }
    EXPECT_EQ(labels, 2U);
    EXPECT_GE(Tips(d, Ink::load).size(), 12U);
}

TEST(DrawLoad, ShowsSmallLoadsWithAllTheirDigits)
{
    Member s = Member::Bare();
    s.qload[1] = 0.35F;
    s.qload[2] = 2;
    s.qt1[1] = 0.125F;
    s.qt2[1] = 0.5F;
    s.qtx2[1] = 4;
    s.pm[1] = 1.25F;
    s.pmx[1] = 2;
    s.qdir[1] = s.qdir[2] = s.pmdir[1] = 1;
    s.qtdir[1] = 1;
    const Drawing d = DrawLoadZ(s);
    EXPECT_TRUE(HasText(d, "0.35 kN/m (G) "));
    EXPECT_TRUE(HasText(d, "2.0 kN/m (G) "));
    EXPECT_TRUE(HasText(d, "0.125/0.5 kN/m (G) "));
    EXPECT_TRUE(HasText(d, "1.25 kN (G) "));
}

TEST(DrawLoad, PutsAPointForceAtItsPlaceInItsDirection)
{
    Member s = Member::Bare();
    s.pm[1] = 25;
    s.pmx[1] = 2;
    s.pmdir[1] = 1;
    Drawing d = DrawLoadZ(s);
    const double axis = HeightsOfMember(d)[0];
    ASSERT_EQ(Tips(d, Ink::load).size(), 1U);
    EXPECT_NEAR(Tips(d, Ink::load)[0].x, 16 + 70 * 0.4, 1e-6);
    EXPECT_NEAR(Tips(d, Ink::load)[0].y, axis, 0.5);
    s.pm[1] = -25;
    d = DrawLoadZ(s);
    EXPECT_LT(Tips(d, Ink::load)[0].y, axis - 5);  // upwards
}

TEST(DrawLoad, LeavesOutWhatIsNotCheckedAmongBasicLoads)
{
    Member s = Member::Bare();
    s.loadcomb = 5;
    s.qload[1] = 10;
    s.qload[2] = 20;
    s.qdir[1] = s.qdir[2] = 1;
    s.qchecked[2] = kTrue;
    EXPECT_FALSE(HasText(DrawLoadZ(s), "10.0 kN/m (G) "));
    EXPECT_TRUE(HasText(DrawLoadZ(s), "20.0 kN/m (G) "));
}

TEST(AxialLoad, IsTheSumOfItsRowsByCategory)
{
    Member s = Member::Bare();
    EXPECT_THAT(AxialLoadText(s), IsEmpty());
    s.nload[1] = 100;
    s.nload[3] = 20;
    s.ntype[3] = 2;
    EXPECT_EQ(AxialLoadText(s), "Axial Load: 100.0 (G) +20.0 (Q2) ");
    EXPECT_TRUE(HasText(DrawLoadY(s), AxialLoadText(s)));
}

// A negative row brings its own sign.
TEST(AxialLoad, HasOneSignBeforeEachRow)
{
    ProjectState s{};
    s.nload[1] = 100;
    s.nload[2] = -20;
    s.ntype[2] = 1;
    s.nload[3] = 5;
    s.ntype[3] = 2;
    EXPECT_EQ(AxialLoadText(s), "Axial Load: 100.0 (G) -20.0 (Q1) +5.0 (Q2) ");
}

TEST(DrawAxial, PointsAtTheMemberInCompression)
{
    Member s = Member::Bare();
    s.ned = 123.45;
    const std::vector<Point> push = Tips(DrawLoadZ(s), Ink::load);
    EXPECT_TRUE(HasText(DrawLoadZ(s), " Axial force (kN) 123.5"));
    EXPECT_TRUE(HasText(DrawLoadZ(s), "Axial Load"));
    s.ned = -10;
    const std::vector<Point> pull = Tips(DrawLoadZ(s), Ink::load);
    ASSERT_EQ(push.size(), 1U);
    ASSERT_EQ(pull.size(), 1U);
    EXPECT_LT(push[0].x, pull[0].x);
    s.ned = 0;
    EXPECT_THAT(Tips(DrawLoadZ(s), Ink::load), IsEmpty());
}

TEST(DrawAxial, KeepsItsNameOffSupportAndEndMoment)
{
    for (i16 supportcase = 0; supportcase <= 5; ++supportcase) {
        for (const float moment : {0.0F, 40.0F, -40.0F}) {
            Member s = Member::Bare();
            s.loadmode = 0;
            s.supportcase = supportcase;
            s.ned = 10;
            s.my2 = moment;
            const Drawing d = DrawLoadZ(s);
            for (const TextMark& name : MarksOf<TextMark>(d)) {
                if (name.text != "Axial Load") {
                    continue;
                }
                const Bounds box = BoundsOf(name);
                EXPECT_TRUE(box.Inside({0, 0, d.width, d.height}));
                for (const PolylineMark& line : MarksOf<PolylineMark>(d)) {
                    EXPECT_FALSE(CrossesText(line, box)) << supportcase << " " << moment;
                }
                for (const LineMark& line : MarksOf<LineMark>(d)) {
                    EXPECT_FALSE(CrossesText({{line.from, line.to}}, box)) << supportcase;
                }
            }
        }
    }
}

TEST(DrawLoad, ShowsTheEndForcesInTheirMode)
{
    Member s = Member::Bare();
    s.loadmode = 0;
    s.my1 = -20;
    s.vz2 = 7.5F;
    s.mz2 = 3;
    EXPECT_TRUE(HasText(DrawLoadZ(s), "My1 = -20.0 kNm"));
    EXPECT_TRUE(HasText(DrawLoadZ(s), "Vz2 = 7.5 kN"));
    EXPECT_TRUE(HasText(DrawLoadY(s), "Mz2 = 3.0 kNm"));
    EXPECT_FALSE(HasText(DrawLoadZ(s), "Lateral Load"));
}

TEST(DrawLoad, StandsAMemberWithoutLength)
{
    Member s = Member::Bare();
    s.l = 0;
    s.qt1[1] = s.qt2[1] = 5;
    s.qtdir[1] = 1;
    s.pm[1] = 1;
    s.pmdir[1] = 1;
    ExpectLegible(DrawLoadZ(s));
}

}  // namespace
}  // namespace kestrum
