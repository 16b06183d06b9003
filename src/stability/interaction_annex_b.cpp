#include "stability/interaction_annex_b.h"

#include "core/arithmetic_trap.h"
#include "sections/families.h"

#include <algorithm>
#include <cmath>

namespace kestrum {
namespace {

// What Table B.3 asks about a moment diagram.
struct Flags {
    bool curved, span, linear;  // span: the mid moment exceeds both end moments in size
};
struct Ratios {
    double psi;
    double end;   // alpha_h, end moment over mid moment
    double peak;  // alpha_s, mid moment over end moment
};

bool SpanGoverns(double mid, double first, double last)
{
    return std::abs(mid) > std::abs(first) && std::abs(mid) > std::abs(last);
}

double Cm(const Flags& flags, const Ratios& ratios)
{
    const double psi = ratios.psi;
    if (flags.linear) {
        return std::max(0.4, 0.6 + 0.4 * psi);
    }
    if (flags.span) {
        const double end = ratios.end;
        const double turned = end < 0 && psi < 0 ? 1.0 + 2.0 * psi : 1.0;
        return flags.curved ? 0.95 + 0.05 * end * turned : 0.9 + 0.1 * end * turned;
    }
    const double peak = ratios.peak;
    if (peak >= 0) {
        return std::max(0.4, 0.2 + 0.8 * peak);
    }
    if (psi >= 0) {
        return std::max(0.4, (flags.curved ? 0.1 : 0.0) - 0.8 * peak);
    }
    return std::max(0.4, (flags.curved ? 0.1 * (1.0 - psi) : 0.2 * -psi) - 0.8 * peak);
}

double Capped(double cm, double slope, double ceiling, double n)
{
    return std::min(cm * (1.0 + slope * n), cm * (1.0 + ceiling * n));
}

// Table B.2, members prone to torsional deformation.
double KzyTorsion(const Stability& stability, double factor, double n)
{
    const double divisor = stability.cmlt - 0.25;
    return std::max(1.0 - factor * stability.lamz / divisor * n, 1.0 - factor / divisor * n);
}

}  // namespace

// Table B.3. An axis without loads takes the shape flags, not the ratios, of the other one.
//   in   shape flags and ratios of both axes, my0, mymid, myl and twins [kNm], hasyloads,
//   haszloads,
//        openprofile
//   out  cmy, cmz, cmlt; copied flags
//
// Deviation D221: the ratios take the smaller of the two end moments; Mh of Table B.3 is the
// larger. Pinned-fixed members get 0.40 where the table gives 0.50 (uniform) and 0.67 (point load).
void CmAnnexBLoads(const SectionRecord& section, Forces& forces, Stability& stability)
{
    bool spany = SpanGoverns(forces.mymid, forces.my0, forces.myl);
    bool spanz = SpanGoverns(forces.mzmid, forces.mz0, forces.mzl);
    if (forces.hasyloads == kFalse) {
        forces.mycurved = forces.mzcurved;
        forces.mylinear = forces.mzlinear;
        spany = spanz;
    }
    stability.cmy = Cm({forces.mycurved == kTrue, spany, forces.mylinear == kTrue},
                       {forces.psiy, forces.myendratio, forces.mypeakratio});
    stability.cmlt = section.openprofile == kTrue ? F32(stability.cmy) : 1.0f;
    if (forces.haszloads == kFalse) {
        forces.mzcurved = forces.mycurved;
        forces.mzlinear = forces.mylinear;
        spanz = spany;
    }
    stability.cmz = Cm({forces.mzcurved == kTrue, spanz, forces.mzlinear == kTrue},
                       {forces.psiz, forces.mzendratio, forces.mzpeakratio});
}

// Deviation D222: 0.6 for any pair of end moments, the value of psi = 0; Table B.3 gives 0.6 + 0.4
// psi, up to 1.0 for equal ones.
void CmAnnexBForces(Stability& stability)
{
    stability.cmy = 0.6;
    stability.cmz = 0.6;
    stability.cmlt = 0.6f;
}

// EN 1993-1-1, Tables B.1, B.2.
//   in   ned, nbyrd, nbzrd [kN], lamy, lamz, cmy, cmz, cmlt, classmy, ltb
//   out  kyy, kyz, kzy, kzz
//
// Deviation D223: the class of My alone picks the column; the standard takes the class of the
// section. Deviation D224: the single-symmetric I (22) has no kzz in class 1 and 2; it keeps the
// value of the run before, 0 after a start, and kyz with it. Deviation D225: kzy has no branch for
// lamz below 0.4 (0.6 + lamz in Table B.2). Deviation D248: above a critical force the factors go
// on; 6.3.3 holds for members that have not buckled.
void KFactorsAnnexB(const Inputs& in, const SectionRecord& section, const Forces& forces,
                    Stability& stability, Carry& carry)
{
    const double ny = forces.ned / stability.nbyrd;
    const double nz = forces.ned / stability.nbzrd;
    if (section.classmy > 2) {
        stability.kyy = Capped(stability.cmy, 0.6 * stability.lamy, 0.6, ny);
        stability.kzy = in.ltb == 1 ? KzyTorsion(stability, 0.05, nz) : 0.8 * stability.kyy;
        carry.kzz = Capped(stability.cmz, 0.6 * stability.lamz, 0.6, nz);
        stability.kyz = carry.kzz;
        return;
    }
    stability.kyy = Capped(stability.cmy, stability.lamy - 0.2, 0.8, ny);
    stability.kzy = in.ltb == 1 ? KzyTorsion(stability, 0.1, nz) : 0.6 * stability.kyy;
    const InteractionColumn column = Traits(in).design.interaction;  // others have no plastic kzz
    if (column == InteractionColumn::i_section) {
        carry.kzz = Capped(stability.cmz, 2.0 * stability.lamz - 0.6, 1.4, nz);
    } else if (column == InteractionColumn::hollow) {
        carry.kzz = Capped(stability.cmz, stability.lamz - 0.2, 0.8, nz);
    }
    stability.kyz = 0.6 * carry.kzz;
}

}  // namespace kestrum
