#pragma once

// Torsion constants of a plane figure from its outline alone: the St Venant constant by Prandtl's
// stress function, the warping constant of a channel by its middle line. Independent of every
// formula in the program.

#include "support/outline.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

namespace outline {

// It = 2 int phi dA with the Laplacian of phi equal to -2 inside and phi = 0 on the outline, by
// differences on a square grid whose arms end at the outline (Shortley and Weller), relaxed.
class StressFunction {
public:
    StressFunction(const Polygon& points, double step) : step_(step)
    {
        const auto [ymin, ymax] = std::minmax_element(points.begin(), points.end(),
                                                      [](Point a, Point b) { return a.y < b.y; });
        const auto [zmin, zmax] = std::minmax_element(points.begin(), points.end(),
                                                      [](Point a, Point b) { return a.z < b.z; });
        y0_ = ymin->y - step / 2;
        z0_ = zmin->z - step / 2;
        columns_ = static_cast<std::size_t>((ymax->y - y0_) / step) + 2;
        rows_ = static_cast<std::size_t>((zmax->z - z0_) / step) + 2;
        nodes_.resize(columns_ * rows_);
        for (std::size_t j = 0; j < rows_; ++j) {
            SetArms(Crossings(points, z0_ + step * static_cast<double>(j), true), j, true);
        }
        for (std::size_t i = 0; i < columns_; ++i) {
            SetArms(Crossings(points, y0_ + step * static_cast<double>(i), false), i, false);
        }
        for (std::size_t k = 0; k < nodes_.size(); ++k) {
            const Node& n = nodes_[k];
            if (std::min({n.left, n.right, n.down, n.up}) > 1e-6 * step) {
                inside_.push_back(k);
            }
        }
    }

    double TorsionConstant()
    {
        constexpr double kOver = 1.65;  // near the best for walls of some ten steps
        double sum = 0, change = 1;
        while (change > 1e-5 * sum) {
            sum = change = 0;
            for (const std::size_t k : inside_) {
                Node& n = nodes_[k];
                const double before = n.phi;
                n.phi += kOver * (Relaxed(n, k) - before);
                sum += n.phi;
                change += std::abs(n.phi - before);
            }
        }
        return 2 * sum * step_ * step_;
    }

private:
    struct Node {
        double left = 0, right = 0, down = 0, up = 0;  // arms, none outside and on the outline
        double phi = 0;
    };

    // Where the outline crosses the line z = level (or y = level), sorted.
    static std::vector<double> Crossings(const Polygon& points, double level, bool along_y)
    {
        std::vector<double> at;
        for (std::size_t i = 0; i < points.size(); ++i) {
            const Point p = points[i], q = points[(i + 1) % points.size()];
            const double a = (along_y ? p.z : p.y) - level, b = (along_y ? q.z : q.y) - level;
            if ((a < 0) != (b < 0)) {
                const double t = a / (a - b);
                at.push_back(along_y ? p.y + t * (q.y - p.y) : p.z + t * (q.z - p.z));
            }
        }
        std::sort(at.begin(), at.end());
        return at;
    }

    void SetArms(const std::vector<double>& crossings, std::size_t line, bool along_y)
    {
        const double origin = along_y ? y0_ : z0_;
        const std::size_t count = along_y ? columns_ : rows_;
        for (std::size_t part = 0; part + 1 < crossings.size(); part += 2) {
            for (std::size_t i = 0; i < count; ++i) {
                const double x = origin + step_ * static_cast<double>(i);
                if (x <= crossings[part] || x >= crossings[part + 1]) {
                    continue;
                }
                Node& n = nodes_[along_y ? line * columns_ + i : i * columns_ + line];
                (along_y ? n.left : n.down) = std::min(step_, x - crossings[part]);
                (along_y ? n.right : n.up) = std::min(step_, crossings[part + 1] - x);
            }
        }
    }

    double At(std::size_t k, double arm) const { return arm < step_ ? 0 : nodes_[k].phi; }

    double Relaxed(const Node& n, std::size_t k) const
    {
        const double across = n.left + n.right, along = n.down + n.up;
        const double sum =
            At(k - 1, n.left) / (n.left * across) + At(k + 1, n.right) / (n.right * across) +
            At(k - columns_, n.down) / (n.down * along) + At(k + columns_, n.up) / (n.up * along);
        return (sum + 1) / (1 / (n.left * n.right) + 1 / (n.down * n.up));
    }

    double step_, y0_ = 0, z0_ = 0;
    std::size_t columns_ = 0, rows_ = 0;
    std::vector<Node> nodes_;
    std::vector<std::size_t> inside_;
};

inline double TorsionConstant(const Polygon& points, double step)
{
    return StressFunction(points, step).TorsionConstant();
}

// A piece of a middle line with its thickness.
struct Strip {
    Point from, to;
    double t;
};

// int omega^2 t ds about the shear centre, of an open line that is symmetric about an axis of y.
inline double WarpingConstant(const std::vector<Strip>& line)
{
    double area = 0, sy = 0, sz = 0;
    const auto size = [](const Strip& s) {
        return s.t * std::hypot(s.to.y - s.from.y, s.to.z - s.from.z);
    };
    for (const Strip& s : line) {
        area += size(s);
        sy += size(s) * (s.from.z + s.to.z) / 2;
        sz += size(s) * (s.from.y + s.to.y) / 2;
    }
    const double yc = sz / area, zc = sy / area;
    std::vector<double> omega;
    double end = 0, mean = 0;
    for (const Strip& s : line) {
        const double part =
            (s.from.y - yc) * (s.to.z - s.from.z) - (s.from.z - zc) * (s.to.y - s.from.y);
        omega.push_back(end + part / 2);
        end += part;
        mean += omega.back() * size(s) / area;
    }
    double iy = 0, iwy = 0, square = 0;
    for (std::size_t i = 0; i < line.size(); ++i) {
        const double z = (line[i].from.z + line[i].to.z) / 2 - zc;
        const double w = omega[i] - mean;
        iy += z * z * size(line[i]);
        iwy += w * z * size(line[i]);
        square += w * w * size(line[i]);
    }
    return square - iwy * iwy / iy;
}

}  // namespace outline
