#pragma once

// Area, moments and plastic moduli of a plane figure from its outline, by exact integrals over a
// polygon in which a rounded corner is a chain of short chords. Independent of every formula in the
// program.

#include <cmath>
#include <numbers>
#include <vector>

namespace outline {

struct Point {
    double y, z;
};

// A corner with the radius of the arc that replaces it.
struct Corner {
    double y, z, r = 0;
};

using Polygon = std::vector<Point>;

// The outline with each rounded corner as an arc tangent to both its sides.
inline Polygon Trace(const std::vector<Corner>& corners)
{
    constexpr int kChords = 96;
    Polygon points;
    const std::size_t n = corners.size();
    for (std::size_t i = 0; i < n; ++i) {
        const Corner& p = corners[i];
        const Corner& before = corners[(i + n - 1) % n];
        const Corner& after = corners[(i + 1) % n];
        if (p.r <= 0) {
            points.push_back({p.y, p.z});
            continue;
        }
        const double la = std::hypot(before.y - p.y, before.z - p.z);
        const double lb = std::hypot(after.y - p.y, after.z - p.z);
        const Point a{(before.y - p.y) / la, (before.z - p.z) / la};
        const Point b{(after.y - p.y) / lb, (after.z - p.z) / lb};
        const double half = std::acos(a.y * b.y + a.z * b.z) / 2;  // half the corner's angle
        const double tangent = p.r / std::tan(half);
        const double length = std::hypot(a.y + b.y, a.z + b.z);
        const double reach = p.r / std::sin(half) / length;
        const Point centre{p.y + (a.y + b.y) * reach, p.z + (a.z + b.z) * reach};
        const Point from{p.y + a.y * tangent - centre.y, p.z + a.z * tangent - centre.z};
        const double sweep = std::numbers::pi - 2 * half;
        const double sign = a.y * b.z - a.z * b.y > 0 ? -1 : 1;
        for (int k = 0; k <= kChords; ++k) {
            const double turn = sign * sweep * k / kChords;
            points.push_back({centre.y + from.y * std::cos(turn) - from.z * std::sin(turn),
                              centre.z + from.y * std::sin(turn) + from.z * std::cos(turn)});
        }
    }
    return points;
}

// Integrals over the figure about the origin: area, first and second moments.
struct Moments {
    double a = 0, sy = 0, sz = 0;    // sy = int z dA, sz = int y dA
    double iy = 0, iz = 0, iyz = 0;  // iy = int z^2 dA, iz = int y^2 dA
};

inline Moments Integrate(const Polygon& points)
{
    Moments m;
    const std::size_t n = points.size();
    for (std::size_t i = 0; i < n; ++i) {
        const Point& p = points[i];
        const Point& q = points[(i + 1) % n];
        const double cross = p.y * q.z - q.y * p.z;
        m.a += cross / 2;
        m.sy += cross * (p.z + q.z) / 6;
        m.sz += cross * (p.y + q.y) / 6;
        m.iy += cross * (p.z * p.z + p.z * q.z + q.z * q.z) / 12;
        m.iz += cross * (p.y * p.y + p.y * q.y + q.y * q.y) / 12;
        m.iyz += cross * (p.y * q.z + 2 * p.y * p.z + 2 * q.y * q.z + q.y * p.z) / 24;
    }
    const double sign = m.a < 0 ? -1 : 1;
    return {sign * m.a, sign * m.sy, sign * m.sz, sign * m.iy, sign * m.iz, sign * m.iyz};
}

// The part of the polygon on the far side of the line c . p = level, c = (cy, cz).
inline Polygon Beyond(const Polygon& points, double cy, double cz, double level)
{
    Polygon part;
    const std::size_t n = points.size();
    for (std::size_t i = 0; i < n; ++i) {
        const Point& p = points[i];
        const Point& q = points[(i + 1) % n];
        const double dp = cy * p.y + cz * p.z - level;
        const double dq = cy * q.y + cz * q.z - level;
        if (dp >= 0) {
            part.push_back(p);
        }
        if ((dp < 0) != (dq < 0)) {
            const double t = dp / (dp - dq);
            part.push_back({p.y + t * (q.y - p.y), p.z + t * (q.z - p.z)});
        }
    }
    return part;
}

struct Properties {
    double a;
    double ey, ez;  // centroid above z = 0, from y = 0
    double iy, iz, iyz;
    double wply, wplz;
};

// Properties about the centroid of an outline less its holes.
inline Properties Of(const Polygon& outer, const Polygon& hole = {})
{
    const auto net = [&](const Polygon& o, const Polygon& h) {
        Moments m = Integrate(o);
        const Moments n = Integrate(h);
        m.a -= n.a;
        m.sy -= n.sy;
        m.sz -= n.sz;
        m.iy -= n.iy;
        m.iz -= n.iz;
        m.iyz -= n.iyz;
        return m;
    };
    const Moments m = net(outer, hole);
    Properties p{};
    p.a = m.a;
    p.ey = m.sy / m.a;
    p.ez = m.sz / m.a;
    p.iy = m.iy - m.a * p.ey * p.ey;
    p.iz = m.iz - m.a * p.ez * p.ez;
    p.iyz = m.iyz - m.a * p.ey * p.ez;
    // Plastic modulus: the line that halves the area, and the static moments of the halves about
    // it.
    const auto plastic = [&](double cy, double cz) {
        double low = -1e4, high = 1e4;
        for (int i = 0; i < 60; ++i) {
            const double level = (low + high) / 2;
            const double beyond = net(Beyond(outer, cy, cz, level), Beyond(hole, cy, cz, level)).a;
            (beyond > m.a / 2 ? low : high) = level;
        }
        const Moments top = net(Beyond(outer, cy, cz, low), Beyond(hole, cy, cz, low));
        const double all = cy * m.sz + cz * m.sy;
        const double upper = cy * top.sz + cz * top.sy;
        return (upper - low * top.a) + (low * (m.a - top.a) - (all - upper));
    };
    p.wply = plastic(0, 1);
    p.wplz = plastic(1, 0);
    return p;
}

}  // namespace outline
