#include "stability/lt_factors.h"

#include "core/member_choices.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

namespace kestrum {
namespace {

// Values at k = 1 and k = 0.5.
struct Entry {
    double full, half;
};
struct Row {
    Entry c1, c2, c3;
};

constexpr Row kPinnedQ{{1.12, 0.97}, {0.45, 0.36}, {0.525, 0.478}};
constexpr Row kPinnedP{{1.35, 1.05}, {0.59, 0.48}, {0.411, 0.338}};
constexpr Row kFixedQ{{2.578, 0.712}, {1.562, 0.652}, {0.753, 1.07}};  // D210
constexpr Row kFixedP{{1.565, 0.938}, {1.267, 0.715}, {2.645, 4.805}};
constexpr Row kSpringPinnedP{{1.35, 1.07}, {0.59, 0.432}, {0.411, 0.338}};

double AtLength(const Entry& entry, double k)
{
    const double t = (1.0 - k) / 0.5;
    return entry.full - t * (entry.full - entry.half);
}

CFactors AtLength(const Row& row, double k)
{
    return {AtLength(row.c1, k), AtLength(row.c2, k), AtLength(row.c3, k)};
}

CFactors Mix(double share, const CFactors& first, const CFactors& second)
{
    return {share * first.c1 + (1.0 - share) * second.c1,
            share * first.c2 + (1.0 - share) * second.c2,
            share * first.c3 + (1.0 - share) * second.c3};
}

// The factor of the look-up is half of ltbk, because the picture of a cantilever has k = 2.
// Deviation D238: a cantilever takes the factors of a pinned beam, for a uniform load too those of
// the point load, and k stays as chosen; 6.3.2.2 (2) takes the elastic critical moment of the
// cantilever, which is 1.9 and 3 times ours for k = 2, and with k = 1 below ours for a load high
// above the shear centre of a short member.
CFactors Cantilever(const Inputs& in, const Forces& forces)
{
    const bool spread = std::abs(forces.mymid) > 1.2 * std::abs(forces.my0 + forces.myl) / 2.0;
    return AtLength(spread ? kPinnedQ : kPinnedP, in.ltbk / 2.0);
}

CFactors BySupport(const Inputs& in, const Forces& forces)
{
    const double k = in.ltbk;
    const bool curved = forces.mycurved == kTrue;
    const double stiffness = in.spring / 100.0;
    const CFactors pinned = AtLength(curved ? kPinnedQ : kPinnedP, k);
    const CFactors fixed = AtLength(curved ? kFixedQ : kFixedP, k);
    const CFactors spring = AtLength(curved ? kPinnedQ : kSpringPinnedP, k);

    switch (in.supportcase) {
    case SupportCase::pinned:
        return pinned;
    case SupportCase::pinned_fixed:
        return Mix(0.5, pinned, fixed);
    case SupportCase::fixed:
        return fixed;
    case SupportCase::springs:
        return Mix(stiffness, fixed, spring);
    case SupportCase::cantilever:
        return Cantilever(in, forces);
    case SupportCase::pinned_spring:
        return Mix(stiffness, Mix(0.5, pinned, fixed), spring);
    default:
        return {};
    }
}

constexpr std::size_t kRatios = 9;  // r = 1, 0.75 .. -1
constexpr std::array<Entry, kRatios> kSegmentC1{{{1.0, 1.05},
                                                 {1.14, 1.19},
                                                 {1.31, 1.37},
                                                 {1.52, 1.6},
                                                 {1.77, 1.86},
                                                 {2.06, 2.15},
                                                 {2.35, 2.42},
                                                 {2.6, 2.45},
                                                 {2.6, 2.45}}};

double SegmentLength(const Entry& entry, double k)
{
    return entry.half + (k - 0.5) / 0.5 * (entry.full - entry.half);
}

// C3 at k = 1 and k = 0.5. D212: the parameter t of the lowest and of the range -0.25 .. 0 does not
// run from 0 to 1, so that the values step at the borders.
Entry SegmentC3Entry(double r, double psif)
{
    if (r >= 0.75) {
        return {1.0, 1.017 + 0.002 * (r - 0.75) / 0.25};
    }
    if (r >= 0.5) {
        return {1.0, 1.0 + 0.017 * (r - 0.5) / 0.25};
    }
    if (r >= 0.0) {
        return {1.0, 1.0};
    }
    const double upper = 1.3 - 1.2 * psif;
    if (r >= -0.25) {
        const double t = (r + 0.5) / 0.25;
        return psif > 0 ? Entry{0.85 + 0.15 * t, 0.65 + 0.35 * t} : Entry{1.0, 1.0};
    }
    if (r >= -0.5) {
        const double t = (r + 0.5) / 0.25;
        if (psif > 0) {
            const double lower = 0.77 - psif;
            return {upper + t * (0.85 - upper), lower + t * (0.65 - lower)};
        }
        return {1.0, 0.95 + 0.05 * t};
    }
    const double t = (r + 0.75) / 0.25;
    if (r >= -0.75) {
        if (psif > 0) {
            const double start = 0.55 - psif;
            return {start + t * (upper - start), 0.35 - psif + t * 0.42};
        }
        return {1.0, 0.85 + 0.1 * t};
    }
    if (psif > 0) {
        return {-psif + t * 0.55, -psif + t * (0.35 - psif - (-0.125 - 0.7 * psif))};
    }
    const double start = 0.125 - 0.7 * psif;
    return {-psif + t * (1.0 + psif), start + t * (0.85 - start)};
}

}  // namespace

// Elastic critical moment of a loaded member without restraints; EN 1993-1-1, 6.3.2.2 (2) leaves
// the factors open. An unknown support case has none (the square root of C1 then stops the pass).
//   in   supportcase, spring [%], ltbk, mycurved, my0, mymid, myl [kNm], cmanual, c1..c3, c1alt
//
// Deviation D210: fixed ends under uniform load have C1 = 2.578 at k = 1, where older rules had
// 1.285.
// Deviation D211: the values run on in a straight line beyond k = 1; at k = 2 C1 of fixed ends
// reaches 6.31, for which there is no theory.
// Deviation D234: the row follows the support and whether the moment line is curved. Moment loads
// on pinned ends do not change it, so that a nearly uniform moment gets 1.12 or 1.35 instead
// of 1.0; 6.3.2.2 (2) takes the real moment distribution.
CFactors LtCFactors(const Inputs& in, const Forces& forces)
{
    CFactors c = in.cmanual != kFalse ? CFactors{in.c1, in.c2, in.c3} : BySupport(in, forces);
    if (in.c1alt != kFalse && forces.mymaxabs != 0) {
        c.c1 = LtAlternativeC1(in, forces);
    }
    return c;
}

// ECCS, Rules for Member Stability in EN 1993-1-1, Annex B.1, with equal factors for lateral
// bending and warping.
//   in   ltbk, mymax, mymin, mydiag [kNm]
double LtAlternativeC1(const Inputs& in, const Forces& forces)
{
    const double k = in.ltbk;
    const double largest =
        std::abs(forces.mymax) > std::abs(forces.mymin) ? forces.mymax : forces.mymin;
    const std::array<double, 5> moment{forces.mydiag[0], forces.mydiag[12], forces.mydiag[25],
                                       forces.mydiag[38], forces.mydiag[50]};
    const double quarter = 5.0 * (k * k * k) / (k * k);
    const std::array<double, 5> weight{1.0 - k, quarter, 5.0 * (1.0 / k + 1.0 / k), quarter,
                                       1.0 - k};
    double squares = largest * largest;
    double weights = 1.0;
    for (std::size_t i = 0; i < moment.size(); ++i) {
        squares += weight[i] * moment[i] * moment[i];
        weights += weight[i];
    }
    const double a1 = squares / (weights * largest * largest);
    const double a2 =
        std::abs((moment[0] + 2.0 * moment[1] + 3.0 * moment[2] + 2.0 * moment[3] + moment[4]) /
                 (9.0 * largest));
    const double w = std::sqrt(k);
    const double part = (1.0 - w) / 2.0 * a2;
    return (std::sqrt(w * a1 + part * part) + part) / a1;
}

double SegmentC1(double r, double k)
{
    const double place = (1.0 - r) / 0.25;
    const std::size_t left = std::min(static_cast<std::size_t>(std::max(0.0, place)), kRatios - 2);
    const double share = place - static_cast<double>(left);
    const Entry& one = kSegmentC1[left];
    const Entry& next = kSegmentC1[left + 1];
    return SegmentLength(
        {one.full + share * (next.full - one.full), one.half + share * (next.half - one.half)}, k);
}

// Single-symmetric sections only; psif > 0 where the compression flange is the larger one.
// Deviation D212: see SegmentC3Entry; the published table is continuous.
double SegmentC3(double r, double k, double psif)
{
    return SegmentLength(SegmentC3Entry(r, psif), k);
}

}  // namespace kestrum
