#include "standard/lateral.h"

#include "clauses/critical_moment.h"
#include "clauses/flexural.h"
#include "clauses/lateral_torsional.h"
#include "core/annexes.h"
#include "core/member_choices.h"
#include "core/project_state.h"
#include "standard/moment_shape.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace kestrum::standard {

namespace {

constexpr double kSame = 1e-6;  // of the length: places that are one
constexpr double kMm = 1e3;
constexpr double kNmm = 1e6;

double LoadLevel(const ProjectState& s, const StandardSection& q)
{
    if (q.kind == Kind::general) {
        return 0;  // where its edges lie is not entered
    }
    switch (s.loadlevel) {
    case 1:
        return q.above;
    case 3:
        return -q.below;
    case 4:
        return s.za;
    default:
        return 0;
    }
}

LateralSection SectionFor(const StandardSection& q)
{
    const double sideways = q.Angle() ? q.angle.iv : q.iz;
    return {q.e * sideways, q.Warps() ? q.e * q.iw : 0, q.e / 2.6 * q.it, q.zj};
}

// k of the supports: those that are not 0.5, 0.7 or 1 stretch the moment line over kL.
struct Ends {
    LateralEnd start = LateralEnd::fork, end = LateralEnd::fork;
    double stretch = 1;
};

Ends EndsOf(const ProjectState& s)
{
    constexpr double kNear = 1e-4;
    if (s.supportcase == SupportCase::cantilever) {
        return {LateralEnd::clamped, LateralEnd::free, 1};
    }
    if (std::abs(s.ltbk - 0.5) < kNear) {
        return {LateralEnd::clamped, LateralEnd::clamped, 1};
    }
    if (std::abs(s.ltbk - 0.7) < kNear) {
        return {LateralEnd::fork, LateralEnd::clamped, 1};
    }
    return {LateralEnd::fork, LateralEnd::fork, s.ltbk};
}

// The line in N and mm from x0 to x1, stretched.
class LineOf {
public:
    LineOf(const CombinedLines& lines, double x0, double x1, double stretch) : x0_(x0), k_(stretch)
    {
        for (std::size_t i = 0; i < lines.grid.pieces; ++i) {
            const double from = std::max(x0, lines.grid.x[i]);
            const double to = std::min(x1, lines.grid.x[i + 1]);
            if (to - from > kSame) {
                Add(lines, i, from, to);
            }
        }
        length_ = (x1 - x0) * k_ * kMm;
    }

    // Loads above the shear centre, mm.
    void AddLevels(const MemberLoads& loads, const LoadFactors& factors, double level,
                   double centre)
    {
        for (std::size_t i = 0; i < loads.count; ++i) {
            const Load& load = loads.load[i];
            const double factor = FactorOn(factors, load.category);
            if (!load.about_y || factor == 0) {
                continue;
            }
            const double zg = (load.self_weight ? 0 : level) - centre;
            if (load.point) {
                if (load.at.force != 0) {
                    points_[point_count_++] = {At(load.at.x),
                                               factor * load.at.force * kMm * zg / k_};
                }
            } else {
                AddLine(load.line, factor * zg / (k_ * k_));
            }
        }
        std::sort(points_.begin(), points_.begin() + static_cast<std::ptrdiff_t>(point_count_),
                  [](const PointTorque& a, const PointTorque& b) { return a.x < b.x; });
    }
    MomentLine Line() const
    {
        return {length_, {pieces_.data(), count_}, {points_.data(), point_count_}};
    }
    double At(double x) const { return (x - x0_) * k_ * kMm; }

private:
    void Add(const CombinedLines& lines, std::size_t i, double from, double to)
    {
        const auto& m = lines.y.m.m[i];
        const double d = from - lines.grid.x[i];
        const double m0 = m[0] + d * (m[1] + d * (m[2] + d * m[3]));
        const double m1 = m[1] + d * (2 * m[2] + 3 * d * m[3]);
        const double m2 = m[2] + 3 * d * m[3];
        pieces_[count_++] = {
            At(from),
            At(to),
            {m0 * kNmm, m1 * kMm / k_, m2 / (k_ * k_), m[3] / kMm / (k_ * k_ * k_)},
            0,
            0};
    }
    void AddLine(const LineLoad& load, double times)
    {
        for (std::size_t i = 0; i < count_; ++i) {
            MomentPiece& piece = pieces_[i];
            const double from = piece.x0 / (k_ * kMm) + x0_;
            const double to = piece.x1 / (k_ * kMm) + x0_;
            const double middle = (from + to) / 2;
            if (middle < load.x1 || middle > load.x2) {
                continue;
            }
            const double slope = (load.q2 - load.q1) / (load.x2 - load.x1);
            piece.qz0 += times * (load.q1 + slope * (from - load.x1));
            piece.qz1 += times * (load.q1 + slope * (to - load.x1));
        }
    }

    double x0_, k_, length_ = 0;
    std::array<MomentPiece, kMaxLinePieces> pieces_{};
    std::size_t count_ = 0;
    std::array<PointTorque, kMaxLoads> points_{};
    std::size_t point_count_ = 0;
};

// pi/L sqrt(EIz (GIt + pi^2 EIw/L^2)), Nmm.
double UniformMoment(const LateralSection& section, double length)
{
    const double wave = std::numbers::pi / length;
    return wave * std::sqrt(section.eiz * (section.git + wave * wave * section.eiw));
}

double LargestBetween(const CombinedLines& lines, double x0, double x1)
{
    double largest = 0;
    for (const double m : SampledMoments(lines, Axis::y, x0, x1)) {
        largest = std::max(largest, std::abs(m));
    }
    return largest;
}

// Of a piece alone: loads in the shear centre, zj 0, forks; the member's own ends without
// restraints.
PieceTerms PieceAlone(const LateralCase& m, double x0, double x1)
{
    const ProjectState& s = m.s;
    const StandardSection& q = m.p.q;
    const CombinedLines& lines = m.lines;
    LateralSection section = SectionFor(q);
    section.zj = 0;
    const bool whole = s.restraints == 0;
    const Ends ends = whole ? EndsOf(s) : Ends{};
    const LineOf line(lines, x0, x1, ends.stretch);
    const double alpha = m.solved.Factor(section, {ends.start, ends.end, {}}, line.Line());
    const double effective = whole && s.supportcase != SupportCase::cantilever ? s.ltbk : 1;
    const double length = effective * (x1 - x0) * kMm;
    const double moment = LargestBetween(lines, x0, x1), uniform = UniformMoment(section, length);
    return {alpha * moment * kNmm / uniform, length, alpha, moment, uniform / kNmm};
}

// Resultant of the loads along z: its sign is that of the load level's effect.
double Resultant(const MemberLoads& loads, const LoadFactors& factors)
{
    double sum = 0;
    for (std::size_t i = 0; i < loads.count; ++i) {
        const Load& load = loads.load[i];
        if (load.about_y) {
            const double size =
                load.point ? load.at.force
                           : (load.line.q1 + load.line.q2) / 2 * (load.line.x2 - load.line.x1);
            sum += FactorOn(factors, load.category) * size;
        }
    }
    return sum;
}

// 1 where the loads act downwards, -1 under uplift. D213: the program does not turn the load level.
double SenseOfLoads(const LateralCase& m)
{
    const double resultant = Resultant(m.loads, m.factors);
    return resultant > 0 ? 1 : resultant < 0 ? -1 : 0;
}

// Closed formula with the C factors of the user, Nmm.
double ClosedMoment(const LateralCase& m, bool sagging, CriticalTerms& terms)
{
    const ProjectState& s = m.s;
    const StandardSection& q = m.p.q;
    const LateralSection section = SectionFor(q);
    const double length = s.ltbk * s.l * kMm / (s.restraints + 1);
    const double sense = SenseOfLoads(m);
    const double level = LoadLevel(s, q) - q.centre_z;
    const double zg = sense < 0 ? m.basis.pick(Dev::d213, level, -level) : sense * level;
    const double zj = sagging ? q.zj : -q.zj_hogging;
    terms = {.route = CriticalRoute::closed, .length = length, .zg = zg, .zj = zj};
    const double lever = s.c2 * zg - s.c3 * zj;
    const double euler = clauses::EulerLoad(q.e, q.iz, length);
    return s.c1 * euler *
           (std::sqrt(section.eiw / section.eiz + section.git / euler + lever * lever) - lever);
}

// Unequal angles lie outside the model of the numerical solution, which bends in a plane of
// symmetry: uniform moment about u, Nmm.
double UnequalAngleMoment(const ProjectState& s, const StandardSection& q, bool positive,
                          CriticalTerms& terms)
{
    const LateralSection section = SectionFor(q);
    const double length = s.ltbk * s.l * kMm;
    const double euler = clauses::EulerLoad(q.e, q.angle.iv, length);
    const double zj = positive ? AsymmetryOfAngle(q) : -AsymmetryOfAngle(q);
    terms = {.route = CriticalRoute::angle, .length = length, .zj = zj};
    return euler * (std::sqrt(section.git / euler + zj * zj) + zj);
}

// The member as the numerical solution takes it.
struct NumericalModel {
    LineOf line;
    LateralSection section;
    Ends ends;
    std::array<double, kMaxHeld> held{};
    std::size_t restraints;
    double above;  // loads above the shear centre, mm

    LateralSupports Supports() const { return {ends.start, ends.end, {held.data(), restraints}}; }
};

NumericalModel ModelOf(const LateralCase& m, bool sagging)
{
    const ProjectState& s = m.s;
    const StandardSection& q = m.p.q;
    const CombinedLines& lines = m.lines;
    const Ends ends = EndsOf(s);
    NumericalModel model{LineOf(lines, 0, lines.grid.Length(), ends.stretch),
                         SectionFor(q),
                         ends,
                         {},
                         static_cast<std::size_t>(std::max<int>(s.restraints, 0)),
                         0};
    const double level = LoadLevel(s, q);
    double above = level - q.centre_z;
    if (SenseOfLoads(m) < 0) {
        above = m.basis.pick(Dev::d213, -above, above);
    }
    model.above = above;
    model.line.AddLevels(m.loads, m.factors, above + q.centre_z, q.centre_z);
    for (std::size_t i = 0; i < std::min(model.restraints, kMaxHeld); ++i) {
        model.held[i] = model.line.At(lines.grid.Length() * static_cast<double>(i + 1) /
                                      static_cast<double>(model.restraints + 1));
    }
    model.section.zj = sagging ? q.zj : q.zj_hogging;
    return model;
}

double NumericalMoment(const LateralCase& m, double moment, CriticalTerms& terms)
{
    const NumericalModel model = ModelOf(m, moment > 0);
    const double alpha = m.solved.Factor(model.section, model.Supports(), model.line.Line());
    terms = {.route = CriticalRoute::numerical, .factor = alpha};
    return alpha * std::abs(moment) * kNmm;
}

// Tables 6.4 and 6.5, h/b of the compressed flange.
double LateralImperfection(const ProjectState& s, const StandardSection& q, bool sagging,
                           bool rolled_case, const Basis& basis)
{
    using clauses::BucklingCurve;
    const double slim = q.h / (sagging ? q.top.b : q.bottom.b);
    if (q.kind == Kind::i_rolled) {
        if (!rolled_case) {
            return clauses::Imperfection(slim <= 2 ? BucklingCurve::a : BucklingCurve::b);
        }
        const bool tall = basis.pick(Dev::d239, false, s.annexindex == kAnnexUk && slim > 3.1);
        return clauses::Imperfection(slim <= 2 ? BucklingCurve::b
                                     : tall    ? BucklingCurve::d
                                               : BucklingCurve::c);
    }
    const bool welded = q.kind == Kind::i_welded || q.kind == Kind::i_single;
    return clauses::Imperfection(welded && slim <= 2 ? BucklingCurve::c : BucklingCurve::d);
}

void Reduce(const ProjectState& s, const StandardSection& q, LateralResult& r, const Basis& basis)
{
    const bool own = q.kind == Kind::i_single;
    const bool welded = q.kind == Kind::i_welded || own;
    const double plateau = welded ? s.lamdalt0w : s.lamdalt0;
    const bool rolled_case = s.ltbcurve == LtbCurve::rolled && Traits(s).design.rolled_case;
    const double alpha = LateralImperfection(s, q, r.moment > 0, rolled_case, basis);
    if (!rolled_case) {
        r.alpha = alpha;
        r.plateau = basis.pick(Dev::d214, 0.2, plateau);
        r.chi = clauses::GeneralLateralReduction(r.lam, alpha, r.plateau);
        r.clause = "6.3.2.2";
        return;
    }
    const double beta = welded ? s.betaw : s.beta;
    r.rolled = true;
    r.alpha = alpha;
    r.plateau = own ? plateau : basis.pick(Dev::d215, s.lamdalt0, plateau);
    r.beta = own ? beta : basis.pick(Dev::d215, s.beta, beta);
    const double chi = clauses::RolledLateralReduction(r.lam, alpha, r.plateau, r.beta);
    const double f = clauses::MomentShapeFactor(r.lam, r.kc);
    r.chi = std::min({1.0, 1 / (r.lam * r.lam), chi / f});
    r.clause = "6.3.2.3";
}

// The program's formula for the elastic critical moment that stands in for the numerical solution.
Dev FormulaOf(const ProjectState& s)
{
    if (s.restraints > 0 || s.loadmode != 1) {
        return Dev::d233;  // segments
    }
    return s.supportcase == SupportCase::cantilever ? Dev::d238 : Dev::d234;
}

// Nmm, as the program's pass left it: of the segment that holds MEd,max, or of the whole member.
double ProgramMoment(const LateralCase& m, double x)
{
    if (FormulaOf(m.s) != Dev::d233) {
        return m.program->mcr;
    }
    const double each = m.s.l / (m.s.restraints + 1);
    const double number = std::clamp(std::ceil(x / each - kSame), 1.0, m.s.restraints + 1.0);
    return m.program->segmcr[static_cast<std::size_t>(number)];
}

double CriticalMomentOf(const LateralCase& m, const LineExtreme& most, CriticalTerms& terms)
{
    if (m.p.q.Angle()) {  // no C factors are entered for it
        return m.p.q.angle.equal ? NumericalMoment(m, most.value, terms)
                                 : UnequalAngleMoment(m.s, m.p.q, most.value > 0, terms);
    }
    if (m.s.cmanual != kFalse) {
        return ClosedMoment(m, most.value > 0, terms);
    }
    if (!m.basis.departs(FormulaOf(m.s)) && m.program != nullptr) {
        const double formula = ProgramMoment(m, most.x);
        if (formula > 0) {  // else the program's pass had no control
            terms.route = CriticalRoute::program;
            return formula;
        }
    }
    return NumericalMoment(m, most.value, terms);
}

// MEd,max. D201: the program sees the moments at the ends of its segments only.
double CheckedMoment(const LateralCase& m, const LineExtreme& most)
{
    const double whole = std::abs(most.value);
    if (FormulaOf(m.s) != Dev::d233) {
        return whole;
    }
    double largest = 0;
    for (int i = 0; i <= m.s.restraints + 1; ++i) {
        const double x = m.lines.grid.Length() * i / (m.s.restraints + 1);
        const double moment = m.lines.Moment(Axis::y, PieceAt(m.lines.grid, x), x);
        largest = std::max(largest, std::abs(moment));
    }
    const bool same = largest >= whole * (1 - 1e-9);
    return same ? whole : m.basis.pick(Dev::d201, largest, whole);
}

}  // namespace

HoldingPieces PiecesHolding(const ProjectState& s, double x)
{
    const double length = s.l;
    const double each = length / (s.restraints + 1);
    const double place = x / each;
    const double nearest = std::round(place);
    const bool inside = nearest > 0.5 && nearest < s.restraints + 0.5;
    if (inside && std::abs(place - nearest) < kSame) {
        return {{(nearest - 1) * each, nearest * each}, {nearest * each, (nearest + 1) * each}, 2};
    }
    const double first = std::clamp(std::floor(place), 0.0, static_cast<double>(s.restraints));
    return {{first * each, 0}, {(first + 1) * each, 0}, 1};
}

UniformMomentTerms UniformCriticalMoment(const ProjectState& s, const StandardSection& q,
                                         const Basis& basis)
{
    const double k = s.ltbk;
    const LateralSection section = SectionFor(q);
    const auto terms = [&](double factor, double c1) {
        const double length = factor * s.l * kMm / (s.restraints + 1);
        return UniformMomentTerms{length, section.eiw, c1 * UniformMoment(section, length) / kNmm};
    };
    // D244: kL for every k, with C1 from 1.05 (k = 0.5) to 1 (k = 1) and on in a straight line.
    if (k != 1 && !basis.departs(Dev::d244)) {
        return terms(k, 1.05 - 0.05 * (k - 0.5) / 0.5);
    }
    return terms(std::max(1.0, k), 1);
}

LateralResult LateralBucklingOf(const LateralCase& m)
{
    const ProjectState& s = m.s;
    const StandardSection& q = m.p.q;
    const LineExtreme most = m.lines.LargestMoment(Axis::y);
    LateralResult r;
    r.moment = most.value;
    r.place = most.x / m.lines.grid.Length();
    r.checked = CheckedMoment(m, most);
    const bool sagging = r.moment > 0;
    r.mcr = CriticalMomentOf(m, most, r.critical) / kNmm;
    if (!(r.mcr > 0)) {
        return r;  // no resistance
    }
    const HoldingPieces pieces = PiecesHolding(s, most.x);
    const bool always_c1 = s.annexindex == kAnnexUk;
    for (std::size_t i = 0; i < pieces.count; ++i) {
        const PieceTerms piece = s.cmanual != kFalse ? PieceTerms{.c1 = s.c1}
                                                     : PieceAlone(m, pieces.x0[i], pieces.x1[i]);
        const auto table = always_c1
                               ? std::nullopt
                               : TabulatedShapeOf(m.lines, Axis::y, pieces.x0[i], pieces.x1[i]);
        const double by_c1 = m.basis.pick(Dev::d216, 1 / std::sqrt(piece.c1),
                                          std::min(1.0, 1 / std::sqrt(piece.c1)));
        const double kc = table ? m.basis.pick(Dev::d235, by_c1, table->Kc()) : by_c1;
        r.piece = i == 0 || piece.c1 < r.piece.c1 ? piece : r.piece;
        r.tabulated = i == 0 || kc > r.kc ? table : r.tabulated;
        r.kc = i == 0 ? kc : std::max(r.kc, kc);
    }
    r.modulus = ModulusYCompressed(m.p, m.cls, sagging);
    const double resistance = r.modulus * q.fy / kNmm;
    r.lam = std::sqrt(resistance / r.mcr);
    Reduce(s, q, r, m.basis);
    r.resistance = r.chi * resistance / q.gammam1;
    return r;
}

std::optional<NumericalStudy> NumericalStudyOf(const LateralCase& m)
{
    const LineExtreme most = m.lines.LargestMoment(Axis::y);
    if (most.value == 0) {
        return std::nullopt;
    }
    const NumericalModel model = ModelOf(m, most.value > 0);
    const double piece =
        m.lines.grid.Length() / static_cast<double>(std::max<int>(m.s.restraints, 0) + 1);
    NumericalStudy study{.section = model.section,
                         .start = model.ends.start,
                         .end = model.ends.end,
                         .stretch = model.ends.stretch,
                         .level = model.above,
                         .restraints = model.restraints,
                         .moments = {},
                         .piece = piece,
                         .uniform = UniformMoment(model.section, piece * kMm) / kNmm,
                         .shape = {}};
    const MomentLine line = model.line.Line();
    const double alpha = m.solved.Factor(model.section, model.Supports(), line);
    if (!std::isfinite(alpha)) {
        return std::nullopt;
    }
    study.shape = BucklingShapeAt(alpha, model.section, model.Supports(), line);
    for (std::size_t i = 0; i < study.moments.size(); ++i) {
        const double x = m.lines.grid.Length() * static_cast<double>(i) /
                         static_cast<double>(study.moments.size() - 1);
        study.moments[i] = m.lines.Moment(Axis::y, PieceAt(m.lines.grid, x), x);
    }
    return study;
}

}  // namespace kestrum::standard
