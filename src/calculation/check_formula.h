#pragma once

// The formula of a check with its numbers, from the texts of core/check_list.inc and the terms that
// the calculation left.

#include "core/check.h"
#include "document/document.h"

#include <string_view>

namespace kestrum {

// "N_b,y,Rd" of the text "Nb,y,Rd", "α" of "alfa"; `lateral` of "xLT": χ_LT, or χ_LT,mod where
// 6.3.2.3 (2) modifies it. The moment resistance of a check of the member, with γ_M1, is
// "M_y,Rd,1".
Symbol SymbolOfCheck(std::string_view name, std::string_view lateral, bool of_member);

// Null for a remark, and for texts whose names and numbers do not pair.
Expr FormulaOfCheck(const Check& check, std::string_view lateral);

// "IR = formula = numbers = ratio [clause]", and where it holds.
void AddCheck(Document& d, const Check& check, std::string_view lateral, Line remark = {});

// "at x/L = 0.5", "between 1L/3 and 2L/3"; empty for the whole member.
Line PlaceOf(const CheckPlace& place);

}  // namespace kestrum
