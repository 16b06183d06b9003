#pragma once

// The checks by EN 1993-1-1 as written with their terms, as the pass of the standard found them.

#include "core/library.h"
#include "core/project_state.h"
#include "document/document.h"
#include "standard/result.h"

namespace kestrum {

// What leads to the ratio of the check, and the ratio. `input`: as read.
void AddStandardCheck(const Library& library, const ProjectState& input, standard::CheckId id,
                      const standard::Check& check, Document& d);

}  // namespace kestrum
