#pragma once

// Formulas as MathML, for HTML and OpenDocument.

#include "document/document.h"

namespace kestrum {

std::string MathMlNumber(std::string_view number, char decimal);
std::string MathMlSymbol(const Symbol& symbol);
std::string MathMlFormula(const Expr& expr, char decimal);
std::string MathMlCalculation(const Expr& expr, int digits, char decimal);

// The parts of the equation: "N = formula", "= numbers", "= value unit"; an equation without
// formula has one.
std::vector<std::string> MathMlParts(const Equation& equation, char decimal);

}  // namespace kestrum
