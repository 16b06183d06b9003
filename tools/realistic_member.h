#pragma once

// Members as engineers design them, drawn at random: section, length, supports, loads, as inputs of
// a new project.

#include "core/library.h"

#include <string>
#include <vector>

namespace kestrum {

// As `kestrum new --set` takes them.
struct Entry {
    std::string name, value;
};
using Entries = std::vector<Entry>;

// Loads are of size one to ten, for the caller to scale. The same for the same seed.
Entries RealisticMember(const Library& library, unsigned seed);

}  // namespace kestrum
