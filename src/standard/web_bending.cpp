#include "standard/section_place.h"

#include <algorithm>
#include <cmath>

namespace kestrum::standard {

namespace {

bool NearRigidEndPost(const SectionPlace& at, double length)
{
    const double reach = at.q.hw / 2000;
    return at.member.shear.rigid_end_post &&
           (at.f.x < reach || (!at.member.cantilever && at.f.x > length - reach));
}

}  // namespace

// EN 1993-1-5, 7.1 (1), (2), (4), (5).
void CheckWebBending(SectionPlace& at, double length)
{
    if (!at.along_z.slender || at.rho.z > 0 || NearRigidEndPost(at, length)) {
        return;
    }
    const double eta3 = std::abs(at.f.vz) / at.along_z.web;
    const double my = std::abs(at.f.my);
    const double edge = std::max(at.q.above - at.q.top.t, at.q.below - at.q.bottom.t);
    const bool web_compressed = at.f.n > 0 && at.f.n / at.q.a >= my * edge / at.q.iy;
    const double mf = web_compressed ? 0 : FlangeMoment(at.p, at.f.n, at.f.my, at.basis);
    const double mpl = FlangeAndWebMoment(at.p, at.f.n, at.f.my);
    if (eta3 <= 0.5 || my < mf || !(mpl > 0)) {
        return;
    }
    if (at.told != nullptr) {
        at.told->eta3 = eta3;
        at.told->flanges = mf;
        at.told->whole = mpl;
    }
    const double over = 2 * eta3 - 1;
    const double ir = my / mpl + std::max(0.0, 1 - mf / mpl) * over * over;
    at.Of(CheckId::section_mv) = {ir, "EN 1993-1-5, 7.1"};
}

}  // namespace kestrum::standard
