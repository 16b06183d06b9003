// What the standard basis makes of a member as a whole: what it hands to its checks, and what it
// says of them.

#include "standard/standard.h"

#include "core/annexes.h"
#include "core/member_choices.h"
#include "engine/section_dispatch.h"
#include "sections/families.h"
#include "standard/check_study.h"
#include "standard/member.h"
#include "standard/standard_member.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

namespace kestrum {
namespace {

using standard::CheckId;
using standard::StandardResult;

TEST(StandardBasis, ForcesOfTheClassAreThoseOfTheLines)
{
    standard::CombinedLines lines{};
    lines.grid.pieces = 1;
    lines.grid.x = {0, 4};
    lines.n = 12.5;
    lines.y.m.m[0] = {5, -2, 0, 0};
    const standard::ActingForces forces = ActingIn(lines);
    EXPECT_EQ(forces.n, 12500);
    EXPECT_TRUE(forces.sagging);
    EXPECT_TRUE(forces.hogging);
    EXPECT_FALSE(forces.mz);
}

// Bar 100x10, S235, 235 kN: Npl,Rd to the last digit is within the limit of 1.
TEST(StandardBasis, TheLimitItselfIsKept)
{
    Member s = Unloaded(2, 235).Section(FormP28{100, 10}).EndForces(-235, 0, 0);
    EXPECT_EQ(Rated(s).ir, 1);
    EXPECT_EQ(VerdictOf(Rated(s)), "within limits");
    s.ne = -235.5F;
    EXPECT_EQ(VerdictOf(Rated(s)), "above limit");
}

// EN 1993-1-5, 5.4: flanges 250x15 of a web 1000x5 without stiffeners between its supports hold
// bf tf^2 fy/c with c = L (0.25 + 1.6 bf tf^2/(t hw^2)). What the web holds is the same for every
// L.
TEST(StandardBasis, FlangesHoldShearOverTheDistanceOfTheSupports)
{
    const auto resistance = [](float length) {
        Member s = Unloaded(length, 355).Section(FormP21{1030, 250, 5, 15}).EndForces(0, 0, 0);
        s.vz1 = s.vz2 = 300;
        return 300 / Ratio(s, CheckId::section_vz);
    };
    const auto flanges = [](double length) {
        const double flange = 250.0 * 15 * 15;
        return flange * 0.355 / (length * (0.25 + 1.6 * flange / (5 * 1e6)));
    };
    EXPECT_NEAR(resistance(1.2F) - resistance(2.4F), flanges(1200) - flanges(2400), 0.05);
    EXPECT_NEAR(resistance(1.2F) - resistance(6), flanges(1200) - flanges(6000), 0.05);
}

// EN 1993-1-5, 7.1 (2): no bending of the web near a rigid end post, half of its depth. A
// cantilever has its post at the support, x = 0.
TEST(StandardBasis, FreeEndsHaveNoEndPost)
{
    const auto place = [](i16 supports) {
        Member s = Unloaded(5, 355).Section(FormP21{1030, 250, 5, 15}).EndForces(0, 0, 0);
        s.supportcase = supports;
        s.endstiff = 1;
        s.my2 = 1500;
        s.vz1 = s.vz2 = 600;
        const StandardResult result = Rated(s);
        const auto& check = result.checks[CheckId::section_mv];
        return check.present ? check.place : -1;
    };
    EXPECT_NEAR(place(SupportCase::cantilever), 1, 1e-9);
    EXPECT_LE(place(SupportCase::pinned), 0.9);
}

// Deflections in z by the limit of z, in y by that of y, with the place of the largest.
TEST(StandardBasis, DeflectionsByTheirOwnLimit)
{
    Member s = Unloaded(6, 235).Section("HEA 200");
    s.checksls = kTrue;
    s.deflimitz = 200;
    s.deflimity = 400;
    for (const bool in_z : {true, false}) {
        s.qload[1] = 2;
        s.qdir[1] = in_z ? 1 : 0;
        const StandardResult result = Rated(s);
        const auto& check = result.checks[in_z ? CheckId::deflection_z : CheckId::deflection_y];
        const double inertia = in_z ? 36.92e6 : 13.36e6;
        const double deflection = 5.0 / 384 * 2 * 6e3 * 6e3 * 6e3 * 6e3 / (210000 * inertia);
        EXPECT_NEAR(check.ir, deflection / (6000.0 / (in_z ? 200 : 400)), 1e-3 * check.ir);
        EXPECT_NEAR(check.place, 0.5, 1e-6);
    }
}

// The terms of a column are those of NEd alone.
TEST(StandardBasis, RowsOfColumnsAreToldAlone)
{
    Member s = Unloaded(4, 235).Section("HEA 200").EndForces(60, 10, 2);
    s.ltb = 1;
    const StandardResult result = Rated(s);
    const auto alone = [&](CheckId id) {
        const auto study = CheckStudyOf(Delivered(), s, id, result.checks[id]);
        EXPECT_TRUE(study && study->of_member);
        EXPECT_EQ(study->of_member->lateral.mcr > 0, !study->of_member->column_only);
        return study->of_member->column_only;
    };
    for (const CheckId id : {CheckId::flexural_y, CheckId::flexural_z, CheckId::torsional}) {
        EXPECT_TRUE(alone(id)) << standard::NameOf(id);
    }
    for (const CheckId id : {CheckId::ltb, CheckId::eq661, CheckId::eq662}) {
        EXPECT_FALSE(alone(id)) << standard::NameOf(id);
    }
}

// One moment without an axial force has one class: what D153 takes of each force alone is the same.
// Unequal flanges have one for each sign.
TEST(StandardBasis, D153NeedsForcesTogether)
{
    for (const int family : {1, 10, 21, 22, 23, 24, 25, 26, 27, 31, 51, 53}) {
        SCOPED_TRACE(family);
        ProjectState of = Unloaded(3, 235).Family(family);
        CalcSection(Delivered(), of);
        const bool unequal =
            standard::SectionOf(Delivered(), of, Basis::Standard()).UnequalFlanges();
        for (const float end : {5.0F, -4.0F}) {
            for (const float fy : {235.0F, 460.0F}) {
                Member s = Unloaded(3, fy).Family(family).EndForces(0, 5, 0);
                s.my2 = unequal ? 5 : end;
                const StandardResult standard = Rated(s);
                ProjectState program = s;
                Calculate(Delivered(), program);
                const StandardResult back = standard::CalculateStandard(
                    Delivered(), s, Basis::StandardBut(Dev::d153), &program);
                for (std::size_t i = 0; i < standard::kCheckIds; ++i) {
                    EXPECT_EQ(back.checks.best[i].ir, standard.checks.best[i].ir) << i;
                }
            }
        }
    }
}

// All ratios of strength, with a row of loads behind the last one that must not count.
std::array<double, standard::kCheckIds> RatiosBeside(const ProjectState& s,
                                                     const std::optional<standard::Load>& behind)
{
    std::array<double, standard::kCheckIds> ratios{};
    const Basis basis = Basis::Standard();
    const auto reason =
        standard::WithMember(Delivered(), s, basis, nullptr, [&](const standard::Member& made) {
            standard::Member member = made;
            if (behind) {
                member.loads.load[member.loads.count] = *behind;
            }
            const LoadCases cases = StrengthCases(member.s, member.loads.present, basis);
            const auto lines = LinesOf(member.s, member.loads, cases.at[0].factors, basis);
            standard::Checks checks;
            EXPECT_TRUE(CheckStrength(member, cases.at[0], lines, checks));
            std::transform(checks.best.begin(), checks.best.end(), ratios.begin(),
                           [](const standard::Check& check) { return check.ir; });
        });
    EXPECT_EQ(reason, "");
    return ratios;
}

TEST(StandardBasis, LoadsAreThoseUpToTheLast)
{
    Member point = Unloaded(4, 235).Section("IPE 300");
    point.ltb = 1;
    point.loadlevel = 1;
    point.method = 2;
    point.nload[1] = 60;
    point.pm[1] = 10;
    point.pmx[1] = 2;
    point.pmdir[1] = 1;
    Member factors = point;
    factors.cmanual = kTrue;
    factors.c1 = 1.2F;
    factors.c2 = 0.5F;
    factors.c3 = 0;
    int family = 0;
    for (const int each : FamilyNumbers()) {
        const Member s = Unloaded(4, 235).Family(each);
        family = Is(s, Kind::hat) ? each : family;
    }
    Member hat = Unloaded(4, 235).Family(family);
    hat.hsqopt = 0;
    hat.qload[1] = 5;
    hat.qdir[1] = 1;
    const standard::Load up{0, true, false, false, {0, 4, -100, -100}, {}};
    for (const Member& s : {point, factors, hat}) {
        EXPECT_EQ(RatiosBeside(s, up), RatiosBeside(s, std::nullopt));
    }
}

// The British annex takes the strengths of the product standards, which part from Table 3.1 above
// 16 mm: flanges of HEB 220 and 240 have 16 and 17.
TEST(StandardBasis, StrengthsOfTheBritishAnnexFrom16mm)
{
    const auto named = [](std::string_view section, i16 annex) {
        Member s = Member().Unloaded().Section(section).Length(4);
        s.annexindex = annex;
        s.nload[1] = 10;
        const StandardResult result = Rated(s);
        EXPECT_TRUE(result.rated);
        return std::any_of(result.outside.begin(), result.outside.end(), [](const auto& line) {
            return line.starts_with("strengths by product standard");
        });
    };
    EXPECT_FALSE(named("HEB 220", kAnnexUk));
    EXPECT_TRUE(named("HEB 240", kAnnexUk));
    EXPECT_FALSE(named("HEB 240", 0));
}

}  // namespace
}  // namespace kestrum
