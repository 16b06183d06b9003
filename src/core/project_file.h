#pragma once

// The project file: all inputs of one member as text, one value a line, the type and number of
// values following from the version in front and from values earlier in the file.
// docs/file-format.md tells the layout.

#include "core/file_notation.h"

#include <optional>
#include <string>
#include <string_view>

namespace kestrum {

struct ProjectState;

constexpr i16 kFileVersion = 131;

// Reads every field and then settles what follows from them: psi values, annex index, the factors
// of the annex (which replace those of the file, except with the user-defined annex). At a fault
// the fields read so far stay in the record and nothing is settled. Checks no limits; the caller
// calculates.
std::optional<FileFault> ReadProject(ProjectState& s, std::string_view bytes);

// The file of the record, annexcode refreshed from annexindex.
//
// The seventh value of a family 24 block is written from p25.istc and read into p24.hsqc.
std::string WriteProject(ProjectState& s);

}  // namespace kestrum
