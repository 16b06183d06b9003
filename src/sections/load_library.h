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

// Each file from the first folder that has it whole: a damaged one is passed over, and `faults`
// says so. Where no folder has it whole, of a table and of the lists what is there is taken, and of
// the setup the delivered values; where no folder has it at all, tables stay zero, lists and setup
// empty. `own` names the tables and lists that are not the delivered ones; in a folder behind the
// first, the user's, that is a fault as well.
Library LoadLibrary(const std::vector<std::string>& folders);
Library LoadLibrary(const std::string& folder);

// From the folders of DataFolders. A folder in KESTRUM_DATA that is missing or lacks tables is a
// fault.
Library LoadUsualLibrary();

// "own data: hea.dat (SHA-256 0123456789abcdef), KestrumECmat.dat (...)"; empty when all is the
// delivered one.
std::string OwnDataText(const Library& library);

}  // namespace kestrum
