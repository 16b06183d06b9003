#pragma once

// The version of the product. CMakeLists.txt reads it from here for packages and manuals.

#include <string_view>

namespace kestrum {

constexpr std::string_view kVersion = "1.3.1";

}  // namespace kestrum
