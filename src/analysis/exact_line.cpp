#include "analysis/exact_line.h"

#include <algorithm>
#include <cmath>

namespace kestrum {

namespace {

constexpr double kSamePlace = 1e-9;  // m

// M and its derivative with respect to s.
double Cubic(const std::array<double, 4>& m, double s)
{
    return m[0] + s * (m[1] + s * (m[2] + s * m[3]));
}

double CubicSlope(const std::array<double, 4>& m, double s)
{
    return m[1] + s * (2 * m[2] + s * 3 * m[3]);
}

// Adds c (x - x0)^power, written about the start of piece i.
void AddPower(std::array<double, 4>& m, double from, double x0, double c, int power)
{
    const double d = from - x0;
    switch (power) {
    case 0:
        m[0] += c;
        break;
    case 1:
        m[0] += c * d;
        m[1] += c;
        break;
    case 2:
        m[0] += c * d * d;
        m[1] += 2 * c * d;
        m[2] += c;
        break;
    default:
        m[0] += c * d * d * d;
        m[1] += 3 * c * d * d;
        m[2] += 3 * c * d;
        m[3] += c;
        break;
    }
}

// Macaulay's bracket <x - x0>^power on every piece behind x0.
void AddBracket(const LineGrid& grid, MomentPolynomials& line, double x0, double c, int power)
{
    for (std::size_t i = 0; i < grid.pieces; ++i) {
        if (grid.x[i] > x0 - kSamePlace) {
            AddPower(line.m[i], grid.x[i], x0, c, power);
        }
    }
}

// Integral of M (1 - x/L) or of M x/L.
double Weighted(const LineGrid& grid, const MomentPolynomials& line, bool to_end)
{
    const double length = grid.Length();
    double sum = 0;
    for (std::size_t i = 0; i < grid.pieces; ++i) {
        const double h = grid.x[i + 1] - grid.x[i];
        const double at = to_end ? grid.x[i] / length : 1 - grid.x[i] / length;
        const double slope = (to_end ? 1 : -1) / length;
        double power = h;
        for (std::size_t k = 0; k < 4; ++k) {
            const auto n = static_cast<double>(k);
            sum += line.m[i][k] * power * (at / (n + 1) + slope * h / (n + 2));
            power *= h;
        }
    }
    return sum;
}

}  // namespace

LineGridMaker::LineGridMaker(double length)
{
    grid_.x[0] = 0;
    grid_.x[1] = length;
    grid_.pieces = 1;
}

void LineGridMaker::Add(double x)
{
    const auto begin = grid_.x.begin();
    const auto end = begin + static_cast<std::ptrdiff_t>(grid_.pieces) + 1;
    const auto at = std::lower_bound(begin, end, x - kSamePlace);
    if (at == end || std::abs(*at - x) <= kSamePlace || x <= 0) {
        return;
    }
    if (grid_.pieces == kMaxLinePieces) {
        complete_ = false;
        return;
    }
    std::copy_backward(at, end, end + 1);
    *at = x;
    ++grid_.pieces;
}

MomentPolynomials MomentsOf(const LineGrid& grid, std::span<const LineLoad> lines,
                            std::span<const PointLoad> points, const EndFixity& ends)
{
    MomentPolynomials line;
    std::fill_n(line.m.begin(), grid.pieces, std::array<double, 4>{});
    const double length = grid.Length();
    double force = 0;   // of all loads
    double moment = 0;  // of all loads about x = L, sagging at L
    for (const LineLoad& load : lines) {
        const double span = load.x2 - load.x1;
        if (!(span > kSamePlace)) {
            continue;
        }
        const double slope = (load.q2 - load.q1) / span;
        // q1 from x1 on, its slope, and both taken off again behind x2.
        AddBracket(grid, line, load.x1, -load.q1 / 2, 2);
        AddBracket(grid, line, load.x1, -slope / 6, 3);
        AddBracket(grid, line, load.x2, load.q2 / 2, 2);
        AddBracket(grid, line, load.x2, slope / 6, 3);
        const double whole = (load.q1 + load.q2) / 2 * span;
        const double from1 = (load.q1 + 2 * load.q2) / 6 * span * span;  // about x1
        force += whole;
        moment += whole * (length - load.x1) - from1;
    }
    for (const PointLoad& load : points) {
        AddBracket(grid, line, load.x, -load.force, 1);
        AddBracket(grid, line, load.x, load.moment, 0);
        force += load.force;
        moment += load.force * (length - load.x) - load.moment;
    }
    if (ends.cantilever) {
        AddBracket(grid, line, 0, -force * length + moment, 0);  // nothing is left at the tip
        AddBracket(grid, line, 0, force, 1);
        return line;
    }
    AddBracket(grid, line, 0, moment / length, 1);  // reaction of the pinned member

    // Moments that hold the ends, from the rotations of the pinned member.
    const double at_start = Weighted(grid, line, false);
    const double at_end = Weighted(grid, line, true);
    double x1 = 0;
    double x2 = 0;
    if (ends.start > 0 && ends.end > 0) {
        x1 = -(4 * at_start - 2 * at_end) / length;
        x2 = -(4 * at_end - 2 * at_start) / length;
    } else if (ends.start > 0) {
        x1 = -3 * at_start / length;
    } else if (ends.end > 0) {
        x2 = -3 * at_end / length;
    }
    x1 *= ends.start;
    x2 *= ends.end;
    AddBracket(grid, line, 0, x1, 0);
    AddBracket(grid, line, 0, (x2 - x1) / length, 1);
    return line;
}

double MomentAt(const LineGrid& grid, const MomentPolynomials& line, std::size_t piece, double x)
{
    return Cubic(line.m[piece], x - grid.x[piece]);
}

double ShearAt(const LineGrid& grid, const MomentPolynomials& line, std::size_t piece, double x)
{
    return CubicSlope(line.m[piece], x - grid.x[piece]);
}

std::size_t PieceAt(const LineGrid& grid, double x)
{
    std::size_t piece = 0;
    while (piece + 1 < grid.pieces && grid.x[piece + 1] < x) {
        ++piece;
    }
    return piece;
}

namespace {

void Take(LineExtremes& extremes, double value, double x, std::size_t piece)
{
    if (value > extremes.most.value) {
        extremes.most = {value, x, piece};
    }
    if (value < extremes.least.value) {
        extremes.least = {value, x, piece};
    }
}

// Real roots of c + b s + a s^2 = 0.
std::array<double, 2> Roots(double a, double b, double c)
{
    constexpr double kNone = -1;  // before every piece
    if (a == 0) {
        return {b != 0 ? -c / b : kNone, kNone};
    }
    const double square = b * b - 4 * a * c;
    if (square < 0) {
        return {kNone, kNone};
    }
    const double q = -0.5 * (b + std::copysign(std::sqrt(square), b));
    return {q / a, q != 0 ? c / q : kNone};
}

}  // namespace

LineExtremes ExtremesOfMoment(const LineGrid& grid, const MomentPolynomials& line)
{
    LineExtremes extremes;
    for (std::size_t i = 0; i < grid.pieces; ++i) {
        const double h = grid.x[i + 1] - grid.x[i];
        const auto& m = line.m[i];
        Take(extremes, m[0], grid.x[i], i);
        Take(extremes, Cubic(m, h), grid.x[i + 1], i);
        for (const double s : Roots(3 * m[3], 2 * m[2], m[1])) {
            if (s > 0 && s < h) {
                Take(extremes, Cubic(m, s), grid.x[i] + s, i);
            }
        }
    }
    return extremes;
}

LineExtremes ExtremesOfShear(const LineGrid& grid, const MomentPolynomials& line)
{
    LineExtremes extremes;
    for (std::size_t i = 0; i < grid.pieces; ++i) {
        const double h = grid.x[i + 1] - grid.x[i];
        const auto& m = line.m[i];
        Take(extremes, m[1], grid.x[i], i);
        Take(extremes, CubicSlope(m, h), grid.x[i + 1], i);
        const double s = m[3] != 0 ? -m[2] / (3 * m[3]) : -1;
        if (s > 0 && s < h) {
            Take(extremes, CubicSlope(m, s), grid.x[i] + s, i);
        }
    }
    return extremes;
}

DeflectionLine::DeflectionLine(const LineGrid& grid, const MomentPolynomials& line, bool cantilever,
                               double e, double inertia)
    : grid_(grid)
{
    const double scale = -1e12 / (e * inertia);  // kNm, m and mm4 to mm
    double d = 0;
    double slope = 0;
    for (std::size_t i = 0; i < grid.pieces; ++i) {
        const auto& m = line.m[i];
        d_[i] = {
            d, slope, scale * m[0] / 2, scale * m[1] / 6, scale * m[2] / 12, scale * m[3] / 20};
        const double h = grid.x[i + 1] - grid.x[i];
        d = 0;
        for (std::size_t k = 6; k-- > 0;) {
            d = d * h + d_[i][k];
        }
        slope = SlopeAt(i, h);
    }
    if (cantilever) {
        return;
    }
    const double turn = -d / grid.Length();  // no deflection at the other end
    for (std::size_t i = 0; i < grid.pieces; ++i) {
        d_[i][0] += turn * grid.x[i];
        d_[i][1] += turn;
    }
}

double DeflectionLine::SlopeAt(std::size_t piece, double s) const
{
    double slope = 0;
    for (std::size_t k = 6; k-- > 1;) {
        slope = slope * s + static_cast<double>(k) * d_[piece][k];
    }
    return slope;
}

double DeflectionLine::At(std::size_t piece, double x) const
{
    const double s = x - grid_.x[piece];
    double d = 0;
    for (std::size_t k = 6; k-- > 0;) {
        d = d * s + d_[piece][k];
    }
    return d;
}

LineExtreme DeflectionLine::Largest() const
{
    constexpr int kSteps = 8;  // of a piece: the slope changes its sign less often
    LineExtreme largest;
    const auto take = [&](std::size_t piece, double s) {
        const double d = At(piece, grid_.x[piece] + s);
        if (std::abs(d) > std::abs(largest.value)) {
            largest = {d, grid_.x[piece] + s, piece};
        }
    };
    for (std::size_t i = 0; i < grid_.pieces; ++i) {
        const double h = grid_.x[i + 1] - grid_.x[i];
        take(i, 0);
        take(i, h);
        for (int step = 0; step < kSteps; ++step) {
            double lo = h * step / kSteps;
            double hi = h * (step + 1) / kSteps;
            double at_lo = SlopeAt(i, lo);
            if (at_lo * SlopeAt(i, hi) > 0) {
                continue;
            }
            for (int halving = 0; halving < 50; ++halving) {
                const double middle = 0.5 * (lo + hi);
                const double at_middle = SlopeAt(i, middle);
                if (at_lo * at_middle > 0) {
                    lo = middle;
                    at_lo = at_middle;
                } else {
                    hi = middle;
                }
            }
            take(i, 0.5 * (lo + hi));
        }
    }
    return largest;
}

}  // namespace kestrum
