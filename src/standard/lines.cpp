#include "standard/lines.h"

#include "clauses/critical_moment.h"

#include <algorithm>
#include <cmath>

namespace kestrum::standard {

namespace {

constexpr double kGravity = 0.00981;  // kN per kg (D103: the program takes 0.01)
constexpr std::size_t kMaxOwnLoads = 16;
constexpr double kOff = 1e-6;  // m; positions are kept in single precision

int Category(double kept)
{
    return kept == 0 ? 0 : kept == 1 ? 1 : kept == 2 ? 2 : -1;
}

bool Counts(const ProjectState& s, i16 ticked)
{
    return s.loadcomb != kBasicLoads || ticked != 0;
}

void Add(MemberLoads& loads, const Load& load, LineGridMaker& maker)
{
    if (load.category < 0 || loads.count == kMaxOwnLoads) {
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

void AddUniform(const ProjectState& s, MemberLoads& loads, LineGridMaker& maker)
{
    const double l = s.l;
    const double weight = s.selfweight == 1 ? s.weight * kGravity : 0;
    if (weight != 0) {
        Add(loads, {0, true, false, true, {0, l, weight, weight}, {}}, maker);
    }
    for (std::size_t k = 1; k <= 4; ++k) {
        if (s.qload[k] != 0 && Counts(s, s.qchecked[k])) {
            const double q = s.qload[k];
            Add(loads, {Category(s.qtype[k]), s.qdir[k] == 1, false, false, {0, l, q, q}, {}},
                maker);
        }
    }
}

void AddTrapezoids(const ProjectState& s, MemberLoads& loads, LineGridMaker& maker)
{
    for (std::size_t k = 1; k <= 3; ++k) {
        if ((s.qt1[k] != 0 || s.qt2[k] != 0) && Counts(s, s.qtchecked[k])) {
            Add(loads,
                {Category(s.qttype[k]),
                 s.qtdir[k] == 1,
                 false,
                 false,
                 {s.qtx1[k], std::min<double>(s.qtx2[k], s.l), s.qt1[k], s.qt2[k]},
                 {}},
                maker);
        }
    }
}

void AddPoints(const ProjectState& s, MemberLoads& loads, LineGridMaker& maker)
{
    for (std::size_t k = 1; k <= 8; ++k) {
        if (s.pm[k] != 0 && Counts(s, s.pmchecked[k])) {
            const bool force = s.pmkind[k] == 0;
            const double size = s.pm[k];
            const double x = std::min<double>(s.pmx[k], s.l);
            Add(loads,
                {Category(s.pmtype[k]),
                 s.pmdir[k] == 1,
                 true,
                 false,
                 {},
                 {x, force ? size : 0, force ? 0 : size}},
                maker);
        }
    }
}

// 1 where an axial load of the category acts too.
void MarkAxial(const ProjectState& s, MemberLoads& loads)
{
    for (std::size_t k = 1; k <= 3; ++k) {
        if (s.nload[k] != 0 && Counts(s, s.nchecked[k])) {
            const int category = Category(s.ntype[k]);
            loads.present.g = loads.present.g || category == 0;
            loads.present.q1 = loads.present.q1 || category == 1;
            loads.present.q2 = loads.present.q2 || category == 2;
        }
    }
}

double AxialForce(const ProjectState& s, const LoadFactors& factors)
{
    double n = 0;
    for (std::size_t k = 1; k <= 3; ++k) {
        if (Counts(s, s.nchecked[k])) {
            n += FactorOn(factors, Category(s.ntype[k])) * s.nload[k];
        }
    }
    return n;
}

Plane PlaneOf(const MemberLoads& loads, const LoadFactors& factors, Axis axis,
              const EndFixity& ends)
{
    std::array<LineLoad, kMaxOwnLoads> lines{};
    std::array<PointLoad, kMaxOwnLoads> points{};
    std::size_t line_count = 0;
    std::size_t point_count = 0;
    Plane plane{};
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
    plane.point_loads = point_count > 0;
    plane.line_loads = line_count > 0;
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
    Plane plane{};
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

MemberLoads LoadsOf(const ProjectState& s)
{
    MemberLoads loads{};
    LineGridMaker maker(s.l);
    if (s.loadmode == 1) {
        AddUniform(s, loads, maker);
        AddTrapezoids(s, loads, maker);
        AddPoints(s, loads, maker);
        MarkAxial(s, loads);
    }
    for (int i = 1; i <= s.restraints && i <= static_cast<int>(kMaxHeld); ++i) {
        maker.Add(s.l * static_cast<double>(i) / (s.restraints + 1));
    }
    loads.grid = maker.Grid();
    return loads;
}

EndFixity FixityOf(const ProjectState& s)
{
    const double share = s.spring / 100.0;
    switch (s.supportcase) {
    case 1:
        return {0, 1, false};
    case 2:
        return {1, 1, false};
    case 3:
        return {share, share, false};
    case 4:
        return {1, 0, true};
    case 5:
        return {0, share, false};
    default:
        return {0, 0, false};
    }
}

CombinedLines LinesOf(const ProjectState& s, const MemberLoads& loads, const LoadFactors& factors)
{
    CombinedLines lines{};
    lines.grid = loads.grid;
    if (s.loadmode != 1) {
        lines.n = s.ne;
        lines.y = GivenPlane(loads.grid, s.my1, s.my2, s.vz1, s.vz2);
        lines.z = GivenPlane(loads.grid, s.mz1, s.mz2, s.vy1, s.vy2);
        return lines;
    }
    const EndFixity ends = FixityOf(s);
    lines.n = AxialForce(s, factors);
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
