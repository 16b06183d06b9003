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

void FillTable(const ProjectState& s, const Span& span, LoadTable& table)
{
    for (std::size_t k = 0; k <= 4; ++k) {
        if (s.qload[k] != 0) {
            ActingLoad& load = Append(table, AxisOf(s.qdir[k]), s.qtype[k], s.qchecked[k]);
            UniformLines(span, s.qload[k], load.lines);
        }
    }
    for (std::size_t k = 1; k <= 8; ++k) {
        if (s.pm[k] != 0) {
            ActingLoad& load = Append(table, AxisOf(s.pmdir[k]), s.pmtype[k], s.pmchecked[k]);
            (s.pmkind[k] == 0 ? ForceLines : MomentLines)(span, s.pm[k], s.pmx[k], load.lines);
        }
    }
    for (std::size_t k = 1; k <= 3; ++k) {
        if (s.qt1[k] != 0 || s.qt2[k] != 0) {
            ActingLoad& load =
                Append(table, AxisOf(s.qtdir[k]), CategoryOf(s.qttype[k]), s.qtchecked[k]);
            TrapezoidLines(span, s.qt1[k], s.qt2[k], s.qtx1[k], s.qtx2[k], load.lines);
        }
    }
}

}  // namespace kestrum
