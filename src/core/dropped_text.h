#pragma once

// The words for a load that was left out, without the field it was entered in.

#include <string>

namespace kestrum {

struct DroppedLoad;

// "axial force 3000 kN (G)".
std::string LoadText(const DroppedLoad& load);

}  // namespace kestrum
