#pragma once

// The effective section of class 4 as a picture: the parts that count, those that are lost, and how
// far the centroid moves.

#include "core/project_state.h"
#include "document/document.h"
#include "standard/effective_study.h"

namespace kestrum {

// In `compression` where that is asked for, and under each sign of My that acts.
void AddEffectiveFigures(const ProjectState& s, const standard::EffectiveStudy& study,
                         bool compression, Document& d);

}  // namespace kestrum
