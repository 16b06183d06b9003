// Lateral torsional buckling of the whole member at the limits of its rules, EN 1993-1-1, 6.3.2.

#include "standard/lateral.h"

#include "core/annexes.h"
#include "core/member_choices.h"
#include "engine/section_dispatch.h"
#include "standard/lateral_study.h"
#include "standard/standard_member.h"

#include <array>
#include <cmath>

namespace kestrum {
namespace {

using standard::Axis;
using standard::LateralResult;

// A member under M = m[0] + m[1] x + m[2] x^2, kNm and m, and none of the loads that cause it.
struct Bent {
    ProjectState s;
    standard::StandardSection q;
    standard::MemberLoads loads{};
    standard::CombinedLines lines{};
    standard::SolvedLines solved;

    Bent(const ProjectState& member, const std::array<double, 4>& moments) : s(member)
    {
        CalcSection(Delivered(), s);
        q = standard::SectionOf(Delivered(), s, Basis::Standard());
        lines.grid.pieces = 1;
        lines.grid.x = {0, s.l};
        lines.y.m.m[0] = moments;
    }
    template <class Ask> auto Of(const Basis& basis, const Ask& ask)
    {
        const LoadFactors factors{1, 1, 1};
        const auto p = standard::Prepare(q, basis);
        return ask(standard::LateralCase{s, basis, nullptr, p, solved, loads, factors, lines, 1});
    }
    LateralResult Result(const Basis& basis = Basis::Standard())
    {
        return Of(basis, [](const auto& m) { return LateralBucklingOf(m); });
    }
    double Checked(const Basis& basis = Basis::Standard())
    {
        return Of(basis, [](const standard::LateralCase& m) {
            return CheckedMoment(m, m.lines.LargestMoment(Axis::y));
        });
    }
};

Member Beam(i16 curve)
{
    Member s = Unloaded(6, 235).Section("IPE 300");
    s.ltb = 1;
    s.ltbcurve = curve;
    return s;
}

// Tables 6.3 to 6.5: h/b up to 2 has curve a, b by 6.3.2.3; the British annex has d from above 3.1.
TEST(Lateral, CurvesOfRolledSectionsByTheirSlimness)
{
    const auto alpha = [](double slim, i16 curve, i16 annex) {
        Member s = Beam(curve);
        s.annexindex = annex;
        Bent at(s, {30, 0, 0, 0});
        at.q.top.b = at.q.bottom.b = 100;
        at.q.h = 100 * slim;
        return at.Result().alpha;
    };
    constexpr double kA = 0.21, kB = 0.34, kC = 0.49, kD = 0.76;
    for (const i16 annex : {i16{0}, i16{kAnnexUk}}) {
        EXPECT_EQ(alpha(2, LtbCurve::general, annex), kA);
        EXPECT_EQ(alpha(2.01, LtbCurve::general, annex), kB);
        EXPECT_EQ(alpha(2, LtbCurve::rolled, annex), kB);
        EXPECT_EQ(alpha(2.01, LtbCurve::rolled, annex), kC);
        EXPECT_EQ(alpha(3.1, LtbCurve::rolled, annex), kC);
        EXPECT_EQ(alpha(3.11, LtbCurve::rolled, annex), annex == kAnnexUk ? kD : kC);
    }
}

// D214: 0.2 of 6.3.2.2, whatever the annex enters.
TEST(Lateral, D214PlateauOfTheGeneralCurve)
{
    Member s = Beam(LtbCurve::general);
    s.lamdalt0 = 0.4F;
    Bent at(s, {30, 0, 0, 0});
    EXPECT_NEAR(at.Result().plateau, 0.4, 1e-6);
    EXPECT_EQ(at.Result(Basis::StandardBut(Dev::d214)).plateau, 0.2);
}

// D201: the ends of the segments. 30 x - 5 x^2 has 45 at mid-span, 40 at the restraints at 2 and
// 4 m; a line that grows to the end has its largest moment there.
TEST(Lateral, D201MomentsAtTheEndsOfTheSegments)
{
    Member s = Beam(LtbCurve::general);
    s.restraints = 2;
    const Basis back = Basis::StandardBut(Dev::d201);
    Bent parabola(s, {0, 30, -5, 0});
    EXPECT_NEAR(parabola.Checked(), 45, 1e-9);
    EXPECT_NEAR(parabola.Checked(back), 40, 1e-9);
    Bent rising(s, {10, 5, 0, 0});
    EXPECT_NEAR(rising.Checked(), 40, 1e-9);
    EXPECT_NEAR(rising.Checked(back), 40, 1e-9);
    Bent falling(s, {-40, 5, 0, 0});
    EXPECT_NEAR(falling.Checked(back), 40, 1e-9);
}

// A parabola is a row of Table 6.6 with 0.94; so are straight lines beside a restraint that both
// hold the largest moment, psi 0: 1/1.33. 1/sqrt(C1) of a line that is none.
TEST(Lateral, CorrectionFactorsOfTable66)
{
    const LateralResult parabola = Bent(Beam(LtbCurve::rolled), {0, 30, -5, 0}).Result();
    ASSERT_TRUE(parabola.tabulated);
    EXPECT_EQ(parabola.tabulated->shape, clauses::MomentShape::uniform_pinned);
    EXPECT_EQ(parabola.kc, 0.94);
    Member s = Beam(LtbCurve::rolled);
    s.restraints = 1;
    Bent at(s, {0, 10, 0, 0});
    at.lines.grid.pieces = 2;
    at.lines.grid.x = {0, 3, 6};
    at.lines.y.m.m[1] = {30, -10, 0, 0};
    const LateralResult straight = at.Result();
    ASSERT_TRUE(straight.tabulated);
    EXPECT_NEAR(straight.kc, 1 / 1.33, 1e-12);
    const LateralResult other = Bent(Beam(LtbCurve::rolled), {10, 30, -5, 0}).Result();
    EXPECT_FALSE(other.tabulated);
    EXPECT_NEAR(other.kc, 1 / std::sqrt(other.piece.c1), 1e-12);
}

// Two loads that cancel out turn no load level: D213 concerns an uplift.
TEST(Lateral, D213NeedsAnUplift)
{
    Member s = Beam(LtbCurve::general);
    s.loadlevel = 1;
    Bent at(s, {30, 0, 0, 0});
    const auto mcr = [&](double first, double second, const Basis& basis) {
        at.loads.count = 2;
        at.loads.load[0] = {0, true, true, false, {}, {2, first, 0}};
        at.loads.load[1] = {0, true, true, false, {}, {4, second, 0}};
        return at.Result(basis).mcr;
    };
    const Basis back = Basis::StandardBut(Dev::d213);
    EXPECT_EQ(mcr(20, -20, back), mcr(20, -20, Basis::Standard()));
    EXPECT_EQ(mcr(20, 1, back), mcr(20, 1, Basis::Standard()));
    EXPECT_GT(mcr(-20, 1, Basis::Standard()), 1.01 * mcr(20, -1, Basis::Standard()));
    EXPECT_NE(mcr(-20, 1, back), mcr(-20, 1, Basis::Standard()));
}

// D233: the critical moment that the program has of each segment; at a restraint that of the left
// one. Largest of a line that is straight between restraints at 2 and 4 m.
TEST(Lateral, D233CriticalMomentOfTheSegment)
{
    Member s = Beam(LtbCurve::general);
    s.restraints = 2;
    ProjectState program = s;
    program.segmcr[1] = 100e6;  // Nmm
    program.segmcr[2] = 200e6;
    program.segmcr[3] = 300e6;
    const auto mcr = [&](const std::array<double, 4>& at) {
        Bent bent(s, {});
        bent.lines.grid.pieces = 3;
        bent.lines.grid.x = {0, 2, 4, 6};
        for (std::size_t i = 0; i < 3; ++i) {
            bent.lines.y.m.m[i] = {at[i], (at[i + 1] - at[i]) / 2, 0, 0};
        }
        return bent.Of(Basis::StandardBut(Dev::d233), [&](const standard::LateralCase& m) {
            const standard::LateralCase with{m.s,     m.basis,   &program, m.p,  m.solved,
                                             m.loads, m.factors, m.lines,  m.cls};
            return LateralBucklingOf(with).mcr;
        });
    };
    EXPECT_NEAR(mcr({50, 20, 20, 10}), 100, 1e-9);
    EXPECT_NEAR(mcr({10, 50, 20, 10}), 100, 1e-9);
    EXPECT_NEAR(mcr({10, 20, 50, 10}), 200, 1e-9);
    EXPECT_NEAR(mcr({10, 20, 20, 50}), 300, 1e-9);
    program.segmcr[2] = 0;  // no control of the program: solved numerically
    EXPECT_GT(mcr({10, 20, 50, 10}), 1);
}

// Loads across the member alone leave nothing to study.
TEST(Lateral, NoStudyWithoutAMomentAboutY)
{
    const auto study = [](i16 direction) {
        Member s = Beam(LtbCurve::general);
        s.qload[1] = 2;
        s.qdir[1] = direction;
        LoadCase all{};
        all.factors = {1, 1, 1};
        return standard::LateralStudyOf(Delivered(), s, all).has_value();
    };
    EXPECT_TRUE(study(1));
    EXPECT_FALSE(study(0));
}

}  // namespace
}  // namespace kestrum
