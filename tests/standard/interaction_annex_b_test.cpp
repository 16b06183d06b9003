// Equivalent moments of Table B.3 of EN 1993-1-1 where the program reads other shapes or ratios,
// and those of the pieces between lateral restraints. kN, m, kNm.

#include "core/member_choices.h"
#include "standard/standard_member.h"

#include <algorithm>
#include <cstddef>

namespace kestrum {
namespace {

using standard::MemberTerms;

Member Column(float length)
{
    Member s = Unloaded(length, 235).Section("HEA 200");
    s.method = 2;
    s.ltb = 1;
    s.nload[1] = 60;
    return s;
}

void Couple(ProjectState& s, std::size_t row, float x, float moment)
{
    s.pm[row] = moment;
    s.pmkind[row] = 1;
    s.pmx[row] = x;
    s.pmdir[row] = 1;
}

// Cantilever with couples of 5.5 at 0.2 L and 4.5 at 0.6 L: 10, 4.5, nothing. Furthest below the
// chord 10 (1 - x/L) right of 0.6 L: Ms 0, 0.2 + 0.8 x 0, at least 0.4. Its middle, 4.5, lies
// between 3 and 7, where the program has a straight line: 0.6 + 0.4 x 0. A restraint at mid-span
// leaves 10 to 4.5, Ms 4.5 below the chord right of 0.2 L: 0.2 + 0.8 x 0.45 by both.
TEST(AnnexBFactors, D107IsTheShapeOfTheWholeMember)
{
    Member s = Column(2);
    s.supportcase = SupportCase::cantilever;
    s.restraints = 1;
    Couple(s, 1, 0.4F, 5.5F);
    Couple(s, 2, 1.2F, 4.5F);
    const MemberTerms standard = TermsOf(s);
    const MemberTerms program = TermsOf(s, Basis::StandardBut(Dev::d107));
    EXPECT_NEAR(standard.b.cmy, 0.4, 1e-6);
    EXPECT_NEAR(program.b.cmy, 0.6, 1e-6);
    EXPECT_NEAR(standard.b.cmlt, 0.56, 1e-6);
    EXPECT_NEAR(program.b.cmlt, 0.56, 1e-6);
}

// Couples of 10 and 5 at the ends and a uniform load: the middle has 7.5 + 2 q.
Member BetweenCouples(float q)
{
    Member s = Column(4);
    s.qload[1] = q;
    s.qdir[1] = 1;
    Couple(s, 1, 0, 10);
    Couple(s, 2, 4, -5);
    return s;
}

// Ms 27.5: 0.95 + 0.05 Mh/Ms, Mh 10; the program takes 5. Ms 3.5: 0.2 + 0.8 Ms/Mh.
TEST(AnnexBFactors, D221IsTheSmallerEndMomentOfBothRows)
{
    const Basis back = Basis::StandardBut(Dev::d221);
    EXPECT_NEAR(TermsOf(BetweenCouples(10)).b.cmy, 0.95 + 0.05 * 10 / 27.5, 1e-6);
    EXPECT_NEAR(TermsOf(BetweenCouples(10), back).b.cmy, 0.95 + 0.05 * 5 / 27.5, 1e-6);
    EXPECT_NEAR(TermsOf(BetweenCouples(-2)).b.cmy, 0.2 + 0.8 * 3.5 / 10, 1e-6);
    EXPECT_NEAR(TermsOf(BetweenCouples(-2), back).b.cmy, 0.2 + 0.8 * 3.5 / 5, 1e-6);
}

// Ms 10 as Mh: both rows give 1 in the standard. The program has the span governing where it
// exceeds both end moments: 0.2 + 0.8 x 10/5.
TEST(AnnexBFactors, SpanMomentAsLargeAsTheEndMoment)
{
    const Member s = BetweenCouples(1.25F);
    EXPECT_NEAR(TermsOf(s).b.cmy, 1, 1e-6);
    EXPECT_NEAR(TermsOf(s, Basis::StandardBut(Dev::d221)).b.cmy, 1.8, 1e-6);
}

// What D221 explains is no matter of D107.
TEST(AnnexBFactors, D107ActsWhereNoOtherRuleGivesTheFactor)
{
    for (const float q : {10.0F, -2.0F}) {
        const Member s = BetweenCouples(q);
        EXPECT_EQ(TermsOf(s, Basis::StandardBut(Dev::d107)).b.cmy, TermsOf(s).b.cmy) << q;
    }
}

// The program makes no factor for a member that is held against buckling about both axes.
TEST(AnnexBFactors, D107NeedsAFactorOfTheProgram)
{
    Member s = Column(4);
    s.ly = s.lz = 0.001F;
    s.qload[1] = 10;
    s.qdir[1] = 1;
    EXPECT_NEAR(TermsOf(s).b.cmy, 0.95, 1e-6);
    EXPECT_NEAR(TermsOf(s, Basis::StandardBut(Dev::d107)).b.cmy, 0.95, 1e-6);
}

// --- Pieces between lateral restraints -----------------------------------------------------------

// 10 kN at 1 m before the restraint at 2 m: 7.5 there, 5 at the restraint. Loads of the other piece
// and what acts on the restraint are of no account, from either end.
TEST(AnnexBFactors, LoadsAtTheBordersOfAPiece)
{
    for (const bool mirrored : {false, true}) {
        const auto at = [&](float x) { return mirrored ? 4 - x : x; };
        Member s = Column(4);
        s.restraints = 1;
        s.pm[1] = 10;
        s.pmx[1] = at(1);
        s.pmdir[1] = s.pmdir[2] = 1;
        s.qtdir[1] = 1;
        const auto line = [&](float x1, float x2, float q) {
            s.qt1[1] = s.qt2[1] = q;
            s.qtx1[1] = std::min(at(x1), at(x2));
            s.qtx2[1] = std::max(at(x1), at(x2));
        };
        line(2, 4, 1e-4F);
        EXPECT_FALSE(TermsOf(s).cm_lt.lines) << mirrored;
        line(0, 2, 1e-4F);
        EXPECT_TRUE(TermsOf(s).cm_lt.lines) << mirrored;
        s.pm[1] = 0;
        line(0, 2, 10);
        s.pm[2] = 1e-4F;
        s.pmx[2] = 2;
        EXPECT_FALSE(TermsOf(s).cm_lt.points) << mirrored;
        s.pmx[2] = at(1);
        EXPECT_TRUE(TermsOf(s).cm_lt.points) << mirrored;
    }
}

// 10 kN on the restraint at mid-span and 2 kN on one side: 11 kNm, and half-way 6.5 on that side,
// 0.2 + 0.8 x 6.5/11 against 0.6 of the straight line. Both pieces hold the largest moment; what is
// told is of the larger factor.
TEST(AnnexBFactors, TermsOfTheLargerFactorBesideARestraint)
{
    for (const float x : {1.0F, 3.0F}) {
        Member s = Column(4);
        s.restraints = 1;
        s.pm[1] = 10;
        s.pmx[1] = 2;
        s.pm[2] = 2;
        s.pmx[2] = x;
        s.pmdir[1] = s.pmdir[2] = 1;
        const MemberTerms t = TermsOf(s);
        EXPECT_NEAR(t.b.cmlt, 0.2 + 0.8 * 6.5 / 11, 1e-6) << x;
        EXPECT_NEAR(t.cm_lt.span.ms, 6.5, 1e-6) << x;
        EXPECT_FALSE(t.cm_lt.span.straight) << x;
        EXPECT_TRUE(t.cm_lt.points) << x;
    }
}

// -6 kNm, 10 at the restraint, -8: both 0.4 at least, psi -0.6 and -0.8; told is the second.
TEST(AnnexBFactors, TermsOfEqualFactorsBesideARestraint)
{
    Member s = Column(4);
    s.restraints = 1;
    s.pm[1] = 17;
    s.pmx[1] = 2;
    s.pmdir[1] = 1;
    Couple(s, 2, 0, -6);
    Couple(s, 3, 4, 8);
    const MemberTerms t = TermsOf(s);
    EXPECT_NEAR(t.b.cmlt, 0.4, 1e-6);
    EXPECT_NEAR(t.cm_lt.span.mh, 10, 1e-6);
    EXPECT_NEAR(t.cm_lt.span.psi, -0.8, 1e-6);
}

// A length up to the member's own is no sway mode.
TEST(AnnexBFactors, LengthOfTheMemberIsNoSwayMode)
{
    Member s = Column(4).EndForces(60, 10, 2);
    for (const float k : {0.9F, 1.0F, 1.01F}) {
        s.ly = s.lz = k;
        const MemberTerms t = TermsOf(s);
        EXPECT_EQ(t.cm_y.sway, k > 1) << k;
        EXPECT_EQ(t.cm_z.sway, k > 1) << k;
    }
}

}  // namespace
}  // namespace kestrum
