#include "sections/welded_record.h"

#include "core/arithmetic_trap.h"
#include "sections/section_record.h"

#include <algorithm>

namespace kestrum {

namespace {

// `top`: distance of the top fibre from the centroid, mm.
void Store(const Inputs& in, SectionRecord& section, std::span<const Plate> plates,
           const PlateSums& sums, double top)
{
    section.a = F32(sums.a);
    section.ey = F32(sums.ey);
    section.ez = F32(sums.zcog);
    section.zcog = F32(sums.zcog);
    section.iy = F32(sums.iy);
    section.iz = F32(sums.iz);
    section.it = F32(sums.it);
    section.wyeltop = F32(sums.iy / top);
    section.wyelbot = F32(sums.iy / (sums.height - top));
    section.wely = std::min(section.wyeltop, section.wyelbot);
    section.welz = F32(sums.iz / sums.ymax);
    section.wply = F32(PlasticModulus(plates, section.zpl));
    section.tmax = std::max({section.ttop, section.tbot, section.tw});
    SetPartAreas(section);
    SetWeight(in, section);
}

}  // namespace

void SetWeldedWeb(SectionRecord& section, double hw)
{
    section.hw = F32(hw);
    section.r = F32(std::max(0.5 * section.tw, 4.0));
    section.d = F32(section.hw - 2.0 * section.r);
}

void StoreFromBelow(const Inputs& in, SectionRecord& section, std::span<const Plate> plates)
{
    const PlateSums sums = SumPlates(plates);
    section.b = F32((1.0 * section.btop + section.bbot) / 2);
    section.tf = F32((1.0 * section.ttop + section.tbot) / 2);
    section.zpl = SteppedPlasticAxis(plates);
    Store(in, section, plates, sums, sums.height - sums.zcog);
}

void StoreFromFace(const Inputs& in, SectionRecord& section, std::span<const Plate> plates)
{
    const PlateSums sums = SumPlates(plates);
    section.b = section.btop;
    section.tf = section.ttop;
    section.zpl = ExactPlasticAxis(plates);
    Store(in, section, plates, sums, sums.zcog);
}

}  // namespace kestrum
