#pragma once

// The delivered data: where it lies, and how it becomes the library of a run.

#include "core/library.h"

#include <string>
#include <vector>

namespace kestrum {

// The user's data folder, into which a stored setup goes: the folder named by KESTRUM_DATA, else
// kestrum-ec3 under XDG_DATA_HOME or ~/.local/share. On Windows the fixed folder of the product.
std::string UserDataFolder();

// The folders in which data is looked for: the user's, then the share folder beside the program
// (installed or build tree), then those of XDG_DATA_DIRS. On Windows the fixed folder alone.
std::vector<std::string> DataFolders();

// Each file from the first folder that has it. Of a file that no folder has, tables stay zero, the
// material list and the setup empty; nothing is reported here.
Library LoadLibrary(const std::vector<std::string>& folders);
Library LoadLibrary(const std::string& folder);

}  // namespace kestrum
