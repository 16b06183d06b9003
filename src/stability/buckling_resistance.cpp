#include "stability/buckling_resistance.h"

#include "sections/families.h"
#include "stability/constants.h"

#include <algorithm>
#include <cmath>

namespace kestrum {
namespace {

// kN; factor on the member length, second moment in mm4.
double EulerForce(const Inputs& in, double factor, double inertia)
{
    const double length = factor * 1000.0 * in.l;
    return kStabilityPi * kStabilityPi * in.e / (length * length) * inertia / 1000.0;
}

// fy A of the slenderness, N: with the effective area in class 4, 6.3.1.2 (1).
double SquashForce(const Inputs& in, const SectionRecord& section)
{
    const double area = section.classn < 4 ? section.a : section.aeff;
    return in.fyk * area;
}

// Angles with two bolts in one leg, BB.1.2 (2).
double ConnectedLeg(const Inputs& in, double lam, double offset)
{
    return Is(in, Kind::angle) && in.lopt == 2 ? offset + 0.7 * lam : lam;
}

// Deviation D206: the slenderness about v and u rests on the gross area in class 4 too; 6.3.1.2 (1)
// takes the effective one.
void PrincipalAxes(const Inputs& in, const SectionRecord& section, const Resistances& resistances,
                   const Carry& carry, Stability& stability)
{
    const double area = section.a;
    const double squash = in.fyk * area;
    stability.ncrv = EulerForce(in, in.lz, section.iv);
    stability.ncru = EulerForce(in, in.ly, section.iu);
    stability.lamv = ConnectedLeg(in, std::sqrt(squash / (stability.ncrv * 1000.0)), 0.35);
    stability.lamu = ConnectedLeg(in, std::sqrt(squash / (stability.ncru * 1000.0)), 0.35);
    stability.chiv = ReductionFactor(stability.lamv, carry.alphaz);
    stability.chiu = ReductionFactor(stability.lamu, carry.alphaz);
    stability.nbvrd = stability.chiv * resistances.nrdm1;
    stability.nburd = stability.chiu * resistances.nrdm1;
}

// Distance of the shear centre from the centroid, squared, mm2; zero where both coincide.
double ShearCentreDistanceSquared(const Inputs& in, const SectionRecord& section)
{
    switch (Traits(in).kind) {
    case Kind::channel: {
        const double distance = static_cast<double>(section.ecg) + section.ys;
        return distance * distance;
    }
    case Kind::angle: {
        const double y = section.ey - section.tw / 2.0;
        const double z = section.ez - section.tw / 2.0;
        return y * y + z * z;
    }
    case Kind::i_single: {
        const double distance = section.zshear;
        return distance * distance;
    }
    case Kind::tee: {
        const double distance = section.zcog - section.tf / 2.0;
        return distance * distance;
    }
    default:
        return 0.0;
    }
}

// ncrt and ncrtf, kN. Without a lateral torsional buckling length, as long as no such control has
// run, ncrt is undefined (0) where the warping stiffness takes part.
//
// Deviation D207: both are shown and bound NEd in the factors of Annex A; no resistance is formed
// from them, while 6.3.1.4 checks torsional and torsional-flexural buckling like flexural buckling.
// Deviation D208: ncrtf is 1e25 where shear centre and centroid coincide; 6.3.1.4 and Annex A then
// take ncrt.
// Deviation D209: the single-symmetric I couples torsion with buckling about y; by its symmetry it
// is buckling about z that couples.
// Deviation D228: the length is that of the last lateral torsional calculation, of whatever member;
// 6.3.1.4 takes the member's own torsional length.
void StoreTorsionalForces(const Inputs& in, const SectionRecord& section, const Carry& carry,
                          Stability& stability)
{
    const TorsionalForces forces = TorsionalForcesAt(in, section, stability, carry.lt);
    stability.ncrt = forces.ncrt;
    stability.ncrtf = forces.ncrtf;
}

}  // namespace

// EN 1993-1-3, 6.2.3 (5) to (7). Deviations D208, D209: see above.
TorsionalForces TorsionalForcesAt(const Inputs& in, const SectionRecord& section,
                                  const Stability& stability, double length)
{
    if (section.iw != 0 && length == 0) {
        return {0.0, kNeverGoverns};
    }
    const double area = section.a;
    const double ip2 = (static_cast<double>(section.iy) + section.iz) / area;
    const double i02 = ip2 + ShearCentreDistanceSquared(in, section);
    const double e = in.e;
    double stiffness = e / kShearRatio * section.it;
    if (section.iw != 0) {
        const double mm = length * 1000.0;
        stiffness = kStabilityPi * kStabilityPi * e * section.iw / (mm * mm) + stiffness;
    }
    const double ncrt = stiffness / i02 / 1000.0;
    if (!Traits(in).design.shear_centre_apart) {
        return {ncrt, kNeverGoverns};
    }
    const double flexural = Is(in, Kind::tee) ? stability.ncrz : stability.ncry;
    const double sum = flexural + ncrt;
    const double root = sum * sum - 4.0 * (ip2 / i02) * flexural * ncrt;
    return {ncrt, i02 / (2.0 * ip2) * (sum - std::sqrt(std::max(0.0, root)))};
}

TorsionalForces OwnTorsionalForces(const Inputs& in, const SectionRecord& section,
                                   const Stability& stability)
{
    const double length =
        in.ltb == 1 ? static_cast<double>(in.ltbk) * in.l / (in.restraints + 1) : in.l;
    return TorsionalForcesAt(in, section, stability, length);
}

double ReductionFactor(double lam, double alpha)
{
    if (!(lam > 0.2)) {
        return 1.0;
    }
    const double phi = 0.5 * (1.0 + alpha * (lam - 0.2) + lam * lam);
    // An imperfection factor of zero lets the root round below zero at a slenderness of 1.
    const double root = std::sqrt(std::max(0.0, phi * phi - lam * lam));
    return std::min(1.0, 1.0 / (phi + root));
}

// EN 1993-1-1, 6.3.1.2, Eq (6.49), and 6.3.1.4; BB.1.2.
//   in   l [m], ly, lz [-], a, aeff [mm2], iy, iz, iu, iv, it [mm4], iw [mm6], e, fyk [MPa],
//   classn,
//        alphay, alphaz, nrdm1 [kN], lopt, lt [m], distances of the shear centre [mm]
//   out  ncry .. ncrtf, nbyrd .. nburd [kN]; lamy .. lammax, chiy .. chiu [-]
// Deviations D206 to D209, D228: see above.
// Deviation D237: ly and lz are the factors as chosen, 1.0 after the choice of a cantilever; the
// critical force of 6.3.1.2 (1) then belongs to a member that is held at both ends.
void BucklingResistance(const Inputs& in, const SectionRecord& section,
                        const Resistances& resistances, const Carry& carry, Stability& stability)
{
    stability.ncry = EulerForce(in, in.ly, section.iy);
    stability.lamy =
        ConnectedLeg(in, std::sqrt(SquashForce(in, section) / (stability.ncry * 1000.0)), 0.5);
    stability.chiy = ReductionFactor(stability.lamy, carry.alphay);
    stability.nbyrd = stability.chiy * resistances.nrdm1;

    stability.ncrz = EulerForce(in, in.lz, section.iz);
    stability.lamz =
        ConnectedLeg(in, std::sqrt(SquashForce(in, section) / (stability.ncrz * 1000.0)), 0.5);
    stability.chiz = ReductionFactor(stability.lamz, carry.alphaz);
    stability.nbzrd = stability.chiz * resistances.nrdm1;

    stability.lammax = std::max(stability.lamy, stability.lamz);
    if (Is(in, Kind::angle)) {
        PrincipalAxes(in, section, resistances, carry, stability);
    }
    StoreTorsionalForces(in, section, carry, stability);
}

}  // namespace kestrum
