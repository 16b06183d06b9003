#include "clauses/annex_b.h"

#include <algorithm>

namespace kestrum::clauses {

namespace {

constexpr double kLeastCm = 0.4;

double Capped(double cm, double slope, double largest, double n)
{
    return cm * (1 + std::min(slope, largest) * n);
}

// Table B.2, kzy of members that may twist.
double TwistingKzy(const AnnexBInputs& in)
{
    const double factor = (in.plastic ? 0.1 : 0.05) / (in.cmlt - 0.25) * in.nz;
    const double kzy = std::max(1 - factor * in.lamz, 1 - factor);
    return in.low_slenderness && in.plastic && in.lamz < 0.4
               ? std::min(0.6 + in.lamz, 1 - factor * in.lamz)
               : kzy;
}

}  // namespace

double EquivalentMomentStraight(double psi)
{
    return std::max(kLeastCm, 0.6 + 0.4 * psi);
}

double EquivalentMomentOfEnds(double alpha_s, double psi, bool point_load)
{
    double cm = 0;
    if (alpha_s >= 0) {
        cm = 0.2 + 0.8 * alpha_s;
    } else if (psi >= 0) {
        cm = (point_load ? 0 : 0.1) - 0.8 * alpha_s;
    } else {
        cm = (point_load ? 0.2 * -psi : 0.1 * (1 - psi)) - 0.8 * alpha_s;
    }
    return std::max(kLeastCm, cm);
}

double EquivalentMomentOfSpan(double alpha_h, double psi, bool point_load)
{
    const double base = point_load ? 0.90 : 0.95;
    const double slope = point_load ? 0.10 : 0.05;
    const double turned = alpha_h < 0 && psi < 0 ? 1 + 2 * psi : 1;
    return std::max(kLeastCm, base + slope * alpha_h * turned);
}

double EquivalentMomentLoaded(double mh, double ms, double psi, bool point_load)
{
    if (ms == 0 && mh == 0) {
        return 1;
    }
    return mh * mh >= ms * ms ? EquivalentMomentOfEnds(ms / mh, psi, point_load)
                              : EquivalentMomentOfSpan(mh / ms, psi, point_load);
}

InteractionFactors FactorsOfAnnexB(const AnnexBInputs& in)
{
    InteractionFactors k{};
    if (!in.plastic) {
        k.kyy = Capped(in.cmy, 0.6 * in.lamy, 0.6, in.ny);
        k.kzz = Capped(in.cmz, 0.6 * in.lamz, 0.6, in.nz);
        k.kyz = k.kzz;
        k.kzy = in.twists ? TwistingKzy(in) : 0.8 * k.kyy;
        return k;
    }
    k.kyy = Capped(in.cmy, in.lamy - 0.2, 0.8, in.ny);
    k.kzz = in.hollow ? Capped(in.cmz, in.lamz - 0.2, 0.8, in.nz)
                      : Capped(in.cmz, 2 * in.lamz - 0.6, 1.4, in.nz);
    k.kyz = 0.6 * k.kzz;
    k.kzy = in.twists ? TwistingKzy(in) : 0.6 * k.kyy;
    return k;
}

}  // namespace kestrum::clauses
