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

}  // namespace
}  // namespace kestrum
