#include "standard/section_place.h"

#include "clauses/bending.h"

#include <algorithm>
#include <cmath>

namespace kestrum::standard {

namespace {

// Of My and of Mz.
struct Pair {
    double y = 0, z = 0;
};

void Tell(const SectionPlace& at, SectionTerms::Rule rule, const ReducedResistance& r, double n,
          const Pair& webs, const Pair& moments, const clauses::BiaxialExponents& exponents)
{
    if (at.told == nullptr) {
        return;
    }
    const bool both = at.f.my != 0 && at.f.mz != 0;
    at.told->rule = rule;
    at.told->beside_shear = r;
    at.told->share = n;
    at.told->web_y = webs.y;
    at.told->web_z = webs.z;
    at.told->mny = moments.y;
    at.told->mnz = moments.z;
    at.told->alpha = both ? exponents.alpha : 0;
    at.told->beta = both ? exponents.beta : 0;
}

// The larger ratio of the two moments by themselves.
double LargerOf(const ForcesAt& f, const Pair& moments)
{
    return std::max(Used(f.my, moments.y), Used(f.mz, moments.z));
}

// Eq (6.41) of both moments, the ratio of a single one. D48: the program keeps the ratios of the
// single moments beside the sum, which is lower as long as it is below 1.
void Keep(SectionPlace& at, const Pair& moments, const clauses::BiaxialExponents& exponents)
{
    const ForcesAt& f = at.f;
    const double each = LargerOf(f, moments);
    if (f.my == 0 || f.mz == 0) {
        at.Of(CheckId::section_nm) = {each, "6.2.9.1"};
        return;
    }
    const double sum = clauses::BiaxialSum(f.my, moments.y, f.mz, moments.z, exponents);
    at.Of(CheckId::section_nm) = {
        f.n == 0 ? sum : at.basis.pick(Dev::d48, std::max(sum, each), sum), "Eq 6.41"};
}

// 6.2.9.1 (6). D171: the program's exponent turns negative near the squash load.
clauses::BiaxialExponents ExponentsOfClosed(double n, const Basis& basis)
{
    const clauses::BiaxialExponents standard = clauses::ExponentsOfHollow(n);
    const double rest = 1 - 1.13 * n * n;
    if (rest >= 0) {
        return standard;
    }
    const double exponent = basis.pick(Dev::d171, 1.66 / rest, standard.alpha);
    return {exponent, exponent};
}

// 6.2.9.1 (4), (5).
void PlasticI(SectionPlace& at, const ReducedResistance& r, double n)
{
    const StandardSection& q = at.q;
    const double flanges = q.top.b * q.top.t + q.bottom.b * q.bottom.t;
    const double mean = (q.top.b + q.bottom.b) * (q.top.t + q.bottom.t) / 2;
    const double a = (q.a - (q.kind == Kind::i_single ? mean : flanges)) / q.a;
    const double web = q.tw * (1 - at.rho.z);  // with the strength that shear leaves
    const bool small_y = clauses::AxialForceNegligibleY(at.f.n, r.n, q.hw, web, q.fy, q.gammam0);
    const bool small_z = clauses::AxialForceNegligibleZ(at.f.n, q.hw, web, q.fy, q.gammam0);
    Pair moments{small_y ? r.my : clauses::ReducedMomentY(r.my, n, a),
                 small_z ? r.mz : clauses::ReducedMomentZ(r.mz, n, a)};
    if (q.kind == Kind::general && !small_y) {  // D180: the share of the web is not held at 0.5
        moments.y =
            at.basis.pick(Dev::d180, std::min(r.my, r.my * (1 - n) / (1 - 0.5 * a)), moments.y);
    }
    const clauses::BiaxialExponents exponents = clauses::ExponentsOfI(n);
    Tell(at, SectionTerms::Rule::i_section, r, n, {a, a}, moments, exponents);
    Keep(at, moments, exponents);
}

// 6.2.9.1 (5). Eq (6.40) takes h of the whole section from its area, of welded boxes as well.
void PlasticClosed(SectionPlace& at, const ReducedResistance& r, double n)
{
    const StandardSection& q = at.q;
    double flange = q.top.t;
    if (q.kind == Kind::box) {
        flange = at.basis.pick(Dev::d170, q.tw, flange);
    }
    const Pair webs{(q.a - 2 * q.b * flange) / q.a, (q.a - 2 * q.h * q.tw) / q.a};
    const Pair moments{clauses::ReducedMomentHollow(r.my, n, webs.y),
                       clauses::ReducedMomentHollow(r.mz, n, webs.z)};
    const clauses::BiaxialExponents exponents = ExponentsOfClosed(n, at.basis);
    Tell(at, SectionTerms::Rule::closed, r, n, webs, moments, exponents);
    Keep(at, moments, exponents);
}

// 6.2.9.1 (2).
void PlasticTube(SectionPlace& at, const ReducedResistance& r, double n)
{
    const ForcesAt& f = at.f;
    const Pair moments{clauses::ReducedMomentTube(r.my, n), clauses::ReducedMomentTube(r.mz, n)};
    Tell(at, SectionTerms::Rule::tube, r, n, {}, {moments.y, moments.y}, {});
    const auto apart = [&] {
        const double squares = clauses::BiaxialSum(f.my, moments.y, f.mz, moments.z, {2, 2});
        return f.n != 0 ? std::max(squares, LargerOf(f, moments)) : squares;
    };
    const double ir = BendsAboutOneAxis(at) ? Used(std::hypot(f.my, f.mz), moments.y) : apart();
    at.Of(CheckId::section_nm) = {ir, "6.2.9.1 (2)"};
}

// 6.2.9.1 (3). D177: beside a tension the program leaves the moment resistance whole.
void PlasticFlat(SectionPlace& at, const ReducedResistance& r, double n)
{
    const double least = clauses::ReducedMomentFlat(r.my, n);
    const Pair moments{at.f.n < 0 ? at.basis.pick(Dev::d177, r.my, least) : least,
                       clauses::ReducedMomentFlat(r.mz, n)};
    Tell(at, SectionTerms::Rule::flat, r, n, {}, moments, {});
    at.Of(CheckId::section_nm) = {Used(at.f.my, moments.y) + Used(at.f.mz, moments.z),
                                  "6.2.9.1 (3)"};
}

}  // namespace

void PlasticBendingAndAxial(SectionPlace& at, const ReducedResistance& r, double n)
{
    if (at.q.kind == Kind::tube) {
        PlasticTube(at, r, n);
    } else if (at.q.kind == Kind::flat) {
        PlasticFlat(at, r, n);
    } else if (!at.q.Closed()) {
        PlasticI(at, r, n);
    } else {
        PlasticClosed(at, r, n);
    }
}

}  // namespace kestrum::standard
