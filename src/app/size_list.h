#pragma once

// Sizes of a dimension as they are typed: "300:900:50", "6,8,10", "plates", "plates:6:30", "tubes".

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kestrum {

// So many sizes a dimension may have.
constexpr std::size_t kMostSizes = 255;

// The size as it is typed, the shortest decimal.
std::string SizeText(float size);

// A finite number of 0 and above; nothing for other texts.
std::optional<double> SizeOfText(std::string_view text);

// What "tubes" stands for.
enum class TubeSize : std::uint8_t { none, diameter, wall };

// Appends the sizes of the text; at most one more than kMostSizes. False where it is no such text.
bool AddSizes(std::string_view text, TubeSize tube, std::vector<std::string>& sizes);

}  // namespace kestrum
