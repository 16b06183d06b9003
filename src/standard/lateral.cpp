#include "standard/lateral.h"

#include "clauses/flexural.h"
#include "clauses/lateral_torsional.h"
#include "core/annexes.h"
#include "core/member_choices.h"
#include "core/project_state.h"
#include "standard/elastic_critical_moment.h"
#include "standard/lateral_line.h"
#include "standard/moment_shape.h"
#include "standard/units.h"

#include <algorithm>
#include <cmath>

namespace kestrum::standard {

namespace {

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

}  // namespace

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

HoldingPieces PiecesHolding(const ProjectState& s, double x)
{
    const double length = s.l;
    const double each = length / (s.restraints + 1);
    const double place = x / each;
    const double nearest = std::round(place);
    const bool inside = nearest > 0.5 && nearest < s.restraints + 0.5;
    if (inside && std::abs(place - nearest) < kSamePlace) {
        return {{(nearest - 1) * each, nearest * each}, {nearest * each, (nearest + 1) * each}, 2};
    }
    const double first = std::clamp(std::floor(place), 0.0, static_cast<double>(s.restraints));
    return {{first * each, 0}, {(first + 1) * each, 0}, 1};
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

}  // namespace kestrum::standard
