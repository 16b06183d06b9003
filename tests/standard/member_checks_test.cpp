// What the checks of the member, EN 1993-1-1, 6.3, take from its lines, and what they tell. kN, m.

#include "standard/member_checks.h"

#include "core/member_choices.h"
#include "standard/check_study.h"
#include "standard/member.h"
#include "standard/standard_member.h"

#include <cmath>

namespace kestrum {
namespace {

using standard::CheckId;
using standard::MemberTerms;

// My of the interaction, kNm.
double LargestMoment(const ProjectState& s, const Basis& basis)
{
    double my = 0;
    standard::WithMember(Delivered(), s, basis, nullptr, [&](const standard::Member& member) {
        const LoadCases cases = StrengthCases(member.s, member.loads.present, basis);
        const standard::CombinedLines lines =
            LinesOf(member.s, member.loads, cases.at[0].factors, basis);
        my = MemberTermsOf(member, cases.at[0], lines, CheckId::eq661).my / 1e6;
    });
    return my;
}

double ByTheProgram(ProjectState s)
{
    EXPECT_TRUE(Calculate(Delivered(), s));
    return s.mymaxabs;
}

Member Column(float length)
{
    Member s = Unloaded(length, 235).Section("HEA 200");
    s.nload[1] = 60;
    return s;
}

// A couple of 10 on two supports: 10 x/L on its left, 10 (1 - x/L) on its right.
Member WithCouple(float length, float x)
{
    Member s = Column(length);
    s.pm[1] = 10;
    s.pmkind[1] = 1;
    s.pmx[1] = x;
    s.pmdir[1] = 1;
    return s;
}

// 5.6 beside a couple at 2.8 or 2.2 m of 5 m, both points of the diagram. What the line has on the
// left of a point counts as read. (Single precision lays 2.8 m before the point, so that the
// program reads its check section 0.1 % before it.) Of the right side it has the check section 0.1
// % behind.
TEST(LargestMoments, D249BothSidesOfACouple)
{
    const Basis back = Basis::StandardBut(Dev::d249);
    const Member left = WithCouple(5, 2.8F), right = WithCouple(5, 2.2F);
    EXPECT_NEAR(LargestMoment(left, Basis::Standard()), 5.6, 1e-6);
    EXPECT_NEAR(LargestMoment(left, back), 5.6, 1e-6);
    EXPECT_NEAR(ByTheProgram(left), 5.6 * 0.999, 1e-5);
    EXPECT_NEAR(LargestMoment(right, Basis::Standard()), 5.6, 1e-6);
    EXPECT_NEAR(LargestMoment(right, back), 10 * (1 - 0.44 * 1.001), 1e-5);
    EXPECT_NEAR(ByTheProgram(right), 10 * (1 - 0.44 * 1.001), 1e-5);
}

// One end held by 0.67: R = q L (1/2 - 0.67/8), largest at 0.41625 L, nearest point 0.42 L. The
// line goes on beyond the end, where nobody reads it.
TEST(LargestMoments, D249EndsAtTheEnd)
{
    Member s = Column(4);
    s.supportcase = SupportCase::pinned_spring;
    s.spring = 67;
    s.qload[1] = 10;
    s.qdir[1] = 1;
    const double share = 0.5 - 0.67 / 8;
    EXPECT_NEAR(LargestMoment(s, Basis::Standard()), 160 * share * share / 2, 1e-5);
    const double read = 160 * (share * 0.42 - 0.42 * 0.42 / 2);
    EXPECT_NEAR(LargestMoment(s, Basis::StandardBut(Dev::d249)), read, 1e-5);
    EXPECT_NEAR(ByTheProgram(s), read, 1e-5);
}

// D229 concerns flat bars without compression.
TEST(LateralChecks, D229LeavesOutBarsAloneOnly)
{
    const auto checked = [](Member s, float n) {
        s.ltb = 1;
        s.qload[1] = 0.2F;
        s.qdir[1] = 1;
        s.nload[1] = n;
        return Back(s, Dev::d229, CheckId::ltb) > 0;
    };
    const Member bar = Unloaded(2, 235).Section(FormP28{100, 10});
    const Member beam = Unloaded(2, 235).Section("IPE 100");
    EXPECT_FALSE(checked(bar, 0));
    EXPECT_FALSE(checked(bar, -1));
    EXPECT_TRUE(checked(bar, 1));
    EXPECT_TRUE(checked(beam, 0));
    EXPECT_TRUE(checked(beam, -1));
    EXPECT_TRUE(checked(beam, 1));
}

// The study of the numerical solution is told where it gave the critical moment.
TEST(LateralChecks, NumericalStudyIsToldWhereItCounts)
{
    const auto told = [](i16 manual) {
        Member s = Unloaded(4, 235).Section("IPE 200");
        s.ltb = 1;
        s.cmanual = manual;
        s.c1 = 1.1F;
        s.qload[1] = 5;
        s.qdir[1] = 1;
        const auto result = Rated(s);
        const auto study = CheckStudyOf(Delivered(), s, CheckId::ltb, result.checks[CheckId::ltb]);
        EXPECT_TRUE(study && study->of_member);
        return study->of_member->numerical.has_value();
    };
    EXPECT_TRUE(told(kFalse));
    EXPECT_FALSE(told(kTrue));
}

// D236: an axis without buckling has no row beside N, but one where moments act alone.
TEST(InteractionRows, D236NeedsAnAxialForce)
{
    for (const bool about_y : {true, false}) {
        const auto kept = [about_y](float n, CheckId id) {
            Member s = Unloaded(3, 235).Section("HEA 200").EndForces(n, 10, 2);
            (about_y ? s.ly : s.lz) = 0.001F;
            EXPECT_GT(Ratio(s, id), 0);
            return Back(s, Dev::d236, id) > 0;
        };
        EXPECT_EQ(kept(60, CheckId::eq661), !about_y);
        EXPECT_EQ(kept(60, CheckId::eq662), about_y);
        EXPECT_TRUE(kept(0, CheckId::eq661));
        EXPECT_TRUE(kept(0, CheckId::eq662));
    }
}

// D243 concerns angles and tubes without compression, D231 T sections.
TEST(InteractionRows, D243AndD231LeaveOthersAlone)
{
    const auto kept = [](const Member& section, float n, Dev deviation) {
        Member s = section;
        s.method = 2;
        s.EndForces(n, 2, 1);
        EXPECT_GT(Ratio(s, CheckId::eq661), 0);
        return Back(s, deviation, CheckId::eq661) > 0;
    };
    const Member tube = Unloaded(3, 235).Section(FormP31{100, 5});
    const Member beam = Unloaded(3, 235).Section("HEA 100");
    EXPECT_FALSE(kept(tube, 0, Dev::d243));
    EXPECT_TRUE(kept(tube, 10, Dev::d243));
    EXPECT_TRUE(kept(beam, 0, Dev::d243));
    for (const float n : {0.0F, 10.0F}) {
        EXPECT_TRUE(kept(tube, n, Dev::d231));
        EXPECT_TRUE(kept(beam, n, Dev::d231));
    }
}

}  // namespace
}  // namespace kestrum
