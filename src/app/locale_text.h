#pragma once

// What a user with a decimal comma reads in the window: one separator everywhere. Files, pages and
// the command line keep the point.

#include "report/drawing.h"
#include "report/panel.h"

#include <string>
#include <vector>

namespace kestrum {

// Numbers get a comma; references to a standard ("Ch 6.2.9", "Eq 6.10a", "EN 1993-1-5, 9.3",
// "Table 6.2") and versions ("1.3.1") keep their points.
std::string ForLocale(std::string text, bool decimalcomma);

// All texts of a drawing and of the result panel.
Drawing ForLocale(Drawing drawing, bool decimalcomma);
std::vector<PanelBlock> ForLocale(std::vector<PanelBlock> blocks, bool decimalcomma);

}  // namespace kestrum
