#include "standard/section_place.h"

#include "clauses/shear.h"

#include <algorithm>
#include <cmath>

namespace kestrum::standard {

double Used(double force, double resistance)
{
    return force == 0 ? 0 : std::abs(force) / resistance;
}

bool BendsAboutOneAxis(const SectionPlace& at)
{
    const bool alike = (at.f.my == 0 || at.f.mz == 0) && at.rho.z == at.rho.y;
    return at.q.kind == Kind::tube && (alike || at.basis.departs(Dev::d176));
}

// 6.2.3 and 6.2.4.
void CheckAxial(SectionPlace& at)
{
    if (at.f.n > 0) {
        const double area = CompressedArea(at.p, at.p.class_n);
        at.Of(CheckId::section_n) = {at.f.n * at.q.gammam0 / (area * at.q.fy), "6.2.4"};
        if (at.told != nullptr) {
            at.told->area = area;
        }
    } else if (at.f.n < 0) {
        at.Of(CheckId::section_n) = {-at.f.n * at.q.gammam0 / (at.q.a * at.q.fy), "6.2.3"};
    }
}

// 6.2.6, EN 1993-1-5, 5; the share of 6.2.8 that shear takes from the moments.
void CheckShear(SectionPlace& at)
{
    double vz = std::abs(at.f.vz);
    double vy = std::abs(at.f.vy);
    if (at.q.kind == Kind::tube && vy > 0 && at.basis.departs(Dev::d176)) {  // the resultant
        vz = std::hypot(vz, vy);
        vy = 0;
    }
    at.along_z = ShearAlongZ(at.p, at.member.shear, at.f.n, at.f.my, at.basis);
    at.along_y = ShearAlongY(at.p, at.member.shear, at.basis);
    const auto clause = [](const ShearResistance& r) {
        return r.slender ? std::string_view("EN 1993-1-5, 5.2") : std::string_view("6.2.6");
    };
    if (vz > 0) {
        at.Of(CheckId::section_vz) = {vz / at.along_z.total, clause(at.along_z)};
    }
    if (vy > 0) {
        at.Of(CheckId::section_vy) = {vy / at.along_y.total, clause(at.along_y)};
    }
    at.rho.z = clauses::ShearReduction(vz, at.along_z.web);
    // D40: webs that may buckle in shear, EN 1993-1-5, 7.1 in place of 6.2.8.
    if (at.along_z.slender && at.rho.z > 0 && at.basis.departs(Dev::d40)) {
        at.rho.z = 0;
    }
    at.rho.y = clauses::ShearReduction(vy, at.along_y.web);
    // D179: not in the program's angles and general profiles.
    const bool forgotten = at.q.Angle() || at.q.kind == Kind::general;
    if (forgotten && (at.rho.z > 0 || at.rho.y > 0) && !at.basis.departs(Dev::d179)) {
        at.rho = {};
    }
}

// 6.2.5, beside shear 6.2.8.
void CheckMoments(SectionPlace& at)
{
    const bool sagging = at.f.my >= 0;
    const int cls_y = at.basis.pick(Dev::d153, at.classes.my.At(sagging), at.cls);
    const int cls_z = at.basis.pick(Dev::d153, at.classes.mz, at.cls);
    const ReducedResistance r =
        ResistanceBeside(at.p, cls_y, at.rho, at.f.n > 0, sagging, at.basis);
    const std::string_view clause = at.rho.z > 0 || at.rho.y > 0 ? "6.2.8" : "6.2.5";
    const double enough = 1e-9;  // of a moment, Nmm
    const double mz = cls_z == cls_y || at.q.kind == Kind::tube || !(std::abs(at.f.mz) > enough)
                          ? r.mz
                          : ResistanceBeside(at.p, cls_z, at.rho, at.f.n > 0, sagging, at.basis).mz;
    if (at.told != nullptr) {
        at.told->classes = {at.cls, {cls_y, cls_y}, cls_z, at.classes.n_my, at.classes.n_mz};
        at.told->moment_y = r.my;
        at.told->moment_z = mz;
    }
    if (BendsAboutOneAxis(at) && std::hypot(at.f.my, at.f.mz) > enough) {
        at.Of(CheckId::section_my) = {std::hypot(at.f.my, at.f.mz) / r.my, clause};
        return;
    }
    if (std::abs(at.f.my) > enough) {
        at.Of(CheckId::section_my) = {std::abs(at.f.my) / r.my, clause};
    }
    if (std::abs(at.f.mz) > enough) {
        at.Of(CheckId::section_mz) = {std::abs(at.f.mz) / mz, clause};
    }
}

}  // namespace kestrum::standard
