#pragma once

#include <string>
#include <string_view>

namespace kestrum {

// RFC 4648, with padding.
std::string Base64(std::string_view bytes);

}  // namespace kestrum
