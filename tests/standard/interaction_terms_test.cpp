// Equations (6.61) and (6.62) of EN 1993-1-1 and the sum outside 6.3.3, made anew from the terms
// that are told to the report; the terms of a column from what the member is.

#include "standard/check_study.h"
#include "standard/standard_member.h"

#include <array>
#include <cmath>
#include <string>

namespace kestrum {
namespace {

using standard::CheckId;
using standard::MemberTerms;

MemberTerms TermsOf(const ProjectState& s, CheckId id)
{
    const auto result = Rated(s);
    EXPECT_TRUE(result.checks[id].present);
    const auto study = CheckStudyOf(Delivered(), s, id, result.checks[id]);
    EXPECT_TRUE(study && study->of_member);
    return *study->of_member;
}

// gammaM1 1.2, both moments, N; forks and no restraints.
Member Loaded(std::string_view section, float n, i16 method)
{
    Member s = Unloaded(4, 235).Section(section).EndForces(n, 12, 2);
    s.gammam1 = 1.2F;
    s.method = method;
    s.ltb = 1;
    return s;
}

TEST(InteractionTerms, BothEquationsOfISections)
{
    for (const i16 method : {i16{1}, i16{2}}) {
        for (const float n : {0.0F, 60.0F}) {
            SCOPED_TRACE(std::to_string(method) + " " + std::to_string(n));
            const Member s = Loaded("HEA 200", n, method);
            const double one = 1.2 / 235;  // gammaM1 over fy
            for (const bool first : {true, false}) {
                const CheckId id = first ? CheckId::eq661 : CheckId::eq662;
                const MemberTerms t = TermsOf(s, id);
                const double chi = first ? t.interaction.chiy : t.interaction.chiz;
                const double my = 12e6 * one / (t.lateral.chi * t.wy);
                const double mz = 2e6 * one / t.wz;
                const double sum = n * 1.2e3 / (chi * t.interaction.squash) +
                                   (first ? t.k.kyy : t.k.kzy) * my +
                                   (first ? t.k.kyz : t.k.kzz) * mz;
                EXPECT_NEAR(Ratio(s, id), sum, 1e-6 * sum);
            }
        }
    }
}

// 1/(1 - chi NEd/Ncr) on each moment; the least chi and the resistances with gammaM1.
TEST(InteractionTerms, SumOutsideTheEquations)
{
    const Member s = Loaded("UPE 200", 60, 1);
    const MemberTerms t = TermsOf(s, CheckId::interaction_outside);
    const double kyy = 1 / (1 - t.interaction.chiy * 60e3 / t.ncr.y);
    const double kzz = 1 / (1 - t.interaction.chiz * 60e3 / t.ncr.z);
    ASSERT_GT(kzz, 1.005);
    EXPECT_NEAR(t.k.kyy, kyy, 1e-9);
    EXPECT_NEAR(t.k.kzz, kzz, 1e-9);
    const double sum = 60e3 * 1.2 / (t.interaction.Least(true) * t.interaction.squash) +
                       kyy * 12e6 * 1.2 / (t.lateral.chi * t.wy * 235) +
                       kzz * 2e6 * 1.2 / (t.wz * 235);
    EXPECT_NEAR(Ratio(s, CheckId::interaction_outside), sum, 1e-6 * sum);
}

// Beyond the critical force there is no amplification: NEd over the resistance of the column.
TEST(InteractionTerms, BeyondTheCriticalForce)
{
    Member s = Loaded("IPE 200", 900, 1);
    const auto result = Rated(s);
    const double column =
        std::max(Ratio(result, CheckId::flexural_y),
                 std::max(Ratio(result, CheckId::flexural_z), Ratio(result, CheckId::torsional)));
    EXPECT_NEAR(Ratio(result, CheckId::n_above_ncr), column, 0.01 * column);
    EXPECT_LT(Ratio(result, CheckId::eq661), 0);
    const MemberTerms t = TermsOf(s, CheckId::n_above_ncr);
    const double sum = 900e3 * 1.2 / (t.interaction.Least(t.twists) * t.interaction.squash);
    EXPECT_NEAR(Ratio(result, CheckId::n_above_ncr), sum, 1e-6 * sum);
}

// One moment without an axial force has no interaction, two have one.
TEST(InteractionTerms, MomentsWithoutAnAxialForce)
{
    const auto present = [](float n, float my, float mz) {
        Member s = Unloaded(4, 235).Section("HEA 200").EndForces(n, my, mz);
        return Ratio(s, CheckId::eq661) >= 0;
    };
    EXPECT_FALSE(present(0, 10, 0));
    EXPECT_FALSE(present(0, 0, 2));
    EXPECT_TRUE(present(0, 10, 2));
    EXPECT_TRUE(present(20, 10, 0));
    EXPECT_TRUE(present(20, 0, 2));
    EXPECT_FALSE(present(20, 0, 0));
    EXPECT_FALSE(present(-20, 10, 2));
}

// --- Equivalent moments, Table B.3
// -----------------------------------------------------------------

// HEA 200, 4 m on two supports, 60 kN, gammaM1 1.2, Annex B.
Member Column()
{
    Member s = Unloaded(4, 235).Section("HEA 200");
    s.gammam1 = 1.2F;
    s.method = 2;
    s.ltb = 1;
    s.nload[1] = 60;
    return s;
}

// Two uniform loads and one point load at mid-span; the first and the last in z.
void SetLoads(ProjectState& s, float z, float y, float point)
{
    s.qload[1] = z;
    s.qdir[1] = 1;
    s.qload[2] = y;
    s.qdir[2] = 0;
    s.pm[1] = point;
    s.pmx[1] = 2;
    s.pmdir[1] = 1;
}

clauses::AnnexBInputs FactorsOf(const ProjectState& s)
{
    return TermsOf(s, CheckId::eq661).b;
}

// Without moments at the ends 0.95 under a uniform load, 0.90 under a point load, the larger one
// under both; a load across the other axis is of no account.
TEST(InteractionTerms, EquivalentMomentsByTheLoadsThatBend)
{
    Member s = Column();
    SetLoads(s, 3, 0, 0);
    EXPECT_NEAR(FactorsOf(s).cmy, 0.95, 1e-9);
    EXPECT_NEAR(FactorsOf(s).cmlt, 0.95, 1e-9);
    SetLoads(s, 0, 0, 10);
    EXPECT_NEAR(FactorsOf(s).cmy, 0.9, 1e-9);
    SetLoads(s, 3, 0, 10);
    EXPECT_NEAR(FactorsOf(s).cmy, 0.95, 1e-9);
    SetLoads(s, 0, 1, 10);
    EXPECT_NEAR(FactorsOf(s).cmy, 0.9, 1e-9);
    EXPECT_NEAR(FactorsOf(s).cmz, 0.95, 1e-9);
}

// 0.6 + 0.4 psi of end moments, at least 0.4; 0.9 of members that sway, whatever the moments.
TEST(InteractionTerms, EquivalentMomentsOfEndMomentsAndOfSway)
{
    Member s = Column().EndForces(60, 20, 2);
    s.my2 = 10;
    s.mz2 = -2;
    EXPECT_NEAR(FactorsOf(s).cmy, 0.8, 1e-9);
    EXPECT_NEAR(FactorsOf(s).cmz, 0.4, 1e-9);
    s.ly = 1.01F;
    EXPECT_NEAR(FactorsOf(s).cmy, 0.9, 1e-9);
    EXPECT_NEAR(FactorsOf(s).cmz, 0.4, 1e-9);
    s.ly = 1;
    s.lz = 1.01F;
    EXPECT_NEAR(FactorsOf(s).cmy, 0.8, 1e-9);
    EXPECT_NEAR(FactorsOf(s).cmz, 0.9, 1e-9);
    const MemberTerms t = TermsOf(s, CheckId::eq661);
    EXPECT_FALSE(t.cm_y.sway);
    EXPECT_TRUE(t.cm_z.sway);
}

// A uniform load with a restraint at mid-span: from 0 to M, 3/4 M between: 0.2 + 0.8 0.75 on either
// side. A point load there leaves straight lines, psi 0: 0.6.
TEST(InteractionTerms, EquivalentMomentBetweenRestraints)
{
    Member s = Column();
    s.restraints = 1;
    SetLoads(s, 3, 0, 0);
    EXPECT_NEAR(FactorsOf(s).cmlt, 0.8, 1e-6);
    SetLoads(s, 0, 0, 10);
    EXPECT_NEAR(FactorsOf(s).cmlt, 0.6, 1e-6);
}

// A point load at 3 m between the restraint at 2 m and the end: 5 kNm at the restraint, 7.5 below
// the load, 0.90 + 0.10 5/7.5. A hair of a line load counts in its own piece only, with 0.95 + 0.05
// 5/7.5; one of a point load on the restraint in neither.
TEST(InteractionTerms, EquivalentMomentByTheLoadsOfThePiece)
{
    Member s = Column();
    s.restraints = 1;
    SetLoads(s, 0, 0, 10);
    s.pmx[1] = 3;
    const auto expect = [&](float x1, float x2, bool lines, double cm) {
        s.qt1[1] = s.qt2[1] = 1e-4F;
        s.qtdir[1] = 1;
        s.qtx1[1] = x1;
        s.qtx2[1] = x2;
        const MemberTerms t = TermsOf(s, CheckId::eq661);
        EXPECT_TRUE(t.cm_lt.points);
        EXPECT_EQ(t.cm_lt.lines, lines) << x1;
        EXPECT_NEAR(t.b.cmlt, cm, 1e-4) << x1;
    };
    expect(0, 2, false, 0.9 + 0.1 / 1.5);
    expect(2, 4, true, 0.95 + 0.05 / 1.5);
    expect(1, 3, true, 0.95 + 0.05 / 1.5);
    SetLoads(s, 0, 0, 1e-4F);
    s.qt1[1] = s.qt2[1] = 10;
    s.qtx1[1] = 2;
    s.qtx2[1] = 4;
    const MemberTerms t = TermsOf(s, CheckId::eq661);
    EXPECT_TRUE(t.cm_lt.lines);
    EXPECT_FALSE(t.cm_lt.points);
}

// n = NEd gammaM1/(chi NRk).
TEST(InteractionTerms, AxialRatiosOfAnnexB)
{
    Member s = Column();
    SetLoads(s, 3, 0, 0);
    const MemberTerms t = TermsOf(s, CheckId::eq661);
    EXPECT_NEAR(t.b.ny, 72e3 / (t.interaction.chiy * t.interaction.squash), 1e-7);
    EXPECT_NEAR(t.b.nz, 72e3 / (t.interaction.chiz * t.interaction.squash), 1e-7);
    EXPECT_EQ(t.b.lamy, t.interaction.lamy);
    EXPECT_EQ(t.b.lamz, t.interaction.lamz);
}

// --- Pieces of lateral torsional buckling --------------------------------------------------------

// 10 kN on the restraint at mid-span and 2 kN at a quarter: 11 kNm there, 6.5 below the small load,
// where the chord has 5.5. The piece with both has the smaller C1 and the larger kc, no row of
// Table 6.6, and governs from either side; the straight one has 0.752.
TEST(InteractionTerms, WorsePieceBesideARestraint)
{
    const auto lateral = [](float quarter) {
        Member s = Column();
        s.nload[1] = 0;
        s.restraints = 1;
        SetLoads(s, 0, 0, 10);
        s.pm[2] = 2;
        s.pmx[2] = quarter;
        s.pmdir[2] = 1;
        return TermsOf(s, CheckId::ltb).lateral;
    };
    const standard::LateralResult left = lateral(1), right = lateral(3);
    EXPECT_NEAR(left.place, 0.5, 1e-9);
    EXPECT_NEAR(left.piece.c1, right.piece.c1, 1e-6);
    EXPECT_NEAR(left.kc, right.kc, 1e-6);
    EXPECT_NEAR(left.kc, 1 / std::sqrt(left.piece.c1), 1e-9);
    EXPECT_GT(left.kc, 0.76);
    EXPECT_FALSE(left.tabulated || right.tabulated);
}

}  // namespace
}  // namespace kestrum
