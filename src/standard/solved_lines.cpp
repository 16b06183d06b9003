#include "standard/solved_lines.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <span>

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

// The largest of all terms of a line, in size.
double LargestTerm(const MomentLine& line)
{
    double largest = 0;
    for (const MomentPiece& piece : line.pieces) {
        for (const double term : TermsOf(piece)) {
            largest = std::fmax(largest, std::abs(term));
        }
    }
    for (const PointTorque& point : line.points) {
        largest = std::fmax(largest, std::abs(point.pz));
    }
    return largest;
}

// The largest term of what is solved, Nmm: moments as members have them.
constexpr double kUnit = 0x1p27;

// A term over the largest one; so coarse that multiples have the same however they were rounded.
double Scaled(double term, double largest)
{
    constexpr double kGrid = 0x1p40;
    return std::nearbyint(term / largest * kGrid) / kGrid * kUnit;
}

MomentPiece Scaled(const MomentPiece& piece, double largest)
{
    const double h = piece.x1 - piece.x0;
    std::array<double, kTerms> terms = TermsOf(piece);
    for (double& term : terms) {
        term = Scaled(term, largest);
    }
    return {piece.x0,
            piece.x1,
            {terms[0], terms[1] / h, terms[2] / (h * h), terms[3] / (h * h * h)},
            terms[4] / h,
            terms[5] / h};
}

template <class Array> auto First(const Array& values, std::size_t count)
{
    return std::span(values).first(count);
}

}  // namespace

void SolvedLines::Entry::Keep(const LateralSection& other, const LateralSupports& supports,
                              const MomentLine& line, double largest)
{
    section = other;
    start = supports.start;
    end = supports.end;
    length = line.length;
    held_count = supports.held.size();
    piece_count = line.pieces.size();
    point_count = line.points.size();
    std::copy(supports.held.begin(), supports.held.end(), held.begin());
    std::transform(line.pieces.begin(), line.pieces.end(), pieces.begin(),
                   [&](const MomentPiece& piece) { return Scaled(piece, largest); });
    std::transform(line.points.begin(), line.points.end(), points.begin(),
                   [&](const PointTorque& point) {
                       return PointTorque{point.x, Scaled(point.pz, largest)};
                   });
}

bool SolvedLines::Entry::Is(const Entry& other) const
{
    const auto same_piece = [](const MomentPiece& a, const MomentPiece& b) {
        return a.x0 == b.x0 && a.x1 == b.x1 && a.m == b.m && a.qz0 == b.qz0 && a.qz1 == b.qz1;
    };
    const auto same_point = [](const PointTorque& a, const PointTorque& b) {
        return a.x == b.x && a.pz == b.pz;
    };
    return section.eiz == other.section.eiz && section.eiw == other.section.eiw &&
           section.git == other.section.git && section.zj == other.section.zj &&
           start == other.start && end == other.end && length == other.length &&
           std::ranges::equal(First(held, held_count), First(other.held, other.held_count)) &&
           std::ranges::equal(First(pieces, piece_count), First(other.pieces, other.piece_count),
                              same_piece) &&
           std::ranges::equal(First(points, point_count), First(other.points, other.point_count),
                              same_point);
}

double SolvedLines::Entry::Solve() const
{
    return CriticalLoadFactor(section, {start, end, First(held, held_count)},
                              {length, First(pieces, piece_count), First(points, point_count)});
}

double SolvedLines::Factor(const LateralSection& section, const LateralSupports& supports,
                           const MomentLine& line)
{
    const double largest = LargestTerm(line);
    if (!(largest > 0) || !std::isfinite(largest) || supports.held.size() > kMaxHeld ||
        line.pieces.size() > kMaxLinePieces || line.points.size() > kMaxLoads) {
        return CriticalLoadFactor(section, supports, line);
    }
    Entry asked;
    asked.Keep(section, supports, line, largest);
    asked.last_asked = ++asked_;
    const auto kept = std::span(entries_).first(std::min(solved_, kKept));
    const auto found =
        std::ranges::find_if(kept, [&](const Entry& entry) { return entry.Is(asked); });
    if (found != kept.end()) {
        found->last_asked = asked_;
        return found->alpha * kUnit / largest;
    }
    asked.alpha = asked.Solve();
    Entry& place = solved_ < kKept ? entries_[solved_]
                                   : *std::ranges::min_element(entries_, {}, &Entry::last_asked);
    place = asked;
    ++solved_;
    return asked.alpha * kUnit / largest;
}

}  // namespace kestrum::standard
