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

}  // namespace kestrum
