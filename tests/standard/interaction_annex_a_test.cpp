// Factors of Annex A of EN 1993-1-1 with single rules of the program, by the terms of the
// interaction.

#include "core/member_choices.h"
#include "engine/section_dispatch.h"
#include "standard/standard_member.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace kestrum {
namespace {

using standard::MemberTerms;

// Closed and elastic, so that Cm,0 is all there is; 100 kN.
Member Column(float length)
{
    Member s = Unloaded(length, 235).Section("RHS 100x6.3");
    s.method = 1;
    s.checkelastic = kTrue;
    s.nload[1] = 100;
    return s;
}

double Euler(const ProjectState& s, bool about_y)
{
    ProjectState of = s;
    CalcSection(Delivered(), of);
    const double length = 1000.0 * s.l;
    return std::numbers::pi * std::numbers::pi * 210000 * (about_y ? of.iy : of.iz) /
           (length * length);
}

// Table A.2: 1 + 0.03 n of a uniform load, 1 - 0.18 n of a force at mid-span, by the shape that the
// program reads about each axis.
TEST(AnnexAFactors, D242IsOneOfTwoShapes)
{
    const Basis back = Basis::StandardBut(Dev::d242);
    for (const bool about_y : {true, false}) {
        Member s = Column(3);
        const double n = 100e3 / Euler(s, about_y);
        const auto factor = [&] {
            const MemberTerms t = TermsOf(s, back);
            return about_y ? t.a.cmy0 : t.a.cmz0;
        };
        s.qdir[1] = s.pmdir[1] = about_y ? 1 : 0;
        s.qload[1] = 1;
        EXPECT_NEAR(factor(), 1 + 0.03 * n, 1e-6);
        s.qload[1] = 0;
        s.pm[1] = 1;
        s.pmx[1] = 1.5F;
        EXPECT_NEAR(factor(), 1 - 0.18 * n, 1e-6);
    }
}

// Whether the ends are free of moments is no matter of the size of the load.
TEST(AnnexAFactors, D242WhateverTheSizeOfTheLoad)
{
    const auto factor = [](float q) {
        Member s = Column(7.3F);
        s.nload[1] = 10;
        s.qdir[1] = 1;
        s.qload[1] = q;
        s.qt1[1] = q;
        s.qt2[1] = 3 * q;
        s.qtx1[1] = 0.7F;
        s.qtx2[1] = 5.9F;
        s.qtdir[1] = 1;
        return TermsOf(s, Basis::StandardBut(Dev::d242)).a.cmy0;
    };
    EXPECT_NEAR(factor(1e-3F), factor(1), 1e-9);
    EXPECT_NEAR(factor(1e6F), factor(1), 1e-9);
}

// D245 concerns open sections.
TEST(AnnexAFactors, D245ClosedSectionsDoNotTwist)
{
    Member s = Column(3);
    s.qload[1] = 1;
    EXPECT_FALSE(TermsOf(s).a.twists);
    EXPECT_FALSE(TermsOf(s, Basis::StandardBut(Dev::d245)).a.twists);
    s.Section("HEA 100");
    EXPECT_FALSE(TermsOf(s).a.twists);
    EXPECT_TRUE(TermsOf(s, Basis::StandardBut(Dev::d245)).a.twists);
}

// Mpl,Rd of Table A.1 has gammaM0, NRk/gammaM1 has gammaM1; the program changes them.
TEST(AnnexAFactors, D219PartialFactors)
{
    Member s = Column(3);
    s.gammam0 = 1.1F;
    s.gammam1 = 1.25F;
    s.qload[1] = 1;
    ProjectState of = s;
    CalcSection(Delivered(), of);
    for (const bool standard : {true, false}) {
        const MemberTerms t =
            TermsOf(s, standard ? Basis::Standard() : Basis::StandardBut(Dev::d219));
        EXPECT_NEAR(t.a.nrk, of.a * 235.0 / (standard ? 1.25 : 1.1), 1);
        EXPECT_NEAR(t.a.mply, of.wply * 235.0 / (standard ? 1.1 : 1.25), 10);
        EXPECT_NEAR(t.a.mplz, of.wplz * 235.0 / (standard ? 1.1 : 1.25), 10);
    }
}

// Box 600x300, webs 8, flanges 16: class 1 under My, 4 where Mz presses the webs. In the program My
// has its factors of the plastic column and Mz those of the elastic one, which both have in the
// standard.
TEST(AnnexAFactors, D218EachMomentTakesTheColumnOfItsClass)
{
    Member s = Unloaded(4, 235).Section(FormP23{600, 300, 8, 16, 0}).EndForces(300, 100, 20);
    s.method = 1;
    const clauses::InteractionFactors standard = TermsOf(s).k;
    const clauses::InteractionFactors program = TermsOf(s, Basis::StandardBut(Dev::d218)).k;
    EXPECT_EQ(program.kyz, standard.kyz);
    EXPECT_EQ(program.kzz, standard.kzz);
    EXPECT_GT(std::abs(program.kyy / standard.kyy - 1), 1e-3);
    EXPECT_GT(std::abs(program.kzy / standard.kzy - 1), 1e-3);
}

// An unequal I without My, elastic: the upper edge is that under compression, Iy/z.
TEST(AnnexAFactors, UpperEdgeCountsWithoutAMoment)
{
    Member s = Unloaded(4, 235).Section(FormP22{400, 300, 200, 12, 20, 16}).EndForces(100, 0, 5);
    s.method = 1;
    s.ltb = 1;
    s.checkelastic = kTrue;
    const MemberTerms t = TermsOf(s, Basis::StandardBut(Dev::d240));
    ProjectState of = s;
    CalcSection(Delivered(), of);
    const auto q = standard::SectionOf(Delivered(), of, Basis::Standard());
    ASSERT_GT(q.below, 1.05 * q.above);
    EXPECT_NEAR(t.compressed, q.iy / q.above, 1);
}

}  // namespace
}  // namespace kestrum
