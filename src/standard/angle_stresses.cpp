#include "standard/section_place.h"

#include <algorithm>
#include <cmath>

namespace kestrum::standard {

// Stresses of the corners about the principal axes, 6.2.1 (5).
void CheckAngleStresses(SectionPlace& at)
{
    const StandardSection& q = at.q;
    const ForcesAt& f = at.f;
    const AngleSection& angle = at.p.AngleOf(at.cls);
    const auto use = [&](double n, double my, double mz, CornerTerms SectionTerms::*terms) {
        const AngleSection& acting = n < 0 ? at.p.whole_angle : angle;
        return AngleUse(q, acting, {n, my, mz, at.rho.z, at.rho.y},
                        at.told == nullptr ? nullptr : &(at.told->*terms));
    };
    const std::string_view clause = at.rho.z > 0 || at.rho.y > 0 ? "6.2.8" : "6.2.5";
    const double enough = 1e-9;  // of a moment, Nmm
    if (std::abs(f.my) > enough) {
        at.Of(CheckId::section_my) = {use(0, f.my, 0, &SectionTerms::my_corner), clause};
    }
    if (std::abs(f.mz) > enough) {
        at.Of(CheckId::section_mz) = {use(0, 0, f.mz, &SectionTerms::mz_corner), clause};
    }
    const int acting = (f.n != 0) + (f.my != 0) + (f.mz != 0);
    if (acting > 1 || (at.cls == 4 && f.n > 0)) {
        double ir = use(f.n, f.my, f.mz, &SectionTerms::corner);
        // D182: the program has the sum about y and z beside it, which leaves out their coupling.
        const double n = Used(f.n, (f.n > 0 ? CompressedArea(at.p, at.cls) : q.a) * q.fy);
        ir = at.basis.pick(
            Dev::d182,
            [&] { return std::max(ir, AngleSumByAxes(q, f.n > 0 ? n : -n, f.my, f.mz)); },
            [&] { return ir; });
        at.Of(CheckId::section_nm) = {ir, at.cls == 4 ? "6.2.9.3" : "6.2.9.2"};
    }
}

}  // namespace kestrum::standard
