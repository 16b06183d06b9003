#include "stability/interaction_annex_a.h"

#include "core/arithmetic_trap.h"
#include "sections/families.h"
#include "stability/constants.h"
#include "stability/critical_force.h"

#include <algorithm>
#include <cmath>

namespace kestrum {
namespace {

// Modulus of epsilon_y; the effective one of the compressed side in class 4.
double BendingModulus(const ProjectState& s)
{
    if (s.classmy <= 3) {
        return s.wely;
    }
    if (!Is(s, Kind::i_single)) {
        return s.weffy;
    }
    return s.mydesign > 0 ? std::min(s.weffytop1, s.weffytop2) : std::min(s.weffybot1, s.weffybot2);
}

double Fourth(double x)
{
    return x * x * x * x;
}

double Fifth(double x)
{
    return Fourth(x) * x;
}

// cmy, cmz, cmlt of Table A.2.
void EquivalentMoments(ProjectState& s)
{
    const double free_z = (1.0 - s.ned / s.ncrz) * (1.0 - s.ned / s.ncrtf);
    const double c1 = 1.0 / (static_cast<double>(s.kc) * s.kc);
    const double limit = 0.2 * std::sqrt(c1) * std::sqrt(std::sqrt(free_z));
    s.cmz = s.cmz0;
    if (s.lam0 <= limit) {
        s.cmy = s.cmy0;
        s.cmlt = 1.0f;
        return;
    }
    const double weight = std::sqrt(s.epsy) * s.alt;
    s.cmy = s.cmy0 + (1.0 - s.cmy0) * weight / (1.0 + weight);
    const double root = std::sqrt(Rest(s.ned / s.ncrz) * Rest(s.ned / s.ncrtf));
    s.cmlt = F32(std::max(1.0, s.cmy * s.cmy * s.alt / root));
}

// wy, wz, npl, the terms of lateral torsional buckling and the C factors of Table A.1.
void PlasticFactors(ProjectState& s)
{
    const double wely = s.wely;
    const double welz = s.welz;
    const double wply = s.wply;
    const double wplz = s.wplz;
    s.wy = F32(std::min(1.5, wply / wely));
    s.wz = F32(std::min(1.5, wplz / welz));
    s.npl = s.ned / s.ncrd;
    const double wy = s.wy;
    const double wz = s.wz;
    const double lam0 = s.lam0;
    const double lam = s.lammax;
    const double cmy2 = s.cmy * s.cmy;
    const double cmz2 = s.cmz * s.cmz;
    const double mply = s.mplyrd * s.gammam0 / s.gammam1;  // with gammaM1
    const double mplz = s.mplzrd * s.gammam0 / s.gammam1;
    const double my = std::abs(s.mydesign);
    const double mz = s.mzdesign;
    const double lamz4 = Fourth(s.lamz);

    s.blt = 0.5 * s.alt * lam0 * lam0 * my / s.xlt / mply * mz / mplz;
    s.cyy = 1.0 + (wy - 1.0) *
                      ((2.0 - 1.6 / wy * cmy2 * lam - 1.6 / wy * cmy2 * lam * lam) * s.npl - s.blt);
    s.cyy = std::max(s.cyy, wely / wply);

    const double share = my / (s.cmy * s.xlt * mply);
    s.clt = 10.0 * s.alt * lam0 * lam0 / (5.0 + lamz4) * share;
    s.cyz = 1.0 + (wz - 1.0) * ((2.0 - 14.0 * cmz2 * lam * lam / Fifth(wz)) * s.npl - s.clt);
    s.cyz = std::max(s.cyz, 0.6 * std::sqrt(wz / wy) * welz / wplz);

    s.dlt = 2.0 * s.alt * lam0 / (0.1 + lamz4) * share * mz / (s.cmz * mplz);
    s.czy = 1.0 + (wy - 1.0) * ((2.0 - 14.0 * cmy2 * lam * lam / Fifth(wy)) * s.npl - s.dlt);
    s.czy = std::max(s.czy, 0.6 * std::sqrt(wy / wz) * wely / wply);

    s.elt = 1.7 * s.alt * lam0 / (0.1 + lamz4) * share;
    s.czz = 1.0 + (wz - 1.0) * (2.0 - 1.6 / wz * cmz2 * lam - 1.6 / wz * cmz2 * lam * lam - s.elt) *
                      s.npl;
    s.czz = std::max(s.czz, welz / wplz);
}

}  // namespace

MomentShape ShapeY(const ProjectState& s)
{
    return {
        s.my0,     s.myl, s.mycurved == kTrue, s.mylinear == kTrue, s.psiy, std::abs(s.dzmaxabs),
        s.mymaxabs};
}

MomentShape ShapeZ(const ProjectState& s)
{
    return {
        s.mz0,     s.mzl, s.mzcurved == kTrue, s.mzlinear == kTrue, s.psiz, std::abs(s.dymaxabs),
        s.mzmaxabs};
}

// Table A.2. in: inertia [mm4].
// Deviation D217: the deflection is the one of the serviceability combination beside the moment of
// the strength combination; Table A.2 takes both from the same loads. The factor comes out lower.
double CmLoads(const ProjectState& s, const MomentShape& shape, double inertia, double n)
{
    if (shape.first == 0 && shape.last == 0) {
        return shape.curved ? 1.0 + 0.03 * n : 1.0 - 0.18 * n;
    }
    if (shape.linear) {
        return CmEndMoments(shape.psi, n);
    }
    const double length = s.l * 1000.0;
    const double stiffness = kStabilityPi * kStabilityPi * s.e * inertia;
    const double ratio =
        stiffness * shape.deflection / (length * length * shape.moment * 1e6);  // kNm to Nmm
    return 1.0 + (ratio - 1.0) * n;
}

double CmEndMoments(double psi, double n)
{
    return 0.79 + 0.21 * psi + 0.36 * (psi - 0.33) * n;
}

double Rest(double n)
{
    return std::max(1.0 - n, 1e-9);
}

double MuOverRest(double chi, double n)
{
    if (n == 1.0) {
        return 1.0 / Rest(chi);
    }
    return (1.0 - n) / Rest(chi * n) / (1.0 - n);
}

void CmAnnexALoads(ProjectState& s)
{
    s.cmy0 = CmLoads(s, ShapeY(s), s.iy, s.ned / s.ncry);
    s.cmz0 = CmLoads(s, ShapeZ(s), s.iz, s.ned / s.ncrz);
}

void CmAnnexAForces(ProjectState& s)
{
    s.cmy0 = CmEndMoments(s.psiy, s.ned / s.ncry);
    s.cmz0 = CmEndMoments(s.psiz, s.ned / s.ncrz);
}

// EN 1993-1-1, Table A.1, A.2.
//   in   ned, ncry, ncrz, ncrtf, ncrd [kN], mydesign, mzdesign, mplyrd, mplzrd [kNm], section,
//   class
//        of each moment, lamz, lammax, chiy, chiz, xlt, kc, lam0, cmy0, cmz0, openprofile
//   out  alt, epsy, cmy, cmz, cmlt, muy, muz, wy, wz, npl, blt .. elt, cyy .. czz, kyy .. kzz;
//        errorflag
//
// Deviation D218: the column of Table A.1 is taken for each moment by its own class; the standard
// has one class for the section under all forces. Deviation D219: npl rests on gammaM0 (and on the
// effective area in class 4); Table A.1 takes gammaM1. Deviation D220: at NEd = Ncr the factor of
// the axis itself takes its limit, other divisors 1e-9; the standard divides by zero.
void KFactorsAnnexA(ProjectState& s)
{
    s.alt = std::max(0.0, 1.0 - static_cast<double>(s.it) / s.iy);
    s.epsy = s.ned == 0
                 ? 0.0
                 : std::abs(s.mydesign) * 1000.0 * s.a / s.ned / BendingModulus(s);  // kNm/kN to mm
    if (s.openprofile == kFalse) {
        s.lam0 = 0.0f;
    }
    if (ExceedsCriticalForce(s, {{"Ncr,y", s.ncry}, {"Ncr,z", s.ncrz}, {"Ncr,TF", s.ncrtf}})) {
        return;
    }
    EquivalentMoments(s);
    const double ny = s.ned / s.ncry;
    const double nz = s.ned / s.ncrz;
    s.muy = (1.0 - ny) / Rest(s.chiy * ny);
    s.muz = (1.0 - nz) / Rest(s.chiz * nz);
    PlasticFactors(s);

    const double wy = s.wy;
    const double wz = s.wz;
    s.kyy = s.cmy * s.cmlt * MuOverRest(s.chiy, ny);
    s.kzy = s.cmy * s.cmlt * s.muz / Rest(ny);
    if (!(s.classmy > 2)) {
        s.kyy = s.kyy / s.cyy;
        s.kzy = s.kzy / s.czy * 0.6 * std::sqrt(wy / wz);
    }
    s.kyz = s.cmz * s.muy / Rest(nz);
    s.kzz = s.cmz * MuOverRest(s.chiz, nz);
    if (!(s.classmz > 2)) {
        s.kyz = s.kyz / s.cyz * 0.6 * std::sqrt(wz / wy);
        s.kzz = s.kzz / s.czz;
    }
}

}  // namespace kestrum
