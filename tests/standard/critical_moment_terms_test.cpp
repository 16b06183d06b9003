// What stands behind a critical moment: the closed formula with the user's factors, that of unequal
// angles, the piece alone and the numerical solution as it is told to the report. N, mm, kNm.

#include "standard/elastic_critical_moment.h"

#include "core/member_choices.h"
#include "engine/section_dispatch.h"
#include "standard/angle.h"
#include "standard/lateral_line.h"
#include "standard/standard_member.h"

#include <cmath>
#include <numbers>
#include <optional>

namespace kestrum {
namespace {

using standard::Axis;
using standard::CriticalTerms;
using standard::StandardSection;

constexpr double kPi2 = std::numbers::pi * std::numbers::pi;

// A member of `lines` and `loads`; all factors on loads but that on Q1, which is 1.5, are 1.
struct Bent {
    ProjectState s;
    StandardSection q;
    standard::MemberLoads loads{};
    standard::CombinedLines lines{};
    standard::SolvedLines solved;

    explicit Bent(const ProjectState& member) : s(member)
    {
        CalcSection(Delivered(), s);
        q = standard::SectionOf(Delivered(), s, Basis::Standard());
    }
    // Straight from end to end.
    void Moments(double start, double end)
    {
        const double length = s.l;
        lines.grid.pieces = 1;
        lines.grid.x = {0, length};
        lines.y.m.m[0] = {start, (end - start) / length, 0, 0};
    }
    void Line(int category, double x1, double x2, double q1, double q2)
    {
        loads.load[loads.count++] = {category, true, false, false, {x1, x2, q1, q2}, {}};
    }
    void Point(int category, double x, double force)
    {
        loads.load[loads.count++] = {category, true, true, false, {}, {x, force, 0}};
    }
    template <class Ask> auto Of(const Ask& ask)
    {
        const Basis basis = Basis::Standard();
        const LoadFactors factors{1, 1.5, 1};
        const auto p = standard::Prepare(q, basis);
        return ask(standard::LateralCase{s, basis, nullptr, p, solved, loads, factors, lines, 1});
    }
    double Critical(CriticalTerms& terms)
    {
        return Of([&](const standard::LateralCase& m) {
            return CriticalMomentOf(m, m.lines.LargestMoment(Axis::y), terms);
        });
    }
};

double Shear(const StandardSection& q)
{
    return q.e / 2.6 * q.it;
}

// pi/L sqrt(EIz (GIt + pi^2 EIw/L^2)), Nmm.
double Uniform(const StandardSection& q, double length)
{
    return std::sqrt(kPi2 / (length * length) * q.e * q.iz *
                     (Shear(q) + kPi2 * q.e * q.iw / (length * length)));
}

// C1 pi^2 EIz/L^2 (sqrt(Iw/Iz + L^2 GIt/(pi^2 EIz) + g^2) - g), g = C2 zg - C3 zj, with the factors
// 1.2, 0.4 and 0.5.
double Closed(const StandardSection& q, double length, double zg, double zj)
{
    const double euler = kPi2 * q.e * q.iz / (length * length);
    const double g = 0.4 * zg - 0.5 * zj;
    return 1.2 * euler * (std::sqrt(q.iw / q.iz + Shear(q) / euler + g * g) - g);
}

Member WithFactors(Member s)
{
    s.ltb = 1;
    s.loadlevel = 1;
    s.cmanual = kTrue;
    s.c1 = 1.2F;
    s.c2 = 0.4F;
    s.c3 = 0.5F;
    return s;
}

void ExpectClosed(Bent& at, double length, double zg, double zj)
{
    CriticalTerms terms;
    const double found = at.Critical(terms);
    EXPECT_EQ(terms.route, standard::CriticalRoute::closed);
    EXPECT_NEAR(terms.length, length, 1e-3);
    EXPECT_NEAR(terms.zg, zg, 1e-6);
    EXPECT_NEAR(terms.zj, zj, 1e-6);
    const double expected = Closed(at.q, length, zg, zj);
    EXPECT_NEAR(found, expected, 1e-6 * expected);
}

// k L over two segments: 0.8 6000/2. A trapezoid of Q1, (1 + 3)/2 4 1.5 = 12 kN upwards, and a
// force of G: the level of the loads, 150 mm, counts with the sign of the resultant.
TEST(CriticalMomentTerms, ClosedFormulaAtTheLevelOfTheLoads)
{
    Member s = WithFactors(Unloaded(6, 235).Section("IPE 300"));
    s.ltbk = 0.8F;
    s.restraints = 1;
    for (const auto& [force, sense] : {std::pair{11.9, -1.0}, {12.1, 1.0}, {12.0, 0.0}}) {
        SCOPED_TRACE(force);
        Bent at(s);
        at.Moments(40, 10);
        at.Line(1, 1, 5, -1, -3);
        at.Point(0, 3, force);
        ExpectClosed(at, 2400, 150 * sense, 0);
    }
}

// Unequal flanges: the shear centre lies off the centroid, zj turns with the moment.
TEST(CriticalMomentTerms, ClosedFormulaOfUnequalFlanges)
{
    const Member s = WithFactors(Unloaded(6, 235).Section(FormP22{400, 300, 200, 12, 20, 16}));
    for (const double sign : {1.0, -1.0}) {
        SCOPED_TRACE(sign);
        Bent at(s);
        at.Moments(50 * sign, 20 * sign);
        at.Line(0, 0, 6, 1, 1);
        ASSERT_GT(at.q.centre_z, 10);
        ASSERT_GT(at.q.zj, 10);
        ExpectClosed(at, 6000, at.q.above - at.q.centre_z, sign > 0 ? at.q.zj : -at.q.zj_hogging);
    }
}

// pi^2 EIv/L^2 (sqrt(L^2 GIt/(pi^2 EIv) + zj^2) + zj), zj with the sign of the moment.
TEST(CriticalMomentTerms, UnequalAnglesByTheirMinorAxis)
{
    Member s = Unloaded(3, 235).Section("L 100x50x8");
    s.ltbk = 0.9F;
    for (const double sign : {1.0, -1.0}) {
        Bent at(s);
        at.Moments(2 * sign, sign);
        CriticalTerms terms;
        const double found = at.Critical(terms);
        const double zj = sign * standard::AsymmetryOfAngle(at.q);
        ASSERT_GT(std::abs(zj), 1);
        EXPECT_EQ(terms.route, standard::CriticalRoute::angle);
        EXPECT_NEAR(terms.length, 2700, 1e-3);
        EXPECT_NEAR(terms.zj, zj, 1e-9);
        const double euler = kPi2 * at.q.e * at.q.angle.iv / (2700 * 2700);
        const double expected = euler * (std::sqrt(Shear(at.q) / euler + zj * zj) + zj);
        EXPECT_NEAR(found, expected, 1e-6 * expected);
    }
}

// A uniform moment on forks: C1 is 1 on every piece. The length is that of the piece; of a whole
// member times k, of a cantilever its own.
TEST(CriticalMomentTerms, PieceUnderUniformMoment)
{
    Member s = Unloaded(6, 235).Section("IPE 300");
    const auto piece = [&](double x0, double x1) {
        Bent at(s);
        at.Moments(30, 30);
        return at.Of([&](const standard::LateralCase& m) { return PieceAlone(m, x0, x1); });
    };
    const auto expect = [&](const standard::PieceTerms& found, double length, double c1) {
        const double uniform = Uniform(Bent(s).q, length) / 1e6;
        EXPECT_NEAR(found.c1, c1, 1e-3);
        EXPECT_NEAR(found.length, length, 1e-3);
        EXPECT_NEAR(found.uniform, uniform, 1e-6 * uniform);
        EXPECT_NEAR(found.moment, 30, 1e-9);
        EXPECT_NEAR(found.factor * 30, c1 * uniform, 1e-3 * uniform);
    };
    expect(piece(0, 6), 6000, 1);
    s.ltbk = 0.9F;
    expect(piece(0, 6), 5400, 1);
    s.restraints = 2;
    expect(piece(2, 4), 2000, 1);
    s.restraints = 0;
    s.ltbk = 2;
    s.supportcase = SupportCase::cantilever;
    EXPECT_NEAR(piece(0, 6).length, 6000, 1e-3);
}

// From 60 kNm to -30 over 6 m, two restraints: pieces of 2 m, the line at tenths of the length.
TEST(CriticalMomentTerms, NumericalSolutionAsItIsTold)
{
    Member s = Unloaded(6, 235).Section("IPE 300");
    s.ltb = 1;
    s.restraints = 2;
    s.loadlevel = 3;
    Bent at(s);
    at.Moments(60, -30);
    const auto study = at.Of([](const standard::LateralCase& m) { return NumericalStudyOf(m); });
    ASSERT_TRUE(study);
    EXPECT_EQ(study->restraints, 2U);
    EXPECT_NEAR(study->piece, 2, 1e-9);
    EXPECT_NEAR(study->level, -150, 1e-6);
    const double uniform = Uniform(at.q, 2000) / 1e6;
    EXPECT_NEAR(study->uniform, uniform, 1e-6 * uniform);
    for (std::size_t i = 0; i <= 10; ++i) {
        EXPECT_NEAR(study->moments[i], 60 - 9.0 * static_cast<double>(i), 1e-9) << i;
    }
    at.Moments(0, 0);
    EXPECT_FALSE(at.Of([](const standard::LateralCase& m) { return NumericalStudyOf(m); }));
}

// k of 0.5 and 0.7 are clamped ends, others stretch the moment line; a cantilever has neither.
TEST(CriticalMomentTerms, EndsByTheFactorOfTheLength)
{
    const auto study = [](float k, i16 supports) {
        Member s = Unloaded(6, 235).Section("IPE 300");
        s.ltb = 1;
        s.ltbk = k;
        s.supportcase = supports;
        Bent at(s);
        at.Moments(-30, 0);
        return *at.Of([](const standard::LateralCase& m) { return NumericalStudyOf(m); });
    };
    struct Case {
        float k;
        LateralEnd start, end;
        double stretch;
    };
    constexpr auto kFork = LateralEnd::fork, kClamped = LateralEnd::clamped;
    for (const Case& at : {Case{0.5F, kClamped, kClamped, 1}, Case{0.51F, kFork, kFork, 0.51},
                           Case{0.7F, kFork, kClamped, 1}, Case{0.71F, kFork, kFork, 0.71},
                           Case{1, kFork, kFork, 1}}) {
        SCOPED_TRACE(at.k);
        const auto found = study(at.k, SupportCase::pinned);
        EXPECT_EQ(found.start, at.start);
        EXPECT_EQ(found.end, at.end);
        EXPECT_NEAR(found.stretch, at.stretch, 1e-6);
    }
    const auto found = study(0.5F, SupportCase::cantilever);
    EXPECT_EQ(found.start, kClamped);
    EXPECT_EQ(found.end, LateralEnd::free);
    EXPECT_EQ(found.stretch, 1);
}

// Loads in the shear centre are of no account beyond their moments; above it they lower the
// critical moment and below it they raise it, under uplift the other way round.
TEST(CriticalMomentTerms, LevelOfTheLoadsFromTheShearCentre)
{
    Member s = Unloaded(6, 235).Section(FormP22{400, 300, 200, 12, 20, 16});
    s.ltb = 1;
    s.loadlevel = 4;
    const auto critical = [&](double q, double above) {
        Bent at(s);
        at.s.za = static_cast<float>(at.q.centre_z + above);
        at.Moments(40, 40);
        at.Line(0, 0, 6, q, q);
        CriticalTerms terms;
        return at.Critical(terms);
    };
    const double none = critical(0, 0);
    for (const double q : {2.0, -2.0}) {
        EXPECT_NEAR(critical(q, 0), none, 1e-6 * none);
        EXPECT_LT(critical(q, 50 * q), 0.99 * none);
        EXPECT_GT(critical(q, -50 * q), 1.01 * none);
    }
}

// Restraints at 2 and 4 m of 6: a place at one of them belongs to both pieces beside it.
TEST(CriticalMomentTerms, PiecesThatHoldAPlace)
{
    Member s = Unloaded(6, 235);
    s.restraints = 2;
    struct Case {
        double x;
        std::size_t count;
        double from, to;
    };
    for (const Case& at :
         {Case{0, 1, 0, 2}, Case{1.9, 1, 0, 2}, Case{2, 2, 0, 2}, Case{2.1, 1, 2, 4},
          Case{4, 2, 2, 4}, Case{4.1, 1, 4, 6}, Case{6, 1, 4, 6}}) {
        SCOPED_TRACE(at.x);
        const auto pieces = standard::PiecesHolding(s, at.x);
        EXPECT_EQ(pieces.count, at.count);
        EXPECT_NEAR(pieces.x0[0], at.from, 1e-9);
        EXPECT_NEAR(pieces.x1[0], at.to, 1e-9);
        if (at.count > 1) {
            EXPECT_NEAR(pieces.x0[1], at.to, 1e-9);
            EXPECT_NEAR(pieces.x1[1], at.to + 2, 1e-9);
        }
    }
}

}  // namespace
}  // namespace kestrum
