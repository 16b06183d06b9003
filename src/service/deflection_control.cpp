#include "service/deflection_control.h"

#include <cmath>

namespace kestrum {

namespace {

void FillRow(const Inputs& in, double max, double min, i16 limitratio, Literal label,
             ResultRow& row)
{
    const i16 status = row.status;
    row = {};
    row.status = status;
    if (max == 0 && min == 0) {
        return;
    }
    const double limit = in.l * 1000.0 / limitratio;  // mm
    const double d = max > std::abs(min) ? max : min;
    row.label = {label};
    row.calculation = {"{F}/{F} = "};
    row.number = {d, limit};
    row.ir = std::abs(d / limit);
    row.judged = true;
    row.status = row.ir <= in.irlimit ? kWithin : kAbove;
}

}  // namespace

void DeflectionControl(const Inputs& in, const Forces& forces, Service& service)
{
    FillRow(in, forces.dzmax, forces.dzmin, in.deflimitz, "IR = dz/dzMax = ", service.deflinez);
    FillRow(in, forces.dymax, forces.dymin, in.deflimity, "IR = dy/dyMax = ", service.defliney);
}

}  // namespace kestrum
