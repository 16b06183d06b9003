#pragma once

// The stored setup: the design settings that the next start begins with.

#include "core/file_notation.h"

#include <optional>
#include <string>
#include <string_view>

namespace kestrum {

struct ProjectState;

constexpr std::string_view kSetupFile = "KestrumEC3Setup.dat";
constexpr std::string_view kMaterialFile = "KestrumECmat.dat";

// Reads what is there; fields behind a fault keep their values. A last value without a line end is
// a fault: it may be a part of one. A stored setup with a fault is not used
// (sections/load_library).
std::optional<FileFault> ReadSetup(ProjectState& s, std::string_view bytes);

std::string WriteSetup(ProjectState& s);

// The setup as delivered, for one that is damaged where no other is at hand.
std::string DeliveredSetup();

}  // namespace kestrum
