#include "sections/welded_single_i.h"

#include "core/arithmetic_trap.h"
#include "sections/section_record.h"
#include "sections/welded_record.h"

#include <algorithm>
#include <cmath>

namespace kestrum {

namespace {

// z_j of the flange with the share beta of the flanges' second moment, for the compression in that
// flange.
//
// Deviation D57: z_j is approximated by 0.4 or 0.5 (2 beta - 1) hs; 6.3.2.2 (2) takes the elastic
// critical moment, whose z_j is the distance of the shear centre less half of the integral of (y^2
// + z^2) z over Iy.
double AsymmetryParameter(double beta, double hs)
{
    return (2 * beta - 1) * (beta > 0.5 ? 0.4 : 0.5) * hs;
}

// Values of lateral torsional buckling: iw, betaf, zshear, zj and psif per sign.
void SetTorsion(SectionRecord& section)
{
    const double itop = std::pow(section.btop, 3.0) * section.ttop / 12;
    const double ibot = std::pow(section.bbot, 3.0) * section.tbot / 12;
    const double hs = section.h - section.ttop / 2.0 - section.tbot / 2.0;  // flange centres
    const double both = itop + ibot;
    const double beta = itop / both;
    section.iw = F32(itop * ibot * hs * hs / both);
    section.betaf = F32(beta);
    section.zshear = F32(beta * hs + section.tbot / 2.0 - section.zcog);
    section.psiftop = F32((itop - ibot) / both);
    section.psifbot = F32((ibot - itop) / both);
    section.zjtop = F32(AsymmetryParameter(beta, hs));
    section.zjbot = F32(AsymmetryParameter(ibot / both, hs));
}

}  // namespace

// Welded I of three plates with unequal flanges.
//   in   p22 [mm]; density [kg/m3]
//   out  geometry [mm], properties [mm], weight [kg/m], surface [m2/m]
// Deviation D186 (zpl, wply).
void PropertiesSingleSymmetricI(const Library&, const Inputs& in, SectionRecord& section)
{
    ClearSection(section);
    section.h = in.p22.isth;
    section.btop = in.p22.istb1;
    section.bbot = in.p22.istb2;
    section.tw = in.p22.isttw;
    section.ttop = in.p22.isttf1;
    section.tbot = in.p22.isttf2;
    SetWeldedWeb(section, 1.0 * section.h - section.ttop - section.tbot);

    const double btop = section.btop, ttop = section.ttop, bbot = section.bbot, tbot = section.tbot;
    const double h = section.h, tw = section.tw, hw = section.hw;
    section.ctop = F32((btop - tw - 2.0 * section.r) / 2);
    section.cbot = F32((bbot - tw - 2.0 * section.r) / 2);
    section.cflange = std::max(section.ctop, section.cbot);

    const Plate plates[] = {
        {bbot, tbot, 0, 0},
        {tw, hw, tbot, 0},
        {btop, ttop, h - ttop, 0},
    };
    StoreFromBelow(in, section, plates);
    section.wplz = F32(tw * tw * hw / 4 + btop * btop * ttop / 4 + bbot * bbot * tbot / 4);
    section.surface = F32((2 * (btop + bbot + h) - 2 * tw) / 1000);
    SetTorsion(section);
}

}  // namespace kestrum
