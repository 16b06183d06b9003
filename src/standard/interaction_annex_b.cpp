#include "standard/member_buckling.h"

#include "core/project_state.h"
#include "standard/moment_shape.h"

#include <algorithm>
#include <cmath>

namespace kestrum::standard {

namespace {

constexpr double kSwayCm = 0.9;  // Table B.3, members that buckle in a sway mode

struct Cm {
    double standard, smaller_end;
};

// D221: the program's ratios take the smaller end moment.
Cm LoadedCm(const SpanMoments& span, bool point)
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

// D107: the program's factor of the whole member by the shape that it reads, where neither this one
// nor D221 gives it.
double OwnCm(const MemberBuckling& m, Axis axis, const Cm& cm)
{
    constexpr double kSame = 1e-6;
    const double standard = m.basis.pick(Dev::d221, cm.smaller_end, cm.standard);
    if (m.in.program == nullptr || m.in.s.loadmode != 1) {
        return standard;
    }
    const double own = axis == Axis::y ? m.in.program->cmy : m.in.program->cmz;
    const bool other =
        own > 0 && std::abs(own - cm.standard) > kSame && std::abs(own - cm.smaller_end) > kSame;
    return other && !m.basis.departs(Dev::d107) ? own : standard;
}

// Table B.3; loads of both kinds take the larger of its columns.
double CmB(const MemberBuckling& m, Axis axis, double x0, double x1, CmTerms MemberTerms::*terms)
{
    const SpanMoments span = SpanMomentsOf(m.in.lines, axis, x0, x1);
    if (m.told != nullptr) {
        m.told->*terms = {.span = span};
    }
    if (span.straight) {
        const double cm = clauses::EquivalentMomentStraight(span.psi);
        return m.in.s.loadmode != 1 ? m.basis.pick(Dev::d222, 0.6, cm) : cm;
    }
    bool points = false;
    bool lines = false;
    for (std::size_t i = 0; i < m.in.loads.count; ++i) {
        const Load& load = m.in.loads.load[i];
        if (load.about_y != (axis == Axis::y) ||
            FactorOn(m.in.load_case.factors, load.category) == 0) {
            continue;
        }
        if (load.point && !load.strip) {
            points = points || (load.at.x > x0 + 1e-6 && load.at.x < x1 - 1e-6);
        } else {
            lines = lines || (load.line.x2 > x0 + 1e-6 && load.line.x1 < x1 - 1e-6);
        }
    }
    lines = lines || !points;
    if (m.told != nullptr) {
        (m.told->*terms).lines = lines;
        (m.told->*terms).points = points;
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
    const bool whole = x0 == 0 && x1 == m.in.lines.grid.Length();
    return whole ? OwnCm(m, axis, cm) : m.basis.pick(Dev::d221, cm.smaller_end, cm.standard);
}

// Of the piece between restraints that holds the largest moment, or of both.
double CmLtB(const MemberBuckling& m)
{
    const HoldingPieces pieces = PiecesHolding(m.in.s, m.lateral.place * m.in.lines.grid.Length());
    double cm = CmB(m, Axis::y, pieces.x0[0], pieces.x1[0], &MemberTerms::cm_lt);
    if (pieces.count > 1) {
        const double other = CmB(m, Axis::y, pieces.x0[1], pieces.x1[1], &MemberTerms::cm_lt);
        if (cm > other && m.told != nullptr) {  // the terms of the larger one
            CmB(m, Axis::y, pieces.x0[0], pieces.x1[0], &MemberTerms::cm_lt);
        }
        cm = std::max(cm, other);
    }
    return cm;
}

}  // namespace

// Tables B.1 and B.2.
clauses::InteractionFactors AnnexB(const MemberBuckling& m)
{
    const double length = m.in.lines.grid.Length();
    clauses::AnnexBInputs in{};
    const int of_my = m.bends_y ? m.ClassOfMy() : ClassOf(m.q, {0, true, false, false}, m.basis);
    in.plastic = m.basis.pick(Dev::d223, m.Plastic(of_my), m.Plastic(m.cls));
    in.hollow = m.q.Closed();
    in.twists = m.Twists() && m.bends_y;
    in.cmy = m.bends_y ? CmB(m, Axis::y, 0, length, &MemberTerms::cm_y) : 1;
    in.cmz = m.bends_z ? CmB(m, Axis::z, 0, length, &MemberTerms::cm_z) : 1;
    in.cmlt = in.twists ? CmLtB(m) : 1;
    // D241: the program does not ask for the sway mode.
    in.cmy = m.in.s.ly > 1 ? m.basis.pick(Dev::d241, in.cmy, kSwayCm) : in.cmy;
    in.cmz = m.in.s.lz > 1 ? m.basis.pick(Dev::d241, in.cmz, kSwayCm) : in.cmz;
    in.lamy = m.chi.lamy;
    in.lamz = m.chi.lamz;
    in.ny = m.n * m.q.gammam1 / (m.chi.chiy * m.chi.squash);
    in.nz = m.n * m.q.gammam1 / (m.chi.chiz * m.chi.squash);
    if (in.twists && in.plastic && in.lamz < 0.4) {
        in.low_slenderness = m.basis.departs(Dev::d225);
    }
    if (m.told != nullptr) {
        m.told->b = in;
        m.told->cm_y.sway = m.in.s.ly > 1;
        m.told->cm_z.sway = m.in.s.lz > 1;
    }
    return clauses::FactorsOfAnnexB(in);
}

}  // namespace kestrum::standard
