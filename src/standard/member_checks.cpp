#include "standard/member_checks.h"

#include "clauses/annex_a.h"
#include "clauses/annex_b.h"
#include "standard/column.h"
#include "standard/lateral.h"
#include "standard/moment_shape.h"
#include "standard/tripping.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <optional>

namespace kestrum::standard {

namespace {

using clauses::InteractionFactors;

constexpr double kN = 1e3;
constexpr double kNmm = 1e6;
constexpr double kStocky = 0.2;  // 6.3.1.2 (4)
constexpr double kSwayCm = 0.9;  // Table B.3, members that buckle in a sway mode

class Member {
public:
    explicit Member(const MemberCase& m)
        : m_(m), p_(m.section), q_(m.section.q), n_(m.lines.n * kN), bends_y_(m.my), bends_z_(m.mz),
          my_(std::abs(m.lines.LargestMoment(Axis::y).value) * kNmm),
          mz_(std::abs(m.lines.LargestMoment(Axis::z).value) * kNmm)
    {
    }
    bool Check(Checks& checks);

private:
    void Keep(Checks& checks, CheckId id, double ir, std::string_view clause) const
    {
        checks.Keep(id, ir, clause, kWholeMember, m_.load_case);
    }
    void Column(Checks& checks) const;
    void Row(Checks& checks, CheckId id, double chi, double lam, std::string_view clause,
             double squash) const;
    void Interaction(Checks& checks);
    void Outside(Checks& checks) const;
    InteractionFactors Factors() const;
    InteractionFactors AnnexA() const;
    InteractionFactors AnnexB() const;
    double CmA(Axis axis, double inertia, double ncr) const;
    double CmB(Axis axis, double x0, double x1) const;
    double CmLtB() const;
    double ShiftY() const { return m_.cls == 4 && n_ > 0 ? n_ * p_.effective.eny : 0; }
    double ShiftZ() const { return m_.cls == 4 && n_ > 0 ? n_ * p_.effective.enz : 0; }
    // Angles have no input that would leave it out.
    bool Twists() const { return !q_.Closed() && (m_.s.ltb == 1 || q_.Angle()); }
    void TurnAxes();
    LateralResult Lateral() const;

    const MemberCase& m_;
    const PreparedSection& p_;
    const StandardSection& q_;
    double n_;  // N
    bool bends_y_, bends_z_;
    double my_, mz_;          // Nmm; of angles about u and v
    CombinedLines turned_{};  // of angles: lines of Mu and Mv
    CriticalForces ncr_{};
    Reductions chi_{};  // of the class of the combination
    LateralResult lateral_{};
};

void Member::Row(Checks& checks, CheckId id, double chi, double lam, std::string_view clause,
                 double squash) const
{
    Keep(checks, id, n_ * q_.gammam1 / (chi * squash), lam <= kStocky ? "6.3.1.2 (4)" : clause);
}

// The rows of 6.3.1 take the class of N alone.
void Member::Column(Checks& checks) const
{
    const ColumnCurves curves = CurvesOf(m_.library, m_.s, q_);
    const Reductions r = ReductionsOf(p_, ncr_, curves, p_.class_n);
    Row(checks, CheckId::flexural_y, r.chiy, r.lamy, "6.3.1.1", r.squash);
    Row(checks, CheckId::flexural_z, r.chiz, r.lamz, "6.3.1.1", r.squash);
    if (ncr_.twists) {
        Row(checks, CheckId::torsional, r.chit, r.lamt, "6.3.1.4", r.squash);
    }
}

// Table A.2, Cm,0 of the whole member; deflection and moment of the same loads.
double Member::CmA(Axis axis, double inertia, double ncr) const
{
    const double length = m_.lines.grid.Length();
    const double n = n_ / ncr;
    const LineExtreme most = m_.lines.LargestMoment(axis);
    if (most.value == 0) {
        return 1;
    }
    const SpanMoments span = SpanMomentsOf(m_.lines, axis, 0, length);
    if (span.straight) {
        return clauses::CmStraight(span.psi, n);
    }
    const DeflectionLine line(m_.lines.grid, m_.lines.Of(axis).m, m_.s.supportcase == 4, q_.e,
                              inertia);
    const double mm = length * 1e3;
    const double euler = std::numbers::pi * std::numbers::pi * q_.e * inertia / (mm * mm);
    return clauses::CmGeneral(euler, line.Largest().value, most.value * kNmm, n);
}

// Table B.3; loads of both kinds take the larger of its columns.
double Member::CmB(Axis axis, double x0, double x1) const
{
    const SpanMoments span = SpanMomentsOf(m_.lines, axis, x0, x1);
    if (span.straight) {
        return clauses::EquivalentMomentStraight(span.psi);
    }
    bool points = false;
    bool lines = false;
    for (std::size_t i = 0; i < m_.loads.count; ++i) {
        const Load& load = m_.loads.load[i];
        if (load.about_y != (axis == Axis::y) ||
            FactorOn(m_.load_case.factors, load.category) == 0) {
            continue;
        }
        if (load.point) {
            points = points || (load.at.x > x0 + 1e-6 && load.at.x < x1 - 1e-6);
        } else {
            lines = lines || (load.line.x2 > x0 + 1e-6 && load.line.x1 < x1 - 1e-6);
        }
    }
    double cm = 0;
    if (points) {
        cm = clauses::EquivalentMomentLoaded(span.mh, span.ms, span.psi, true);
    }
    if (lines || !points) {
        cm = std::max(cm, clauses::EquivalentMomentLoaded(span.mh, span.ms, span.psi, false));
    }
    return cm;
}

double Member::CmLtB() const
{
    const HoldingPieces pieces = PiecesHolding(m_.s, lateral_.place * m_.lines.grid.Length());
    double cm = 0;
    for (std::size_t i = 0; i < pieces.count; ++i) {
        cm = std::max(cm, CmB(Axis::y, pieces.x0[i], pieces.x1[i]));
    }
    return cm;
}

InteractionFactors Member::AnnexA() const
{
    const double strength = q_.fy / q_.gammam0;
    clauses::AnnexAInputs in{};
    in.plastic = m_.cls <= 2 && !q_.elastic;
    in.twists = Twists();
    in.ned = n_;
    in.ncry = ncr_.y;
    in.ncrz = ncr_.z;
    in.ncrt = ncr_.t;
    in.ncrtf = ncr_.tf;
    in.nrk = chi_.squash / q_.gammam1;
    in.my = my_;
    in.mz = mz_;
    in.a = q_.a;
    in.it = q_.it;
    in.iy = q_.iy;
    in.w_elastic_y = m_.cls == 4 ? ModulusY(p_, 4, lateral_.moment >= 0) : q_.LeastWely();
    in.a_epsy = CompressedArea(p_, m_.cls);
    in.wely = q_.LeastWely();
    in.wply = q_.wply;
    in.welz = q_.LeastWelz();
    in.wplz = q_.wplz;
    in.mply = q_.wply * strength;
    in.mplz = q_.wplz * strength;
    in.cmy0 = bends_y_ ? CmA(Axis::y, q_.iy, ncr_.y) : 1;
    in.cmz0 = bends_z_ ? CmA(Axis::z, q_.iz, ncr_.z) : 1;
    in.chiy = chi_.chiy;
    in.chiz = chi_.chiz;
    in.chilt = lateral_.chi;
    in.lamy = chi_.lamy;
    in.lamz = chi_.lamz;
    in.c1 = lateral_.c1;
    if (in.twists) {
        const double mrk = ModulusYCompressed(p_, m_.cls, lateral_.moment >= 0) * q_.fy;
        in.lam0 = std::sqrt(mrk / (UniformCriticalMoment(m_.s, q_) * kNmm));
    }
    return clauses::FactorsOfAnnexA(in).k;
}

InteractionFactors Member::AnnexB() const
{
    const double length = m_.lines.grid.Length();
    clauses::AnnexBInputs in{};
    in.plastic = m_.cls <= 2 && !q_.elastic;
    in.hollow = q_.Closed();
    in.twists = Twists() && bends_y_;
    in.cmy = bends_y_ ? CmB(Axis::y, 0, length) : 1;
    in.cmz = bends_z_ ? CmB(Axis::z, 0, length) : 1;
    in.cmlt = in.twists ? CmLtB() : 1;
    in.cmy = m_.s.ly > 1 ? kSwayCm : in.cmy;
    in.cmz = m_.s.lz > 1 ? kSwayCm : in.cmz;
    in.lamy = chi_.lamy;
    in.lamz = chi_.lamz;
    in.ny = n_ * q_.gammam1 / (chi_.chiy * chi_.squash);
    in.nz = n_ * q_.gammam1 / (chi_.chiz * chi_.squash);
    return clauses::FactorsOfAnnexB(in);
}

// Sections that 6.3.3 (1) leaves out: linear sum with amplified moments.
void Member::Outside(Checks& checks) const
{
    const double least = chi_.Least(ncr_.twists);
    const double kyy = 1 / (1 - chi_.chiy * n_ / ncr_.y);
    const double kzz = 1 / (1 - chi_.chiz * n_ / ncr_.z);
    const bool sagging = lateral_.moment >= 0;
    const double wy =
        std::min(ModulusY(p_, m_.cls, sagging), ModulusYCompressed(p_, m_.cls, sagging));
    const double mry = lateral_.chi * wy * q_.fy / q_.gammam1;
    const double mrz = ModulusZ(p_, m_.cls) * q_.fy / q_.gammam1;
    const double ir = n_ * q_.gammam1 / (least * chi_.squash) + kyy * (my_ + ShiftY()) / mry +
                      kzz * (mz_ + ShiftZ()) / mrz;
    Keep(checks, CheckId::interaction_outside, ir, "interaction outside 6.3.3");
}

void Member::Interaction(Checks& checks)
{
    const bool moments = bends_y_ || bends_z_ || ShiftY() > 0 || ShiftZ() > 0;
    if (n_ < 0 || (n_ > 0 && !moments) || (n_ == 0 && !(bends_y_ && bends_z_))) {
        return;
    }
    if (n_ >= std::min({ncr_.y, ncr_.z, ncr_.t, ncr_.tf})) {
        const double resistance = chi_.Least(ncr_.twists) * chi_.squash / q_.gammam1;
        Keep(checks, CheckId::n_above_ncr, n_ / resistance, "6.3.3");
        return;
    }
    if (!q_.DoublySymmetric()) {
        Outside(checks);
        return;
    }
    const bool annex_a = m_.s.method == 1;
    const InteractionFactors k = annex_a ? AnnexA() : AnnexB();
    const double ny = n_ * q_.gammam1 / (chi_.chiy * chi_.squash);
    const double nz = n_ * q_.gammam1 / (chi_.chiz * chi_.squash);
    const double wy = ModulusY(p_, m_.cls, lateral_.moment >= 0);
    const double my = my_ * q_.gammam1 / (lateral_.chi * wy * q_.fy);
    const double mz = mz_ * q_.gammam1 / (ModulusZ(p_, m_.cls) * q_.fy);
    Keep(checks, CheckId::eq661, ny + k.kyy * my + k.kyz * mz,
         annex_a ? "Eq 6.61, Annex A" : "Eq 6.61, Annex B");
    Keep(checks, CheckId::eq662, nz + k.kzy * my + k.kzz * mz,
         annex_a ? "Eq 6.62, Annex A" : "Eq 6.62, Annex B");
}

// Angles bend about u and v.
void Member::TurnAxes()
{
    constexpr double kRounding = 1e-3;  // Nmm
    const AngleSection& angle = p_.whole_angle;
    turned_ = m_.lines;
    for (std::size_t i = 0; i < turned_.grid.pieces; ++i) {
        for (std::size_t k = 0; k < 4; ++k) {
            const PrincipalMoments m =
                TurnMoments(angle, m_.lines.y.m.m[i][k], m_.lines.z.m.m[i][k]);
            turned_.y.m.m[i][k] = m.u;
            turned_.z.m.m[i][k] = m.v;
        }
    }
    my_ = std::abs(turned_.LargestMoment(Axis::y).value) * kNmm;
    mz_ = std::abs(turned_.LargestMoment(Axis::z).value) * kNmm;
    bends_y_ = my_ > kRounding;
    bends_z_ = mz_ > kRounding;
}

LateralResult Member::Lateral() const
{
    if (q_.kind == Kind::plate) {
        return TrippingOf(m_.s, p_, m_.lines, m_.cls);
    }
    if (q_.Angle()) {  // loads count in the shear centre
        return LateralBucklingOf(m_.s, p_, {}, m_.load_case.factors, turned_, m_.cls);
    }
    return LateralBucklingOf(m_.s, p_, m_.loads, m_.load_case.factors, m_.lines, m_.cls);
}

bool Member::Check(Checks& checks)
{
    ncr_ = CriticalForcesOf(m_.s, q_);
    chi_ = ReductionsOf(p_, ncr_, CurvesOf(m_.library, m_.s, q_), m_.cls);
    if (n_ > 0) {
        Column(checks);
    }
    if (q_.Angle()) {
        TurnAxes();
    }
    lateral_.moment = (q_.Angle() ? turned_ : m_.lines).LargestMoment(Axis::y).value;
    if (bends_y_ && Twists()) {
        lateral_ = Lateral();
        if (!(lateral_.resistance > 0)) {
            return false;
        }
        checks.Keep(CheckId::ltb, std::abs(lateral_.moment) / lateral_.resistance, lateral_.clause,
                    lateral_.place, m_.load_case);
    }
    Interaction(checks);
    return true;
}

}  // namespace

bool CheckMember(const MemberCase& member, Checks& checks)
{
    return Member(member).Check(checks);
}

}  // namespace kestrum::standard
