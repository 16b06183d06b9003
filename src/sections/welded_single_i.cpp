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
void SetTorsion(ProjectState& s)
{
    const double itop = std::pow(s.btop, 3.0) * s.ttop / 12;
    const double ibot = std::pow(s.bbot, 3.0) * s.tbot / 12;
    const double hs = s.h - s.ttop / 2.0 - s.tbot / 2.0;  // flange centres
    const double both = itop + ibot;
    const double beta = itop / both;
    s.iw = F32(itop * ibot * hs * hs / both);
    s.betaf = F32(beta);
    s.zshear = F32(beta * hs + s.tbot / 2.0 - s.zcog);
    s.psiftop = F32((itop - ibot) / both);
    s.psifbot = F32((ibot - itop) / both);
    s.zjtop = F32(AsymmetryParameter(beta, hs));
    s.zjbot = F32(AsymmetryParameter(ibot / both, hs));
}

}  // namespace

// Welded I of three plates with unequal flanges.
//   in   p22 [mm]; density [kg/m3]
//   out  geometry [mm], properties [mm], weight [kg/m], surface [m2/m]
// Deviation D186 (zpl, wply).
void PropertiesSingleSymmetricI(const Library&, ProjectState& s)
{
    ClearSection(s);
    s.h = s.p22.isth;
    s.btop = s.p22.istb1;
    s.bbot = s.p22.istb2;
    s.tw = s.p22.isttw;
    s.ttop = s.p22.isttf1;
    s.tbot = s.p22.isttf2;
    SetWeldedWeb(s, 1.0 * s.h - s.ttop - s.tbot);

    const double btop = s.btop, ttop = s.ttop, bbot = s.bbot, tbot = s.tbot;
    const double h = s.h, tw = s.tw, hw = s.hw;
    s.ctop = F32((btop - tw - 2.0 * s.r) / 2);
    s.cbot = F32((bbot - tw - 2.0 * s.r) / 2);
    s.cflange = std::max(s.ctop, s.cbot);

    const Plate plates[] = {
        {bbot, tbot, 0, 0},
        {tw, hw, tbot, 0},
        {btop, ttop, h - ttop, 0},
    };
    StoreFromBelow(s, plates);
    s.wplz = F32(tw * tw * hw / 4 + btop * btop * ttop / 4 + bbot * bbot * tbot / 4);
    s.surface = F32((2 * (btop + bbot + h) - 2 * tw) / 1000);
    SetTorsion(s);
}

}  // namespace kestrum
