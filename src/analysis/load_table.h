#pragma once

// The loads that act on the member, each with its own lines, before they are factored and summed.

#include "analysis/load_lines.h"
#include "core/load_combination.h"

#include <array>
#include <cstdint>

namespace kestrum {

// The axis a load bends about; a direction other than y and z bends about none.
enum class BendingAxis : std::uint8_t { y, z, none };

// One load that is not zero, with its lines for a factor of 1.
struct ActingLoad {
    BendingAxis axis;
    int category;  // 0 G, 1 Q1, 2 Q2
    bool checked;
    LoadLines lines;
};

// Uniform, point and trapezoidal loads, in this order.
struct LoadTable {
    int count = 0;
    std::array<ActingLoad, 16> load;
};

void FillTable(const Inputs& in, const Span& span, LoadTable& table);

// A category kept in single precision; anything but 0, 1, 2 belongs to no combination.
int CategoryOf(float category);

// Factor of a load; a category outside the three belongs to no combination.
double FactorOf(const LoadFactors& f, int category);

}  // namespace kestrum
