#pragma once

#include "cli/renderer.h"
#include "report/pages.h"

namespace kestrum::cli {

// Printed pages have millimetres as units.
constexpr DrawingScale kPageScale{.mm = 1, .svg_pixels = 96 / 25.4, .png_pixels = 150 / 25.4};

// Date and time of the place where the program runs.
PrintStamp StampOfNow();

}  // namespace kestrum::cli
