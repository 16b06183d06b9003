#include "sections/welded_record.h"

#include "core/arithmetic_trap.h"
#include "sections/section_record.h"

#include <algorithm>

namespace kestrum {

namespace {

// `top`: distance of the top fibre from the centroid, mm.
void Store(ProjectState& s, std::span<const Plate> plates, const PlateSums& sums, double top)
{
    s.a = F32(sums.a);
    s.ey = F32(sums.ey);
    s.ez = F32(sums.zcog);
    s.zcog = F32(sums.zcog);
    s.iy = F32(sums.iy);
    s.iz = F32(sums.iz);
    s.it = F32(sums.it);
    s.wyeltop = F32(sums.iy / top);
    s.wyelbot = F32(sums.iy / (sums.height - top));
    s.wely = std::min(s.wyeltop, s.wyelbot);
    s.welz = F32(sums.iz / sums.ymax);
    s.wply = F32(PlasticModulus(plates, s.zpl));
    s.tmax = std::max({s.ttop, s.tbot, s.tw});
    SetPartAreas(s);
    SetWeight(s);
}

}  // namespace

void SetWeldedWeb(ProjectState& s, double hw)
{
    s.hw = F32(hw);
    s.r = F32(std::max(0.5 * s.tw, 4.0));
    s.d = F32(s.hw - 2.0 * s.r);
}

void StoreFromBelow(ProjectState& s, std::span<const Plate> plates)
{
    const PlateSums sums = SumPlates(plates);
    s.b = F32((1.0 * s.btop + s.bbot) / 2);
    s.tf = F32((1.0 * s.ttop + s.tbot) / 2);
    s.zpl = SteppedPlasticAxis(plates);
    Store(s, plates, sums, sums.height - sums.zcog);
}

void StoreFromFace(ProjectState& s, std::span<const Plate> plates)
{
    const PlateSums sums = SumPlates(plates);
    s.b = s.btop;
    s.tf = s.ttop;
    s.zpl = ExactPlasticAxis(plates);
    Store(s, plates, sums, sums.zcog);
}

}  // namespace kestrum
