#pragma once

// The state of a new project and of the program at its start.

#include "core/file_notation.h"
#include "core/held_state.h"
#include "core/library.h"

#include <optional>
#include <string_view>

namespace kestrum {

struct ProjectState;

// Every input at its default: HEA row 10, 5 m, N 100 kN, q 10 kN/m. The design settings (factors,
// annex, material, combination, limits) keep what they are. One pass runs part way, still with the
// family before; the caller runs the next.
void NewProject(const Library& library, ProjectState& s);

// Start of the program on a value-initialised record: a new project, then the stored setup and the
// factors of its annex. Without a setup the settings are zero and the annex is the first.
void StartUp(const Library& library, ProjectState& s);

// What a project file is read onto: the record after a start. So nothing of an earlier project is
// left in it, neither a result that a pass keeps nor a row, section form or curve parameter that
// the file does not hold, and a file gives the same result whatever was open before.
HeldState StartState(const Library& library);

// The project of a file, read onto that. A fault leaves what comes before it.
std::optional<FileFault> ReadFresh(const Library& library, ProjectState& s, std::string_view bytes);

}  // namespace kestrum
