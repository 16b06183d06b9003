#include "standard/member_checks.h"

#include "core/member_choices.h"
#include "core/project_state.h"
#include "standard/moment_shape.h"
#include "standard/tripping.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <optional>

namespace kestrum::standard {

namespace {

using clauses::InteractionFactors;

constexpr double kN = 1e3;
constexpr double kNmm = 1e6;
constexpr double kStocky = 0.2;  // 6.3.1.2 (4)
constexpr double kSwayCm = 0.9;  // Table B.3, members that buckle in a sway mode

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

class Member {
public:
    Member(const MemberCase& m, MemberTerms* told)
        : m_(m), told_(told), b_(m.basis), p_(m.section), q_(m.section.q), cls_(m.classes.all),
          n_(m.lines.n * kN), bends_y_(m.my), bends_z_(m.mz), my_(LargestOf(m, Axis::y) * kNmm),
          mz_(LargestOf(m, Axis::z) * kNmm)
    {
    }
    bool Check(Checks& checks);

private:
    void Tell() const;
    void Keep(Checks& checks, CheckId id, double ir, std::string_view clause) const
    {
        checks.Keep(id, ir, clause, kWholeMember, m_.load_case);
    }
    void Column(Checks& checks) const;
    void Row(Checks& checks, CheckId id, double chi, double lam, std::string_view clause,
             double squash) const;
    void Interaction(Checks& checks);
    void Outside(Checks& checks) const;
    // D43: the program takes the plastic columns for an elastic design as well.
    bool Plastic(int cls) const { return cls <= 2 && (!q_.elastic || !b_.departs(Dev::d43)); }
    // D153: the program buckles each force with the class that it has alone.
    int ClassOfN() const { return b_.pick(Dev::d153, p_.class_n, cls_); }
    int ClassY() const { return bends_y_ ? b_.pick(Dev::d153, ClassOfMy(), cls_) : cls_; }
    int ClassZ() const { return bends_z_ ? b_.pick(Dev::d153, m_.classes.mz, cls_) : cls_; }
    int ClassOfMy() const { return m_.classes.my.At(lateral_.moment >= 0); }
    bool CountsTwist() const;
    InteractionFactors AnnexA() const;
    InteractionFactors AnnexB() const;
    DeflectionLine LineOfDeflection(const CombinedLines& lines, Axis axis, double inertia) const;
    double ServiceDeflection(Axis axis, double inertia) const;
    double ShapeCm(Axis axis, double n) const;
    struct ShapeRead {
        bool straight;
        double psi;
    };
    ShapeRead ProgramShape(Axis axis, const SpanMoments& span) const;
    double CmA(Axis axis, double inertia, double ncr) const;
    struct Cm {
        double standard, smaller_end;
    };
    static Cm LoadedCm(const SpanMoments& span, bool point);
    double OwnCm(Axis axis, const Cm& cm) const;
    double CmB(Axis axis, double x0, double x1, CmTerms MemberTerms::*terms) const;
    double CmLtB() const;
    bool Shifted() const
    {
        return cls_ == 4 && n_ > 0 && !q_.DoublySymmetric() && b_.departs(Dev::d230);
    }
    double ShiftY() const { return Shifted() ? n_ * p_.effective.eny : 0; }
    double ShiftZ() const { return Shifted() ? n_ * p_.effective.enz : 0; }
    // Torsional and torsional-flexural buckling takes part.
    bool ColumnTwists() const { return ncr_.twists && b_.departs(Dev::d207); }
    bool MayBeLeftOut(const Reductions& r) const;
    // Angles have no input that would leave it out. D226: the program leaves it out for them.
    bool Twists() const
    {
        return q_.Angle() ? b_.departs(Dev::d226) : !q_.Closed() && m_.s.ltb == 1;
    }
    void TurnAxes();
    bool LateralControlled() const;
    LateralCase OfLateral() const;
    LateralResult Lateral() const;

    const MemberCase& m_;
    MemberTerms* told_;  // null where nobody asks
    const Basis& b_;
    const PreparedSection& p_;
    const StandardSection& q_;
    int cls_;
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

// D232: for an axial force alone the program leaves buckling out by slenderness and by NEd/Ncr.
bool Member::MayBeLeftOut(const Reductions& r) const
{
    const bool stocky = r.lamy <= kStocky && r.lamz <= kStocky;
    const bool light = n_ <= 0.04 * ncr_.LeastFlexural();
    return !bends_y_ && !bends_z_ && (stocky || light);
}

// The rows of 6.3.1 take the class of N alone.
void Member::Column(Checks& checks) const
{
    const ColumnCurves curves = CurvesOf(m_.library, m_.s, q_, b_);
    const Reductions r = ReductionsOf(p_, ncr_, curves, p_.class_n, b_);
    if (told_ != nullptr) {
        told_->column = r;
    }
    if (MayBeLeftOut(r) && !b_.departs(Dev::d232)) {
        return;
    }
    Row(checks, CheckId::flexural_y, r.chiy, r.lamy, "6.3.1.1", r.squash);
    Row(checks, CheckId::flexural_z, r.chiz, r.lamz, "6.3.1.1", r.squash);
    if (ColumnTwists()) {
        Row(checks, CheckId::torsional, r.chit, r.lamt, "6.3.1.4", r.squash);
    }
}

DeflectionLine Member::LineOfDeflection(const CombinedLines& lines, Axis axis, double inertia) const
{
    return {lines.grid, lines.Of(axis).m, m_.s.supportcase == SupportCase::cantilever, q_.e,
            inertia};
}

// D217: of the program's serviceability combination, read at the points of the diagram.
double Member::ServiceDeflection(Axis axis, double inertia) const
{
    const LoadFactors factors = ServiceFactors(m_.s, m_.s.loadcomb);
    const CombinedLines lines = LinesOf(m_.s, m_.loads, factors, b_);
    return LargestAtPoints(LineOfDeflection(lines, axis, inertia), lines.grid).value;
}

// D242: Table A.2 of a uniform load or of a point load at mid-span, whatever the loads; 0 where the
// program's pass failed.
double Member::ShapeCm(Axis axis, double n) const
{
    if (m_.program == nullptr) {
        return 0;
    }
    const bool curved = (axis == Axis::y ? m_.program->mycurved : m_.program->mzcurved) == kTrue;
    return curved ? clauses::CmUniformLoad(n) : clauses::CmPointLoad(n);
}

// D107: the shape of the line as the program reads it; that of the standard where its pass failed
// or the end moments are given.
Member::ShapeRead Member::ProgramShape(Axis axis, const SpanMoments& span) const
{
    const ProjectState* const p = m_.program;
    if (p == nullptr || m_.s.loadmode != 1) {
        return {span.straight, span.psi};
    }
    return axis == Axis::y ? ShapeRead{p->mylinear == kTrue, p->psiy}
                           : ShapeRead{p->mzlinear == kTrue, p->psiz};
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
    CmTerms* const terms = told_ == nullptr  ? nullptr
                           : axis == Axis::y ? &told_->cm_y
                                             : &told_->cm_z;
    if (terms != nullptr) {
        *terms = {.span = span, .moment = most.value};
    }
    const ShapeRead read = ProgramShape(axis, span);
    if (read.straight != span.straight && !b_.departs(Dev::d107)) {
        return read.straight ? clauses::CmStraight(read.psi, n) : 1;
    }
    if (span.straight) {
        return clauses::CmStraight(span.psi, n);
    }
    // D242: lines without end moments by one of two shapes.
    const double known = ShapeCm(axis, n);
    if (span.mh == 0 && known != 0 && !b_.departs(Dev::d242)) {
        return known;
    }
    const double deflection = b_.pick(
        Dev::d217, [&] { return ServiceDeflection(axis, inertia); },
        [&] { return LineOfDeflection(m_.lines, axis, inertia).Largest().value; });
    if (terms != nullptr) {
        terms->deflection = deflection;
    }
    const double mm = length * 1e3;
    const double euler = std::numbers::pi * std::numbers::pi * q_.e * inertia / (mm * mm);
    return clauses::CmGeneral(euler, deflection, most.value * kNmm, n);
}

// D221: the program's ratios take the smaller end moment.
Member::Cm Member::LoadedCm(const SpanMoments& span, bool point)
{
    const double standard = clauses::EquivalentMomentLoaded(span.mh, span.ms, span.psi, point);
    if (span.ms == 0 || span.mh == 0) {
        return {standard, standard};
    }
    const double small = span.mh * span.psi;
    const bool ends_govern = span.mh * span.mh >= span.ms * span.ms;
    const double program =
        ends_govern
            ? clauses::EquivalentMomentOfEnds(small == 0 ? 0 : span.ms / small, span.psi, point)
            : clauses::EquivalentMomentOfSpan(small / span.ms, span.psi, point);
    return {standard, program};
}

// Table B.3; loads of both kinds take the larger of its columns.
double Member::CmB(Axis axis, double x0, double x1, CmTerms MemberTerms::*terms) const
{
    const SpanMoments span = SpanMomentsOf(m_.lines, axis, x0, x1);
    if (told_ != nullptr) {
        told_->*terms = {.span = span};
    }
    if (span.straight) {
        const double cm = clauses::EquivalentMomentStraight(span.psi);
        return m_.s.loadmode != 1 ? b_.pick(Dev::d222, 0.6, cm) : cm;
    }
    bool points = false;
    bool lines = false;
    for (std::size_t i = 0; i < m_.loads.count; ++i) {
        const Load& load = m_.loads.load[i];
        if (load.about_y != (axis == Axis::y) ||
            FactorOn(m_.load_case.factors, load.category) == 0) {
            continue;
        }
        if (load.point && !load.strip) {
            points = points || (load.at.x > x0 + 1e-6 && load.at.x < x1 - 1e-6);
        } else {
            lines = lines || (load.line.x2 > x0 + 1e-6 && load.line.x1 < x1 - 1e-6);
        }
    }
    lines = lines || !points;
    if (told_ != nullptr) {
        (told_->*terms).lines = lines;
        (told_->*terms).points = points;
    }
    Cm cm{};
    const auto take = [&](bool point) {
        const Cm found = LoadedCm(span, point);
        cm = {std::max(cm.standard, found.standard), std::max(cm.smaller_end, found.smaller_end)};
    };
    if (points) {
        take(true);
    }
    if (lines) {
        take(false);
    }
    const bool whole = x0 == 0 && x1 == m_.lines.grid.Length();
    return whole ? OwnCm(axis, cm) : b_.pick(Dev::d221, cm.smaller_end, cm.standard);
}

// D107: the program's factor of the whole member by the shape that it reads, where neither this one
// nor D221 gives it.
double Member::OwnCm(Axis axis, const Cm& cm) const
{
    constexpr double kSame = 1e-6;
    const double standard = b_.pick(Dev::d221, cm.smaller_end, cm.standard);
    if (m_.program == nullptr || m_.s.loadmode != 1) {
        return standard;
    }
    const double own = axis == Axis::y ? m_.program->cmy : m_.program->cmz;
    const bool other =
        own > 0 && std::abs(own - cm.standard) > kSame && std::abs(own - cm.smaller_end) > kSame;
    return other && !b_.departs(Dev::d107) ? own : standard;
}

double Member::CmLtB() const
{
    const HoldingPieces pieces = PiecesHolding(m_.s, lateral_.place * m_.lines.grid.Length());
    double cm = CmB(Axis::y, pieces.x0[0], pieces.x1[0], &MemberTerms::cm_lt);
    if (pieces.count > 1) {
        const double other = CmB(Axis::y, pieces.x0[1], pieces.x1[1], &MemberTerms::cm_lt);
        if (cm > other && told_ != nullptr) {  // the terms of the larger one
            CmB(Axis::y, pieces.x0[0], pieces.x1[0], &MemberTerms::cm_lt);
        }
        cm = std::max(cm, other);
    }
    return cm;
}

// Susceptible to torsional deformations, 6.3.3 (2). D245: the program counts the slenderness of
// uniform moment of open sections where lateral torsional buckling is not controlled as well.
bool Member::CountsTwist() const
{
    const bool held = !Twists() && !q_.Closed() && !q_.Angle();
    return Twists() || (held && !b_.departs(Dev::d245));
}

InteractionFactors Member::AnnexA() const
{
    clauses::AnnexAInputs in{};
    in.twists = CountsTwist();
    in.ned = n_;
    in.ncry = ncr_.y;
    in.ncrz = ncr_.z;
    constexpr double kNever = std::numeric_limits<double>::infinity();
    in.ncrt = in.twists ? b_.pick(Dev::d208, kNever, ncr_.t) : ncr_.t;
    in.ncrtf = in.twists ? b_.pick(Dev::d208, kNever, ncr_.tf) : ncr_.tf;
    in.nrk = chi_.squash / b_.pick(Dev::d219, q_.gammam0, q_.gammam1);
    const double strength = q_.fy / b_.pick(Dev::d219, q_.gammam1, q_.gammam0);
    in.my = my_;
    in.mz = mz_;
    in.a = q_.a;
    in.it = q_.it;
    in.iy = q_.iy;
    // D247: the program takes the whole area, and the modulus by the class of My.
    const double effective = ModulusY(p_, 4, lateral_.moment >= 0);
    const auto modulus = [&](int cls) { return cls == 4 ? effective : q_.LeastWely(); };
    in.w_elastic_y = b_.pick(Dev::d247, modulus(ClassOfMy()), modulus(cls_));
    in.a_epsy = b_.pick(Dev::d247, q_.a, CompressedArea(p_, cls_));
    in.bends_only = n_ == 0 && in.twists && bends_y_ && b_.departs(Dev::d246);
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
    in.c1 = lateral_.piece.c1;
    if (in.twists) {
        const double w = ModulusYCompressed(p_, ClassY(), lateral_.moment >= 0);
        const UniformMomentTerms uniform = UniformCriticalMoment(m_.s, q_, b_);
        in.lam0 = std::sqrt(w * q_.fy / (uniform.mcr * kNmm));
        if (told_ != nullptr) {
            told_->uniform = uniform;
            told_->compressed = w;
        }
    }
    const auto factors = [&](bool plastic) {
        in.plastic = plastic;
        const clauses::AnnexAFactors found = clauses::FactorsOfAnnexA(in);
        if (told_ != nullptr) {
            told_->a = in;
            told_->found_a = found;
        }
        return found.k;
    };
    // D218: the program picks the column of each moment by its own class.
    const bool plastic = Plastic(cls_);
    const bool plastic_y = bends_y_ ? b_.pick(Dev::d218, Plastic(ClassOfMy()), plastic) : plastic;
    const bool plastic_z = bends_z_ ? b_.pick(Dev::d218, Plastic(m_.classes.mz), plastic) : plastic;
    const InteractionFactors y = factors(plastic_y);
    if (plastic_z == plastic_y) {
        return y;
    }
    const InteractionFactors z = factors(plastic_z);
    return {y.kyy, z.kyz, y.kzy, z.kzz};
}

InteractionFactors Member::AnnexB() const
{
    const double length = m_.lines.grid.Length();
    clauses::AnnexBInputs in{};
    const int of_my = bends_y_ ? ClassOfMy() : ClassOf(q_, {0, true, false, false}, b_);
    in.plastic = b_.pick(Dev::d223, Plastic(of_my), Plastic(cls_));
    in.hollow = q_.Closed();
    in.twists = Twists() && bends_y_;
    in.cmy = bends_y_ ? CmB(Axis::y, 0, length, &MemberTerms::cm_y) : 1;
    in.cmz = bends_z_ ? CmB(Axis::z, 0, length, &MemberTerms::cm_z) : 1;
    in.cmlt = in.twists ? CmLtB() : 1;
    // D241: the program does not ask for the sway mode.
    in.cmy = m_.s.ly > 1 ? b_.pick(Dev::d241, in.cmy, kSwayCm) : in.cmy;
    in.cmz = m_.s.lz > 1 ? b_.pick(Dev::d241, in.cmz, kSwayCm) : in.cmz;
    in.lamy = chi_.lamy;
    in.lamz = chi_.lamz;
    in.ny = n_ * q_.gammam1 / (chi_.chiy * chi_.squash);
    in.nz = n_ * q_.gammam1 / (chi_.chiz * chi_.squash);
    if (in.twists && in.plastic && in.lamz < 0.4) {
        in.low_slenderness = b_.departs(Dev::d225);
    }
    if (told_ != nullptr) {
        told_->b = in;
        told_->cm_y.sway = m_.s.ly > 1;
        told_->cm_z.sway = m_.s.lz > 1;
    }
    return clauses::FactorsOfAnnexB(in);
}

// Sections that 6.3.3 (1) leaves out: linear sum with amplified moments.
void Member::Outside(Checks& checks) const
{
    const double least = chi_.Least(ColumnTwists());
    const double kyy = 1 / (1 - chi_.chiy * n_ / ncr_.y);
    const double kzz = 1 / (1 - chi_.chiz * n_ / ncr_.z);
    const bool sagging = lateral_.moment >= 0;
    const double wy =
        std::min(ModulusY(p_, ClassY(), sagging), ModulusYCompressed(p_, ClassY(), sagging));
    const double wz = ModulusZ(p_, ClassZ());
    const double mry = lateral_.chi * wy * q_.fy / q_.gammam1;
    const double mrz = wz * q_.fy / q_.gammam1;
    const double ir = n_ * q_.gammam1 / (least * chi_.squash) + kyy * (my_ + ShiftY()) / mry +
                      kzz * (mz_ + ShiftZ()) / mrz;
    if (told_ != nullptr) {
        told_->k = {kyy, 0, 0, kzz};
        told_->wy = wy;
        told_->wz = wz;
    }
    Keep(checks, CheckId::interaction_outside, ir, "interaction outside 6.3.3");
}

void Member::Interaction(Checks& checks)
{
    const bool moments = bends_y_ || bends_z_ || ShiftY() > 0 || ShiftZ() > 0;
    if (n_ < 0 || (n_ > 0 && !moments) || (n_ == 0 && !(bends_y_ && bends_z_))) {
        return;
    }
    // D243: the program has no interaction of these without compression.
    if (n_ == 0 && (q_.Angle() || q_.kind == Kind::tube) && !b_.departs(Dev::d243)) {
        return;
    }
    // D231: the program does not combine the moments of a T with its axial force.
    if (q_.kind == Kind::tee && (bends_y_ || bends_z_) && !b_.departs(Dev::d231)) {
        return;
    }
    const double flexural = ncr_.LeastFlexural();
    const double torsional = ncr_.Torsional();
    const bool twists = torsional < flexural && ColumnTwists();
    // D248: the factors of Annex B go on beyond the critical force in the program.
    const bool beyond = n_ >= (twists ? torsional : flexural);
    if (beyond && (m_.s.method == Method::annex_a || b_.departs(Dev::d248))) {
        const double resistance = chi_.Least(ColumnTwists()) * chi_.squash / q_.gammam1;
        Keep(checks, CheckId::n_above_ncr, n_ / resistance, "6.3.3");
        return;
    }
    if (!q_.DoublySymmetric() && b_.departs(Dev::d240)) {
        Outside(checks);
        return;
    }
    const bool annex_a = m_.s.method == Method::annex_a;
    const InteractionFactors k = annex_a ? AnnexA() : AnnexB();
    const double ny = n_ * q_.gammam1 / (chi_.chiy * chi_.squash);
    const double nz = n_ * q_.gammam1 / (chi_.chiz * chi_.squash);
    const double wy = ModulusY(p_, ClassY(), lateral_.moment >= 0);
    const double wz = ModulusZ(p_, ClassZ());
    const double my = my_ * q_.gammam1 / (lateral_.chi * wy * q_.fy);
    const double mz = mz_ * q_.gammam1 / (wz * q_.fy);
    if (told_ != nullptr) {
        told_->k = k;
        told_->annex_a = annex_a;
        told_->wy = wy;
        told_->wz = wz;
    }
    // D236: an axis without buckling has no row in the program.
    const bool row_y = std::isfinite(ncr_.y) || n_ == 0 || b_.departs(Dev::d236);
    const bool row_z = std::isfinite(ncr_.z) || n_ == 0 || b_.departs(Dev::d236);
    if (row_y) {
        Keep(checks, CheckId::eq661, ny + k.kyy * my + k.kyz * mz,
             annex_a ? "Eq 6.61, Annex A" : "Eq 6.61, Annex B");
    }
    if (row_z) {
        Keep(checks, CheckId::eq662, nz + k.kzy * my + k.kzz * mz,
             annex_a ? "Eq 6.62, Annex A" : "Eq 6.62, Annex B");
    }
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

// D229: the program controls a flat bar beside a compression only.
bool Member::LateralControlled() const
{
    const bool bar_alone = q_.kind == Kind::flat && n_ <= 0;
    return bends_y_ && Twists() && (!bar_alone || b_.departs(Dev::d229));
}

LateralCase Member::OfLateral() const
{
    static const MemberLoads kNone{};  // those of an angle count in the shear centre
    return {m_.s,
            b_,
            m_.program,
            p_,
            m_.solved,
            q_.Angle() ? kNone : m_.loads,
            m_.load_case.factors,
            q_.Angle() ? turned_ : m_.lines,
            ClassY()};
}

LateralResult Member::Lateral() const
{
    return q_.kind == Kind::plate ? TrippingOf(m_.s, p_, m_.lines, ClassY())
                                  : LateralBucklingOf(OfLateral());
}

bool Member::Check(Checks& checks)
{
    ncr_ = CriticalForcesOf(m_.s, q_, b_);
    chi_ = ReductionsOf(p_, ncr_, CurvesOf(m_.library, m_.s, q_, b_), ClassOfN(), b_);
    if (n_ > 0) {
        Column(checks);
    }
    if (told_ != nullptr && told_->column_only) {
        Tell();
        return true;
    }
    if (q_.Angle()) {
        TurnAxes();
    }
    lateral_.moment = (q_.Angle() ? turned_ : m_.lines).LargestMoment(Axis::y).value;
    if (LateralControlled()) {
        lateral_ = Lateral();
        if (!(lateral_.resistance > 0)) {
            return false;
        }
        checks.Keep(CheckId::ltb, lateral_.checked / lateral_.resistance, lateral_.clause,
                    lateral_.place, m_.load_case);
    }
    Interaction(checks);
    Tell();
    return true;
}

void Member::Tell() const
{
    if (told_ == nullptr) {
        return;
    }
    told_->n = n_;
    told_->my = my_;
    told_->mz = mz_;
    told_->cls = cls_;
    told_->twists = ColumnTwists();
    told_->ncr = ncr_;
    told_->torsion = TorsionTermsOf(m_.s, q_, b_);
    told_->curves = CurvesOf(m_.library, m_.s, q_, b_);
    told_->interaction = chi_;
    told_->lateral = lateral_;
    if (lateral_.critical.route == CriticalRoute::numerical) {
        told_->numerical = NumericalStudyOf(OfLateral());
    }
    told_->shift_y = ShiftY();
    told_->shift_z = ShiftZ();
}

}  // namespace

bool CheckMember(const MemberCase& member, Checks& checks, MemberTerms* told)
{
    return Member(member, told).Check(checks);
}

}  // namespace kestrum::standard
