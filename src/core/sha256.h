#pragma once

// SHA-256 (FIPS 180-4) of a byte string as 64 hexadecimal digits. It says whether a file of the
// data is the delivered one.

#include <string>
#include <string_view>

namespace kestrum {

std::string Sha256(std::string_view bytes);

}  // namespace kestrum
