#include "clauses/lateral_problem.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

namespace kestrum {

namespace {

// Cubic shapes of an element of length h at the share t of it.
constexpr ShapeAt Hermite(double t, double h)
{
    const double u = 1 - t;
    return {{u * u * (1 + 2 * t), h * t * u * u, t * t * (3 - 2 * t), -h * t * t * u},
            {-6 * t * u / h, u * (1 - 3 * t), 6 * t * u / h, t * (3 * t - 2)},
            {(12 * t - 6) / (h * h), (6 * t - 4) / h, (6 - 12 * t) / (h * h), (6 * t - 2) / h}};
}

// Without warping each element has slopes of its own, since phi' may jump; the unknowns of an
// element follow each other in both cases: twist, slope, twist, slope or twist, slope, slope,
// twist.
constexpr ShapeAt Ordered(ShapeAt n, bool warps)
{
    if (!warps) {
        std::swap(n.value[2], n.value[3]);
        std::swap(n.slope[2], n.slope[3]);
        std::swap(n.bend[2], n.bend[3]);
    }
    return n;
}

// Lower triangle of an element, row by row.
constexpr std::size_t kPairs = 10;
using Pairs = std::array<double, kPairs>;

// Products of the shapes of an element of length 1, weighted, at its Gauss points, and their
// integrals. They are those of length h but for powers of h: of each unknown, which Length() tells,
// and of the derivatives.
struct UnitElement {
    std::array<Pairs, kGaussPoints> values{}, slopes{};
    Pairs whole_slopes{}, whole_bends{};
    std::array<bool, 4> slope{};  // unknowns that are slopes

    explicit constexpr UnitElement(bool warps) : slope{false, true, !warps, warps}
    {
        for (std::size_t p = 0; p < kGaussPoints; ++p) {
            const ShapeAt n = Ordered(Hermite(kGaussPlace[p], 1), warps);
            const double weight = kGaussWeight[p];
            for (std::size_t i = 0, pair = 0; i < 4; ++i) {
                for (std::size_t j = 0; j <= i; ++j, ++pair) {
                    values[p][pair] = weight * n.value[i] * n.value[j];
                    slopes[p][pair] = weight * n.slope[i] * n.slope[j];
                    whole_slopes[pair] += slopes[p][pair];
                    whole_bends[pair] += weight * n.bend[i] * n.bend[j];
                }
            }
        }
    }
    double Length(std::size_t unknown, double h) const { return slope[unknown] ? h : 1; }
};

constexpr UnitElement kWarping(true), kNoWarping(false);

// A pivot of exactly 0 would stop the elimination; a tiny one counts the same.
double Pivot(double value)
{
    return value == 0 ? 1e-300 : value;
}

// Collects the logarithm of a product; a few factors at a time stay far from overflow.
class LogProduct {
public:
    void Add(double factor)
    {
        product_ *= std::abs(factor);
        if (!(product_ > 1e-100 && product_ < 1e100)) {
            sum_ += std::log(product_);
            product_ = 1;
        }
    }
    double Value() const { return sum_ + std::log(product_); }

private:
    double product_ = 1, sum_ = 0;
};

}  // namespace

ShapeAt ShapesOf(bool warps, double t, double h)
{
    return Ordered(Hermite(t, h), warps);
}

LateralProblem::LateralProblem(const LateralSection& section, const LateralSupports& supports,
                               const MomentLine& line)
    : section_(section), line_(line), length_(line.length), warps_(section.eiw > 0),
      start_(supports.start), end_(supports.end), segments_(supports.held.size() + 1)
{
    warping_ = section.eiw / (section.git * length_ * length_);
    per_moment_ = length_ / std::sqrt(section.eiz * section.git);
    mesh_ = MeshOf(supports, line, std::sqrt(warping_));
    dofs_ = (warps_ ? 2 : 3) * (mesh_.elements + 1);
    PlaceRedundants(supports);
    Assemble();
    Hold(supports);
}

Action LateralProblem::ActionAt(const MomentPiece& piece, double x) const
{
    const double s = x * length_ - piece.x0;
    const double m = piece.m[0] + s * (piece.m[1] + s * (piece.m[2] + s * piece.m[3]));
    const double share = piece.x1 > piece.x0 ? s / (piece.x1 - piece.x0) : 0;
    const double qz = piece.qz0 + share * (piece.qz1 - piece.qz0);
    return {m * per_moment_, 2 * m * section_.zj / section_.git,
            qz * length_ * length_ / section_.git};
}

// A line of bending about the weak axis that the redundant reactions can make is straight between
// the places that hold v, and ends at 0 where the member is pinned there or nothing holds it
// beyond.
void LateralProblem::PlaceRedundants(const LateralSupports& supports)
{
    std::size_t count = 0;
    const auto add = [&](double x) { support_[++count] = x; };
    add(0);
    for (const double x : supports.held) {
        add(x / length_);
    }
    if (supports.end != LateralEnd::free) {
        add(1);
    }
    const bool first = supports.start == LateralEnd::clamped;
    const bool last = supports.end == LateralEnd::clamped;
    first_support_ = first ? 1 : 2;
    const std::size_t behind = last ? count : count - 1;
    redundants_ = behind >= first_support_ ? behind - first_support_ + 1 : 0;
    support_[0] = support_[1] - 1;
    support_[count + 1] = support_[count] + 1;
}

double LateralProblem::Redundant(std::size_t i, double x) const
{
    const std::size_t at = first_support_ + i;
    const double left = support_[at - 1];
    const double middle = support_[at];
    const double right = support_[at + 1];
    if (x <= left || x >= right) {
        return 0;
    }
    return x < middle ? (x - left) / (middle - left) : (right - x) / (right - middle);
}

void LateralProblem::Assemble()
{
    for (std::size_t i = 0; i < dofs_; ++i) {
        k0_[i].fill(0);
        k1_[i].fill(0);
        k2_[i].fill(0);
        for (std::size_t j = 0; j < redundants_; ++j) {
            h_[j][i] = 0;
        }
    }
    std::size_t piece = 0;
    for (std::size_t e = 0; e < mesh_.elements; ++e) {
        AddElement(e, piece);
    }
    AddPoints();
}

void LateralProblem::AddElement(std::size_t element, std::size_t& piece)
{
    const double from = mesh_.x[element];
    const double h = mesh_.x[element + 1] - from;
    const UnitElement& unit = warps_ ? kWarping : kNoWarping;
    Pairs linear{}, square{};  // in alpha
    for (std::size_t p = 0; p < kGaussPoints; ++p) {
        const double x = from + kGaussPlace[p] * h;
        while (piece + 1 < line_.pieces.size() && line_.pieces[piece].x1 < x * length_) {
            ++piece;
        }
        const Action a = ActionAt(line_.pieces[piece], x);
        largest_mu_ = std::max(largest_mu_, std::abs(a.mu));
        const double of_slopes = a.mzj / h, of_values = a.qz * h, of_moment = a.mu * a.mu * h;
        for (std::size_t pair = 0; pair < kPairs; ++pair) {
            linear[pair] += of_slopes * unit.slopes[p][pair] - of_values * unit.values[p][pair];
            square[pair] += of_moment * unit.values[p][pair];
        }
        AddRedundants(element, p, a.mu);
    }
    const std::size_t dof = FirstOf(element);
    for (std::size_t i = 0, pair = 0; i < 4; ++i) {
        for (std::size_t j = 0; j <= i; ++j, ++pair) {
            const double lengths = unit.Length(i, h) * unit.Length(j, h);
            k0_[dof + i][i - j] += lengths * (warping_ / (h * h * h) * unit.whole_bends[pair] +
                                              unit.whole_slopes[pair] / h);
            k1_[dof + i][i - j] += lengths * linear[pair];
            k2_[dof + i][i - j] += lengths * square[pair];
        }
    }
}

// What a Gauss point of an element adds to H and C.
void LateralProblem::AddRedundants(std::size_t element, std::size_t point, double mu)
{
    if (redundants_ == 0) {
        return;
    }
    const double h = mesh_.x[element + 1] - mesh_.x[element];
    const double x = mesh_.x[element] + kGaussPlace[point] * h;
    const double weight = kGaussWeight[point] * h;
    const Shape value = ShapesOf(warps_, kGaussPlace[point], h).value;
    for (std::size_t r = 0; r < redundants_; ++r) {
        const double line = Redundant(r, x);
        for (std::size_t i = 0; i < 4; ++i) {
            h_[r][FirstOf(element) + i] += mu * line * value[i] * weight;
        }
        for (std::size_t q = 0; q < redundants_; ++q) {
            c_[r][q] += line * Redundant(q, x) * weight;
        }
    }
}

std::size_t LateralProblem::NodeAt(double x) const
{
    const auto* const begin = mesh_.x.data();
    const auto* const end = begin + mesh_.elements + 1;
    const auto node = static_cast<std::size_t>(std::lower_bound(begin, end, x - 1e-9) - begin);
    return std::min(node, mesh_.elements);
}

void LateralProblem::AddPoints()
{
    for (const PointTorque& point : line_.points) {
        k1_[Twist(NodeAt(point.x / length_))][0] -= point.pz * length_ / section_.git;
    }
}

void LateralProblem::HoldOne(std::size_t dof)
{
    for (TwistBand* k : {&k0_, &k1_, &k2_}) {
        (*k)[dof].fill(0);
        for (std::size_t i = 1; i <= kHalfBand && dof + i < dofs_; ++i) {
            (*k)[dof + i][i] = 0;
        }
    }
    k0_[dof][0] = 1;
    for (std::size_t r = 0; r < redundants_; ++r) {
        h_[r][dof] = 0;
    }
}

void LateralProblem::Hold(const LateralSupports& supports)
{
    const std::size_t last = mesh_.elements;
    HoldOne(Twist(0));
    if (end_ != LateralEnd::free) {
        HoldOne(Twist(last));
    }
    if (warps_) {
        if (start_ == LateralEnd::clamped) {
            HoldOne(Twist(0) + 1);
        }
        if (end_ == LateralEnd::clamped) {
            HoldOne(Twist(last) + 1);
        }
    } else {  // slopes beyond the ends belong to no element
        HoldOne(0);
        HoldOne(3 * last + 2);
    }
    std::size_t node = 0;
    for (const double x : supports.held) {
        while (node < last && mesh_.x[node] < x / length_ - 1e-9) {
            ++node;
        }
        HoldOne(Twist(node));
    }
    for (std::size_t r = 0; r < redundants_; ++r) {
        while (first_row_[r] < dofs_ && h_[r][first_row_[r]] == 0) {
            ++first_row_[r];
        }
    }
}

// Near the factor of a uniform moment as large as the largest, between two restraints.
double LateralProblem::FirstGuess() const
{
    const auto segments = static_cast<double>(segments_);
    const double pi = std::numbers::pi * segments;
    return pi * std::sqrt(1 + pi * pi * warping_) / largest_mu_;
}

// x becomes L^-1 x; rows before `from` are empty.
void LateralProblem::Forward(TwistVector& x, std::size_t from) const
{
    for (std::size_t i = from; i < dofs_; ++i) {
        double value = x[i];
        for (std::size_t j = 1; j <= std::min(kHalfBand, i - from); ++j) {
            value -= factor_[i][j] * x[i - j];
        }
        x[i] = value;
    }
}

// C + alpha^2 H^T A^-1 H, the small matrix of the border, decomposed in place.
void LateralProblem::Border(double alpha)
{
    for (std::size_t r = 0; r < redundants_; ++r) {
        TwistVector& y = forward_[r];
        std::copy_n(h_[r].begin(), dofs_, y.begin());
        Forward(y, first_row_[r]);
        for (std::size_t q = 0; q <= r; ++q) {
            double sum = 0;
            for (std::size_t i = first_row_[r]; i < dofs_; ++i) {
                sum += forward_[q][i] * y[i] * inverse_[i];
            }
            small_[r][q] = c_[r][q] + alpha * alpha * sum;
        }
    }
    for (std::size_t r = 0; r < redundants_; ++r) {  // L D L^T
        for (std::size_t q = 0; q < r; ++q) {
            for (std::size_t k = 0; k < q; ++k) {
                small_[r][q] -= small_[r][k] * small_[q][k] * small_[k][k];
            }
            small_[r][q] /= small_[q][q];
        }
        for (std::size_t k = 0; k < r; ++k) {
            small_[r][r] -= small_[r][k] * small_[r][k] * small_[k][k];
        }
    }
}

LateralProblem::Count LateralProblem::At(double alpha)
{
    Count count{0, 1, 0};
    LogProduct determinant;
    for (std::size_t i = 0; i < dofs_; ++i) {
        auto& row = factor_[i];
        const std::size_t width = std::min(kHalfBand, i);
        for (std::size_t j = 0; j <= kHalfBand; ++j) {
            row[j] = k0_[i][j] + alpha * (k1_[i][j] - alpha * k2_[i][j]);
        }
        for (std::size_t j = width; j > 0; --j) {  // column i - j
            for (std::size_t k = j + 1; k <= width; ++k) {
                row[j] -= row[k] * factor_[i - j][k - j];
            }
        }
        for (std::size_t j = width; j > 0; --j) {
            const double scaled = row[j] * inverse_[i - j];
            row[0] -= scaled * row[j];
            row[j] = scaled;
        }
        row[0] = Pivot(row[0]);
        inverse_[i] = 1 / row[0];
        count.negative += row[0] < 0 ? 1 : 0;
        determinant.Add(row[0]);
    }
    Border(alpha);
    // The bordered matrix has as many negative pivots by either order of elimination, so those of
    // the border are subtracted.
    for (std::size_t r = 0; r < redundants_; ++r) {
        small_[r][r] = Pivot(small_[r][r]);
        count.negative -= small_[r][r] < 0 ? 1 : 0;
        determinant.Add(small_[r][r]);
    }
    count.log = determinant.Value();
    count.sign = count.negative % 2 == 0 ? 1 : -1;
    return count;
}

// S^-1 x by the factors of the last count: S = A + alpha^2 H C^-1 H^T.
void LateralProblem::Solve(double alpha, TwistVector& x) const
{
    Forward(x, 0);
    std::array<double, kMaxRedundant> t{};
    for (std::size_t r = 0; r < redundants_; ++r) {
        for (std::size_t i = first_row_[r]; i < dofs_; ++i) {
            t[r] += forward_[r][i] * x[i] * inverse_[i];
        }
        for (std::size_t k = 0; k < r; ++k) {
            t[r] -= small_[r][k] * t[k];
        }
    }
    for (std::size_t r = 0; r < redundants_; ++r) {
        t[r] /= small_[r][r];
    }
    for (std::size_t r = redundants_; r-- > 0;) {
        for (std::size_t k = r + 1; k < redundants_; ++k) {
            t[r] -= small_[k][r] * t[k];
        }
    }
    for (std::size_t r = 0; r < redundants_; ++r) {
        for (std::size_t i = first_row_[r]; i < dofs_; ++i) {
            x[i] -= alpha * alpha * t[r] * forward_[r][i];
        }
    }
    for (std::size_t i = dofs_; i-- > 0;) {
        x[i] *= inverse_[i];
        for (std::size_t j = 1; j <= kHalfBand && i + j < dofs_; ++j) {
            x[i] -= factor_[i + j][j] * x[i + j];
        }
    }
}

}  // namespace kestrum
