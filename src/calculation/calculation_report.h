#pragma once

// The calculation report of a member: everything that a checker needs to retrace the result, by the
// rules of the program and by EN 1993-1-1 as written.

#include "core/library.h"
#include "document/document.h"

namespace kestrum {

struct ProjectState;

// `project` as read; it is not changed.
Document CalculationReport(const Library& library, const ProjectState& project);

}  // namespace kestrum
