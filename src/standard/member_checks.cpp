#include "standard/member_checks.h"

#include "core/project_state.h"
#include "standard/member_buckling.h"
#include "standard/tripping.h"
#include "standard/units.h"

#include <algorithm>
#include <cmath>

namespace kestrum::standard {

namespace {

constexpr double kStocky = 0.2;  // 6.3.1.2 (4)

// The largest moment, size. D249: the program reads its line at the points of the diagram and at
// its check sections.
double LargestOf(const MemberCase& m, Axis axis)
{
    constexpr double kOff = 1e-6;  // the places are in single precision
    const LineGrid& grid = m.lines.grid;
    const LineExtreme most = m.lines.LargestMoment(axis);
    const double largest = std::abs(most.value);
    double read = 0;
    const auto take = [&](double x) {
        read = std::max(read, std::abs(m.lines.Moment(axis, PieceAt(grid, x), x)));
    };
    const double point = most.x / grid.Length() * (kDiagramPoints - 1);
    if (std::abs(point - std::round(point)) < kOff) {  // as a rule: an end, the middle
        take(most.x);
        if (read >= (1 - kOff) * largest) {
            return largest;
        }
    }
    for (int j = 0; j < kDiagramPoints; ++j) {
        take(grid.Length() * j / (kDiagramPoints - 1));
    }
    for (const float place : m.places) {
        take(std::min(place * grid.Length(), grid.Length()));
    }
    return read >= (1 - kOff) * largest ? largest : m.basis.pick(Dev::d249, read, largest);
}

// 6.3.1.1 (1).
void Row(const MemberBuckling& m, Checks& checks, CheckId id, double chi, double lam,
         std::string_view clause, double squash)
{
    m.Keep(checks, id, m.n * m.q.gammam1 / (chi * squash), lam <= kStocky ? "6.3.1.2 (4)" : clause);
}

// D232: for an axial force alone the program leaves buckling out by slenderness and by NEd/Ncr.
bool MayBeLeftOut(const MemberBuckling& m, const Reductions& r)
{
    const bool stocky = r.lamy <= kStocky && r.lamz <= kStocky;
    const bool light = m.n <= 0.04 * m.ncr.LeastFlexural();
    return !m.bends_y && !m.bends_z && (stocky || light);
}

// The rows of 6.3.1 take the class of N alone.
void Column(const MemberBuckling& m, Checks& checks)
{
    const ColumnCurves curves = CurvesOf(m.in.library, m.in.s, m.q, m.basis);
    const Reductions r = ReductionsOf(m.p, m.ncr, curves, m.p.class_n, m.basis);
    if (m.told != nullptr) {
        m.told->column = r;
    }
    if (MayBeLeftOut(m, r) && !m.basis.departs(Dev::d232)) {
        return;
    }
    Row(m, checks, CheckId::flexural_y, r.chiy, r.lamy, "6.3.1.1", r.squash);
    Row(m, checks, CheckId::flexural_z, r.chiz, r.lamz, "6.3.1.1", r.squash);
    if (m.ColumnTwists()) {
        Row(m, checks, CheckId::torsional, r.chit, r.lamt, "6.3.1.4", r.squash);
    }
}

// Angles bend about u and v.
void TurnAxes(MemberBuckling& m)
{
    constexpr double kRounding = 1e-3;  // Nmm
    const AngleSection& angle = m.p.whole_angle;
    m.turned = m.in.lines;
    for (std::size_t i = 0; i < m.turned.grid.pieces; ++i) {
        for (std::size_t k = 0; k < 4; ++k) {
            const PrincipalMoments turned =
                TurnMoments(angle, m.in.lines.y.m.m[i][k], m.in.lines.z.m.m[i][k]);
            m.turned.y.m.m[i][k] = turned.u;
            m.turned.z.m.m[i][k] = turned.v;
        }
    }
    m.my = std::abs(m.turned.LargestMoment(Axis::y).value) * kNmm;
    m.mz = std::abs(m.turned.LargestMoment(Axis::z).value) * kNmm;
    m.bends_y = m.my > kRounding;
    m.bends_z = m.mz > kRounding;
}

// D229: the program controls a flat bar beside a compression only.
bool LateralControlled(const MemberBuckling& m)
{
    const bool bar_alone = m.q.kind == Kind::flat && m.n <= 0;
    return m.bends_y && m.Twists() && (!bar_alone || m.basis.departs(Dev::d229));
}

LateralCase CaseOf(const MemberBuckling& m)
{
    static const MemberLoads kNone{};  // those of an angle count in the shear centre
    return {m.in.s,
            m.basis,
            m.in.program,
            m.p,
            m.in.solved,
            m.q.Angle() ? kNone : m.in.loads,
            m.in.load_case.factors,
            m.q.Angle() ? m.turned : m.in.lines,
            m.ClassY()};
}

// 6.3.2; of plates the tripping of their stiffeners.
LateralResult Lateral(const MemberBuckling& m)
{
    return m.q.kind == Kind::plate ? TrippingOf(CaseOf(m)) : LateralBucklingOf(CaseOf(m));
}

void Tell(const MemberBuckling& m)
{
    if (m.told == nullptr) {
        return;
    }
    m.told->n = m.n;
    m.told->my = m.my;
    m.told->mz = m.mz;
    m.told->cls = m.cls;
    m.told->twists = m.ColumnTwists();
    m.told->ncr = m.ncr;
    m.told->torsion = TorsionTermsOf(m.in.s, m.q, m.basis);
    m.told->curves = CurvesOf(m.in.library, m.in.s, m.q, m.basis);
    m.told->interaction = m.chi;
    m.told->lateral = m.lateral;
    if (m.lateral.critical.route == CriticalRoute::numerical) {
        m.told->numerical = NumericalStudyOf(CaseOf(m));
    }
    m.told->shift_y = m.ShiftY();
    m.told->shift_z = m.ShiftZ();
}

// 6.3.1, then 6.3.2, whose factor 6.3.3 takes.
bool CheckBuckling(MemberBuckling& m, Checks& checks)
{
    m.ncr = CriticalForcesOf(m.in.s, m.q, m.basis);
    m.chi = ReductionsOf(m.p, m.ncr, CurvesOf(m.in.library, m.in.s, m.q, m.basis), m.ClassOfN(),
                         m.basis);
    if (m.n > 0) {
        Column(m, checks);
    }
    if (m.told != nullptr && m.told->column_only) {
        Tell(m);
        return true;
    }
    if (m.q.Angle()) {
        TurnAxes(m);
    }
    m.lateral.moment = (m.q.Angle() ? m.turned : m.in.lines).LargestMoment(Axis::y).value;
    if (LateralControlled(m)) {
        m.lateral = Lateral(m);
        if (!(m.lateral.resistance > 0)) {
            return false;
        }
        checks.Keep(CheckId::ltb, m.lateral.checked / m.lateral.resistance, m.lateral.clause,
                    m.lateral.place, m.in.load_case);
    }
    CheckInteraction(m, checks);
    Tell(m);
    return true;
}

}  // namespace

bool MemberBuckling::Twists() const
{
    return q.Angle() ? basis.departs(Dev::d226) : !q.Closed() && in.s.ltb == 1;
}

bool CheckMember(const MemberCase& member, Checks& checks, MemberTerms* told)
{
    MemberBuckling m{.in = member,
                     .told = told,
                     .basis = member.basis,
                     .p = member.section,
                     .q = member.section.q,
                     .cls = member.classes.all,
                     .n = member.lines.n * kN,
                     .bends_y = member.my,
                     .bends_z = member.mz,
                     .my = LargestOf(member, Axis::y) * kNmm,
                     .mz = LargestOf(member, Axis::z) * kNmm};
    return CheckBuckling(m, checks);
}

}  // namespace kestrum::standard
