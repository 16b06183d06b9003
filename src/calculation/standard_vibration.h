#pragma once

// Natural frequencies by the standards as written, with the masses that move.

#include "core/project_state.h"
#include "document/document.h"
#include "standard/vibration.h"

namespace kestrum {

// Table of the loads, with the share of each that moves in the first `modes` modes.
void AddMovedLoads(const standard::VibrationStudy& study, std::size_t modes, Document& d);
// Mass of the member with its loads, over its length.
void AddMeanMass(const ProjectState& s, const standard::VibrationStudy& study, double mass,
                 Document& d);
// Moved mass and frequency of a mode; `symbol` of the frequency.
void AddStandardFrequency(const ProjectState& s, const standard::VibrationStudy& study,
                          std::size_t mode, const std::string& symbol, double frequency,
                          const char* clause, Document& d);

}  // namespace kestrum
