#include "standard/solved_lines.h"

#include <algorithm>
#include <cmath>

namespace kestrum::standard {

namespace {

// Coefficients of a piece as moments in Nmm, in a fixed order.
constexpr std::size_t kTerms = 6;
std::array<double, kTerms> TermsOf(const MomentPiece& piece)
{
    const double h = piece.x1 - piece.x0;
    return {piece.m[0],    piece.m[1] * h, piece.m[2] * h * h, piece.m[3] * h * h * h,
            piece.qz0 * h, piece.qz1 * h};
}

}  // namespace

bool SolvedLines::Entry::Fits(const LateralSection& other, const LateralSupports& supports,
                              const MomentLine& line) const
{
    const auto same_pieces = [](const MomentPiece& a, const MomentPiece& b) {
        return a.x0 == b.x0 && a.x1 == b.x1;
    };
    const auto same_points = [](const PointTorque& a, const PointTorque& b) { return a.x == b.x; };
    return section.eiz == other.eiz && section.eiw == other.eiw && section.git == other.git &&
           section.zj == other.zj && start == supports.start && end == supports.end &&
           length == line.length &&
           std::equal(held.begin(), held.begin() + static_cast<std::ptrdiff_t>(held_count),
                      supports.held.begin(), supports.held.end()) &&
           std::equal(pieces.begin(), pieces.begin() + static_cast<std::ptrdiff_t>(piece_count),
                      line.pieces.begin(), line.pieces.end(), same_pieces) &&
           std::equal(points.begin(), points.begin() + static_cast<std::ptrdiff_t>(point_count),
                      line.points.begin(), line.points.end(), same_points);
}

double SolvedLines::Entry::MultipleOf(const MomentLine& line) const
{
    constexpr double kRounding = 1e-12;
    double largest = 0;
    double multiple = 0;
    const auto lead = [&](double kept, double now) {
        if (std::abs(kept) > largest) {
            largest = std::abs(kept);
            multiple = now / kept;
        }
    };
    for (std::size_t i = 0; i < piece_count; ++i) {
        const auto kept = TermsOf(pieces[i]);
        const auto now = TermsOf(line.pieces[i]);
        for (std::size_t k = 0; k < kTerms; ++k) {
            lead(kept[k], now[k]);
        }
    }
    for (std::size_t i = 0; i < point_count; ++i) {
        lead(points[i].pz, line.points[i].pz);
    }
    if (!(multiple > 0)) {
        return 0;
    }
    const auto off = [&](double kept, double now) {
        return std::abs(now - multiple * kept) > kRounding * multiple * largest;
    };
    for (std::size_t i = 0; i < piece_count; ++i) {
        const auto kept = TermsOf(pieces[i]);
        const auto now = TermsOf(line.pieces[i]);
        for (std::size_t k = 0; k < kTerms; ++k) {
            if (off(kept[k], now[k])) {
                return 0;
            }
        }
    }
    for (std::size_t i = 0; i < point_count; ++i) {
        if (off(points[i].pz, line.points[i].pz)) {
            return 0;
        }
    }
    return multiple;
}

void SolvedLines::Entry::Keep(const LateralSection& other, const LateralSupports& supports,
                              const MomentLine& line)
{
    section = other;
    start = supports.start;
    end = supports.end;
    length = line.length;
    held_count = supports.held.size();
    piece_count = line.pieces.size();
    point_count = line.points.size();
    std::copy(supports.held.begin(), supports.held.end(), held.begin());
    std::copy(line.pieces.begin(), line.pieces.end(), pieces.begin());
    std::copy(line.points.begin(), line.points.end(), points.begin());
}

double SolvedLines::Factor(const LateralSection& section, const LateralSupports& supports,
                           const MomentLine& line)
{
    for (std::size_t i = 0; i < std::min(solved_, kKept); ++i) {
        const Entry& entry = entries_[i];
        const double multiple = entry.Fits(section, supports, line) ? entry.MultipleOf(line) : 0;
        if (multiple > 0) {
            return entry.alpha / multiple;
        }
    }
    const double alpha = CriticalLoadFactor(section, supports, line);
    Entry& entry = entries_[solved_ % kKept];
    ++solved_;
    if (supports.held.size() <= kMaxHeld && line.pieces.size() <= kMaxLinePieces &&
        line.points.size() <= kMaxLoads) {
        entry.Keep(section, supports, line);
        entry.alpha = alpha;
    } else {
        entry.piece_count = 0;
        entry.length = 0;
    }
    return alpha;
}

}  // namespace kestrum::standard
