#pragma once

// Numbers and result rows worked by hand are known to so many digits: a value must agree to half a
// unit of the last one.

#include "support/rows.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

namespace kestrum {

inline const double kRoot3 = std::sqrt(3.0);

inline void ExpectDigits(double value, double worked, const char* what, int digits = 4)
{
    if (worked == 0) {
        EXPECT_EQ(value, 0) << what;
        return;
    }
    const double last = std::pow(10.0, std::floor(std::log10(std::abs(worked))) - (digits - 1));
    EXPECT_NEAR(value, worked, 0.50001 * last) << what;
}

// Equal in the digits of an expectation worked to five digits.
inline void ExpectWorked(double value, double expected, const char* what, double relative = 1e-4)
{
    EXPECT_NEAR(value, expected, relative * std::abs(expected)) << what;
}

struct WorkedRow {
    double ir;
    std::string label;
    std::string calculation;  // template
    std::vector<double> numbers;
    std::string limit;  // template
};

inline void ExpectRow(const Check& row, const WorkedRow& worked, int digits = 4)
{
    ExpectDigits(row.ratio, worked.ir, "ratio", digits);
    EXPECT_EQ(LabelOf(row), worked.label);
    EXPECT_EQ(CalculationOf(row), worked.calculation);
    for (std::size_t i = 0; i < worked.numbers.size(); ++i) {
        ExpectDigits(row.terms[i], worked.numbers[i], worked.calculation.c_str());
    }
    EXPECT_EQ(LimitOf(row), worked.limit);
    EXPECT_EQ(row.status, worked.ir > 1 ? kAbove : kWithin);
}

}  // namespace kestrum
