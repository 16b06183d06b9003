#include "standard/member_buckling.h"

#include "core/member_choices.h"
#include "core/project_state.h"
#include "standard/moment_shape.h"
#include "standard/units.h"

#include <cmath>
#include <limits>
#include <numbers>

namespace kestrum::standard {

namespace {

using clauses::InteractionFactors;

DeflectionLine LineOfDeflection(const MemberBuckling& m, const CombinedLines& lines, Axis axis,
                                double inertia)
{
    return {lines.grid, lines.Of(axis).m, m.in.s.supportcase == SupportCase::cantilever, m.q.e,
            inertia};
}

// D217: of the program's serviceability combination, read at the points of the diagram.
double ServiceDeflection(const MemberBuckling& m, Axis axis, double inertia)
{
    const LoadFactors factors = ServiceFactors(m.in.s, m.in.s.loadcomb);
    const CombinedLines lines = LinesOf(m.in.s, m.in.loads, factors, m.basis);
    return LargestAtPoints(LineOfDeflection(m, lines, axis, inertia), lines.grid).value;
}

// D242: Table A.2 of a uniform load or of a point load at mid-span, whatever the loads; 0 where the
// program's pass failed.
double ShapeCm(const MemberBuckling& m, Axis axis, double n)
{
    if (m.in.program == nullptr) {
        return 0;
    }
    const bool curved =
        (axis == Axis::y ? m.in.program->mycurved : m.in.program->mzcurved) == kTrue;
    return curved ? clauses::CmUniformLoad(n) : clauses::CmPointLoad(n);
}

struct ShapeRead {
    bool straight;
    double psi;
};

// D107: the shape of the line as the program reads it; that of the standard where its pass failed
// or the end moments are given.
ShapeRead ProgramShape(const MemberBuckling& m, Axis axis, const SpanMoments& span)
{
    const ProjectState* const p = m.in.program;
    if (p == nullptr || m.in.s.loadmode != 1) {
        return {span.straight, span.psi};
    }
    return axis == Axis::y ? ShapeRead{p->mylinear == kTrue, p->psiy}
                           : ShapeRead{p->mzlinear == kTrue, p->psiz};
}

// Table A.2, Cm,0 of the whole member; deflection and moment of the same loads.
double CmA(const MemberBuckling& m, Axis axis, double inertia, double ncr)
{
    const double length = m.in.lines.grid.Length();
    const double n = m.n / ncr;
    const LineExtreme most = m.in.lines.LargestMoment(axis);
    if (most.value == 0) {
        return 1;
    }
    const SpanMoments span = SpanMomentsOf(m.in.lines, axis, 0, length);
    CmTerms* const terms = m.told == nullptr ? nullptr
                           : axis == Axis::y ? &m.told->cm_y
                                             : &m.told->cm_z;
    if (terms != nullptr) {
        *terms = {.span = span, .moment = most.value};
    }
    const ShapeRead read = ProgramShape(m, axis, span);
    if (read.straight != span.straight && !m.basis.departs(Dev::d107)) {
        return read.straight ? clauses::CmStraight(read.psi, n) : 1;
    }
    if (span.straight) {
        return clauses::CmStraight(span.psi, n);
    }
    // D242: lines without end moments by one of two shapes. D217 is the rule of all others: the
    // program asks for a deflection of these only.
    constexpr double kRounding = 1e-9;
    const bool free_ends = std::abs(span.mh) <= kRounding * std::abs(most.value);
    if (free_ends && !m.basis.departs(Dev::d242)) {
        if (const double known = ShapeCm(m, axis, n); known != 0) {
            return known;
        }
    }
    const auto own = [&] { return LineOfDeflection(m, m.in.lines, axis, inertia).Largest().value; };
    const double deflection =
        free_ends ? own()
                  : m.basis.pick(
                        Dev::d217, [&] { return ServiceDeflection(m, axis, inertia); }, own);
    if (terms != nullptr) {
        terms->deflection = deflection;
    }
    const double mm = length * 1e3;
    const double euler = std::numbers::pi * std::numbers::pi * m.q.e * inertia / (mm * mm);
    return clauses::CmGeneral(euler, deflection, most.value * kNmm, n);
}

// Susceptible to torsional deformations, 6.3.3 (2). D245: the program counts the slenderness of
// uniform moment of open sections where lateral torsional buckling is not controlled as well.
bool CountsTwist(const MemberBuckling& m)
{
    const bool held = !m.Twists() && !m.q.Closed() && !m.q.Angle();
    return m.Twists() || (held && !m.basis.departs(Dev::d245));
}

clauses::AnnexAInputs InputsOf(const MemberBuckling& m)
{
    clauses::AnnexAInputs in{};
    in.twists = CountsTwist(m);
    in.ned = m.n;
    in.ncry = m.ncr.y;
    in.ncrz = m.ncr.z;
    constexpr double kNever = std::numeric_limits<double>::infinity();
    in.ncrt = in.twists ? m.basis.pick(Dev::d208, kNever, m.ncr.t) : m.ncr.t;
    in.ncrtf = in.twists ? m.basis.pick(Dev::d208, kNever, m.ncr.tf) : m.ncr.tf;
    in.nrk = m.chi.squash / m.basis.pick(Dev::d219, m.q.gammam0, m.q.gammam1);
    const double strength = m.q.fy / m.basis.pick(Dev::d219, m.q.gammam1, m.q.gammam0);
    in.my = m.my;
    in.mz = m.mz;
    in.a = m.q.a;
    in.it = m.q.it;
    in.iy = m.q.iy;
    // D247: the program takes the whole area, and the modulus by the class of My.
    const double effective = ModulusY(m.p, 4, m.lateral.moment >= 0);
    const auto modulus = [&](int cls) { return cls == 4 ? effective : m.q.LeastWely(); };
    in.w_elastic_y = m.basis.pick(Dev::d247, modulus(m.ClassOfMy()), modulus(m.cls));
    in.a_epsy = m.basis.pick(Dev::d247, m.q.a, CompressedArea(m.p, m.cls));
    in.bends_only = m.n == 0 && in.twists && m.bends_y && m.basis.departs(Dev::d246);
    in.wely = m.q.LeastWely();
    in.wply = m.q.wply;
    in.welz = m.q.LeastWelz();
    in.wplz = m.q.wplz;
    in.mply = m.q.wply * strength;
    in.mplz = m.q.wplz * strength;
    in.cmy0 = m.bends_y ? CmA(m, Axis::y, m.q.iy, m.ncr.y) : 1;
    in.cmz0 = m.bends_z ? CmA(m, Axis::z, m.q.iz, m.ncr.z) : 1;
    in.chiy = m.chi.chiy;
    in.chiz = m.chi.chiz;
    in.chilt = m.lateral.chi;
    in.lamy = m.chi.lamy;
    in.lamz = m.chi.lamz;
    in.c1 = m.lateral.piece.c1;
    if (in.twists) {
        const double w = ModulusYCompressed(m.p, m.ClassY(), m.lateral.moment >= 0);
        const UniformMomentTerms uniform = UniformCriticalMoment(m.in.s, m.q, m.basis);
        in.lam0 = std::sqrt(w * m.q.fy / (uniform.mcr * kNmm));
        if (m.told != nullptr) {
            m.told->uniform = uniform;
            m.told->compressed = w;
        }
    }
    return in;
}

}  // namespace

// Table A.1. D218: the program picks the column of each moment by its own class.
clauses::InteractionFactors AnnexA(const MemberBuckling& m)
{
    clauses::AnnexAInputs in = InputsOf(m);
    const auto factors = [&](bool plastic) {
        in.plastic = plastic;
        const clauses::AnnexAFactors found = clauses::FactorsOfAnnexA(in);
        if (m.told != nullptr) {
            m.told->a = in;
            m.told->found_a = found;
        }
        return found.k;
    };
    const bool plastic = m.Plastic(m.cls);
    const bool plastic_y =
        m.bends_y ? m.basis.pick(Dev::d218, m.Plastic(m.ClassOfMy()), plastic) : plastic;
    const bool plastic_z =
        m.bends_z ? m.basis.pick(Dev::d218, m.Plastic(m.in.classes.mz), plastic) : plastic;
    const InteractionFactors y = factors(plastic_y);
    if (plastic_z == plastic_y) {
        return y;
    }
    const InteractionFactors z = factors(plastic_z);
    return {y.kyy, z.kyz, y.kzy, z.kzz};
}

}  // namespace kestrum::standard
