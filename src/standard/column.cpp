#include "standard/column.h"

#include "clauses/flexural.h"
#include "core/material.h"
#include "core/project_state.h"
#include "standard/units.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

namespace kestrum::standard {

namespace {

using clauses::BucklingCurve;
using clauses::Imperfection;

constexpr double kNoBuckling = 0.002;  // length factors below leave the axis out

struct CurvePair {
    BucklingCurve y, z;
};

// S460 by the grade's nominal strength, typed strengths from 460 MPa.
bool IsS460(const Library& library, const ProjectState& s, const StandardSection& q)
{
    const int index = s.fykindex;
    if (IsListedGrade(library, index)) {
        return library.materials[static_cast<std::size_t>(index)].name.starts_with("S460");
    }
    return q.fy >= 460;
}

CurvePair RolledI(const StandardSection& q, bool s460)
{
    if (q.h > 1.2 * q.b) {
        if (q.top.t <= 40) {
            return s460 ? CurvePair{BucklingCurve::a0, BucklingCurve::a0}
                        : CurvePair{BucklingCurve::a, BucklingCurve::b};
        }
        return s460 ? CurvePair{BucklingCurve::a, BucklingCurve::a}
                    : CurvePair{BucklingCurve::b, BucklingCurve::c};
    }
    if (q.top.t <= 100) {
        return s460 ? CurvePair{BucklingCurve::a, BucklingCurve::a}
                    : CurvePair{BucklingCurve::b, BucklingCurve::c};
    }
    return s460 ? CurvePair{BucklingCurve::c, BucklingCurve::c}
                : CurvePair{BucklingCurve::d, BucklingCurve::d};
}

CurvePair Welded(const StandardSection& q)
{
    return std::max(q.top.t, q.bottom.t) <= 40 ? CurvePair{BucklingCurve::b, BucklingCurve::c}
                                               : CurvePair{BucklingCurve::c, BucklingCurve::d};
}

// Table 6.2.
CurvePair Tabulated(const Library& library, const ProjectState& s, const StandardSection& q,
                    const Basis& basis)
{
    constexpr double kProgramsS460 = 440;  // D203: from above this strength on
    const bool s460 = basis.pick(Dev::d203, q.fy > kProgramsS460, IsS460(library, s, q));
    const CurvePair hot = s460 ? CurvePair{BucklingCurve::a0, BucklingCurve::a0}
                               : CurvePair{BucklingCurve::a, BucklingCurve::a};
    const CurvePair c = {BucklingCurve::c, BucklingCurve::c};
    switch (q.kind) {
    case Kind::i_rolled:
        return RolledI(q, s460);
    case Kind::i_welded:
    case Kind::i_single:
        return Welded(q);
    case Kind::hollow:
        return Traits(s).shape.make == Make::hot ? hot : c;
    case Kind::tube:
        return s.tubehot == 1 ? hot : c;
    case Kind::box: {
        const bool slender = q.b / q.top.t >= 30 || q.h / q.tw >= 30;  // of a plate, D204
        const bool stocky = q.b / q.top.t < 30 || q.h / q.tw < 30;
        const bool curve_c =
            basis.pick(Dev::d204, !slender && s.weldopt != 1, stocky && s.weldopt == 1);
        return curve_c ? c : CurvePair{BucklingCurve::b, BucklingCurve::b};
    }
    case Kind::hat:
    case Kind::box_unequal:
    case Kind::angle:
        return {BucklingCurve::b, BucklingCurve::b};
    case Kind::general:
        return {BucklingCurve::b, BucklingCurve::c};
    case Kind::plate:  // a T, but for the girder with a second flange of its own
        return Traits(s).shape.stiffener == Stiffener::tee ? Welded(q) : c;
    default:
        return c;
    }
}

double Chosen(int choice, BucklingCurve tabulated)
{
    return Imperfection(choice >= 1 && choice <= 5 ? static_cast<BucklingCurve>(choice - 1)
                                                   : tabulated);
}

double EulerOf(const ProjectState& s, const StandardSection& q, double factor, double inertia,
               const Basis& basis)
{
    constexpr double kProgramPi = 3.1415927410125732;  // D202: in single precision
    const double pi = basis.pick(Dev::d202, kProgramPi, std::numbers::pi) / std::numbers::pi;
    return factor > kNoBuckling ? clauses::EulerLoad(q.e, inertia, factor * s.l * kMm) * pi * pi
                                : std::numeric_limits<double>::infinity();
}

// D205: the program sets no curve for British channels and keeps that of the pass before.
ColumnCurves Automatic(const ProjectState& s, const ColumnCurves& curves, const Basis& basis)
{
    if (Traits(s).design.curves != FlexuralCurves::none || !Is(s, Kind::channel)) {
        return curves;
    }
    return {s.bcy == 0 ? basis.pick(Dev::d205, s.alphay, curves.y) : curves.y,
            s.bcz == 0 ? basis.pick(Dev::d205, static_cast<double>(s.alphaz), curves.z) : curves.z};
}

}  // namespace

TorsionTerms TorsionTermsOf(const ProjectState& s, const StandardSection& q, const Basis& basis)
{
    const bool held = s.ltb == 1 && s.restraints > 0;
    TorsionTerms t{.length = s.l * kMm / (held ? s.restraints + 1 : 1),
                   .i0_squared = q.PolarSquared(),
                   .iw = q.Warps() ? q.iw : 0,
                   .about_y = EulerOf(s, q, s.ly, q.Angle() ? q.angle.iu : q.iy, basis),
                   .y = q.centre_y,
                   .z = q.centre_z};
    if (q.Angle()) {  // the u axis is one of symmetry where the legs are equal
        const double cosine = std::cos(q.angle.alfa);
        const double sine = std::sin(q.angle.alfa);
        t.y = q.centre_y * cosine + q.centre_z * sine;
        t.z = q.angle.equal ? 0 : q.centre_z * cosine - q.centre_y * sine;
    } else if (q.kind == Kind::i_single) {
        // D209: the program couples torsion of the unequal I with buckling about y.
        t.y = basis.pick(Dev::d209, q.centre_z, q.centre_y);
        t.z = basis.pick(Dev::d209, 0.0, q.centre_z);
    }
    return t;
}

CriticalForces CriticalForcesOf(const ProjectState& s, const StandardSection& q, const Basis& basis)
{
    CriticalForces ncr{};
    ncr.y = EulerOf(s, q, s.ly, q.iy, basis);
    ncr.z = EulerOf(s, q, s.lz, q.Angle() ? q.angle.iv : q.iz, basis);
    ncr.t = ncr.tf = std::numeric_limits<double>::infinity();
    ncr.twists = !q.Closed();
    if (!ncr.twists) {
        return ncr;
    }
    const TorsionTerms t = TorsionTermsOf(s, q, basis);
    ncr.t = clauses::TorsionalLoad(q.e, q.it, t.iw, t.i0_squared, t.length);
    ncr.tf = clauses::TorsionalFlexuralLoad({t.about_y, ncr.z, ncr.t}, {t.y, t.z}, t.i0_squared);
    return ncr;
}

ColumnCurves CurvesOf(const Library& library, const ProjectState& s, const StandardSection& q,
                      const Basis& basis)
{
    const CurvePair pair = Tabulated(library, s, q, basis);
    return Automatic(s, {Chosen(s.bcy, pair.y), Chosen(s.bcz, pair.z)}, basis);
}

Reductions ReductionsOf(const PreparedSection& p, const CriticalForces& ncr,
                        const ColumnCurves& curves, int cls, const Basis& basis)
{
    Reductions r{};
    r.squash = CompressedArea(p, cls) * p.q.fy;
    // D206: the program's slenderness of angles has the gross area.
    const double squash = p.q.Angle() ? basis.pick(Dev::d206, p.q.a * p.q.fy, r.squash) : r.squash;
    r.lamy = std::sqrt(squash / ncr.y);
    r.lamz = std::sqrt(squash / ncr.z);
    r.lamt = std::sqrt(squash / ncr.Torsional());
    if (p.q.Angle() && p.q.angle.two_bolts) {  // BB.1.2 (2)
        const double about_z = r.lamz * std::sqrt(p.q.angle.iv / p.q.iz);
        r.lamy = 0.5 + 0.7 * r.lamy;
        r.lamz = std::max(0.5 + 0.7 * about_z, 0.35 + 0.7 * r.lamz);
    }
    r.chiy = clauses::BucklingReduction(r.lamy, curves.y);
    r.chiz = clauses::BucklingReduction(r.lamz, curves.z);
    r.chit = clauses::BucklingReduction(r.lamt, curves.z);
    return r;
}

}  // namespace kestrum::standard
