#include "report/outline_ring.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numbers>

namespace kestrum {

Ring Rounded(const std::vector<Corner>& corners)
{
    constexpr int kArcSteps = 12;
    Ring ring;
    const std::size_t n = corners.size();
    for (std::size_t i = 0; i < n; ++i) {
        const Corner& c = corners[i];
        const Corner& before = corners[(i + n - 1) % n];
        const Corner& after = corners[(i + 1) % n];
        const double ux = before.x - c.x, uy = before.y - c.y, vx = after.x - c.x,
                     vy = after.y - c.y;
        const double u = std::hypot(ux, uy), v = std::hypot(vx, vy);
        const double cosine = u > 0 && v > 0 ? (ux * vx + uy * vy) / (u * v) : 1;
        const double half = std::acos(std::clamp(cosine, -1.0, 1.0)) / 2;
        const double sine = std::sin(half);
        if (!(c.r > 0) || sine < 1e-6 || std::cos(half) < 1e-6) {
            ring.push_back({c.x, c.y});
            continue;
        }
        const double tangent = std::min({c.r / std::tan(half), u, v});
        const double radius = tangent * std::tan(half);
        const Point start{c.x + ux / u * tangent, c.y + uy / u * tangent};
        const Point end{c.x + vx / v * tangent, c.y + vy / v * tangent};
        const double bx = ux / u + vx / v, by = uy / u + vy / v;
        const double reach = radius / sine / std::hypot(bx, by);
        const Point centre{c.x + bx * reach, c.y + by * reach};
        const double a1 = std::atan2(start.y - centre.y, start.x - centre.x);
        double turn = std::atan2(end.y - centre.y, end.x - centre.x) - a1;
        turn = std::remainder(turn, 2 * std::numbers::pi);
        for (int k = 0; k <= kArcSteps; ++k) {
            const double angle = a1 + turn * k / kArcSteps;
            ring.push_back(
                {centre.x + radius * std::cos(angle), centre.y + radius * std::sin(angle)});
        }
    }
    return ring;
}

Ring Rectangle(double left, double top, double right, double bottom, double r)
{
    return Rounded({{left, top, r}, {right, top, r}, {right, bottom, r}, {left, bottom, r}});
}

Ring Circle(double centre, double radius)
{
    constexpr int kSteps = 120;
    Ring ring;
    for (int i = 0; i < kSteps; ++i) {
        const double angle = 2 * std::numbers::pi * i / kSteps;
        ring.push_back({centre + radius * std::cos(angle), centre + radius * std::sin(angle)});
    }
    return ring;
}

double RingArea(const Ring& ring)
{
    double twice = 0;
    for (std::size_t i = 0; i < ring.size(); ++i) {
        const Point a = ring[i], b = ring[(i + 1) % ring.size()];
        twice += a.x * b.y - b.x * a.y;
    }
    return twice / 2;
}

}  // namespace kestrum
