#include "standard/lateral_line.h"

#include "standard/units.h"

#include <algorithm>

namespace kestrum::standard {

LateralLine::LateralLine(const CombinedLines& lines, double x0, double x1, double stretch)
    : x0_(x0), k_(stretch)
{
    for (std::size_t i = 0; i < lines.grid.pieces; ++i) {
        const double from = std::max(x0, lines.grid.x[i]);
        const double to = std::min(x1, lines.grid.x[i + 1]);
        if (to - from > kSamePlace) {
            Add(lines, i, from, to);
        }
    }
    length_ = (x1 - x0) * k_ * kMm;
}

void LateralLine::AddLevels(const MemberLoads& loads, const LoadFactors& factors, double level,
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
                points_[point_count_++] = {At(load.at.x), factor * load.at.force * kMm * zg / k_};
            }
        } else {
            AddLine(load.line, factor * zg / (k_ * k_));
        }
    }
    std::sort(points_.begin(), points_.begin() + static_cast<std::ptrdiff_t>(point_count_),
              [](const PointTorque& a, const PointTorque& b) { return a.x < b.x; });
}

double LateralLine::At(double x) const
{
    return (x - x0_) * k_ * kMm;
}

void LateralLine::Add(const CombinedLines& lines, std::size_t i, double from, double to)
{
    const auto& m = lines.y.m.m[i];
    const double d = from - lines.grid.x[i];
    const double m0 = m[0] + d * (m[1] + d * (m[2] + d * m[3]));
    const double m1 = m[1] + d * (2 * m[2] + 3 * d * m[3]);
    const double m2 = m[2] + 3 * d * m[3];
    pieces_[count_++] = {At(from),
                         At(to),
                         {m0 * kNmm, m1 * kMm / k_, m2 / (k_ * k_), m[3] / kMm / (k_ * k_ * k_)},
                         0,
                         0};
}

void LateralLine::AddLine(const LineLoad& load, double times)
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

}  // namespace kestrum::standard
