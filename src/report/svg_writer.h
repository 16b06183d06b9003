#pragma once

// A drawing as an SVG 1.1 document, without any toolkit. `pixels_per_unit` sets the size on screen.

#include "report/drawing.h"

#include <string>

namespace kestrum {

std::string WriteSvg(const Drawing& drawing, double pixels_per_unit = 1);
// The element alone, for a page of HTML.
std::string SvgElement(const Drawing& drawing, double pixels_per_unit = 1);

// The colour of an ink on paper, "#rrggbb"; the painter uses the same one.
std::string_view PaperColour(Ink ink);

}  // namespace kestrum
