#pragma once

// What differs from platform to platform. Each platform has one file that answers all of it.

#include <QString>

#include <string>

class QObject;

namespace kestrum {

// The raw command line behind the program's name. Windows hands it over as it was typed; elsewhere
// one argument is put back into the quotes that the shell took away. Empty without arguments.
std::string RawCommandLine(int argc, char** argv);

// Folder of the manuals, with its separator at the end.
QString ManualFolder();

}  // namespace kestrum
