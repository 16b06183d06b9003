#pragma once

// What the delivered data is: the build writes the SHA-256 of every table and of the material list
// into the program.

#include <string_view>

namespace kestrum {

// Whether a file of this name is delivered with this SHA-256 (64 hexadecimal digits).
bool IsDelivered(std::string_view name, std::string_view sha256);

}  // namespace kestrum
