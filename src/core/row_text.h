#pragma once

// The four texts of a result row.

#include "core/result_row.h"

#include <string>

namespace kestrum {

struct RowText {
    std::string label, calculation, result, limit;
    bool operator==(const RowText&) const = default;
};

// An empty row gives empty texts, a remark its label alone.
RowText TextOf(const ResultRow& row, float irlimit);

// The same for a reader: a sum is written as it adds up, "55.0/309.8-1.2/4.3". Where terms may
// count with either sign, these stand behind the numbers of the calculation, +1 or -1; else every
// term counts with its size.
RowText ShownTextOf(const ResultRow& row, float irlimit);

}  // namespace kestrum
