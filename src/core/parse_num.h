#pragma once

// Typed numbers. Point and comma both serve as the decimal separator everywhere; what differs by
// the platform's separator is how rubbish is taken.

#include "core/state/types.h"

#include <optional>
#include <string_view>

namespace kestrum {

// The number that a user typed; blank is 0. On a platform with a decimal point the longest
// beginning that is a number counts ("12 mm" is 12, "abc" is 0, blanks inside are skipped) and
// nothing fails but an overflow of single precision. With a decimal comma the whole text must be
// one number; otherwise there is no value.
std::optional<float> ParseNum(std::string_view text, bool decimalcomma);

// The double whose shortest decimal is that of the float: 1.05 and not 1.0499999523.
double WidenNum(float value);

// A value for a whole-number field: nearest, halves to the even one; nothing outside 16 bits.
std::optional<i16> WholeNum(double value);

}  // namespace kestrum
