#pragma once

// Pages in millimetres on a printer.

#include "report/drawing.h"

#include <vector>

class QPrinter;

namespace kestrum {

// False when the printer fails.
bool PrintPages(QPrinter& printer, const std::vector<Drawing>& pages);

}  // namespace kestrum
