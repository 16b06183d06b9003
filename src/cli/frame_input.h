#pragma once

// Tables of members and of their forces, for the commands that read them.

#include "app/force_table.h"
#include "cli/commands.h"
#include "cli/force_reader.h"

#include <string>
#include <vector>

namespace kestrum::cli {

// By --sign, --swap-axes and --map. Throws BadInput.
ForceManner MannerOf(const FrameArguments& arguments);

// Both tables are there, are no spreadsheets and not one file; there may be no forces. Throws
// BadInput.
void RequireTables(const FrameArguments& arguments);

// The files that the answers named so are written to; "-" for standard output.
std::vector<std::string> WrittenFor(const std::string& out);

// Throws BadInput when one of these would be written over an input.
void SpareTables(const FrameArguments& arguments, const std::vector<std::string>& written);

// What the table of forces says of itself, for the user to see that it was understood.
void Tell(const Options& options, const ForceReader& forces);

}  // namespace kestrum::cli
