#include "stability/interaction_annex_b.h"

#include "core/project_state.h"
#include "stability/buckling_curves.h"
#include "stability/buckling_resistance.h"
#include "stability/test_members.h"

#include <gtest/gtest.h>

namespace kestrum {
namespace {

Member Heb200BeamColumn()
{
    Member s = members::Heb200();
    members::UniformLoad(s, 10);
    s.ned = 100;
    s.ltb = 1;
    members::ResistBuckling(s);
    return s;
}

// By hand: Cm 0.95 for the parabola; D = 100/2066, E = 100/1087; kyy 0.95 (1 + 0.5662 0.04841)
// = 0.9760; kzy 1 - 0.1/(0.95 - 0.25) 0.0920 = 0.9869 (lamz 1.292 is above 1).
TEST(KFactorsAnnexB, WorksOutAHeb200)
{
    Member s = Heb200BeamColumn();
    CmAnnexBLoads(s, s, s);
    KFactorsAnnexB(s, s, s, s, s);
    EXPECT_DOUBLE_EQ(s.cmy, 0.95);
    EXPECT_EQ(s.cmlt, 0.95f);
    EXPECT_NEAR(s.kyy, 0.9760, 5e-5);
    EXPECT_NEAR(s.kzy, 0.9869, 5e-5);
}

struct CmCase {
    const char* name;
    bool curved, linear;
    double first, mid, last, psi, end, peak, cm;
};

class CmTable : public testing::TestWithParam<CmCase> {};

// EN 1993-1-1, Table B.3, worked by hand.
TEST_P(CmTable, GivesTheFactor)
{
    const CmCase& c = GetParam();
    Member s = Heb200BeamColumn();
    s.mycurved = c.curved ? kTrue : kFalse;
    s.mylinear = c.linear ? kTrue : kFalse;
    s.my0 = c.first;
    s.mymid = c.mid;
    s.myl = c.last;
    s.psiy = c.psi;
    s.myendratio = c.end;
    s.mypeakratio = c.peak;
    CmAnnexBLoads(s, s, s);
    EXPECT_NEAR(s.cmy, c.cm, 1e-12);
}

INSTANTIATE_TEST_SUITE_P(
    TableB3, CmTable,
    testing::Values(
        CmCase{"span_uniform", true, false, -40, 100, -40, 1, -0.4, -2.5, 0.95 - 0.05 * 0.4},
        CmCase{"span_point", false, false, -40, 100, -40, 1, -0.4, -2.5, 0.9 - 0.1 * 0.4},
        // 0.95 + 0.05 (-0.2) (1 - 2 0.5) = 0.95
        CmCase{"span_uniform_opposed", true, false, -40, 100, 20, -0.5, -0.2, -2.5, 0.95},
        // 0.9 + 0.1 (-0.2) (1 - 2 0.25) = 0.89
        CmCase{"span_point_opposed", false, false, -40, 100, 10, -0.25, -0.2, -2.5, 0.89},
        CmCase{"span_positive_ends", true, false, 40, 100, 40, 1, 0.4, 2.5, 0.97},
        CmCase{"end_positive", true, false, 100, 60, 80, 0.8, 0, 0.6, 0.68},
        CmCase{"end_positive_floor", true, false, 100, 20, 80, 0.8, 0, 0.2, 0.4},
        CmCase{"end_negative_uniform", true, false, -100, 50, -80, 0.8, 0, -0.5, 0.5},
        CmCase{"end_negative_point", false, false, -100, 60, -80, 0.8, 0, -0.6, 0.48},
        // 0.1 (1 + 0.4) + 0.8 0.5 = 0.54
        CmCase{"end_opposed_uniform", true, false, -100, 50, 40, -0.4, 0, -0.5, 0.54},
        // 0.2 0.4 + 0.8 0.5 = 0.48
        CmCase{"end_opposed_point", false, false, -100, 50, 40, -0.4, 0, -0.5, 0.48},
        // 0.1 + 0.8 0.2 = 0.26 and 0.1 1.4 + 0.8 0.2 = 0.30 are held at 0.4
        CmCase{"end_negative_floor", true, false, -100, 20, -80, 0.8, 0, -0.2, 0.4},
        CmCase{"end_opposed_floor", true, false, -100, 20, 40, -0.4, 0, -0.2, 0.4},
        CmCase{"linear", true, true, 100, 75, 50, 0.5, 0, 0.75, 0.8},
        CmCase{"linear_opposed", true, true, 100, 0, -100, -1, 0, 0, 0.4}),
    [](const testing::TestParamInfo<CmCase>& c) { return c.param.name; });

// A mid moment equal to an end moment is not the larger one.
TEST(CmAnnexBLoads, SpanGovernsStrictly)
{
    Member s = Heb200BeamColumn();
    s.my0 = s.myl = -40;
    s.mymid = 40;
    s.psiy = 1;
    s.mypeakratio = -1;
    s.myendratio = -1;
    CmAnnexBLoads(s, s, s);
    EXPECT_NEAR(s.cmy, 0.1 + 0.8, 1e-12);
    s.myendratio = -0.75;
    for (const bool first : {true, false}) {  // one end alone is enough
        (first ? s.myl : s.my0) = -30;
        (first ? s.my0 : s.myl) = -40;
        CmAnnexBLoads(s, s, s);
        EXPECT_NEAR(s.cmy, 0.1 + 0.8, 1e-12) << first;
    }
    s.my0 = s.myl = -40;
    s.myendratio = -1;
    s.mymid = 40.001;
    CmAnnexBLoads(s, s, s);
    EXPECT_NEAR(s.cmy, 0.95 - 0.05, 1e-12);
}

TEST(CmAnnexBLoads, TakesTheShapeOfTheOtherAxisWithoutLoads)
{
    Member s = Heb200BeamColumn();
    s.mzcurved = kFalse;
    CmAnnexBLoads(s, s, s);  // loads in z only
    EXPECT_DOUBLE_EQ(s.cmz, 0.95);
    EXPECT_EQ(s.mzcurved, kTrue);

    Member y = Heb200BeamColumn();
    y.hasyloads = kFalse;
    y.haszloads = kTrue;
    y.mzcurved = kFalse;
    y.mzmid = 10;
    CmAnnexBLoads(y, y, y);
    EXPECT_DOUBLE_EQ(y.cmy, 0.9);
    EXPECT_DOUBLE_EQ(y.cmz, 0.9);
}

TEST(CmAnnexBLoads, ClosedSectionsHaveNoCmLt)
{
    Member s = members::Shs150();
    members::UniformLoad(s, 10);
    CmAnnexBLoads(s, s, s);
    EXPECT_EQ(s.cmlt, 1.0f);
}

// Pinned-fixed under q: ends 0 and -qL^2/8, middle qL^2/16. The smaller end moment makes the ratio
// 0.
TEST(CmAnnexBLoads, D221RatiosTakeTheSmallerEndMoment)
{
    Member s = Heb200BeamColumn();
    s.my0 = 0;
    s.myl = -31.25;
    s.mymid = 15.625;
    s.mypeakratio = 0;  // middle over the smaller end, 0 by definition
    CmAnnexBLoads(s, s, s);
    EXPECT_DOUBLE_EQ(s.cmy, 0.4);  // 0.1 + 0.8 0.5 = 0.50 with the larger end
}

TEST(CmAnnexBForces, D222IsAlways06)
{
    for (ProjectState s : {Heb200BeamColumn(), members::Shs150()}) {
        members::EndMoments(s, 30, 30);
        CmAnnexBForces(s);
        EXPECT_EQ(s.cmy, 0.6);
        EXPECT_EQ(s.cmz, 0.6);
        EXPECT_EQ(s.cmlt, 0.6f);
    }
}

TEST(KFactorsAnnexB, AreCmOrOneWithoutAxialForce)
{
    constexpr i16 kClasses[] = {1, 3};
    for (const i16 cls : kClasses) {
        Member s = Heb200BeamColumn();
        s.ned = 0;
        s.classmy = cls;
        CmAnnexBLoads(s, s, s);
        KFactorsAnnexB(s, s, s, s, s);
        EXPECT_DOUBLE_EQ(s.kyy, s.cmy);
        EXPECT_DOUBLE_EQ(s.kzz, s.cmz);
        EXPECT_DOUBLE_EQ(s.kzy, 1.0);
        EXPECT_DOUBLE_EQ(s.kyz, cls == 1 ? 0.6 * s.cmz : s.cmz);
        s.ltb = 0;
        KFactorsAnnexB(s, s, s, s, s);
        EXPECT_DOUBLE_EQ(s.kzy, (cls == 1 ? 0.6 : 0.8) * s.cmy);
    }
}

// Table B.2 and B.1 with n_y = 0.2, n_z = 0.5, Cm 0.9, below and above the caps, by hand.
TEST(KFactorsAnnexB, FollowsTheTables)
{
    const auto run = [](int family, i16 cls, i16 ltb, double lamy, double lamz) {
        ProjectState s{};
        s.family = static_cast<i16>(family);
        s.classmy = cls;
        s.ltb = ltb;
        s.ned = 100;
        s.nbyrd = 500;
        s.nbzrd = 200;
        s.lamy = lamy;
        s.lamz = lamz;
        s.cmy = s.cmz = 0.9;
        s.cmlt = 0.75f;
        KFactorsAnnexB(s, s, s, s, s);
        return s;
    };
    const ProjectState i = run(2, 1, 1, 0.5, 0.8);
    EXPECT_NEAR(i.kyy, 0.9 * (1 + 0.3 * 0.2), 1e-12);
    EXPECT_NEAR(i.kzz, 0.9 * (1 + 1.0 * 0.5), 1e-12);
    EXPECT_NEAR(i.kyz, 0.6 * i.kzz, 1e-12);
    EXPECT_NEAR(i.kzy, 1 - 0.1 * 0.8 / 0.5 * 0.5, 1e-12);
    const ProjectState slender = run(2, 2, 1, 1.5, 1.5);
    EXPECT_NEAR(slender.kyy, 0.9 * (1 + 0.8 * 0.2), 1e-12);
    EXPECT_NEAR(slender.kzz, 0.9 * (1 + 1.4 * 0.5), 1e-12);
    EXPECT_NEAR(slender.kzy, 1 - 0.1 / 0.5 * 0.5, 1e-12);
    const ProjectState hollow = run(6, 1, 0, 0.5, 0.8);
    EXPECT_NEAR(hollow.kzz, 0.9 * (1 + 0.6 * 0.5), 1e-12);
    EXPECT_NEAR(hollow.kzy, 0.6 * hollow.kyy, 1e-12);
    const ProjectState slender_hollow = run(6, 1, 0, 0.5, 1.5);
    EXPECT_NEAR(slender_hollow.kzz, 0.9 * (1 + 0.8 * 0.5), 1e-12);
    const ProjectState elastic = run(2, 3, 1, 0.5, 0.8);
    EXPECT_NEAR(elastic.kyy, 0.9 * (1 + 0.3 * 0.2), 1e-12);
    EXPECT_NEAR(elastic.kzz, 0.9 * (1 + 0.48 * 0.5), 1e-12);
    EXPECT_NEAR(elastic.kyz, elastic.kzz, 1e-12);
    EXPECT_NEAR(elastic.kzy, 1 - 0.05 * 0.8 / 0.5 * 0.5, 1e-12);
    const ProjectState cap = run(6, 4, 0, 1.5, 1.5);
    EXPECT_NEAR(cap.kyy, 0.9 * (1 + 0.6 * 0.2), 1e-12);
    EXPECT_NEAR(cap.kzz, 0.9 * (1 + 0.6 * 0.5), 1e-12);
    EXPECT_NEAR(cap.kzy, 0.8 * cap.kyy, 1e-12);
    const ProjectState bar = run(28, 1, 0, 0.5, 0.8);
    EXPECT_NEAR(bar.kzz, 0.9 * (1 + 1.0 * 0.5), 1e-12);
    const ProjectState angle = run(10, 3, 0, 0.5, 0.8);
    EXPECT_NEAR(angle.kzz, 0.9 * (1 + 0.48 * 0.5), 1e-12);
}

TEST(KFactorsAnnexB, D223ClassOfMyPicksTheColumnForBothMoments)
{
    Member s = Heb200BeamColumn();
    CmAnnexBLoads(s, s, s);
    KFactorsAnnexB(s, s, s, s, s);
    const double plastic = s.kyz;
    s.classmz = 4;
    KFactorsAnnexB(s, s, s, s, s);
    EXPECT_EQ(s.kyz, plastic);
}

TEST(KFactorsAnnexB, D224SingleSymmetricIHasNoPlasticKzz)
{
    Member s = members::Single600();
    s.ned = 100;
    s.classmy = 2;
    members::ResistBuckling(s);
    CmAnnexBLoads(s, s, s);
    KFactorsAnnexB(s, s, s, s, s);
    EXPECT_EQ(s.kzz, 0.0);
    EXPECT_EQ(s.kyz, 0.0);
    s.kzz = 0.7;  // of a run before
    KFactorsAnnexB(s, s, s, s, s);
    EXPECT_EQ(s.kzz, 0.7);
    s.classmy = 3;
    KFactorsAnnexB(s, s, s, s, s);
    EXPECT_NE(s.kzz, 0.7);
}

// lamz 0.3, n_z 0.5: 1 - 0.1 0.3/0.5 0.5 = 0.97; Table B.2 allows 0.6 + 0.3 = 0.9.
TEST(KFactorsAnnexB, D225NoBranchBelowTheSlenderness04)
{
    Member s = Heb200BeamColumn();
    s.lamz = 0.3;
    s.nbzrd = 200;
    s.cmlt = 0.75f;
    KFactorsAnnexB(s, s, s, s, s);
    EXPECT_NEAR(s.kzy, 0.97, 1e-12);
}

}  // namespace
}  // namespace kestrum
