#pragma once

// The symbols of formulas that neither an equation nor a table of the report gives.

#include "document/document.h"

namespace kestrum {

// A chapter with their meanings; nothing where there are none.
void AddSymbols(Document& d);

}  // namespace kestrum
