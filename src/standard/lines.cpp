#include "standard/lines.h"

#include "analysis/load_lines.h"
#include "clauses/critical_moment.h"
#include "core/member_choices.h"
#include "core/project_state.h"
#include "sections/families.h"

#include <algorithm>
#include <cmath>

namespace kestrum::standard {

namespace {

constexpr double kGravity = 0.00981;                    // kN per kg
constexpr double kProgramGravity = 0.01;                // D103
constexpr std::size_t kMaxOwnLoads = 13 + 3 * kStrips;  // with the strips of D101
constexpr double kOff = 1e-6;                           // m; positions are kept in single precision

int Category(double kept)
{
    return kept == 0 ? 0 : kept == 1 ? 1 : kept == 2 ? 2 : -1;
}

bool Counts(const ProjectState& s, i16 ticked)
{
    return s.loadcomb != kBasicLoads || ticked != 0;
}

// The loads with what the family takes of them.
struct Loading {
    MemberLoads& loads;
    LineGridMaker maker;
    const Actions& taken;
    const Basis& basis;
};

// D106: the program empties rows that the family does not take.
bool Empties(const Actions& taken, bool about_y, const Basis& basis)
{
    return !(about_y ? taken.y : taken.z) && !basis.departs(Dev::d106);
}

void Add(Loading& to, const Load& load)
{
    auto& [loads, maker, taken, basis] = to;
    if (load.category < 0 || loads.count == kMaxOwnLoads || Empties(taken, load.about_y, basis)) {
        return;
    }
    loads.load[loads.count++] = load;
    bool& present = load.category == 0   ? loads.present.g
                    : load.category == 1 ? loads.present.q1
                                         : loads.present.q2;
    present = true;
    if (load.point) {
        maker.Add(load.at.x);
    } else {
        maker.Add(load.line.x1);
        maker.Add(load.line.x2);
    }
}

void AddUniform(const ProjectState& s, Loading& to)
{
    const double l = s.l;
    if (s.selfweight == 1 && s.weight != 0) {
        const double weight = s.weight * to.basis.pick(Dev::d103, kProgramGravity, kGravity);
        Add(to, {0, true, false, true, {0, l, weight, weight}, {}});
    }
    for (std::size_t k = 1; k <= 4; ++k) {
        if (s.qload[k] != 0 && Counts(s, s.qchecked[k])) {
            const double q = s.qload[k];
            Add(to, {Category(s.qtype[k]), s.qdir[k] == 1, false, false, {0, l, q, q}, {}});
        }
    }
}

// D101: the program takes a point load in the middle of each of equal strips.
void AddStrips(const Load& whole, Loading& to)
{
    const LineLoad& line = whole.line;
    Load strip = whole;
    strip.point = strip.strip = true;
    for (int n = 0; n < kStrips; ++n) {
        const double share = (n + 0.5) / kStrips;
        const double q = line.q1 + share * (line.q2 - line.q1);
        strip.at = {StripCentre(line.x1, line.x2, n), q * (line.x2 - line.x1) / kStrips, 0};
        Add(to, strip);
    }
}

void AddTrapezoids(const ProjectState& s, Loading& to)
{
    for (std::size_t k = 1; k <= 3; ++k) {
        if ((s.qt1[k] == 0 && s.qt2[k] == 0) || !Counts(s, s.qtchecked[k])) {
            continue;
        }
        const Load load{Category(s.qttype[k]),
                        s.qtdir[k] == 1,
                        false,
                        false,
                        {s.qtx1[k], std::min<double>(s.qtx2[k], s.l), s.qt1[k], s.qt2[k]},
                        {}};
        if (to.basis.departs(Dev::d101)) {
            Add(to, load);
        } else {
            AddStrips(load, to);
        }
    }
}

void AddPoints(const ProjectState& s, Loading& to)
{
    for (std::size_t k = 1; k <= 8; ++k) {
        if (s.pm[k] != 0 && Counts(s, s.pmchecked[k])) {
            const bool force = s.pmkind[k] == 0;
            const double size = s.pm[k];
            const double x = std::min<double>(s.pmx[k], s.l);
            Add(to, {Category(s.pmtype[k]),
                     s.pmdir[k] == 1,
                     true,
                     false,
                     {},
                     {x, force ? size : 0, force ? 0 : size}});
        }
    }
}

bool TakesAxial(const Actions& taken, const Basis& basis)
{
    return taken.n || basis.departs(Dev::d106);
}

// 1 where an axial load of the category acts too.
void MarkAxial(const ProjectState& s, Loading& to)
{
    ActionsPresent& present = to.loads.present;
    for (std::size_t k = 1; k <= 3; ++k) {
        if (s.nload[k] != 0 && Counts(s, s.nchecked[k]) && TakesAxial(to.taken, to.basis)) {
            const int category = Category(s.ntype[k]);
            present.g = present.g || category == 0;
            present.q1 = present.q1 || category == 1;
            present.q2 = present.q2 || category == 2;
        }
    }
}

double AxialForce(const ProjectState& s, const LoadFactors& factors, const Basis& basis)
{
    double n = 0;
    for (std::size_t k = 1; k <= 3; ++k) {
        if (s.nload[k] != 0 && Counts(s, s.nchecked[k]) &&
            TakesAxial(Traits(s).carries.loads, basis)) {
            n += FactorOn(factors, Category(s.ntype[k])) * s.nload[k];
        }
    }
    return n;
}

Plane PlaneOf(const MemberLoads& loads, const LoadFactors& factors, Axis axis,
              const EndFixity& ends)
{
    std::array<LineLoad, kMaxOwnLoads> lines;
    std::array<PointLoad, kMaxOwnLoads> points;
    std::size_t line_count = 0;
    std::size_t point_count = 0;
    Plane plane;
    for (std::size_t i = 0; i < loads.count; ++i) {
        const Load& load = loads.load[i];
        const double factor = FactorOn(factors, load.category);
        if (load.about_y != (axis == Axis::y) || factor == 0) {
            continue;
        }
        if (load.point) {
            points[point_count++] = {load.at.x, factor * load.at.force, factor * load.at.moment};
        } else {
            lines[line_count++] = {load.line.x1, load.line.x2, factor * load.line.q1,
                                   factor * load.line.q2};
        }
    }
    plane.m = MomentsOf(loads.grid, {lines.data(), line_count}, {points.data(), point_count}, ends);
    return plane;
}

// Straight from end to end of a piece.
double Along(const LineGrid& grid, const std::array<double, 2>& ends, std::size_t piece, double x)
{
    const double h = grid.x[piece + 1] - grid.x[piece];
    return ends[0] + (ends[1] - ends[0]) * (x - grid.x[piece]) / h;
}

Plane GivenPlane(const LineGrid& grid, double m1, double m2, double v1, double v2)
{
    Plane plane;
    const double slope = (m2 - m1) / grid.Length();
    for (std::size_t i = 0; i < grid.pieces; ++i) {
        plane.m.m[i] = {m1 + slope * grid.x[i], slope, 0, 0};
    }
    plane.given = true;
    plane.v0 = v1;
    plane.v1 = v2;
    return plane;
}

}  // namespace

double FactorOn(const LoadFactors& factors, int category)
{
    return category == 0 ? factors.g : category == 1 ? factors.q1 : category == 2 ? factors.q2 : 0;
}

std::string_view NoLoadsReason(const ProjectState& s)
{
    if (s.loadmode != 1) {
        return {};
    }
    const double end = s.l + kOff;
    for (std::size_t k = 1; k <= 3; ++k) {
        if (s.qt1[k] == 0 && s.qt2[k] == 0) {
            continue;
        }
        if (s.qtx1[k] < 0 || s.qtx2[k] > end) {
            return "a trapezoidal load lies off the member";
        }
        if (!(s.qtx1[k] < s.qtx2[k])) {
            return "a trapezoidal load ends before it starts";
        }
    }
    for (std::size_t k = 1; k <= 8; ++k) {
        if (s.pm[k] != 0 && (s.pmx[k] < 0 || s.pmx[k] > end)) {
            return "a point load lies off the member";
        }
    }
    return {};
}

MemberLoads LoadsOf(const ProjectState& s, const Basis& basis)
{
    MemberLoads loads;
    Loading to{loads, LineGridMaker(s.l), Traits(s).carries.loads, basis};
    if (s.loadmode == 1) {
        AddUniform(s, to);
        AddTrapezoids(s, to);
        AddPoints(s, to);
        MarkAxial(s, to);
    }
    for (int i = 1; i <= s.restraints && i <= static_cast<int>(kMaxHeld); ++i) {
        to.maker.Add(s.l * static_cast<double>(i) / (s.restraints + 1));
    }
    loads.grid = to.maker.Grid();
    return loads;
}

LineExtreme LargestAtPoints(const DeflectionLine& line, const LineGrid& grid)
{
    LineExtreme read;
    for (int j = 0; j < kDiagramPoints; ++j) {
        const double x = grid.Length() * j / (kDiagramPoints - 1);
        const double value = line.At(PieceAt(grid, x), x);
        read = std::abs(value) > std::abs(read.value) ? LineExtreme{value, x, 0} : read;
    }
    return read;
}

EndFixity FixityOf(const ProjectState& s)
{
    const double share = s.spring / 100.0;
    switch (s.supportcase) {
    case SupportCase::pinned_fixed:
        return {0, 1, false};
    case SupportCase::fixed:
        return {1, 1, false};
    case SupportCase::springs:
        return {share, share, false};
    case SupportCase::cantilever:
        return {1, 0, true};
    case SupportCase::pinned_spring:
        return {0, share, false};
    default:
        return {0, 0, false};
    }
}

namespace {

// The deviation by which the program leaves given end forces out of its control.
Dev LeftOutBy(const ProjectState& s)
{
    return Is(s, Kind::flat) ? Dev::d178 : Is(s, Kind::tee) ? Dev::d106 : Dev::d189;
}

}  // namespace

CombinedLines LinesOf(const ProjectState& s, const MemberLoads& loads, const LoadFactors& factors,
                      const Basis& basis)
{
    CombinedLines lines;
    lines.grid = loads.grid;
    if (s.loadmode != 1) {
        const Actions& taken = Traits(s).carries.loads;
        const Dev left = LeftOutBy(s);
        const auto given = [&](bool takes, double m1, double m2, double v1, double v2) {
            const bool any = m1 != 0 || m2 != 0 || v1 != 0 || v2 != 0;
            const bool acts = takes || (any && basis.departs(left));
            return acts ? GivenPlane(loads.grid, m1, m2, v1, v2)
                        : GivenPlane(loads.grid, 0, 0, 0, 0);
        };
        lines.n = taken.n || (s.ne != 0 && basis.departs(left)) ? s.ne : 0;
        lines.y = given(taken.y, s.my1, s.my2, s.vz1, s.vz2);
        lines.z = given(taken.z, s.mz1, s.mz2, s.vy1, s.vy2);
        return lines;
    }
    const EndFixity ends = FixityOf(s);
    lines.n = AxialForce(s, factors, basis);
    lines.y = PlaneOf(loads, factors, Axis::y, ends);
    lines.z = PlaneOf(loads, factors, Axis::z, ends);
    return lines;
}

double CombinedLines::Axial(std::size_t piece, double x) const
{
    return stations == nullptr ? n : Along(grid, stations->n[piece], piece, x);
}

double CombinedLines::Shear(Axis axis, std::size_t piece, double x) const
{
    if (stations != nullptr) {
        return Along(grid, (axis == Axis::y ? stations->vz : stations->vy)[piece], piece, x);
    }
    const Plane& plane = Of(axis);
    return plane.given ? plane.v0 + (plane.v1 - plane.v0) * x / grid.Length()
                       : ShearAt(grid, plane.m, piece, x);
}

LineExtreme CombinedLines::LargestMoment(Axis axis) const
{
    const LineExtremes extremes = ExtremesOfMoment(grid, Of(axis).m);
    return extremes.most.value >= -extremes.least.value ? extremes.most : extremes.least;
}

}  // namespace kestrum::standard
