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
double BendingModulus(const Inputs& in, const SectionRecord& section, const Forces& forces)
{
    if (section.classmy <= 3) {
        return section.wely;
    }
    if (!Is(in, Kind::i_single)) {
        return section.weffy;
    }
    return forces.mydesign > 0 ? std::min(section.weffytop1, section.weffytop2)
                               : std::min(section.weffybot1, section.weffybot2);
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
void EquivalentMoments(const Forces& forces, Stability& stability)
{
    const double free_z =
        (1.0 - forces.ned / stability.ncrz) * (1.0 - forces.ned / stability.ncrtf);
    const double c1 = 1.0 / (static_cast<double>(stability.kc) * stability.kc);
    const double limit = 0.2 * std::sqrt(c1) * std::sqrt(std::sqrt(free_z));
    stability.cmz = stability.cmz0;
    if (stability.lam0 <= limit) {
        stability.cmy = stability.cmy0;
        stability.cmlt = 1.0f;
        return;
    }
    const double weight = std::sqrt(stability.epsy) * stability.alt;
    stability.cmy = stability.cmy0 + (1.0 - stability.cmy0) * weight / (1.0 + weight);
    const double root =
        std::sqrt(Rest(forces.ned / stability.ncrz) * Rest(forces.ned / stability.ncrtf));
    stability.cmlt = F32(std::max(1.0, stability.cmy * stability.cmy * stability.alt / root));
}

// wy, wz, npl, the terms of lateral torsional buckling and the C factors of Table A.1.
void PlasticFactors(const Inputs& in, const SectionRecord& section, const Resistances& resistances,
                    const Forces& forces, Stability& stability)
{
    const double wely = section.wely;
    const double welz = section.welz;
    const double wply = section.wply;
    const double wplz = section.wplz;
    stability.wy = F32(std::min(1.5, wply / wely));
    stability.wz = F32(std::min(1.5, wplz / welz));
    stability.npl = forces.ned / resistances.ncrd;
    const double wy = stability.wy;
    const double wz = stability.wz;
    const double lam0 = stability.lam0;
    const double lam = stability.lammax;
    const double cmy2 = stability.cmy * stability.cmy;
    const double cmz2 = stability.cmz * stability.cmz;
    const double mply = resistances.mplyrd * in.gammam0 / in.gammam1;  // with gammaM1
    const double mplz = resistances.mplzrd * in.gammam0 / in.gammam1;
    const double my = std::abs(forces.mydesign);
    const double mz = forces.mzdesign;
    const double lamz4 = Fourth(stability.lamz);

    stability.blt = 0.5 * stability.alt * lam0 * lam0 * my / stability.xlt / mply * mz / mplz;
    stability.cyy =
        1.0 +
        (wy - 1.0) * ((2.0 - 1.6 / wy * cmy2 * lam - 1.6 / wy * cmy2 * lam * lam) * stability.npl -
                      stability.blt);
    stability.cyy = std::max(stability.cyy, wely / wply);

    const double share = my / (stability.cmy * stability.xlt * mply);
    stability.clt = 10.0 * stability.alt * lam0 * lam0 / (5.0 + lamz4) * share;
    stability.cyz =
        1.0 +
        (wz - 1.0) * ((2.0 - 14.0 * cmz2 * lam * lam / Fifth(wz)) * stability.npl - stability.clt);
    stability.cyz = std::max(stability.cyz, 0.6 * std::sqrt(wz / wy) * welz / wplz);

    stability.dlt =
        2.0 * stability.alt * lam0 / (0.1 + lamz4) * share * mz / (stability.cmz * mplz);
    stability.czy =
        1.0 +
        (wy - 1.0) * ((2.0 - 14.0 * cmy2 * lam * lam / Fifth(wy)) * stability.npl - stability.dlt);
    stability.czy = std::max(stability.czy, 0.6 * std::sqrt(wy / wz) * wely / wply);

    stability.elt = 1.7 * stability.alt * lam0 / (0.1 + lamz4) * share;
    stability.czz =
        1.0 + (wz - 1.0) *
                  (2.0 - 1.6 / wz * cmz2 * lam - 1.6 / wz * cmz2 * lam * lam - stability.elt) *
                  stability.npl;
    stability.czz = std::max(stability.czz, welz / wplz);
}

}  // namespace

MomentShape ShapeY(const Forces& forces)
{
    return {forces.my0,
            forces.myl,
            forces.mycurved == kTrue,
            forces.mylinear == kTrue,
            forces.psiy,
            std::abs(forces.dzmaxabs),
            forces.mymaxabs};
}

MomentShape ShapeZ(const Forces& forces)
{
    return {forces.mz0,
            forces.mzl,
            forces.mzcurved == kTrue,
            forces.mzlinear == kTrue,
            forces.psiz,
            std::abs(forces.dymaxabs),
            forces.mzmaxabs};
}

// Table A.2. in: inertia [mm4].
// Deviation D217: the deflection is the one of the serviceability combination beside the moment of
// the strength combination; Table A.2 takes both from the same loads. The factor comes out lower.
// Deviation D242: lines without end moments take the value of a uniform load where they are curved
// and that of a point load at mid-span where not; Table A.2 has its general form for other loads.
double CmLoads(const Inputs& in, const MomentShape& shape, double inertia, double n)
{
    if (shape.first == 0 && shape.last == 0) {
        return shape.curved ? 1.0 + 0.03 * n : 1.0 - 0.18 * n;
    }
    if (shape.linear) {
        return CmEndMoments(shape.psi, n);
    }
    const double length = in.l * 1000.0;
    const double stiffness = kStabilityPi * kStabilityPi * in.e * inertia;
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

void CmAnnexALoads(const Inputs& in, const SectionRecord& section, const Forces& forces,
                   Stability& stability)
{
    stability.cmy0 = CmLoads(in, ShapeY(forces), section.iy, forces.ned / stability.ncry);
    stability.cmz0 = CmLoads(in, ShapeZ(forces), section.iz, forces.ned / stability.ncrz);
}

void CmAnnexAForces(const Forces& forces, Stability& stability)
{
    stability.cmy0 = CmEndMoments(forces.psiy, forces.ned / stability.ncry);
    stability.cmz0 = CmEndMoments(forces.psiz, forces.ned / stability.ncrz);
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
// the axis itself takes its limit, other divisors 1e-9; the standard divides by zero. Deviation
// D219 also: the moments of the auxiliary terms rest on gammaM1; Mpl,Rd of Table A.1 on gammaM0.
// Deviation D246: without an axial force epsilon_y counts 0, so that Cmy = Cmy,0; it grows without
// bounds there and Cmy to 1. Deviation D247: epsilon_y of class 4 has the whole area, and the
// modulus by the class of My; Table A.1 has Aeff and Weff,y of the section.
void KFactorsAnnexA(const Inputs& in, const SectionRecord& section, const Resistances& resistances,
                    const Forces& forces, Stability& stability, Carry& carry, PassOutcome& outcome)
{
    stability.alt = std::max(0.0, 1.0 - static_cast<double>(section.it) / section.iy);
    stability.epsy = forces.ned == 0 ? 0.0
                                     : std::abs(forces.mydesign) * 1000.0 * section.a / forces.ned /
                                           BendingModulus(in, section, forces);  // kNm/kN to mm
    if (section.openprofile == kFalse) {
        stability.lam0 = 0.0f;
    }
    if (ExceedsCriticalForce(
            forces, outcome,
            {{"Ncr,y", stability.ncry}, {"Ncr,z", stability.ncrz}, {"Ncr,TF", stability.ncrtf}})) {
        return;
    }
    EquivalentMoments(forces, stability);
    const double ny = forces.ned / stability.ncry;
    const double nz = forces.ned / stability.ncrz;
    stability.muy = (1.0 - ny) / Rest(stability.chiy * ny);
    stability.muz = (1.0 - nz) / Rest(stability.chiz * nz);
    PlasticFactors(in, section, resistances, forces, stability);

    const double wy = stability.wy;
    const double wz = stability.wz;
    stability.kyy = stability.cmy * stability.cmlt * MuOverRest(stability.chiy, ny);
    stability.kzy = stability.cmy * stability.cmlt * stability.muz / Rest(ny);
    if (!(section.classmy > 2)) {
        stability.kyy = stability.kyy / stability.cyy;
        stability.kzy = stability.kzy / stability.czy * 0.6 * std::sqrt(wy / wz);
    }
    stability.kyz = stability.cmz * stability.muy / Rest(nz);
    carry.kzz = stability.cmz * MuOverRest(stability.chiz, nz);
    if (!(section.classmz > 2)) {
        stability.kyz = stability.kyz / stability.cyz * 0.6 * std::sqrt(wz / wy);
        carry.kzz = carry.kzz / stability.czz;
    }
}

}  // namespace kestrum
