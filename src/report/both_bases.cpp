#include "report/both_bases.h"

#include "core/project_state.h"
#include "engine/calculate.h"
#include "report/design_notes.h"
#include "standard/costs.h"

namespace kestrum {

namespace {

// `s`: after the pass, which ended `well` or not.
standard::StandardResult Measure(const Library& library, const ProjectState& read, bool well,
                                 ProjectState& s)
{
    standard::StandardResult result = standard::CalculateStandard(library, read);
    standard::CalculateCosts(library, read, well ? &s : nullptr, result);
    KeepNotes(result, s);
    return result;
}

}  // namespace

BothBases CalculateBoth(const Library& library, const ProjectState& read, ProjectState& s)
{
    const bool well = Calculate(library, s);
    return {well, Measure(library, read, well, s)};
}

standard::StandardResult MeasureStandard(const Library& library, ProjectState& s)
{
    return Measure(library, AsGiven(s), !s.calculationerror, s);
}

}  // namespace kestrum
