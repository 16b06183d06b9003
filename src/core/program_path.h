#pragma once

// Where this program lies: what belongs to it is found from there, and by an absolute path only.

#include <filesystem>

namespace kestrum {

// The absolute path of the program, links followed; empty when the system does not say.
std::filesystem::path ProgramPath();

}  // namespace kestrum
