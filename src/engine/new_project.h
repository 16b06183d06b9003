#pragma once

// The state of a new project and of the program at its start.

#include "core/library.h"
#include "core/project_state.h"

namespace kestrum {

// Every input at its default: HEA row 10, 5 m, N 100 kN, q 10 kN/m. The design settings (factors,
// annex, material, combination, limits) keep what they are. One pass runs part way, still with the
// family before; the caller runs the next.
void NewProject(const Library& library, ProjectState& s);

// The load rows and the given end forces of a new project. A project file holds one of the two; the
// other must not be that of the project before.
void ResetLoadRows(ProjectState& s);
void ResetEndForces(ProjectState& s);

// Start of the program on a value-initialised record: a new project, then the stored setup and the
// factors of its annex. Without a setup the settings are zero and the annex is the first.
void StartUp(const Library& library, ProjectState& s);

}  // namespace kestrum
