#include "service/deflection_control.h"

#include <cmath>

namespace kestrum {

namespace {

// Deviation D260: angles bend about y and z by Iy and Iz alone; their product of inertia couples
// both where nothing holds the member sideways (EN 1993-1-1, 5.4.2). Deviation D261: the largest
// deflection is that of 51 points; the line has its extreme between them (EN 1990, A1.4.3).
void TakeDeflection(const Inputs& in, double max, double min, i16 limitratio, CheckId id,
                    CheckForm form, SectionChecks& checks)
{
    if (max == 0 && min == 0) {
        return;
    }
    const double limit = in.l * 1000.0 / limitratio;  // mm
    const double d = max > std::abs(min) ? max : min;
    Check& check = checks.checklist.Govern(id);
    check.form = form;
    check.terms = {d, limit};
    check.Judge(std::abs(d / limit), in.irlimit);
}

}  // namespace

void DeflectionControl(const Inputs& in, const Forces& forces, SectionChecks& checks)
{
    checks.checklist.Clear<ResultRow::deflection_z, ResultRow::deflection_y>();
    TakeDeflection(in, forces.dzmax, forces.dzmin, in.deflimitz, CheckId::deflection_z,
                   CheckForm::deflection_z, checks);
    TakeDeflection(in, forces.dymax, forces.dymin, in.deflimity, CheckId::deflection_y,
                   CheckForm::deflection_y, checks);
}

}  // namespace kestrum
