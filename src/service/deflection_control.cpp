#include "service/deflection_control.h"

#include <cmath>

namespace kestrum {

namespace {

void FillRow(const ProjectState& s, double max, double min, i16 limitratio, Literal label,
             ResultRow& row)
{
    const i16 status = row.status;
    row = {};
    row.status = status;
    if (max == 0 && min == 0) {
        return;
    }
    const double limit = s.l * 1000.0 / limitratio;  // mm
    const double d = max > std::abs(min) ? max : min;
    row.label = {label};
    row.calculation = {"{F}/{F} = "};
    row.number = {d, limit};
    row.ir = std::abs(d / limit);
    row.judged = true;
    row.status = row.ir <= s.irlimit ? kWithin : kAbove;
}

}  // namespace

void DeflectionControl(ProjectState& s)
{
    FillRow(s, s.dzmax, s.dzmin, s.deflimitz, "IR = dz/dzMax = ", s.deflinez);
    FillRow(s, s.dymax, s.dymin, s.deflimity, "IR = dy/dyMax = ", s.defliney);
}

}  // namespace kestrum
