#pragma once

// Formulas in the notation of the formula editors of OpenDocument word processors. They read it in
// place of the MathML beside it, which they take apart by their own rules of precedence.

#include "document/document.h"

namespace kestrum {

// The parts of the equation as MathMlParts has them.
std::vector<std::string> StarMathParts(const Equation& equation, char decimal);

}  // namespace kestrum
