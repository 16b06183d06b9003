#include "analysis/load_table.h"

#include "core/arithmetic_trap.h"

#include <cstddef>

namespace kestrum {

namespace {

BendingAxis AxisOf(float direction)
{
    return direction == 1 ? BendingAxis::y : direction == 0 ? BendingAxis::z : BendingAxis::none;
}

ActingLoad& Append(LoadTable& table, BendingAxis axis, int category, i16 checked)
{
    ActingLoad& load = table.load[CheckedIndex(table.count++, table.load.size())];
    load.axis = axis;
    load.category = category;
    load.checked = checked != 0;
    return load;
}

}  // namespace

int CategoryOf(float category)
{
    return category == 0 ? 0 : category == 1 ? 1 : category == 2 ? 2 : -1;
}

double FactorOf(const LoadFactors& f, int category)
{
    return category == 0 ? f.g : category == 1 ? f.q1 : category == 2 ? f.q2 : 0;
}

void FillTable(const Inputs& in, const Span& span, LoadTable& table)
{
    for (std::size_t k = 0; k <= 4; ++k) {
        if (in.qload[k] != 0) {
            ActingLoad& load = Append(table, AxisOf(in.qdir[k]), in.qtype[k], in.qchecked[k]);
            UniformLines(span, in.qload[k], load.lines);
        }
    }
    for (std::size_t k = 1; k <= 8; ++k) {
        if (in.pm[k] != 0) {
            ActingLoad& load = Append(table, AxisOf(in.pmdir[k]), in.pmtype[k], in.pmchecked[k]);
            (in.pmkind[k] == 0 ? ForceLines : MomentLines)(span, in.pm[k], in.pmx[k], load.lines);
        }
    }
    for (std::size_t k = 1; k <= 3; ++k) {
        if (in.qt1[k] != 0 || in.qt2[k] != 0) {
            ActingLoad& load =
                Append(table, AxisOf(in.qtdir[k]), CategoryOf(in.qttype[k]), in.qtchecked[k]);
            TrapezoidLines(span, in.qt1[k], in.qt2[k], in.qtx1[k], in.qtx2[k], load.lines);
        }
    }
}

}  // namespace kestrum
