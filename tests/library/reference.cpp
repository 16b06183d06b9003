#include "library/reference.h"

#include "core/project_file.h"
#include "core/project_state.h"
#include "engine/calculate.h"
#include "engine/new_project.h"
#include "report/outcome.h"
#include "report/state_json.h"
#include "sections/load_library.h"
#include "standard/standard.h"

#include <gtest/gtest.h>

Reference ReferenceOf(const std::string& project)
{
    static const kestrum::Library library = kestrum::LoadLibrary(std::string(KESTRUM_SHARE));
    kestrum::ProjectState s = kestrum::StartState(library);
    EXPECT_FALSE(kestrum::ReadProject(s, project));
    const auto standard = kestrum::standard::CalculateStandard(library, s);
    Reference reference;
    reference.project = kestrum::WriteProject(s);
    const bool well = kestrum::Calculate(library, s);
    kestrum::MeasureNotes(library, s);
    const kestrum::Outcome outcome = kestrum::OutcomeOf(s, well);
    reference.ir = outcome.ir;
    reference.control = outcome.control;
    reference.verdict = kestrum::VerdictText(outcome);
    reference.json = kestrum::StateJson(s);
    reference.notes = outcome.notes.size();
    reference.rated_by_standard = standard.rated;
    reference.ir_standard = standard.ir;
    return reference;
}
