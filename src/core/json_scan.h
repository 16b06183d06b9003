#pragma once

// Where a JSON value ends (RFC 8259), for texts that are passed on as they stand.

#include <cstddef>
#include <string_view>

namespace kestrum {

// The length of the value at the front of the text; 0 when no value begins there, when it is not
// closed, or when its lists and objects are nested deeper than anybody means.
std::size_t JsonValueLength(std::string_view text);

}  // namespace kestrum
