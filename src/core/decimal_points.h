#pragma once

// Which points of a text are decimal points: not those of clauses, equations, tables and names.

#include <cstddef>
#include <string_view>
#include <vector>

namespace kestrum {

// Their places, in order: of "EN 1993-1-1, 6.2.2.4, by up to 3.5 %" that of 3.5.
std::vector<std::size_t> DecimalPoints(std::string_view text);

}  // namespace kestrum
