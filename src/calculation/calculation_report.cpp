#include "calculation/calculation_report.h"

#include "calculation/chapters.h"
#include "engine/calculate.h"
#include "report/page_header.h"
#include "standard/costs.h"

namespace kestrum {

namespace {

CalculatedMember CalculateMember(const Library& library, const ProjectState& project)
{
    CalculatedMember m{.library = library,
                       .input = project,
                       .s = project,
                       .outcome = {},
                       .standard = {},
                       .stages = {}};
    const bool well = Calculate(library, m.s);
    m.outcome = OutcomeOf(m.s, well);
    m.standard = standard::CalculateStandard(library, project);
    standard::CalculateCosts(library, project, well ? &m.s : nullptr, m.standard);
    m.stages = StagesOf(m.s);
    return m;
}

}  // namespace

Document CalculationReport(const Library& library, const ProjectState& project)
{
    const CalculatedMember m = CalculateMember(library, project);
    Document d;
    d.head.project = project.projname;
    d.head.ident = project.ident;
    d.head.title = "Calculation report: " + ProfileText(library, m.s, false);
    d.Member(d.head.title);
    AddVerdict(m, d);
    AddInputs(m, d);
    AddSection(m, d);
    AddActions(m, d);
    if (m.outcome.designed()) {
        AddForces(m, d);
        AddResistances(m, d);
    }
    AddSectionChecks(m, d);
    AddFlexuralBuckling(m, d);
    AddLateralBuckling(m, d);
    AddInteraction(m, d);
    AddMemberChecks(m, d);
    AddServiceability(m, d);
    AddReactions(m, d);
    AddNotes(m, d);
    AddClauses(d);
    return d;
}

}  // namespace kestrum
