#pragma once

// Formulas in a line of text: "Φ = 0.5·(1 + α·(λ̄_y - 0.2) + λ̄_y^2)", with symbols or with the
// numbers of an equation.

#include "document/document.h"

namespace kestrum {

// "36.92·10^6" for "36.92e6", with the decimal sign.
std::string NumberInLine(std::string_view number, char decimal);

std::string SymbolInLine(const Symbol& symbol);
std::string FormulaInLine(const Expr& expr, char decimal);
std::string CalculationInLine(const Expr& expr, int digits, char decimal);

// The same as rich text with <sub> and <sup>.
std::string RichNumber(std::string_view number, char decimal);
std::string RichSymbol(const Symbol& symbol);
std::string RichFormula(const Expr& expr, char decimal);
std::string RichCalculation(const Expr& expr, int digits, char decimal);

// Whether a line is not broken at this blank: beside an equals sign.
bool KeptTogether(std::string_view text, std::size_t blank);
// The text with blanks there that no writer breaks at.
std::string WithFixedBlanks(std::string_view text);

// "kN", "kN/m²".
std::string UnitText(std::string_view unit);

}  // namespace kestrum
