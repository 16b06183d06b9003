#pragma once

// Numbers as the program shows them, through patterns such as "#0.00": `0` is a digit always
// written, `#` one written when it is not a leading (before the point) or trailing (behind it)
// zero, `E+0` asks for an exponent with its sign. Everything before the first and behind the last
// of these characters is written as it stands. Halves are rounded away from zero on the decimal
// value: a single-precision number counts with 7 significant digits, a double with 15. The point is
// the separator in every locale, a value that rounds to zero has no sign, and what is no number is
// written as nothing.

#include <string>
#include <string_view>

namespace kestrum {

std::string FormatNum(float value, std::string_view pattern);
std::string FormatNum(double value, std::string_view pattern);

}  // namespace kestrum
